#pragma once

#include "app/notices/linknotices.h"
#include "app/notices/notices.h"
#include "tests/support/sandbox.h"

#include <QStatusBar>
#include <QStringList>
#include <QWidget>

#include <memory>
#include <vector>

class VirtualTime;

/// The program's windows for a look at them: each as large as on a small laptop, filled with what
/// takes the most room there, in the language in force. They live as long as the set.
class ScreenSet
{
public:
    explicit ScreenSet(VirtualTime* time);
    ~ScreenSet();
    ScreenSet(const ScreenSet&) = delete;
    ScreenSet& operator=(const ScreenSet&) = delete;

    static QStringList names();
    /// Shows the window of that name.
    QWidget* open(const QString& name);

private:
    QWidget* openMainWindow(const QString& tab);
    QWidget* openSettings();
    QWidget* openBox(const QString& name);
    QWidget* openTracking(const QString& phase);
    QWidget* openManual();
    QWidget* openTransfer();
    QWidget* openPreview(bool isDecimal);
    QWidget* openTable(bool isFormer);
    QWidget* openQuestion();
    QWidget* openStatusBar();
    QWidget* keep(std::unique_ptr<QWidget> window);

    Sandbox m_sandbox;
    VirtualTime* m_time;
    QWidget m_desk; ///< what smaller windows open over
    QStatusBar m_bar;
    Notices m_notices{&m_bar, &m_desk};
    std::vector<std::unique_ptr<QWidget>> m_windows;
};

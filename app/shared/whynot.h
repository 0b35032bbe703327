#pragma once

#include "app/shared/enabledcontrols.h"
#include "app/shared/text.h"

#include <QObject>

class QWidget;

/// Says in the tooltip of a disabled widget why it is disabled. While it is enabled, the widget's
/// own tooltip is shown. GUI thread.
class WhyNot : public QObject
{
    Q_OBJECT
public:
    /// Enables the widget or disables it.
    static void permit(QWidget* widget, Permission permission);
    /// Disables the widget for the reason given, which is composed when it is shown; no function
    /// enables it.
    static void permit(QWidget* widget, const Text& reason);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit WhyNot(QWidget* widget);

    Text m_reason;
};

#pragma once

#include "app/help/manualwindow.h"

#include <QObject>
#include <QString>

/// Opens the manual when F1 is pressed in any window of the program, boxes included: while one of
/// them keeps the user from the others, a shortcut of the main window would be out of reach.
class HelpKey : public QObject
{
    Q_OBJECT
public:
    /// Needs the application object.
    explicit HelpKey(QString folder = ManualWindow::defaultFolder(), QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QString m_folder;
};

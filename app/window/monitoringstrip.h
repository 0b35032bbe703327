#pragma once

#include "serial/ldb/monitoring.h"

#include <QFrame>

class QLabel;
class QPushButton;

/// The line at the top of the window that says what is monitored and, where it is not, since when
/// and why; with a button that dismisses the lost LDBs while there are any. GUI thread.
class MonitoringStrip : public QFrame
{
    Q_OBJECT
public:
    explicit MonitoringStrip(QWidget* parent = nullptr);

    void setMonitoring(const Monitoring& monitoring);
    /// Whether the program waits for the port, which the user can end.
    void setWaiting(bool isWaiting);

    /// What the strip says, in the language in force.
    static QString text(const Monitoring& monitoring);

signals:
    /// The user gives up all lost LDBs.
    void dismissLost();
    /// The user waits for the port no more.
    void endWaiting();

protected:
    void changeEvent(QEvent* event) override;

private:
    void refresh();

    Monitoring m_monitoring;
    QLabel* m_text;
    QPushButton* m_dismiss;
    QPushButton* m_endWaiting;
    bool m_isWaiting = false;
};

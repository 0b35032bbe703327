#pragma once

#include <QCoreApplication>
#include <QObject>

class LogControls;
class QTabWidget;
class QWidget;
class StatusBarDisplay;

/// Tells the user what becomes of the log: a mark on its tab while records are written, a message
/// when a log cannot be begun, a box when one had to end. GUI thread.
class LogReports : public QObject
{
    Q_DECLARE_TR_FUNCTIONS(MainWindow)
public:
    /// `page` is the log's page of `tabs`. All four outlive this object, a child of `controls`.
    LogReports(LogControls* controls, QTabWidget* tabs, QWidget* page, StatusBarDisplay* status);

private:
    void showLogging(bool logging);
    void showStartFailed(const QString& fileName, const QString& reason);
    void showLoggingFailed(const QString& fileName, const QString& reason);

    QTabWidget* m_tabs;
    QWidget* m_page;
    StatusBarDisplay* m_status;
};

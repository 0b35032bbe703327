#include "app/logreports.h"

#include "app/logcontrols.h"
#include "app/messagebox.h"
#include "app/statusbardisplay.h"
#include "views/lamps/statusindicators.h"

#include <QIcon>
#include <QTabWidget>

LogReports::LogReports(LogControls* controls, QTabWidget* tabs, QWidget* page,
                       StatusBarDisplay* status)
    : QObject(controls)
    , m_tabs(tabs)
    , m_page(page)
    , m_status(status)
{
    connect(controls, &LogControls::loggingChanged, this, &LogReports::showLogging);
    connect(controls, &LogControls::startFailed, this, &LogReports::showStartFailed);
    connect(controls, &LogControls::loggingFailed, this, &LogReports::showLoggingFailed);
}

void LogReports::showLogging(bool logging)
{
    m_tabs->setTabIcon(m_tabs->indexOf(m_page),
                       logging ? QIcon(lampimage::draw(lampimage::kOrangered)) : QIcon());
}

void LogReports::showStartFailed(const QString& fileName, const QString& reason)
{
    m_status->showMessage([fileName, reason] {
        return tr("The log file %1 cannot be opened: %2").arg(fileName, reason);
    });
}

void LogReports::showLoggingFailed(const QString& fileName, const QString& reason)
{
    const auto compose = [fileName, reason] {
        return BoxText{tr("Error"), tr("Logging has stopped!"),
                       QStringLiteral("%1: %2").arg(fileName, reason)};
    };
    MessageBox::openNew(QMessageBox::Critical, compose, m_page->window());
}

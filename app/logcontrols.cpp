#include "app/logcontrols.h"

#include "app/applicationsettings.h"
#include "app/filedialog.h"
#include "views/log/filelogger.h"

#include <QAbstractButton>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QSpinBox>

LogControls::LogControls(const LogWidgets& widgets, FileLogger* logger, QObject* parent)
    : QObject(parent)
    , m_widgets(widgets)
    , m_logger(logger)
{
    connect(logger, &FileLogger::loggingFailed, this, &LogControls::processLoggingFailed);
    load();
}

void LogControls::load()
{
    const QSettings settings = applicationSettings();
    const bool all = settings.value(constants::kLogAllKey, true).toBool();
    m_widgets.path->setText(settings.value(constants::kLogPathKey).toString());
    m_widgets.interval->setValue(
        settings.value(constants::kLogIntervalKey, m_widgets.interval->value()).toInt());
    m_widgets.all->setChecked(all);
    m_widgets.selected->setChecked(!all);
    setLoggingAll(all);
}

void LogControls::save() const
{
    QSettings settings = applicationSettings();
    settings.setValue(constants::kLogPathKey, m_widgets.path->text());
    settings.setValue(constants::kLogIntervalKey, m_widgets.interval->value());
    settings.setValue(constants::kLogAllKey, m_widgets.all->isChecked());
}

void LogControls::retranslate()
{
    m_widgets.startStop->setText(m_widgets.startStop->isChecked() ? tr("Stop") : tr("Start"));
}

void LogControls::browse()
{
    const QFileInfo former(m_widgets.path->text());
    const QDir folder = m_widgets.path->text().isEmpty() ? QDir::home() : former.absoluteDir();
    filedialog::save(m_widgets.path->window(), tr("Log File"),
                     folder.filePath(logfilename::suggested(QDateTime::currentDateTime())), true,
                     [path = m_widgets.path](const QString& chosen) {
                         path->setText(logfilename::withSuffix(chosen));
                     });
}

void LogControls::setLoggingAll(bool all)
{
    m_logger->setMode(all ? FileLogger::LogAll : FileLogger::LogSelected);
}

void LogControls::switchLogging(bool on)
{
    if (on) {
        m_logger->setFileName(m_widgets.path->text());
        m_logger->setInterval(m_widgets.interval->value());
        save();
    }
    retranslate();
    m_widgets.path->setEnabled(!on);
    m_widgets.browse->setEnabled(!on);
    m_widgets.interval->setEnabled(!on);
    m_widgets.selected->setEnabled(!on);
    m_widgets.all->setEnabled(!on);
    if (m_logger->startStop(on)) {
        emit loggingChanged(on);
    } else {
        emit startFailed(m_widgets.path->text(), m_logger->errorString());
        m_widgets.startStop->click();
    }
}

void LogControls::processLoggingFailed(const QString& fileName, const QString& reason)
{
    m_widgets.startStop->setChecked(false);
    emit loggingFailed(fileName, reason);
}

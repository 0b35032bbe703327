#include "app/log/logpanel.h"

#include "app/notices/filedialog.h"
#include "app/notices/notices.h"
#include "app/shared/usersettings.h"
#include "app/shared/whynot.h"
#include "serial/ldb/generalinformation.h"
#include "ui_logpanel.h"
#include "views/log/filelogger.h"

#include <QDateTime>
#include <QDir>
#include <QEvent>
#include <QFileInfo>

namespace {

/// A wait that is no more than that for the first record, ms, is not worth a word.
constexpr qint64 kShortestGap = 2000;

} // namespace

LogPanel::LogPanel(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::LogPanel>())
    , m_logger(new FileLogger(this))
{
    m_ui->setupUi(this);
    connect(m_logger, &FileLogger::loggingFailed, this, &LogPanel::processLoggingFailed);
    connect(m_ui->logSelectedRadioButton, &QAbstractButton::toggled, m_logger,
            [this](bool selected) {
                m_logger->setMode(selected ? FileLogger::LogSelected : FileLogger::LogAll);
            });
    load();
    updateButtonText();
}

LogPanel::~LogPanel() = default;

void LogPanel::load()
{
    const QSettings settings = userSettings();
    const bool all = settings.value(constants::kLogAllKey, true).toBool();
    m_ui->logFilePathText->setText(settings.value(constants::kLogPathKey).toString());
    m_ui->logSpeedSpinBox->setValue(
        settings.value(constants::kLogIntervalKey, m_ui->logSpeedSpinBox->value()).toInt());
    m_ui->logAllRadioButton->setChecked(all);
    m_ui->logSelectedRadioButton->setChecked(!all);
}

void LogPanel::save() const
{
    QSettings settings = userSettings();
    settings.setValue(constants::kLogPathKey, m_ui->logFilePathText->text());
    settings.setValue(constants::kLogIntervalKey, m_ui->logSpeedSpinBox->value());
    settings.setValue(constants::kLogAllKey, m_ui->logAllRadioButton->isChecked());
}

void LogPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_ui->retranslateUi(this);
        updateButtonText();
        updateTexts();
    }
}

void LogPanel::updateButtonText()
{
    m_ui->logStartStopButton->setText(m_ui->logStartStopButton->isChecked() ? tr("Stop")
                                                                            : tr("Start"));
}

void LogPanel::on_logFileBrowseButton_clicked()
{
    const QString formerPath = m_ui->logFilePathText->text();
    const QDir folder = formerPath.isEmpty() ? QDir::home() : QFileInfo(formerPath).absoluteDir();
    filedialog::save(window(), tr("Log File"),
                     folder.filePath(logfilename::suggested(QDateTime::currentDateTime())), true,
                     [path = m_ui->logFilePathText](const QString& chosen) {
                         path->setText(logfilename::withSuffix(chosen));
                     });
}

void LogPanel::on_logStartStopButton_toggled(bool checked)
{
    const QString fileName = m_ui->logFilePathText->text();
    if (checked) {
        m_logger->setFileName(fileName);
        m_logger->setInterval(m_ui->logSpeedSpinBox->value());
        save();
    }
    updateButtonText();
    const auto reason = [] {
        return tr("A log is being written: stop it first.");
    };
    for (QWidget* widget : std::initializer_list<QWidget*>{
             m_ui->logFilePathText, m_ui->logFileBrowseButton, m_ui->logSpeedSpinBox,
             m_ui->logSelectedRadioButton, m_ui->logAllRadioButton}) {
        WhyNot::permit(widget, checked ? Text(reason) : Text());
    }
    if (checked) {
        beginLog();
    }
    if (m_logger->startStop(checked)) {
        updateStatus();
        return;
    }
    m_notices->say([fileName, reason = m_logger->errorString()] {
        return tr("The log file %1 cannot be opened: %2").arg(fileName, reason);
    });
    m_ui->logStartStopButton->click();
}

void LogPanel::beginLog()
{
    m_loggedLdb = m_selectedLdb;
    m_logger->setSelectedHexId(m_loggedLdb);
    m_lastRecord.reset();
    m_gap.reset();
}

void LogPanel::setSelectedLdb(const QString& hexId)
{
    m_selectedLdb = hexId;
    if (!m_logger->isLogging()) {
        m_logger->setSelectedHexId(hexId);
    } else if (m_loggedLdb.isEmpty()) {
        // The log was begun before there was any LDB.
        m_loggedLdb = hexId;
        m_logger->setSelectedHexId(hexId);
        updateTexts();
    }
}

bool LogPanel::isWanted(const QString& hexId) const
{
    return m_ui->logAllRadioButton->isChecked() || hexId == m_loggedLdb;
}

void LogPanel::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    m_names.insert(hexId, generalinformation::ownName(dataList));
    if (isWanted(hexId)) {
        m_lastRecord = generalinformation::clockTime(dataList);
        updateStatus();
    }
    m_logger->processData(hexId, dataList);
}

void LogPanel::setMonitoring(const Monitoring& monitoring)
{
    m_monitoring = monitoring;
    updateStatus();
}

void LogPanel::updateStatus()
{
    const bool isAll = m_ui->logAllRadioButton->isChecked();
    const QString& hexId = isAll ? m_monitoring.polledAlone : m_loggedLdb;
    Status status = Status::Off;
    if (m_logger->isLogging()) {
        status = m_monitoring.isLive(hexId, m_lastRecord) ? Status::Logging : Status::Waiting;
    }
    if (status != m_status) {
        if (status == Status::Waiting) {
            m_waitingSince = m_lastRecord.value_or(m_monitoring.now);
        } else if (m_status == Status::Waiting && m_lastRecord &&
                   *m_lastRecord - m_waitingSince >= kShortestGap) {
            m_gap = std::make_pair(m_waitingSince, *m_lastRecord);
        }
        m_status = status;
        emit statusChanged(status);
    }
    updateTexts();
}

void LogPanel::updateTexts()
{
    m_ui->logSubjectLabel->setText(subjectText());
    m_ui->logStatusLabel->setText(statusText());
}

QString LogPanel::subjectText() const
{
    if (!m_logger->isLogging() || m_ui->logAllRadioButton->isChecked() || m_loggedLdb.isEmpty()) {
        return {};
    }
    const QString name = m_names.value(m_loggedLdb).simplified();
    return name.isEmpty() ? tr("LDB %1").arg(m_loggedLdb)
                          : tr("LDB %1 (%2)").arg(m_loggedLdb, name);
}

QString LogPanel::statusText() const
{
    if (m_status == Status::Waiting) {
        return tr("Waiting for the bus since %1.").arg(m_monitoring.clockText(m_waitingSince));
    }
    return m_gap ? tr("No record came from %1 to %2.")
                       .arg(m_monitoring.clockText(m_gap->first),
                            m_monitoring.clockText(m_gap->second))
                 : QString();
}

void LogPanel::processLoggingFailed(const QString& fileName, const QString& reason)
{
    m_ui->logStartStopButton->setChecked(false);
    m_notices->box(QMessageBox::Critical, [fileName, reason] {
        return BoxText{tr("Error"), tr("Logging has stopped!"),
                       QStringLiteral("%1: %2").arg(fileName, reason)};
    });
}

#include "app/log/logpanel.h"

#include "app/notices/filedialog.h"
#include "app/notices/notices.h"
#include "app/shared/usersettings.h"
#include "ui_logpanel.h"
#include "views/log/filelogger.h"

#include <QDateTime>
#include <QDir>
#include <QEvent>
#include <QFileInfo>

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
    for (QWidget* widget : std::initializer_list<QWidget*>{
             m_ui->logFilePathText, m_ui->logFileBrowseButton, m_ui->logSpeedSpinBox,
             m_ui->logSelectedRadioButton, m_ui->logAllRadioButton}) {
        widget->setEnabled(!checked);
    }
    if (m_logger->startStop(checked)) {
        emit loggingChanged(checked);
        return;
    }
    m_notices->say([fileName, reason = m_logger->errorString()] {
        return tr("The log file %1 cannot be opened: %2").arg(fileName, reason);
    });
    m_ui->logStartStopButton->click();
}

void LogPanel::processLoggingFailed(const QString& fileName, const QString& reason)
{
    m_ui->logStartStopButton->setChecked(false);
    m_notices->box(QMessageBox::Critical, [fileName, reason] {
        return BoxText{tr("Error"), tr("Logging has stopped!"),
                       QStringLiteral("%1: %2").arg(fileName, reason)};
    });
}

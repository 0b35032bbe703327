#include "importexport/importexportdevicesettings.h"

#include "importexport/settingsexport.h"
#include "importexport/settingsimport.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QThread>

namespace {

const QString kDefaultFolder = QStringLiteral("/files/");
const QString kFileNameTemplate = QStringLiteral("/Device List[%1].csv");
const QString kFileNameTime = QStringLiteral("ddMMyyyy_hhmmss");

// What a message box can show on a small screen.
constexpr int kMaxFailuresShown = 12;

ImportExportDeviceSettings::ImportExportStatus statusOf(SettingsImport::Outcome outcome)
{
    switch (outcome) {
    case SettingsImport::Outcome::NotAllConnected:
        return ImportExportDeviceSettings::ImportFailedNotAllConnected;
    case SettingsImport::Outcome::SettingsMissing:
        return ImportExportDeviceSettings::ImportFailedSettingsMissing;
    case SettingsImport::Outcome::Finished:
        return ImportExportDeviceSettings::ImportFinished;
    case SettingsImport::Outcome::Failed:
        break;
    }
    return ImportExportDeviceSettings::ImportFailed;
}

} // namespace

ImportExportDeviceSettings::ImportExportDeviceSettings(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_defaultDirectory(QCoreApplication::applicationDirPath() + kDefaultFolder)
{
    qRegisterMetaType<ImportExportDeviceSettings::ImportExportStatus>();
}

ImportExportDeviceSettings::~ImportExportDeviceSettings() = default;

void ImportExportDeviceSettings::setDefaultDirectory(const QString& directory)
{
    m_defaultDirectory = directory;
}

QString ImportExportDeviceSettings::defaultFilePath() const
{
    return m_defaultDirectory +
           kFileNameTemplate.arg(QDateTime::currentDateTime().toString(kFileNameTime));
}

void ImportExportDeviceSettings::exportDeviceSettings()
{
    exportDeviceSettings(defaultFilePath());
}

void ImportExportDeviceSettings::importDeviceSettings()
{
    importDeviceSettings(defaultFilePath());
}

void ImportExportDeviceSettings::exportDeviceSettings(const QString& exportFilePath)
{
    Q_ASSERT(QThread::currentThread() == thread());
    cancel();
    m_failures.clear();
    m_export = std::make_unique<SettingsExport>(m_link);
    connect(m_export.get(), &SettingsExport::progressChanged, this,
            &ImportExportDeviceSettings::progressChanged);
    connect(m_export.get(), &SettingsExport::finished, this,
            &ImportExportDeviceSettings::processExportFinished);
    emit statusChanged(ExportStarted);
    if (m_export && !m_export->begin(exportFilePath)) {
        end(ExportFailed, m_export->failures());
    }
}

void ImportExportDeviceSettings::importDeviceSettings(const QString& importFilePath)
{
    Q_ASSERT(QThread::currentThread() == thread());
    cancel();
    m_failures.clear();
    m_import = std::make_unique<SettingsImport>(m_link);
    connect(m_import.get(), &SettingsImport::progressChanged, this,
            &ImportExportDeviceSettings::progressChanged);
    connect(m_import.get(), &SettingsImport::finished, this,
            [this](SettingsImport::Outcome outcome) { processImportFinished(statusOf(outcome)); });
    emit statusChanged(ImportStarted);
    if (m_import && !m_import->begin(importFilePath)) {
        end(ImportFailed, m_import->failures());
    }
}

void ImportExportDeviceSettings::cancel()
{
    m_export.reset();
    m_import.reset();
}

void ImportExportDeviceSettings::processExportFinished()
{
    const QStringList failures = m_export->failures();
    end(failures.isEmpty() ? ExportFinished : ExportFailed, failures);
}

void ImportExportDeviceSettings::processImportFinished(ImportExportStatus status)
{
    end(status, m_import->failures());
}

void ImportExportDeviceSettings::end(ImportExportStatus status, const QStringList& failures)
{
    m_failures = failures;
    // The job is done; it may be the sender of the signal that led here, and can stand it.
    cancel();
    emit statusChanged(status);
}

QString ImportExportDeviceSettings::failureText() const
{
    QStringList lines = m_failures.mid(0, kMaxFailuresShown);
    const int more = m_failures.size() - lines.size();
    if (more > 0) {
        lines.append(tr("and %n more", nullptr, more));
    }
    return lines.join(QLatin1Char('\n'));
}

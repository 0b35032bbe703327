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
    m_done = nullptr;
    m_export = std::make_unique<SettingsExport>(m_link);
    connect(m_export.get(), &SettingsExport::progressChanged, this,
            &ImportExportDeviceSettings::progressChanged);
    connect(m_export.get(), &SettingsExport::finished, this,
            &ImportExportDeviceSettings::processExportFinished);
    emit statusChanged(ExportStarted);
    if (m_export && !m_export->begin(exportFilePath)) {
        end(ExportFailed, *m_export);
    }
}

void ImportExportDeviceSettings::importDeviceSettings(const QString& importFilePath)
{
    Q_ASSERT(QThread::currentThread() == thread());
    cancel();
    m_failures.clear();
    m_done = nullptr;
    m_import = std::make_unique<SettingsImport>(m_link);
    connect(m_import.get(), &SettingsImport::progressChanged, this,
            &ImportExportDeviceSettings::progressChanged);
    connect(m_import.get(), &SettingsImport::finished, this,
            [this](SettingsImport::Outcome outcome) { processImportFinished(statusOf(outcome)); });
    emit statusChanged(ImportStarted);
    if (m_import && !m_import->begin(importFilePath)) {
        end(ImportFailed, *m_import);
    }
}

void ImportExportDeviceSettings::cancel()
{
    m_export.reset();
    m_import.reset();
}

void ImportExportDeviceSettings::processExportFinished()
{
    end(m_export->failures().empty() ? ExportFinished : ExportFailed, *m_export);
}

void ImportExportDeviceSettings::processImportFinished(ImportExportStatus status)
{
    m_touched = m_import->touchedLdbs();
    end(status, *m_import);
}

template <typename Transfer>
void ImportExportDeviceSettings::end(ImportExportStatus status, const Transfer& transfer)
{
    m_failures = transfer.failures();
    if (transfer.ldbCount() > 0) {
        m_done = [done = transfer.doneCount(), all = transfer.ldbCount()] {
            return tr("Done: %1 of %n LDB(s)", nullptr, all).arg(done);
        };
    }
    // The transfer is over; it may be the sender of the signal that led here, and can stand it.
    cancel();
    emit statusChanged(status);
}

QStringList ImportExportDeviceSettings::failures() const
{
    QStringList sentences;
    for (const Text& failure : m_failures) {
        sentences.append(failure());
    }
    return sentences;
}

Text ImportExportDeviceSettings::failureText() const
{
    return [done = m_done, failures = m_failures] {
        QStringList lines;
        for (const Text& failure : failures) {
            if (lines.size() < kMaxFailuresShown) {
                lines.append(failure());
            }
        }
        const int more = static_cast<int>(failures.size()) - lines.size();
        if (more > 0) {
            lines.append(tr("and %n more", nullptr, more));
        }
        if (done && !failures.empty()) {
            lines.prepend(done());
        }
        return lines.join(QLatin1Char('\n'));
    };
}

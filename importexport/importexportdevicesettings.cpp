#include "importexport/importexportdevicesettings.h"

#include "importexport/settingsbatch.h"
#include "importexport/settingsexport.h"
#include "importexport/settingsimport.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QThread>

#include <utility>

namespace {

const QString kDefaultFolder = QStringLiteral("/files/");
const QString kFileNameTemplate = QStringLiteral("/Device List[%1].csv");
const QString kFileNameTime = QStringLiteral("ddMMyyyy_hhmmss");

// What a message box can show on a small screen.
constexpr int kMaxFailuresShown = 12;

} // namespace

ImportExportDeviceSettings::ImportExportDeviceSettings(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_defaultDirectory(QCoreApplication::applicationDirPath() + kDefaultFolder)
{
    qRegisterMetaType<ImportExportDeviceSettings::ImportExportStatus>();
}

ImportExportDeviceSettings::~ImportExportDeviceSettings() = default;

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
    begin(std::make_unique<SettingsExport>(m_link), exportFilePath, ExportStarted, ExportFailed);
}

void ImportExportDeviceSettings::importDeviceSettings(const QString& importFilePath)
{
    auto transfer = std::make_unique<SettingsImport>(m_link);
    SettingsImport* import = transfer.get();
    connect(import, &LdbTransfer::planned, this, [this, import] {
        m_import = import;
        emit importPlanned();
    });
    begin(std::move(transfer), importFilePath, ImportStarted, ImportFailed);
}

void ImportExportDeviceSettings::begin(std::unique_ptr<LdbTransfer> transfer,
                                       const QString& filePath, ImportExportStatus started,
                                       ImportExportStatus failed)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_failures.clear();
    m_done = nullptr;
    m_transfer = std::move(transfer);
    connect(m_transfer.get(), &LdbTransfer::progressChanged, this,
            &ImportExportDeviceSettings::progressChanged);
    connect(m_transfer.get(), &LdbTransfer::finished, this, &ImportExportDeviceSettings::end);
    connect(m_transfer.get(), &LdbTransfer::stopped, this, &ImportExportDeviceSettings::endStopped);
    emit statusChanged(started);
    if (m_transfer && !m_transfer->begin(filePath)) {
        end(failed);
    }
}

const ImportPlan& ImportExportDeviceSettings::plan() const
{
    Q_ASSERT(m_import != nullptr);
    return m_import->plan();
}

const BusSnapshot& ImportExportDeviceSettings::bus() const
{
    Q_ASSERT(m_import != nullptr);
    return m_import->bus();
}

void ImportExportDeviceSettings::planWith(IdReading reading)
{
    if (m_import != nullptr) {
        m_import->planWith(reading);
    }
}

void ImportExportDeviceSettings::write()
{
    if (m_import != nullptr) {
        m_import->write();
    }
}

SettingsBatch* ImportExportDeviceSettings::write(std::vector<LdbChange> changes)
{
    return m_import != nullptr ? m_import->write(std::move(changes)) : nullptr;
}

void ImportExportDeviceSettings::stop()
{
    if (m_transfer) {
        m_transfer->stop();
    }
}

void ImportExportDeviceSettings::cancel()
{
    m_import = nullptr;
    m_transfer.reset();
}

void ImportExportDeviceSettings::takeResults()
{
    m_failures = m_transfer->failures();
    m_touched = m_transfer->touchedLdbs();
    m_doneLdbs = m_transfer->doneLdbs();
    m_leftLdbs = m_transfer->leftLdbs();
    if (m_transfer->ldbCount() > 0) {
        m_done = [done = m_doneLdbs.size(), all = m_transfer->ldbCount()] {
            return tr("Done: %1 of %n LDB(s)", nullptr, all).arg(done);
        };
    }
    // It may be the sender of the signal that led here, and can stand it.
    cancel();
}

void ImportExportDeviceSettings::end(ImportExportStatus status)
{
    takeResults();
    emit statusChanged(status);
}

void ImportExportDeviceSettings::endStopped()
{
    takeResults();
    emit stopped();
}

Text ImportExportDeviceSettings::stopText() const
{
    return [done = m_doneLdbs, left = m_leftLdbs, failures = failureText()] {
        const auto list = [](const QStringList& ldbs) {
            return ldbs.isEmpty() ? tr("none") : ldbs.join(QStringLiteral(", "));
        };
        if (done.isEmpty() && left.isEmpty()) {
            return tr("Nothing was written.");
        }
        QStringList lines{tr("Done: %1").arg(list(done)), tr("Not begun: %1").arg(list(left))};
        if (!failures().isEmpty()) {
            lines.append(failures());
        }
        return lines.join(QLatin1Char('\n'));
    };
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

#include "app/transfer/settingstransfer.h"

#include "app/notices/filedialog.h"
#include "app/notices/notices.h"
#include "app/notices/statusbardisplay.h"
#include "serial/link/seriallink.h"

namespace {

using Status = SettingsTransfer::Status;

constexpr int kFinishedMs = 5000;

bool isSuccess(Status status)
{
    return status == Status::ExportFinished || status == Status::ImportFinished;
}

bool isRunning(Status status)
{
    return status == Status::ExportStarted || status == Status::ImportStarted;
}

QString statusText(Status status)
{
    constexpr const char* kSettingsMissing =
        QT_TRANSLATE_NOOP("SettingsTransfer", "Importing LDB settings failed, settings are missing "
                                              "for connected LDB's");
    constexpr const char* kTexts[] = {
        QT_TRANSLATE_NOOP("SettingsTransfer", "Exporting LDB settings"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Exporting LDB settings finished"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Exporting LDB settings failed"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Importing LDB settings"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Importing LDB settings finished"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Importing LDB settings failed"),
        QT_TRANSLATE_NOOP("SettingsTransfer",
                          "Importing LDB settings failed, not all LDB's are connected"),
        kSettingsMissing}; // in the order of the enumerators
    return SettingsTransfer::tr(kTexts[status]);
}

} // namespace

SettingsTransfer::SettingsTransfer(SerialLink* link, Notices* notices, StatusBarDisplay* display,
                                   QWidget* window)
    : QObject(window)
    , m_link(link)
    , m_notices(notices)
    , m_display(display)
    , m_window(window)
{
}

SettingsTransfer::~SettingsTransfer() = default;

void SettingsTransfer::chooseExport()
{
    filedialog::save(m_window, tr("Select File"), QString(), false,
                     [this](const QString& path) { exportTo(path); });
}

void SettingsTransfer::chooseImport()
{
    filedialog::load(m_window, tr("Select File"),
                     [this](const QString& path) { importFrom(path); });
}

void SettingsTransfer::exportTo(const QString& path)
{
    if (ImportExportDeviceSettings* transfer = begin(Kind::Export)) {
        transfer->exportDeviceSettings(path);
    }
}

void SettingsTransfer::importFrom(const QString& path)
{
    if (ImportExportDeviceSettings* transfer = begin(Kind::Import)) {
        connect(transfer, &ImportExportDeviceSettings::importPlanned, this,
                &SettingsTransfer::processPlanned);
        m_importPath = path;
        transfer->importDeviceSettings(path);
    }
}

ImportExportDeviceSettings* SettingsTransfer::begin(Kind kind)
{
    if (m_isOn) {
        return nullptr;
    }
    m_transfer = std::make_unique<ImportExportDeviceSettings>(m_link);
    connect(m_transfer.get(), &ImportExportDeviceSettings::statusChanged, this,
            &SettingsTransfer::processStatus);
    connect(m_transfer.get(), &ImportExportDeviceSettings::stopped, this,
            &SettingsTransfer::processStopped);
    connect(m_transfer.get(), &ImportExportDeviceSettings::progressChanged, this,
            [this](int left, int total) { m_display->showTransferProgress(left, total); });
    setOn(kind);
    return m_transfer.get();
}

void SettingsTransfer::setOn(Kind kind)
{
    m_kind = kind;
    m_isOn = true;
    emit changed(true);
}

void SettingsTransfer::end()
{
    m_isOn = false;
    m_display->hideProgress();
    emit changed(false);
}

void SettingsTransfer::processPlanned()
{
    m_planned = std::move(m_transfer);
    m_transfer = std::make_unique<ImportExportDeviceSettings>(m_link);
    end();
    m_notices->say([] { return tr("Nothing has been imported yet."); });
    emit planned();
}

void SettingsTransfer::planWith(IdReading reading)
{
    if (m_planned) {
        m_planned->planWith(reading);
    }
}

void SettingsTransfer::refuse()
{
    if (m_planned) {
        m_planned.reset();
        m_notices->say([] { return tr("Nothing was imported."); }, kFinishedMs);
    }
}

SettingsBatch* SettingsTransfer::write(std::vector<LdbChange> changes)
{
    if (m_isOn || !m_link->isRunning()) {
        return nullptr;
    }
    if (m_planned) {
        m_transfer = std::move(m_planned);
        setOn(Kind::Import);
        m_notices->say([] { return statusText(Status::ImportStarted); });
        SettingsBatch* batch = m_transfer->write(std::move(changes));
        if (batch != nullptr) {
            connect(batch, &SettingsBatch::ldbDone, this,
                    [this](const SettingsOutcome& outcome) { emit ldbDone(outcome, true); });
        }
        return batch;
    }
    m_touched.clear();
    m_written.clear();
    m_failures.clear();
    m_batch = std::make_unique<SettingsBatch>(m_link, std::move(changes));
    connect(m_batch.get(), &SettingsBatch::ldbDone, this, &SettingsTransfer::processWritten);
    connect(m_batch.get(), &SettingsBatch::progressChanged, this,
            [this](int left, int total) { m_display->showTransferProgress(left, total); });
    // Queued: whoever follows the writing hears of its end before it is gone.
    connect(m_batch.get(), &SettingsBatch::finished, this, &SettingsTransfer::endWriting,
            Qt::QueuedConnection);
    setOn(Kind::Write);
    m_notices->say([] { return tr("Writing LDB settings"); });
    m_batch->start();
    return m_batch.get();
}

void SettingsTransfer::processWritten(const SettingsOutcome& outcome)
{
    if (!outcome.isUntouched()) {
        m_touched.append(outcome.hexId);
    }
    if (outcome.isGood()) {
        m_written.append(outcome.hexId);
    } else {
        m_failures.emplace_back(
            [outcome] { return tr("LDB %1: %2").arg(outcome.hexId, outcome.text()); });
    }
    emit ldbDone(outcome, false);
}

void SettingsTransfer::endWriting()
{
    const QStringList left = m_batch->left();
    m_batch.reset();
    end();
    const int written = m_written.size();
    if (m_failures.empty() && left.isEmpty()) {
        m_notices->say(
            [written] { return tr("The settings of %n LDB(s) are written.", nullptr, written); },
            kFinishedMs);
        return;
    }
    m_notices->say([] { return tr("Not all settings are written."); });
    m_notices->box(QMessageBox::Warning, [failures = m_failures, left, written] {
        QStringList lines{tr("Written: %n LDB(s)", nullptr, written)};
        for (const Text& failure : failures) {
            lines.append(failure());
        }
        if (!left.isEmpty()) {
            lines.append(tr("Not begun: %1").arg(left.join(QStringLiteral(", "))));
        }
        return BoxText{tr("Attention"), tr("Not all settings are written."),
                       lines.join(QLatin1Char('\n'))};
    });
}

void SettingsTransfer::stop()
{
    if (m_isOn) {
        m_notices->say([] { return tr("The transfer stops behind the LDB under way."); });
        m_batch ? m_batch->stop() : m_transfer->stop();
    }
}

void SettingsTransfer::processStopped()
{
    end();
    const char* text = m_kind == Kind::Import ? QT_TR_NOOP("Importing LDB settings was stopped.")
                                              : QT_TR_NOOP("Exporting LDB settings was stopped.");
    m_notices->say([text] { return tr(text); }, kFinishedMs);
    m_notices->box(QMessageBox::Warning, [text, details = m_transfer->stopText()] {
        return BoxText{tr("Attention"), tr(text), details()};
    });
}

void SettingsTransfer::processStatus(Status status)
{
    m_notices->say([status] { return statusText(status); }, isSuccess(status) ? kFinishedMs : 0);
    if (!isRunning(status)) {
        end();
        m_notices->box(
            isSuccess(status) ? QMessageBox::Information : QMessageBox::Critical,
            [status, details = m_transfer->failureText()] { return boxText(status, details()); });
    }
    emit statusChanged(status);
}

Text SettingsTransfer::underWay() const
{
    if (!m_isOn) {
        return {};
    }
    constexpr const char* kTexts[] = {
        QT_TR_NOOP("An export is under way. LDB's not read yet will be missing in the file."),
        QT_TR_NOOP("An import is under way. The LDB being written may be left with a part of its "
                   "settings."),
        QT_TR_NOOP("Settings are being written. The LDB being written may be left with a part of "
                   "them.")}; // in the order of the enumerators
    const char* text = kTexts[static_cast<int>(m_kind)];
    return [text] {
        return tr(text);
    };
}

BoxText SettingsTransfer::boxText(Status status, const QString& details)
{
    BoxText text{isSuccess(status) ? tr("Information") : tr("Error"),
                 tr("%1!").arg(statusText(status)), details};
    if (status == Status::ImportFailedNotAllConnected) {
        // The second apostrophe is wrong, and known so to those who look for this text.
        text.text = tr("Importing LDB settings failed, not all LDB's' are connected!");
    }
    return text;
}

#include "app/transfer/settingstransfer.h"

#include "app/notices/filedialog.h"
#include "app/notices/notices.h"
#include "app/notices/statusbardisplay.h"
#include "app/transfer/importpreview.h"

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
    if (ImportExportDeviceSettings* transfer = begin(false)) {
        transfer->exportDeviceSettings(path);
    }
}

void SettingsTransfer::importFrom(const QString& path)
{
    if (ImportExportDeviceSettings* transfer = begin(true)) {
        connect(transfer, &ImportExportDeviceSettings::importPlanned, this,
                [this, path] { preview(path); });
        transfer->importDeviceSettings(path);
    }
}

ImportExportDeviceSettings* SettingsTransfer::begin(bool isImport)
{
    if (m_isOn) {
        return nullptr;
    }
    m_transfer = std::make_unique<ImportExportDeviceSettings>(m_link);
    m_isImport = isImport;
    m_hasRefused = false;
    m_isOn = true;
    connect(m_transfer.get(), &ImportExportDeviceSettings::statusChanged, this,
            &SettingsTransfer::processStatus);
    connect(m_transfer.get(), &ImportExportDeviceSettings::stopped, this,
            &SettingsTransfer::processStopped);
    connect(m_transfer.get(), &ImportExportDeviceSettings::progressChanged, this,
            [this](int left, int total) { m_display->showTransferProgress(left, total); });
    emit changed(true);
    return m_transfer.get();
}

void SettingsTransfer::end()
{
    m_isOn = false;
    if (m_preview) {
        m_preview->disconnect(this);
        m_preview->close();
    }
    m_display->hideProgress();
    emit changed(false);
}

void SettingsTransfer::preview(const QString& path)
{
    m_display->hideProgress();
    m_preview = new ImportPreview(m_transfer->plan(), path, m_window);
    connect(m_preview, &ImportPreview::readingWanted, this, [this](IdReading reading) {
        m_transfer->planWith(reading);
        m_preview->setPlan(m_transfer->plan());
    });
    connect(m_preview, &QDialog::finished, this, [this](int result) {
        m_hasRefused = result != QDialog::Accepted;
        m_hasRefused ? m_transfer->stop() : m_transfer->write();
    });
    m_preview->open();
}

void SettingsTransfer::stop()
{
    if (m_isOn) {
        m_notices->say([] { return tr("The transfer stops behind the LDB under way."); });
        m_transfer->stop();
    }
}

void SettingsTransfer::processStopped()
{
    end();
    if (m_hasRefused) {
        m_notices->say([] { return tr("Nothing was imported."); }, kFinishedMs);
        return;
    }
    const char* text = m_isImport ? QT_TR_NOOP("Importing LDB settings was stopped.")
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
    const char* text =
        m_isImport ? QT_TR_NOOP("An import is under way. The LDB being written may be left with a "
                                "part of its settings.")
                   : QT_TR_NOOP("An export is under way. LDB's not read yet will be missing in the "
                                "file.");
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

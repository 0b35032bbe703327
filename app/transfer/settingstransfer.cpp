#include "app/transfer/settingstransfer.h"

#include "app/notices/filedialog.h"
#include "app/notices/notices.h"
#include "app/notices/statusbardisplay.h"

namespace {

using Status = SettingsTransfer::Status;

constexpr int kFinishedMs = 5000;

bool isSuccess(Status status)
{
    return status == Status::ExportFinished || status == Status::ImportFinished;
}

QString statusText(Status status)
{
    constexpr const char* kTexts[] = {
        QT_TRANSLATE_NOOP("SettingsTransfer", "Exporting LDB settings"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Exporting LDB settings finished"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Exporting LDB settings failed"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Importing LDB settings"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Importing LDB settings finished"),
        QT_TRANSLATE_NOOP("SettingsTransfer", "Importing LDB settings failed"),
        QT_TRANSLATE_NOOP("SettingsTransfer",
                          "Importing LDB settings failed, not all LDB's are connected"),
        QT_TRANSLATE_NOOP("SettingsTransfer",
                          "Importing LDB settings failed, settings are missing for connected "
                          "LDB's")}; // in the order of the enumerators
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
    begin()->exportDeviceSettings(path);
}

void SettingsTransfer::importFrom(const QString& path)
{
    begin()->importDeviceSettings(path);
}

ImportExportDeviceSettings* SettingsTransfer::begin()
{
    m_transfer = std::make_unique<ImportExportDeviceSettings>(m_link);
    connect(m_transfer.get(), &ImportExportDeviceSettings::statusChanged, this,
            &SettingsTransfer::processStatus);
    connect(m_transfer.get(), &ImportExportDeviceSettings::progressChanged, this,
            [this](int left, int total) { m_display->showTransferProgress(left, total); });
    return m_transfer.get();
}

void SettingsTransfer::processStatus(Status status)
{
    m_notices->say([status] { return statusText(status); }, isSuccess(status) ? kFinishedMs : 0);
    if (!isRunning(status)) {
        m_display->hideProgress();
        m_notices->box(
            isSuccess(status) ? QMessageBox::Information : QMessageBox::Critical,
            [status, details = m_transfer->failureText()] { return boxText(status, details()); });
    }
    emit statusChanged(status);
}

bool SettingsTransfer::isRunning(Status status)
{
    return status == Status::ExportStarted || status == Status::ImportStarted;
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

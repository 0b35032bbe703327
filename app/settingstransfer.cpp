#include "app/settingstransfer.h"

#include "app/filedialog.h"
#include "app/messagebox.h"
#include "app/statusbardisplay.h"
#include "app/transferreport.h"

SettingsTransfer::SettingsTransfer(SerialLink* link, StatusBarDisplay* display, QWidget* window)
    : QObject(window)
    , m_link(link)
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
    const TransferReport report = transferReport(status);
    m_display->showMessage([status] { return transferReport(status).statusText; }, report.statusMs);
    if (!report.running) {
        m_display->hideProgress();
        MessageBox::openNew(
            report.icon,
            [status, details = m_transfer->failureText()] {
                const TransferReport translated = transferReport(status);
                return BoxText{translated.boxTitle, translated.boxText, details()};
            },
            m_window);
    }
    emit statusChanged(status);
}

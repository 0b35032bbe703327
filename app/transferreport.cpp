#include "app/transferreport.h"

#include <QCoreApplication>

namespace {

constexpr int kFinishedMs = 5000;

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(TransferReport)
};

TransferReport started(const QString& statusText)
{
    TransferReport report;
    report.running = true;
    report.statusText = statusText;
    return report;
}

TransferReport finished(const QString& statusText, const QString& boxText)
{
    TransferReport report;
    report.statusText = statusText;
    report.statusMs = kFinishedMs;
    report.icon = QMessageBox::Information;
    report.boxTitle = Texts::tr("Information");
    report.boxText = boxText;
    return report;
}

TransferReport failed(const QString& statusText, const QString& boxText)
{
    TransferReport report;
    report.statusText = statusText;
    report.icon = QMessageBox::Critical;
    report.boxTitle = Texts::tr("Error");
    report.boxText = boxText;
    return report;
}

} // namespace

TransferReport transferReport(ImportExportDeviceSettings::ImportExportStatus status)
{
    using Transfer = ImportExportDeviceSettings;
    switch (status) {
    case Transfer::ExportStarted:
        return started(Texts::tr("Exporting LDB settings"));
    case Transfer::ExportFinished:
        return finished(Texts::tr("Exporting LDB settings finished"),
                        Texts::tr("Exporting LDB settings finished!"));
    case Transfer::ExportFailed:
        return failed(Texts::tr("Exporting LDB settings failed"),
                      Texts::tr("Exporting LDB settings failed!"));
    case Transfer::ImportStarted:
        return started(Texts::tr("Importing LDB settings"));
    case Transfer::ImportFinished:
        return finished(Texts::tr("Importing LDB settings finished"),
                        Texts::tr("Importing LDB settings finished!"));
    case Transfer::ImportFailed:
        return failed(Texts::tr("Importing LDB settings failed"),
                      Texts::tr("Importing LDB settings failed!"));
    case Transfer::ImportFailedNotAllConnected:
        return failed(
            Texts::tr("Importing LDB settings failed, not all LDB's are connected"),
            // The second apostrophe is wrong, and known so to those who look for this text.
            Texts::tr("Importing LDB settings failed, not all LDB's' are connected!"));
    case Transfer::ImportFailedSettingsMissing:
        return failed(
            Texts::tr("Importing LDB settings failed, settings are missing for connected LDB's"),
            Texts::tr("Importing LDB settings failed, settings are missing for connected LDB's!"));
    }
    return {};
}

#pragma once

#include "app/messagebox.h"
#include "importexport/importexportdevicesettings.h"

#include <QString>

/// How the main window shows a status of an export or import.
struct TransferReport
{
    bool running = false; ///< the transfer goes on
    QString statusText;
    int statusMs = 0; ///< 0: the status text stays
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString boxTitle;
    QString boxText; ///< empty: no box
};

/// In the language in force.
TransferReport transferReport(ImportExportDeviceSettings::ImportExportStatus status);

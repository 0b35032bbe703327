#pragma once

#include "serial/ldb/ldbsettings.h"

#include <QString>
#include <QTextStream>

class QFileDevice;

/// Writes a device-settings file, line by line. What is written is in the file at once.
class SettingsFileWriter
{
public:
    /// `file` is open, and outlives this object.
    explicit SettingsFileWriter(QFileDevice* file);

    // False when the file could not be written, then or before.
    /// What stands above the first LDB.
    bool writeHead();
    bool writeLine(const LdbSettings& settings, const QString& firmwareId);

    /// Whether the file can hold all characters of the line.
    static bool canHold(const LdbSettings& settings, const QString& firmwareId);

private:
    bool write(const QString& text);

    QFileDevice* m_file;
    QTextStream m_stream;
};

#pragma once

#include "app/settingstable/settingstablemodel.h"
#include "importexport/importplan.h"

/// A settings file in the table: its values as edits, or to compare with. A value without widgets.
class TableFile
{
public:
    TableFile() = default;
    TableFile(const QString& path, QByteArray content, IdReading reading);

    /// Without the folder.
    QString name() const { return m_name; }
    IdReading reading() const { return m_reading; }
    IdReading otherReading() const;
    void setReading(IdReading reading);
    /// Whether the names of the LDBs read so far fit better the other way.
    bool fitsBetterOtherwise(const std::vector<TableRow>& rows) const;
    /// How the IDs are read and, if the names fit better the other way, how many do.
    QString readingText(const std::vector<TableRow>& rows) const;

    /// The lines that can be used.
    OtherSettings settings() const;
    /// The lines' values, as edits.
    std::vector<SettingsTableModel::CellEdit> edits() const;
    /// What is wrong with the other lines, a sentence each.
    std::vector<Text> problems() const;

private:
    NameAgreement agreement(const std::vector<TableRow>& rows) const;

    QString m_name;
    QByteArray m_content;
    IdReading m_reading = IdReading::Hexadecimal;
    std::vector<DeviceSettingsLine> m_lines;
};

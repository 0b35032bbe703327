#include "app/settingstable/tablefile.h"

#include "importexport/settingscomparison.h"
#include "serial/ldb/busaddress.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SettingsTable)
};

bool isUsable(const DeviceSettingsLine& line)
{
    return line.settings && line.address >= busaddress::kFirst && line.address <= busaddress::kLast;
}

} // namespace

TableFile::TableFile(const QString& path, QByteArray content, IdReading reading)
    : m_name(QFileInfo(path).fileName())
    , m_content(std::move(content))
{
    setReading(reading);
}

IdReading TableFile::otherReading() const
{
    return m_reading == IdReading::Decimal ? IdReading::Hexadecimal : IdReading::Decimal;
}

void TableFile::setReading(IdReading reading)
{
    m_reading = reading;
    m_lines = DeviceSettingsFile::read(m_content, reading);
}

NameAgreement TableFile::agreement(const std::vector<TableRow>& rows) const
{
    std::map<QString, LdbSettings> read;
    for (const TableRow& row : rows) {
        if (row.read) {
            read.emplace(row.hexId, *row.read);
        }
    }
    return ImportPlan::compareNames(m_content, read);
}

bool TableFile::fitsBetterOtherwise(const std::vector<TableRow>& rows) const
{
    return agreement(rows).isAgainst(m_reading);
}

QString TableFile::readingText(const std::vector<TableRow>& rows) const
{
    const bool isDecimal = m_reading == IdReading::Decimal;
    QString text = isDecimal ? Texts::tr("The IDs of the file are read as decimal.")
                             : Texts::tr("The IDs of the file are read as hexadecimal.");
    const NameAgreement names = agreement(rows);
    if (!names.isAgainst(m_reading)) {
        return text;
    }
    return text + QLatin1Char(' ') +
           (isDecimal ? Texts::tr("The names fit better as hexadecimal: then %1 are those of the "
                                  "LDB's, now %2.")
                      : Texts::tr("The names fit better as decimal: then %1 are those of the "
                                  "LDB's, now %2."))
               .arg(names.with(otherReading()))
               .arg(names.with(m_reading));
}

OtherSettings TableFile::settings() const
{
    OtherSettings other{[name = m_name] { return name; }, {}, false};
    for (const DeviceSettingsLine& line : m_lines) {
        if (isUsable(line)) {
            other.ldbs.emplace(line.hexId, *line.settings);
        }
    }
    return other;
}

std::vector<SettingsTableModel::CellEdit> TableFile::edits() const
{
    std::vector<SettingsTableModel::CellEdit> edits;
    for (const DeviceSettingsLine& line : m_lines) {
        if (isUsable(line)) {
            for (const LdbField field : kFileFields) {
                edits.push_back({line.hexId, field, *line.settings});
            }
        }
    }
    return edits;
}

std::vector<Text> TableFile::problems() const
{
    std::vector<Text> problems;
    for (const DeviceSettingsLine& line : m_lines) {
        if (line.error) {
            problems.push_back(ImportPlan::lineText(line, m_reading, line.error));
        }
    }
    return problems;
}

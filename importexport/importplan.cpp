#include "importexport/importplan.h"

#include "serial/ldb/busaddress.h"

#include <QFile>

#include <algorithm>

namespace {

// A file of 253 LDBs has some 25 kB; whatever is far longer was chosen by mistake.
constexpr qint64 kMaxFileSize = 1024LL * 1024LL;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LdbTransfer)
};

bool isLdbAddress(int address)
{
    return address >= busaddress::kFirst && address <= busaddress::kLast;
}

int agreeing(const QByteArray& content, IdReading reading,
             const std::map<QString, LdbSettings>& settings)
{
    const auto lines = DeviceSettingsFile::read(content, reading);
    return static_cast<int>(std::count_if(lines.begin(), lines.end(), [&](const auto& line) {
        const auto ldb = settings.find(line.hexId);
        return line.settings && !line.settings->name.isEmpty() && ldb != settings.end() &&
               ldb->second.name == line.settings->name;
    }));
}

} // namespace

bool NameAgreement::isAgainst(IdReading reading) const
{
    return reading == IdReading::Decimal ? hexadecimal > decimal : decimal > hexadecimal;
}

int ImportPlan::ldbsToWrite() const
{
    return static_cast<int>(std::count_if(entries.begin(), entries.end(), [](const Entry& entry) {
        return !entry.comparison.isSame();
    }));
}

int ImportPlan::fieldsToWrite() const
{
    std::size_t fields = 0;
    for (const Entry& entry : entries) {
        fields += entry.comparison.fields.size();
    }
    return static_cast<int>(fields);
}

NameAgreement ImportPlan::compareNames(const QByteArray& content,
                                       const std::map<QString, LdbSettings>& settings)
{
    return {agreeing(content, IdReading::Hexadecimal, settings),
            agreeing(content, IdReading::Decimal, settings)};
}

QByteArray ImportPlan::load(const QString& filePath, Text& error)
{
    const auto say = [&error](const char* text, const QString& reason = {}) {
        error = [text, reason] {
            return reason.isEmpty() ? Texts::tr(text) : Texts::tr(text).arg(reason);
        };
        return QByteArray();
    };
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        return say(QT_TRANSLATE_NOOP("LdbTransfer", "The file cannot be opened: %1"),
                   file.errorString());
    }
    QByteArray content = file.read(kMaxFileSize + 1);
    if (file.error() != QFileDevice::NoError) {
        return say(QT_TRANSLATE_NOOP("LdbTransfer", "The file cannot be read: %1"),
                   file.errorString());
    }
    if (content.size() > kMaxFileSize) {
        return say(QT_TRANSLATE_NOOP("LdbTransfer", "The file is too long for a settings file."));
    }
    error = nullptr;
    return content;
}

ImportPlan ImportPlan::make(const QByteArray& content, IdReading reading, const BusSnapshot& bus)
{
    ImportPlan plan;
    plan.content = content;
    plan.reading = reading;
    plan.names = compareNames(content, bus.settings);
    QStringList withoutLine = bus.connected;
    const auto lines = DeviceSettingsFile::read(content, reading);
    plan.lineCount = static_cast<int>(lines.size());
    for (const DeviceSettingsLine& line : lines) {
        plan.take(line, bus);
        withoutLine.removeAll(line.hexId);
    }
    plan.hasMissingLines = !withoutLine.isEmpty();
    for (const QString& hexId : qAsConst(withoutLine)) {
        plan.problems.emplace_back([hexId] {
            return Texts::tr("LDB %1 (address %2): %3")
                .arg(hexId, QString::number(busaddress::fromHexId(hexId)),
                     Texts::tr("no line in the file"));
        });
    }
    return plan;
}

void ImportPlan::take(const DeviceSettingsLine& line, const BusSnapshot& bus)
{
    if (line.hexId.isEmpty()) {
        problems.push_back(lineText(line, reading, line.error));
        return;
    }
    if (!bus.connected.contains(line.hexId)) {
        hasUnconnected = true;
        const bool isLost = bus.known.contains(line.hexId);
        leaveOut(line,
                 isLost ? QT_TRANSLATE_NOOP("LdbTransfer", "this LDB is lost")
                 : isLdbAddress(line.address)
                     ? QT_TRANSLATE_NOOP("LdbTransfer", "no LDB with this address is connected")
                     : QT_TRANSLATE_NOOP("LdbTransfer", "no LDB can have this address"));
        return;
    }
    if (!line.settings) {
        hasWrongLines = true;
        problems.push_back(lineText(line, reading, line.error));
        return;
    }
    const auto present = bus.settings.find(line.hexId);
    if (present == bus.settings.end()) {
        hasWrongLines = true;
        leaveOut(line, QT_TRANSLATE_NOOP("LdbTransfer", "its present settings could not be read"));
        return;
    }
    entries.push_back(
        {line, SettingsComparison::withFile(line.hexId, present->second, *line.settings)});
}

void ImportPlan::leaveOut(const DeviceSettingsLine& line, const char* why)
{
    problems.push_back(lineText(line, reading, [why] { return Texts::tr(why); }));
}

Text ImportPlan::lineText(const DeviceSettingsLine& line, IdReading reading, const Text& what)
{
    if (line.hexId.isEmpty()) {
        return [number = line.number, id = line.idText, what] {
            return Texts::tr("Line %1: ID %2: %3").arg(QString::number(number), id, what());
        };
    }
    return [reading, number = line.number, id = line.idText, address = line.address, what] {
        return (reading == IdReading::Hexadecimal
                    ? Texts::tr("Line %1: ID %2 (read as %2 hexadecimal, address %3): %4")
                    : Texts::tr("Line %1: ID %2 (read as %2 decimal, address %3): %4"))
            .arg(QString::number(number), id, QString::number(address), what());
    };
}

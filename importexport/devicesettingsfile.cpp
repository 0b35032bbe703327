#include "importexport/devicesettingsfile.h"

#include "importexport/settingscsv.h"
#include "serial/ldb/busaddress.h"

#include <QMap>
#include <QTextCodec>

#include <algorithm>
#include <limits>

using namespace settingscsv;

namespace {

constexpr uint kIdLimit = 256;
constexpr int kShownIdLength = 20;

/// `fields` with the surplus ones joined to the name again, which may hold separators of its own.
QStringList withWholeName(QStringList fields)
{
    while (fields.size() > ColumnCount) {
        const QString rest = fields.takeAt(NameColumn + 1);
        fields[NameColumn] += QLatin1Char(kSeparator) + rest;
    }
    return fields;
}

int trailingEmptyFields(const QStringList& fields)
{
    const auto last = std::find_if(fields.crbegin(), fields.crend(),
                                   [](const QString& field) { return !field.isEmpty(); });
    return static_cast<int>(std::distance(fields.crbegin(), last));
}

Text say(const char* text)
{
    return [text] {
        return DeviceSettingsFile::tr(text);
    };
}

std::optional<bool> readFlag(const QString& field)
{
    const QString text = field.trimmed();
    if (text == QLatin1String("0") || text == QLatin1String("1")) {
        return text == QLatin1String("1");
    }
    return std::nullopt;
}

std::optional<quint16> readWord(const QString& field)
{
    const QString text = field.trimmed();
    // The conversion alone would let a sign through.
    const bool isNumber =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    bool ok = false;
    const uint number = text.toUInt(&ok);
    if (!isNumber || !ok || number > std::numeric_limits<quint16>::max()) {
        return std::nullopt;
    }
    return static_cast<quint16>(number);
}

/// Of the title or of the column titles, in whatever language: all call this column so.
bool isHeading(const QString& id)
{
    return id.startsWith(title()) || id.compare(columnTitle(IdColumn), Qt::CaseInsensitive) == 0 ||
           id.compare(QLatin1String("ID"), Qt::CaseInsensitive) == 0;
}

/// What can stand in a sentence, also of a file that is no text.
QString shown(QString id)
{
    for (QChar& character : id) {
        if (!character.isPrint()) {
            character = QLatin1Char('?');
        }
    }
    return id.size() <= kShownIdLength ? id : id.left(kShownIdLength) + QStringLiteral("...");
}

QString decoded(const QByteArray& content)
{
    const QTextCodec* codec = QTextCodec::codecForUtfText(content, QTextCodec::codecForLocale());
    QString text = codec->toUnicode(content);
    if (text.startsWith(QChar(QChar::ByteOrderMark))) {
        text.remove(0, 1);
    }
    return text;
}

} // namespace

std::vector<DeviceSettingsLine> DeviceSettingsFile::read(const QByteArray& content,
                                                         IdReading reading)
{
    std::vector<DeviceSettingsLine> result;
    int number = 0;
    const QStringList lines = decoded(content).split(QLatin1Char('\n'));
    for (QString line : lines) {
        ++number;
        if (line.endsWith(QLatin1Char('\r'))) {
            line.chop(1);
        }
        if (auto read = readLine(line, number, reading)) {
            result.push_back(*read);
        }
    }
    rejectRepeatedIds(result);
    return result;
}

std::optional<DeviceSettingsLine> DeviceSettingsFile::readLine(const QString& line, int number,
                                                               IdReading reading)
{
    const QString id = line.section(QLatin1Char(kSeparator), IdColumn, IdColumn).trimmed();
    if (id.isEmpty() || isHeading(id)) {
        return std::nullopt;
    }
    DeviceSettingsLine result;
    result.number = number;
    result.idText = shown(id);
    bool ok = false;
    const uint address = id.toUInt(&ok, reading == IdReading::Hexadecimal ? 16 : 10);
    if (!ok || address >= kIdLimit) {
        result.error = say(QT_TR_NOOP("The ID is no address"));
        return result;
    }
    result.address = static_cast<int>(address);
    result.hexId = busaddress::toHexId(result.address);
    readSettings(line, result);
    return result;
}

void DeviceSettingsFile::readSettings(const QString& line, DeviceSettingsLine& result)
{
    QStringList fields = line.split(QLatin1Char(kSeparator), Qt::KeepEmptyParts);
    if (fields.size() < ColumnCount) {
        result.error = [count = fields.size()] {
            return tr("%n field(s) instead of %1", nullptr, count).arg(ColumnCount);
        };
        return;
    }
    // Surplus fields are the rest of a name with separators in it, or empty ones with which a
    // spreadsheet made all lines equally long. Every way to read the line is tried; two that both
    // make sense leave it open what was meant.
    const int padding = std::min(trailingEmptyFields(fields), fields.size() - int{ColumnCount});
    int readings = 0;
    for (int dropped = 0; dropped <= padding; ++dropped) {
        const Reading reading = readFields(withWholeName(fields));
        if (!reading.error) {
            ++readings;
            result.settings = reading.settings;
            result.settings->address = result.address;
        } else {
            result.error = reading.error;
        }
        fields.removeLast();
    }
    if (readings == 1) {
        result.error = nullptr;
    } else if (readings > 1) {
        result.settings.reset();
        result.error = say(QT_TR_NOOP("It is not clear which fields belong to the name"));
    }
}

DeviceSettingsFile::Reading DeviceSettingsFile::readFields(const QStringList& fields)
{
    Reading reading;
    LdbSettings& settings = reading.settings;
    settings.name = fields.at(NameColumn);
    reading.error = nameError(settings.name);
    const auto complain = [&reading](const Text& error) {
        if (!reading.error) {
            reading.error = error;
        }
    };
    const auto flagOf = [&](Column column) {
        const std::optional<bool> flag = readFlag(fields.at(column));
        if (!flag) {
            complain([column] { return tr("\"%1\" is neither 0 nor 1").arg(columnTitle(column)); });
        }
        return flag.value_or(false);
    };
    const auto wordOf = [&](Column column) {
        const std::optional<quint16> word = readWord(fields.at(column));
        if (!word) {
            complain([column] {
                return tr("\"%1\" is no number from 0 to %2")
                    .arg(columnTitle(column))
                    .arg(std::numeric_limits<quint16>::max());
            });
        }
        return word.value_or(0);
    };
    settings.generalFaultOutput = flagOf(GeneralFaultOutputColumn);
    const bool openDetection = flagOf(OpenDetectionColumn);
    const quint16 delay = wordOf(OpenDetectionDelayColumn);
    settings.earthLeakageDetection = flagOf(EarthLeakageDetectionColumn);
    settings.earthWireOpenDetection = flagOf(EarthWireOpenDetectionColumn);
    settings.startInServiceMode = flagOf(StartInServiceModeColumn);
    settings.amplifierDetection = flagOf(AmplifierDetectionColumn);
    settings.numberOfFims = wordOf(NumberOfFimsColumn);
    if (openDetection && delay == 0) {
        // A delay of 0 is how an LDB is told to detect no opens: the two cannot both be meant.
        complain([] {
            return tr("\"%1\" is 1, but \"%2\" is 0")
                .arg(columnTitle(OpenDetectionColumn), columnTitle(OpenDetectionDelayColumn));
        });
    }
    settings.openDetectionDelay = openDetection ? delay : quint16{0};
    return reading;
}

Text DeviceSettingsFile::nameError(const QString& name)
{
    // Nothing in these files is quoted: quotation marks around a name are a spreadsheet's, and
    // must not become part of it.
    if (name.size() > 1 && name.startsWith(QLatin1Char('"')) && name.endsWith(QLatin1Char('"'))) {
        return say(QT_TR_NOOP("The name stands in quotation marks"));
    }
    const bool isReadable = std::none_of(name.begin(), name.end(), [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar(QChar::ReplacementCharacter);
    });
    if (!isReadable) {
        return say(QT_TR_NOOP("The name has characters that cannot be read"));
    }
    if (!isStorableName(name)) {
        return [] {
            return tr("The name does not fit into %n byte(s)", nullptr, kMaxNameBytes);
        };
    }
    return {};
}

void DeviceSettingsFile::rejectRepeatedIds(std::vector<DeviceSettingsLine>& lines)
{
    QMap<QString, int> counts;
    for (const DeviceSettingsLine& line : lines) {
        ++counts[line.hexId];
    }
    for (DeviceSettingsLine& line : lines) {
        if (!line.hexId.isEmpty() && counts.value(line.hexId) > 1) {
            line.settings.reset();
            line.error = say(QT_TR_NOOP("The ID has more than one line"));
        }
    }
}

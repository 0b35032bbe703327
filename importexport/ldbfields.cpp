#include "importexport/ldbfields.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <limits>
#include <variant>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LdbFields)
};

struct Field
{
    const char* name;
    LdbParameter parameter; ///< that carries it
    std::variant<QString LdbSettings::*, quint16 LdbSettings::*, bool LdbSettings::*> member;
};

// In the order of `LdbField`.
constexpr Field kFields[] = {
    {QT_TRANSLATE_NOOP("LdbFields", "Name"), LdbParameter::Name, &LdbSettings::name},
    {QT_TRANSLATE_NOOP("LdbFields", "Number of FIM's"), LdbParameter::NumberOfFims,
     &LdbSettings::numberOfFims},
    {QT_TRANSLATE_NOOP("LdbFields", "Open Detection Delay"), LdbParameter::OpenDetectionDelay,
     &LdbSettings::openDetectionDelay},
    {QT_TRANSLATE_NOOP("LdbFields", "General Fault Output"), LdbParameter::Flags,
     &LdbSettings::generalFaultOutput},
    {QT_TRANSLATE_NOOP("LdbFields", "Earth Leakage Detection"), LdbParameter::Flags,
     &LdbSettings::earthLeakageDetection},
    {QT_TRANSLATE_NOOP("LdbFields", "Earth Wire Open Detection"), LdbParameter::Flags,
     &LdbSettings::earthWireOpenDetection},
    {QT_TRANSLATE_NOOP("LdbFields", "Start in Service Mode"), LdbParameter::Flags,
     &LdbSettings::startInServiceMode},
    {QT_TRANSLATE_NOOP("LdbFields", "Amplifier Detection"), LdbParameter::Flags,
     &LdbSettings::amplifierDetection},
    {QT_TRANSLATE_NOOP("LdbFields", "Audio Mute"), LdbParameter::AudioMute,
     &LdbSettings::audioMute},
};
static_assert(std::size(kFields) == kLdbFields.size());

constexpr const Field& entryOf(LdbField field)
{
    return kFields[static_cast<std::size_t>(field)];
}

constexpr QChar kNoBreakSpace(0xA0);

QString valueText(const QString& name)
{
    return name.isEmpty() ? Texts::tr("no name") : name;
}
QString valueText(quint16 number)
{
    return QString::number(number);
}
QString valueText(bool flag)
{
    return flag ? Texts::tr("on") : Texts::tr("off");
}

QVariant toVariant(const QString& name)
{
    return name;
}
QVariant toVariant(quint16 number)
{
    return int{number}; // which views sort by size
}
QVariant toVariant(bool flag)
{
    return flag;
}

bool take(const QVariant& value, QString& name)
{
    const bool isGood = isStorableName(value.toString());
    name = isGood ? value.toString() : name;
    return isGood;
}
bool take(const QVariant& value, quint16& number)
{
    bool isNumber = false;
    const uint given = value.toUInt(&isNumber);
    const bool isGood = isNumber && given <= std::numeric_limits<quint16>::max();
    number = isGood ? static_cast<quint16>(given) : number;
    return isGood;
}
bool take(const QVariant& value, bool& flag)
{
    flag = value.toBool();
    return true;
}

} // namespace

bool isSameField(LdbField field, const LdbSettings& a, const LdbSettings& b)
{
    if (field == LdbField::Name && !a.nameBytes.isEmpty() && !b.nameBytes.isEmpty()) {
        return encodeName(a) == encodeName(b);
    }
    return std::visit([&](auto member) { return a.*member == b.*member; }, entryOf(field).member);
}

std::vector<LdbField> differingFields(const LdbSettings& a, const LdbSettings& b)
{
    std::vector<LdbField> fields;
    std::copy_if(kLdbFields.begin(), kLdbFields.end(), std::back_inserter(fields),
                 [&](LdbField field) { return !isSameField(field, a, b); });
    return fields;
}

void copyField(LdbField field, const LdbSettings& from, LdbSettings& to)
{
    std::visit([&](auto member) { to.*member = from.*member; }, entryOf(field).member);
    if (field == LdbField::Name) {
        to.nameBytes = from.nameBytes;
    }
}

LdbSettings factoryDefaults()
{
    constexpr quint16 kDefaultDelay = 10;
    LdbSettings settings;
    settings.generalFaultOutput = true;
    settings.openDetectionDelay = kDefaultDelay;
    settings.earthLeakageDetection = true;
    settings.amplifierDetection = true;
    return settings;
}

bool hasDefault(LdbField field)
{
    return field != LdbField::Name && field != LdbField::NumberOfFims;
}

FieldKind kindOf(LdbField field)
{
    return static_cast<FieldKind>(entryOf(field).member.index());
}

QVariant fieldVariant(LdbField field, const LdbSettings& settings)
{
    return std::visit([&](auto member) { return toVariant(settings.*member); },
                      entryOf(field).member);
}

bool setFieldVariant(LdbField field, const QVariant& value, LdbSettings& settings)
{
    const bool isTaken = std::visit([&](auto member) { return take(value, settings.*member); },
                                    entryOf(field).member);
    if (isTaken && field == LdbField::Name) {
        settings.nameBytes.clear(); // it was typed
    }
    return isTaken;
}

QString fieldName(LdbField field)
{
    return Texts::tr(entryOf(field).name);
}

QString fieldHead(LdbField field)
{
    constexpr const char* kHeads[] = {
        QT_TRANSLATE_NOOP("TableHeads", "Name"),
        QT_TRANSLATE_NOOP("TableHeads", "Number of FIM's"),
        QT_TRANSLATE_NOOP("TableHeads", "Open Detection Delay"),
        QT_TRANSLATE_NOOP("TableHeads", "General Fault Output"),
        QT_TRANSLATE_NOOP("TableHeads", "Earth Leakage Detection"),
        QT_TRANSLATE_NOOP("TableHeads", "Earth Wire Open Detection"),
        QT_TRANSLATE_NOOP("TableHeads", "Start in Service Mode"),
        QT_TRANSLATE_NOOP("TableHeads", "Amplifier Detection"),
        QT_TRANSLATE_NOOP("TableHeads", "Audio Mute")}; // in the order of the enumerators
    return QCoreApplication::translate("TableHeads", kHeads[static_cast<std::size_t>(field)]);
}

QString fieldUnit(LdbField field)
{
    return field == LdbField::OpenDetectionDelay ? QStringLiteral("s") : QString();
}

QString fieldValue(LdbField field, const LdbSettings& settings)
{
    const QString value =
        std::visit([&](auto member) { return valueText(settings.*member); }, entryOf(field).member);
    const QString unit = fieldUnit(field);
    return unit.isEmpty() ? value : value + kNoBreakSpace + unit;
}

LdbParameter parameterOf(LdbField field)
{
    return entryOf(field).parameter;
}

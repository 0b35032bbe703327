#include "importexport/ldbfields.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(LdbFields)
};

/// Calls `visit` with the member that holds the field.
template <typename Visitor>
auto withMember(LdbField field, Visitor visit)
{
    switch (field) {
    case LdbField::Name:
        break;
    case LdbField::NumberOfFims:
        return visit(&LdbSettings::numberOfFims);
    case LdbField::OpenDetectionDelay:
        return visit(&LdbSettings::openDetectionDelay);
    case LdbField::GeneralFaultOutput:
        return visit(&LdbSettings::generalFaultOutput);
    case LdbField::EarthLeakageDetection:
        return visit(&LdbSettings::earthLeakageDetection);
    case LdbField::EarthWireOpenDetection:
        return visit(&LdbSettings::earthWireOpenDetection);
    case LdbField::StartInServiceMode:
        return visit(&LdbSettings::startInServiceMode);
    case LdbField::AmplifierDetection:
        return visit(&LdbSettings::amplifierDetection);
    case LdbField::AudioMute:
        return visit(&LdbSettings::audioMute);
    }
    return visit(&LdbSettings::name);
}

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

} // namespace

bool isSameField(LdbField field, const LdbSettings& a, const LdbSettings& b)
{
    return withMember(field, [&](auto member) { return a.*member == b.*member; });
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
    withMember(field, [&](auto member) { to.*member = from.*member; });
}

QString fieldName(LdbField field)
{
    switch (field) {
    case LdbField::Name:
        return Texts::tr("Name");
    case LdbField::NumberOfFims:
        return Texts::tr("Number of FIM's");
    case LdbField::OpenDetectionDelay:
        return Texts::tr("Open Detection Delay");
    case LdbField::GeneralFaultOutput:
        return Texts::tr("General Fault Output");
    case LdbField::EarthLeakageDetection:
        return Texts::tr("Earth Leakage Detection");
    case LdbField::EarthWireOpenDetection:
        return Texts::tr("Earth Wire Open Detection");
    case LdbField::StartInServiceMode:
        return Texts::tr("Start in Service Mode");
    case LdbField::AmplifierDetection:
        return Texts::tr("Amplifier Detection");
    case LdbField::AudioMute:
        return Texts::tr("Audio Mute");
    }
    return {};
}

QString fieldValue(LdbField field, const LdbSettings& settings)
{
    return withMember(field, [&](auto member) { return valueText(settings.*member); });
}

QString parameterName(LdbParameter parameter)
{
    switch (parameter) {
    case LdbParameter::Name:
        return fieldName(LdbField::Name);
    case LdbParameter::NumberOfFims:
        return fieldName(LdbField::NumberOfFims);
    case LdbParameter::OpenDetectionDelay:
        return fieldName(LdbField::OpenDetectionDelay);
    case LdbParameter::AudioMute:
        return fieldName(LdbField::AudioMute);
    case LdbParameter::Flags:
        return Texts::tr("fault output, detection and service mode switches");
    case LdbParameter::Settings:
        break;
    }
    return {};
}

LdbParameter parameterOf(LdbField field)
{
    switch (field) {
    case LdbField::Name:
        return LdbParameter::Name;
    case LdbField::NumberOfFims:
        return LdbParameter::NumberOfFims;
    case LdbField::OpenDetectionDelay:
        return LdbParameter::OpenDetectionDelay;
    case LdbField::AudioMute:
        return LdbParameter::AudioMute;
    default:
        return LdbParameter::Flags;
    }
}

#pragma once

#include "serial/ldb/ldbsettings.h"

#include <QString>
#include <QVariant>

#include <array>
#include <vector>

/// The settings that a user can change, one by one.
enum class LdbField
{
    Name,
    NumberOfFims,
    OpenDetectionDelay, ///< with 0 for detection switched off
    GeneralFaultOutput,
    EarthLeakageDetection,
    EarthWireOpenDetection,
    StartInServiceMode,
    AmplifierDetection,
    AudioMute
};

constexpr std::array<LdbField, 9> kLdbFields = {LdbField::Name,
                                                LdbField::NumberOfFims,
                                                LdbField::OpenDetectionDelay,
                                                LdbField::GeneralFaultOutput,
                                                LdbField::EarthLeakageDetection,
                                                LdbField::EarthWireOpenDetection,
                                                LdbField::StartInServiceMode,
                                                LdbField::AmplifierDetection,
                                                LdbField::AudioMute};

/// Of two names that were read, the bytes count: one text can stand for several.
bool isSameField(LdbField field, const LdbSettings& a, const LdbSettings& b);
/// The fields in which the two differ.
std::vector<LdbField> differingFields(const LdbSettings& a, const LdbSettings& b);
void copyField(LdbField field, const LdbSettings& from, LdbSettings& to);

/// What a field is made of.
enum class FieldKind
{
    FreeText,
    Number, ///< of 16 bits
    Switch
};
FieldKind kindOf(LdbField field);

/// The field's value as a text, a number or a truth value.
QVariant fieldVariant(LdbField field, const LdbSettings& settings);
/// False, and nothing changes, for a value that no LDB can store.
bool setFieldVariant(LdbField field, const QVariant& value, LdbSettings& settings);

/// The field's name, and its value as words and with its unit, in the language in force.
QString fieldName(LdbField field);
/// The name, shortened in some languages, for a column.
QString fieldHead(LdbField field);
/// What a number of this field counts, as a sign; empty for a mere number.
QString fieldUnit(LdbField field);
QString fieldValue(LdbField field, const LdbSettings& settings);

/// What an LDB has after a factory reset. What tells one LDB from another, its name and its number
/// of FIMs, is no matter of defaults.
LdbSettings factoryDefaults();
bool hasDefault(LdbField field);

/// The parameter that carries the field; the flags travel together.
LdbParameter parameterOf(LdbField field);

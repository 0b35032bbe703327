#pragma once

#include "importexport/ldbfields.h"

#include <QStringList>

#include <vector>

/// The settings that a file holds. It has no column for the audio mute.
constexpr std::array<LdbField, 8> kFileFields = {LdbField::Name,
                                                 LdbField::NumberOfFims,
                                                 LdbField::OpenDetectionDelay,
                                                 LdbField::GeneralFaultOutput,
                                                 LdbField::EarthLeakageDetection,
                                                 LdbField::EarthWireOpenDetection,
                                                 LdbField::StartInServiceMode,
                                                 LdbField::AmplifierDetection};

/// What one LDB has beside what it is to have. A value.
struct SettingsComparison
{
    QString hexId;
    LdbSettings present;
    LdbSettings wanted;
    std::vector<LdbField> fields; ///< those that differ, in the order of `LdbField`

    /// Compares what a file holds; whatever else `wanted` says counts for nothing.
    static SettingsComparison withFile(const QString& hexId, const LdbSettings& present,
                                       const LdbSettings& wanted);

    bool isSame() const { return fields.empty(); }
    /// The parameters that carry the fields, each once, in no order.
    std::vector<LdbParameter> parameters() const;
    /// "field: old -> new" for each field, in the language in force.
    QStringList changeTexts() const;
};

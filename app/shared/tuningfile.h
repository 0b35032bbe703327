#pragma once

#include "app/shared/constants.h"

#include <QSettings>

#include <optional>

/// The tuning file, for every room: in the working directory, and only read. One that is missing
/// reads like an empty one.
inline QSettings tuningFile(const QString& fileName = QString(constants::kTuningFileName))
{
    return QSettings(fileName, QSettings::IniFormat);
}

/// A whole number of the tuning file. A key that is missing, or holds anything else, gives the
/// default (or `wrongNumber`); the latter is warned of, so that no slip of the pen is taken for
/// what was meant. Within the group that is open.
int tuningNumber(const QSettings& tuning, const QString& key, int defaultNumber,
                 std::optional<int> wrongNumber = std::nullopt);

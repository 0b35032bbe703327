#pragma once

#include "app/shared/constants.h"

#include <QSettings>

/// The tuning file, for every room: in the working directory, and only read. One that is missing
/// reads like an empty one.
inline QSettings tuningFile(const QString& fileName = QString(constants::kTuningFileName))
{
    return QSettings(fileName, QSettings::IniFormat);
}

/// A whole number of the tuning file. A key that is missing, or holds anything else, gives the
/// default; the latter is warned of, so that a slip of the pen is not taken for 0.
int tuningNumber(const QSettings& tuning, const QString& key, int defaultNumber);

#pragma once

#include "app/shared/constants.h"

#include <QSettings>

/// The per-user settings, for every room. Opened for each use and closed after it, which writes
/// changes back.
inline QSettings userSettings()
{
    return QSettings(constants::kOrganisationName, constants::kApplicationDisplayName);
}

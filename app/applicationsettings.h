#pragma once

#include "app/shared/constants.h"

#include <QSettings>

/// The per-user settings. Opened for each use and closed after it, which writes changes back.
inline QSettings applicationSettings()
{
    return QSettings(constants::kOrganisationName, constants::kApplicationDisplayName);
}

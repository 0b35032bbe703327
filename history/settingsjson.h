#pragma once

#include "serial/ldb/ldbsettings.h"

#include <QJsonObject>

#include <optional>

/// An LDB's settings as the files of this room hold them. Pure functions.
namespace settingsjson {

QJsonObject toJson(const LdbSettings& settings);
/// Nothing unless every field is there and in its range: half of an LDB's settings are none.
std::optional<LdbSettings> settingsFrom(const QJsonObject& object);

} // namespace settingsjson

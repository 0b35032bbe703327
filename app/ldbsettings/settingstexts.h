#pragma once

#include "app/ldbsettings/ldbsettingsedit.h"

/// What the editor says about its edits, in the language in force. `failed`: the last Save, where
/// it did not bring everything into the LDB; null otherwise.
namespace settingstexts {

/// Of one field; empty where it is as in the LDB.
QString ofField(const LdbSettingsEdit& edit, LdbField field, const SettingsOutcome* failed);

/// Of all: how many are changed, what somebody else has changed, and what was not saved.
QStringList ofAll(const LdbSettingsEdit& edit, const SettingsOutcome* failed);

/// The changed fields with the values that the user gave them.
QStringList changes(const LdbSettingsEdit& edit);

} // namespace settingstexts

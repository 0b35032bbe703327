#pragma once

#include "docs/screenshots/stage.h"

#include <QStringList>

/// Takes the pictures of one part of the manual. Names and what they need:
///   overview, editing, transfer, losses, sites
///   tracking SCENARIO commissioning|fault-finding [PREFIX]
/// False where there is no such scene.
bool playScene(const Stage::Options& options, const QStringList& words);

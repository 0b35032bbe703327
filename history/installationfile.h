#pragma once

#include "history/installation.h"

#include <QByteArray>

/// The file of an installation: JSON, readable by people. Pure.
namespace installationfile {

/// `withUse`: with the port and the time of its last use.
QByteArray encode(const Installation& installation, bool withUse);

/// Without an id; nothing unless all of it can be understood: half of an installation is none.
std::optional<Installation> decode(const QByteArray& bytes);

} // namespace installationfile

#pragma once

#include "serial/ldb/ldbstatus.h"
#include "simulator/board/loopmodel.h"
#include "simulator/board/storedsettings.h"

#include <QByteArray>

/// The bodies that a board answers with, before the frame is put around them. Pure functions.
namespace answerencoder {

/// The present and remembered bits of a fault field.
quint8 phaseBits(FaultPhase phase);
quint8 nibbles(quint8 high, quint8 low);

/// 50 characters.
QByteArray status(const LdbStatus& status);
/// 56 characters.
QByteArray settings(int address, const StoredSettings& settings);
/// 32 digits: 16 bytes, filled with zero bytes.
QByteArray name(const QByteArray& name);
/// The id's bytes as digits.
QByteArray firmware(const QByteArray& id);

} // namespace answerencoder

#pragma once

#include "serial/ldb/exchange.h"

#include <QList>

#include <optional>

/// What an exchange's bytes say, and which bytes its kind says already. Pure functions, callable
/// from any thread.
namespace exchangebytes {

/// The request on the wire, where kind and LDB alone say it; empty otherwise.
QByteArray usualRequest(ExchangeKind kind, const QString& hexId);

/// The bodies of the sound frames in what came, in order. Before the answer an earlier question's
/// may have come, and after it a second one to a repeated question.
QList<QByteArray> answerBodies(const QByteArray& answer);

/// Half as long, for what is kept in large numbers: of an answer that is one frame of digit pairs
/// the bytes that those stand for, the check digits' too. Nothing for any other.
std::optional<QByteArray> packed(const QByteArray& answer);
/// The answer again, to the byte.
QByteArray unpacked(const QByteArray& packed);

} // namespace exchangebytes

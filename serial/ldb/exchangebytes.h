#pragma once

#include "serial/ldb/exchange.h"

/// What an exchange's bytes say, and which bytes its kind says already. Pure functions, callable
/// from any thread.
namespace exchangebytes {

/// The request on the wire, where kind and LDB alone say it; empty otherwise.
QByteArray usualRequest(ExchangeKind kind, const QString& hexId);

/// The body of the first sound frame in what came; empty where there is none.
QByteArray answerBody(const QByteArray& answer);

} // namespace exchangebytes

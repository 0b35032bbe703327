#pragma once

#include "serial/ldb/answershape.h"
#include "serial/ldb/exchange.h"
#include "serial/ldb/ldbsettings.h"

#include <QByteArray>
#include <QString>

/// One question to the bus: whom it asks, its body (without start, check digits and end), and what
/// its answer looks like.
struct Request
{
    QString hexId;
    QByteArray body;
    AnswerShape answer = AnswerShape::Any;
    /// Whether it changes nothing in the LDB, so that two equal ones may become one.
    bool isRead = true;

    bool isBroadcast() const;
    /// As a queued command.
    ExchangeKind exchangeKind() const;
    /// For people: "status of 0A".
    QString text() const;
};

namespace requests {

/// Whether an LDB stands at this address.
Request poll(const QString& hexId);
/// Reads a parameter.
Request read(const QString& hexId, int index, const QByteArray& data = {});
/// Writes a parameter.
Request change(const QString& hexId, int index, const QByteArray& data);
/// Starts an action.
Request execute(const QString& hexId, int index, const QByteArray& data = {});

// What every round asks each LDB.
Request status(const QString& hexId);
Request name(const QString& hexId);
Request firmware(const QString& hexId);

} // namespace requests

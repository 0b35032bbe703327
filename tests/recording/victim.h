#pragma once

#include "tests/recording/recordedbus.h"

/// What a program that is killed has recorded: what is at each place can be told from its number.
namespace victim {

inline const QDateTime& begin()
{
    static const QDateTime time(QDate(2026, 3, 4), QTime(1, 0));
    return time;
}
constexpr int kLdbs = 32;
constexpr int kBatch = 20;

/// The status of exchange `number`: it is in the voltages.
inline QByteArray statusOf(int number)
{
    QByteArray body = TestBus::status();
    const QByteArray digits = QByteArray::number(number, 16).toUpper().rightJustified(8, '0');
    body.replace(26, 4, digits.left(4));
    body.replace(34, 4, digits.right(4));
    return body;
}

inline QString hexIdOf(int number)
{
    return QString::number(1 + number % kLdbs, 16).toUpper().rightJustified(2, '0');
}

inline Exchange exchangeOf(int number)
{
    Exchange exchange;
    exchange.sentAt = begin().toMSecsSinceEpoch() * 1000 + number * 50000LL;
    exchange.hexId = hexIdOf(number);
    exchange.kind = ExchangeKind::Status;
    exchange.outcome = ExchangeOutcome::Believed;
    exchange.flight = 31000 + number % 1000;
    exchange.request = exchangebytes::usualRequest(exchange.kind, exchange.hexId);
    exchange.answer = TestBus::framed(statusOf(number));
    return exchange;
}

} // namespace victim

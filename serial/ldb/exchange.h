#pragma once

#include <QByteArray>
#include <QMetaType>
#include <QString>

/// What a transmission asks for.
enum class ExchangeKind : quint8
{
    Probe,
    Status,
    Name,
    Firmware,
    Read,     ///< a queued command that reads
    Write,    ///< a queued command that writes a parameter
    Action,   ///< a queued command that starts an action
    Broadcast ///< for all LDBs; nobody answers
};

/// What became of a transmission.
enum class ExchangeOutcome : quint8
{
    Believed,
    Unbelieved, ///< a sound answer that may be another question's
    Damaged,
    Silent, ///< nothing came, or nothing was to come
    Late    ///< what came was too soon for this question: an earlier one's late answer
};

/// One transmission and what came until the next one. A plain value.
struct Exchange
{
    qint64 sentAt = 0; ///< UTC, µs since 1970; within a run it only grows, whatever the clock does
    QString hexId;     ///< whom it asks; of a broadcast the broadcast's address
    ExchangeKind kind = ExchangeKind::Status;
    ExchangeOutcome outcome = ExchangeOutcome::Silent;
    qint64 flight = -1;   ///< µs from the transmission to the answer; -1 without one
    QByteArray request;   ///< as on the wire
    QByteArray answer;    ///< everything that came, as on the wire
    bool isExtra = false; ///< a status asked between the turns, not part of the round
};

Q_DECLARE_METATYPE(Exchange)

#pragma once

#include "recording/recorderinput.h"

#include <QDateTime>
#include <QHash>
#include <QList>

#include <functional>
#include <optional>

/// Makes the recorder's input of what the serial link tells, in the order in which it is told. Owns
/// no clock or thread. It keeps a limited number of inputs until the writer has taken them; what
/// does not fit becomes a gap.
class RecordCollector
{
public:
    /// `now`: the time of day, ms since 1970 UTC.
    explicit RecordCollector(std::function<qint64()> now);

    void runBegun(const QString& port);
    void runEnded();
    void roundBegun(const QDateTime& wall);
    void roundEnded() { m_isRoundOn = false; }
    void exchanged(const Exchange& exchange);
    /// Comes before its exchange, which is told when the next transmission begins.
    void record(const QString& hexId, const QList<QStringList>& rows);
    void listChanged(const QStringList& hexIds);
    void scanEnded(const QStringList& found);
    /// An event without a time is of now.
    void event(RecordedEvent event);

    /// Everything since the last call, to be written.
    RecorderInputs take();
    /// How many of the inputs taken the writer still has.
    void setUnwritten(int inputs) { m_unwritten = inputs; }
    /// The moment of now, on the time line of the exchanges (UTC, µs since 1970).
    qint64 moment() const;

    /// How many inputs may wait, here and with the writer: some ten minutes of a busy bus.
    static constexpr int kMostInputs = 20000;

private:
    void put(const RecorderInput& input);
    void putRound(const Exchange& exchange);
    void putStatus(const Exchange& exchange);
    void putRecordTime(qint64 at, const QList<QStringList>& rows);
    void putName(qint64 at, const QString& hexId, const QList<QStringList>& rows);
    qint64 nextMoment();

    std::function<qint64()> m_now;
    RecorderInputs m_inputs;
    int m_unwritten = 0;
    bool m_isRunning = false;
    qint64 m_last = 0;                   ///< the latest moment of this run
    qint64 m_drift = 0;                  ///< what the clock shows, less the time line; µs
    std::optional<QDateTime> m_roundDue; ///< told, but none of its exchanges yet
    bool m_isRoundOn = false;
    bool m_isBreakDue = false;  ///< the round before the one due was not whole
    bool m_isFormerDue = false; ///< an exchange of the round before is still to come
    bool m_hasExchange = false; ///< in this run
    QDateTime m_round;
    struct Record
    {
        QString hexId;
        QList<QStringList> rows;
    };
    std::optional<Record> m_record; ///< told, but its exchange not yet
    QHash<QString, QString> m_names;
    QStringList m_list;
    qint64 m_gapFrom = 0;
    int m_gapCount = 0;
};

#pragma once

#include "serial/wire/framecodec.h"
#include "simulator/bus/lineboards.h"
#include "tests/support/testcase.h"

#include <algorithm>

Q_DECLARE_METATYPE(LineKind)

/// A line with boards 0A, 0B and 0C on it, and everything that has arrived at its master, timed.
class LineRun
{
public:
    struct Byte
    {
        char value;
        qint64 at; // µs

        bool operator==(const Byte& other) const { return value == other.value && at == other.at; }
    };

    static constexpr qint64 kSecond = 1000000;
    static constexpr qint64 kTurnaround = 5000;

    /// Answers come 5 ms after the request unless `options` say otherwise.
    static LineOptions options(LineKind kind = LineKind::FullDuplex, quint64 seed = 1)
    {
        LineOptions options;
        options.kind = kind;
        options.seed = seed;
        options.leastTurnaround = kTurnaround;
        options.mostTurnaround = kTurnaround;
        return options;
    }

    explicit LineRun(const Adversaries& adversaries = {},
                     const LineOptions& options = LineRun::options())
        : boards({0x0A, 0x0B, 0x0C})
        , line(options, adversaries, boards)
    {
    }
    LineRun(const LineRun&) = delete;
    LineRun& operator=(const LineRun&) = delete;

    void send(const QByteArray& body) { line.transmit(framecodec::createCommand(body), now); }

    /// Lets time pass, taking every byte at the moment it can be had.
    void runUntil(qint64 time)
    {
        for (qint64 next = line.nextArrival(); next <= time; next = line.nextArrival()) {
            QVERIFY2(next >= now, "time runs backwards");
            now = next;
            for (const char byte : line.takeArrived(now)) {
                arrived.push_back({byte, now});
            }
        }
        now = std::max(now, time);
        line.advance(now);
    }
    void run(qint64 microseconds) { runUntil(now + microseconds); }

    QByteArray bytes() const
    {
        QByteArray result;
        for (const Byte& byte : arrived) {
            result.append(byte.value);
        }
        return result;
    }
    /// What has arrived since the last call.
    QByteArray take()
    {
        QByteArray result = bytes();
        arrived.clear();
        return result;
    }

    const LineExchange& exchange(int index) const
    {
        return line.book().exchanges().at(static_cast<std::size_t>(index));
    }
    /// The one answer of an exchange.
    const LineAnswer& answer(int index) const { return exchange(index).answers.front(); }
    const LineExchange& last() const { return line.book().exchanges().back(); }

    LineBoards boards;
    Line line;
    std::vector<Byte> arrived;
    qint64 now = 0;
};

/// What the tests of a line share.
namespace linerun {

constexpr qint64 kSecond = LineRun::kSecond;
constexpr qint64 kTurnaround = LineRun::kTurnaround;
constexpr int kRequestBytes = 14;
constexpr int kPollBytes = 10;
constexpr int kStatusBytes = 54;
const QByteArray kStatus("FE0A737803");
const QByteArray kOtherStatus("FE0B737803");
const QByteArray kName("FE0A737202");
const QByteArray kPoll("FE0A70");

/// 10 bits at 9600 baud, rounded up to whole microseconds.
inline qint64 wireTime(int bytes)
{
    return (bytes * qint64{1041667} + 999) / 1000;
}

/// Whether on each kind of line a request and an answer, or two answers, damage each other.
inline void addKinds()
{
    addColumns<LineKind, bool, bool>("kind", "withRequests", "withAnswers");
    QTest::newRow("full duplex") << LineKind::FullDuplex << false << true;
    QTest::newRow("half duplex") << LineKind::HalfDuplex << true << true;
    QTest::newRow("queuing converter") << LineKind::QueuingConverter << false << false;
}

/// The frames with right check digits in a stream, cut as a master does it.
inline QList<QByteArray> soundFrames(const QByteArray& stream)
{
    QList<QByteArray> frames;
    QByteArray frame;
    for (const char byte : stream) {
        if (byte == '\x01') {
            frame.clear();
        }
        frame.append(byte);
        QByteArray body = frame;
        if (byte == '\x04' && frame.startsWith('\x01') && framecodec::responseValidation(body)) {
            frames.append(frame);
        }
        if (byte == '\x04') {
            frame.clear();
        }
    }
    return frames;
}

} // namespace linerun

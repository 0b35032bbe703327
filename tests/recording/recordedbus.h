#pragma once

#include "recording/recorderinput.h"
#include "recording/recordwriter.h"
#include "serial/ldb/exchangebytes.h"
#include "serial/ldb/generalinformation.h"
#include "tests/support/testbus.h"

#include <QDateTime>

/// What a bus would tell the recorder, in a time that the test says.
class RecordedBus
{
public:
    static constexpr qint64 kSecond = 1000000;

    /// Local time, so that the days of the files are the test's.
    explicit RecordedBus(const QDateTime& begin)
        : now(begin.toMSecsSinceEpoch() * 1000)
    {
    }

    void start(const QStringList& ldbs)
    {
        inputs.push_back(input::RunBegun{now, QStringLiteral("COM7")});
        inputs.push_back(input::ScanEnded{now, ldbs});
        inputs.push_back(input::ListTold{now, ldbs});
    }
    void stop() { inputs.push_back(input::RunEnded{now}); }

    void beginRound()
    {
        roundWall = QDateTime::fromMSecsSinceEpoch(now / 1000);
        inputs.push_back(
            input::Round{now, roundWall.toMSecsSinceEpoch(), roundWall.offsetFromUtc(), false});
    }
    void name(const QString& hexId, const QString& name)
    {
        inputs.push_back(input::NameTold{now - 1, hexId, name});
        names.insert(hexId, name);
    }
    /// Takes 50 ms.
    Exchange ask(const QString& hexId, ExchangeKind kind, const QByteArray& body,
                 ExchangeOutcome outcome = ExchangeOutcome::Believed)
    {
        Exchange exchange;
        exchange.sentAt = now;
        exchange.hexId = hexId;
        exchange.kind = kind;
        exchange.outcome = outcome;
        exchange.request = exchangebytes::usualRequest(kind, hexId);
        if (!body.isEmpty()) {
            exchange.answer = TestBus::framed(body);
            exchange.flight = 31000;
        }
        inputs.push_back(input::Told{exchange, 0});
        now += 50000;
        return exchange;
    }
    /// Gives the record that the window has of it.
    QList<QStringList> status(const QString& hexId, const QByteArray& body = TestBus::status())
    {
        ask(hexId, ExchangeKind::Status, body);
        return rows(hexId, decodeLdbStatus(body).status);
    }
    QList<QStringList> loss(const QString& hexId)
    {
        inputs.push_back(input::LossTold{now - 49999, hexId});
        return rows(hexId, LdbStatus::disconnected());
    }
    QList<QStringList> rows(const QString& hexId, const LdbStatus& status) const
    {
        return generalinformation::buildRows(
            hexId, names.value(hexId), status,
            roundWall.toString(generalinformation::kSecondsFormat),
            roundWall.toString(generalinformation::kMillisecondsFormat));
    }
    RecorderInputs take() { return std::exchange(inputs, {}); }

    /// A status body whose loop is open or not, and remembers it or not.
    static QByteArray loopOpen(bool isPresent, bool isRemembered = false)
    {
        QByteArray body = TestBus::status();
        body.replace(kLoopByte, 2, isPresent ? "01" : isRemembered ? "02" : "00");
        return body;
    }
    static constexpr int kLoopByte = 12; ///< in the body

    qint64 now;
    QDateTime roundWall;
    QHash<QString, QString> names;
    RecorderInputs inputs;
};

inline RecordWriter::Options optionsFor(const QString& folder)
{
    return {folder, QStringLiteral("2.2"), {}};
}

inline std::vector<RecordingNotice::Kind> kindsOf(const std::vector<RecordingNotice>& notices)
{
    std::vector<RecordingNotice::Kind> kinds;
    kinds.reserve(notices.size());
    for (const RecordingNotice& notice : notices) {
        kinds.push_back(notice.kind);
    }
    return kinds;
}

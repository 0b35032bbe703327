#include "serial/link/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testprogram.h"
#include "tracking/faultfinding/trackedldb.h"

using Command = TrackingCommand;
using Answer = Reply::Kind;

Q_DECLARE_METATYPE(Answer)

namespace {

/// A tracked LDB on the real link.
struct Bench
{
    Bench() { bus.scan(*link); }
    void send(Command command)
    {
        ldb->send(command, &context, [this](const Reply& reply) { answers.append(reply.kind()); });
    }

    Sandbox sandbox;
    TestBus bus{{"03", "0A"}};
    std::unique_ptr<SerialLink> link = std::make_unique<SerialLink>(bus.ports());
    std::unique_ptr<TrackedLdb> ldb = std::make_unique<TrackedLdb>("0A", link.get());
    QList<Answer> answers;
    QObject context;
};

} // namespace

class TestTrackedLdb : public TestCase
{
    Q_OBJECT
private slots:
    void commandsAndAnswers_data()
    {
        const Table<Command, QByteArray, QByteArray, Answer> row("command", "body", "reply",
                                                                 "answer");
        row("factory reset", Command::FactoryReset, "FE0A73780002", "\x06", Answer::Accepted);
        row("LDB reset, refused", Command::LdbReset, "FE0A73780001", "\x15", Answer::Refused);
        row("mute", Command::MuteAudio, "FE0A73631601", "\x06", Answer::Accepted);
        row("mute, refused", Command::MuteAudio, "FE0A73631601", "\x15", Answer::Refused);
        // What it did not say is read from its settings.
        row("mute, not heard", Command::MuteAudio, "FE0A73631601", "", Answer::Silent);
    }

    void commandsAndAnswers()
    {
        QFETCH(Command, command);
        QFETCH(QByteArray, body);
        QFETCH(QByteArray, reply);
        QFETCH(Answer, answer);
        Bench bench;
        bench.bus.setScript([&](const QByteArray& request) -> std::optional<QByteArray> {
            if (request == body) {
                return reply;
            }
            return std::nullopt;
        });
        bench.send(command);
        WAIT_COMPARE(bench.answers, QList<Answer>{answer});
        QCOMPARE(bench.bus.requests().count(body), reply.isEmpty() ? 3 : 1);
    }

    void pollsItAlone()
    {
        const Bench bench;
        bench.ldb->setPolledAlone(true);
        QSignalSpy records(bench.ldb.get(), &TrackedLdb::generalInformationUpdated);
        // What was under way when the others were left out may still come.
        WAIT_VERIFY(records.size() > 3);
        records.clear();
        WAIT_VERIFY(records.size() > 5);
        for (const QList<QVariant>& record : records) {
            QCOMPARE(record.first().toString(), "0A");
        }
        bench.ldb->setPolledAlone(false);
        records.clear();
        WAIT_VERIFY(!records.isEmpty() && records.last().first().toString() == "03");
    }

    void connectionLost()
    {
        const ExpectWarning gone("Port .*: ");
        Bench bench;
        QSignalSpy lost(bench.ldb.get(), &TrackedLdb::connectionLost);
        QVERIFY(bench.ldb->isReachable());
        bench.bus.cut();
        WAIT_VERIFY(!lost.isEmpty());
        bench.link->stop();
        QVERIFY(!bench.ldb->isReachable());
        bench.send(Command::MuteAudio);
        WAIT_COMPARE(bench.answers, QList<Answer>{Answer::Unsent});
    }

    void lostLdb()
    {
        Bench bench;
        QSignalSpy changed(bench.ldb.get(), &TrackedLdb::reachableChanged);
        QVERIFY(bench.ldb->isReachable());
        for (const bool isThere : {false, true}) {
            changed.clear();
            bench.bus.setPresent(isThere ? QStringList{"03", "0A"} : QStringList{"03"});
            WAIT_VERIFY(bench.ldb->isReachable() == isThere);
            QVERIFY(!changed.isEmpty());
        }
    }

    void linkMayDieFirst()
    {
        Bench bench;
        bench.link.reset();
        bench.ldb->setPolledAlone(false);
        QVERIFY(!bench.ldb->isReachable());
        bench.send(Command::MuteAudio);
        WAIT_COMPARE(bench.answers, QList<Answer>{Answer::Unsent});
    }
};

REGISTER_TEST(TestTrackedLdb, InVirtualTime<QCoreApplication>)

#include "tst_trackedldb.moc"

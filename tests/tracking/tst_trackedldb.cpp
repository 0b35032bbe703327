#include "serial/link/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tracking/faultfinding/trackedldb.h"

using Command = TrackedLdb::Command;
using Answer = TrackedLdb::Answer;

Q_DECLARE_METATYPE(Answer)

namespace {

/// A tracked LDB on the real link.
struct Bench
{
    Bench() { bus.scan(*link); }
    void send(Command command)
    {
        ldb->send(command, &context, [this](Answer answer) { answers.append(answer); });
    }

    Sandbox sandbox;
    TestBus bus{{QStringLiteral("03"), QStringLiteral("0A")}};
    std::unique_ptr<SerialLink> link = std::make_unique<SerialLink>(bus.ports());
    std::unique_ptr<TrackedLdb> ldb =
        std::make_unique<SerialTrackedLdb>(QStringLiteral("0A"), link.get());
    QList<Answer> answers;
    QObject context;
};

} // namespace

class TestTrackedLdb : public TestCase
{
    Q_OBJECT
private slots:
    void commandsAndAnswers_data();
    void commandsAndAnswers();
    void pollsItAlone();
    void connectionLost();
    void linkMayDieFirst();
};

void TestTrackedLdb::commandsAndAnswers_data()
{
    addColumns<Command, QByteArray, QByteArray, Answer>("command", "body", "reply", "answer");
    const QByteArray ack("\x06");
    const QByteArray nak("\x15");
    QTest::newRow("factory reset")
        << Command::FactoryReset << QByteArray("FE0A73780002") << ack << Answer::Accepted;
    QTest::newRow("LDB reset, refused")
        << Command::LdbReset << QByteArray("FE0A73780001") << nak << Answer::Refused;
    QTest::newRow("mute") << Command::MuteAudio << QByteArray("FE0A73631601") << ack
                          << Answer::Accepted;
    QTest::newRow("mute, refused")
        << Command::MuteAudio << QByteArray("FE0A73631601") << nak << Answer::Refused;
    // What it did not say is read from its settings.
    QTest::newRow("mute, not heard")
        << Command::MuteAudio << QByteArray("FE0A73631601") << QByteArray() << Answer::None;
}

void TestTrackedLdb::commandsAndAnswers()
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

void TestTrackedLdb::pollsItAlone()
{
    const Bench bench;
    bench.ldb->setPolledAlone(true);
    QCOMPARE(bench.link->polledAlone(), QStringLiteral("0A"));
    QSignalSpy records(bench.ldb.get(), &TrackedLdb::generalInformationUpdated);
    // What was under way when the others were left out may still come.
    WAIT_VERIFY(records.size() > 3);
    records.clear();
    WAIT_VERIFY(records.size() > 5);
    for (const QList<QVariant>& record : records) {
        QCOMPARE(record.first().toString(), QStringLiteral("0A"));
    }
    bench.ldb->setPolledAlone(false);
    records.clear();
    WAIT_VERIFY(!records.isEmpty() && records.last().first().toString() == QLatin1String("03"));
}

void TestTrackedLdb::connectionLost()
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
    WAIT_COMPARE(bench.answers, QList<Answer>{Answer::None});
}

void TestTrackedLdb::linkMayDieFirst()
{
    Bench bench;
    bench.link.reset();
    bench.ldb->setPolledAlone(false);
    QVERIFY(!bench.ldb->isReachable());
    bench.send(Command::MuteAudio);
    WAIT_COMPARE(bench.answers, QList<Answer>{Answer::None});
}

REGISTER_TEST(TestTrackedLdb, InVirtualTime<QCoreApplication>)

#include "tst_trackedldb.moc"

#include "serial/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/scriptedbus.h"
#include "tests/support/testcase.h"
#include "tracking/trackedldb.h"

#include <QCoreApplication>
#include <QSignalSpy>

using Command = TrackedLdb::Command;
using Answer = TrackedLdb::Answer;

Q_DECLARE_METATYPE(Answer)

/// A tracked LDB on the real link with a scripted bus.
class TestTrackedLdb : public TestCase
{
    Q_OBJECT
private slots:
    void init() override;
    void cleanup() override;
    void commandsAndAnswers_data();
    void commandsAndAnswers();
    void pollsItAlone();
    void connectionLost();
    void linkMayDieFirst();

private:
    void send(Command command);

    std::unique_ptr<Sandbox> m_sandbox;
    std::unique_ptr<ScriptedBus> m_bus;
    std::unique_ptr<SerialLink> m_link;
    std::unique_ptr<TrackedLdb> m_ldb;
    QList<Answer> m_answers;
};

void TestTrackedLdb::init()
{
    TestCase::init();
    m_sandbox = std::make_unique<Sandbox>();
    m_bus = std::make_unique<ScriptedBus>(QStringList{QStringLiteral("03"), QStringLiteral("0A")});
    m_link = std::make_unique<SerialLink>();
    m_link->setPortName(m_bus->portName());
    m_ldb = std::make_unique<SerialTrackedLdb>(QStringLiteral("0A"), m_link.get());
    m_answers.clear();
    m_link->start();
    WAIT_VERIFY(m_link->knownLdbs().size() == 2);
}

void TestTrackedLdb::cleanup()
{
    m_ldb.reset();
    m_link.reset();
    m_bus.reset();
    m_sandbox.reset();
    TestCase::cleanup();
}

void TestTrackedLdb::send(Command command)
{
    m_ldb->send(command, this, [this](Answer answer) { m_answers.append(answer); });
}

void TestTrackedLdb::commandsAndAnswers_data()
{
    QTest::addColumn<Command>("command");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<Answer>("answer");
    const QByteArray ack("\x06");
    const QByteArray nak("\x15");
    QTest::newRow("factory reset")
        << Command::FactoryReset << QByteArray("FE0A73780002") << ack << Answer::Accepted;
    QTest::newRow("LDB reset, refused")
        << Command::LdbReset << QByteArray("FE0A73780001") << nak << Answer::Refused;
    QTest::newRow("mute") << Command::MuteAudio << QByteArray("FE0A73631601") << ack
                          << Answer::Accepted;
    QTest::newRow("end of mute, refused")
        << Command::EndAudioMute << QByteArray("FE0A73631600") << nak << Answer::Refused;
}

void TestTrackedLdb::commandsAndAnswers()
{
    QFETCH(Command, command);
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, reply);
    QFETCH(Answer, answer);
    m_bus->setScript([&](const QByteArray& request) -> std::optional<QByteArray> {
        if (request == body) {
            return reply;
        }
        return std::nullopt;
    });
    send(command);
    WAIT_COMPARE(m_answers, QList<Answer>{answer});
    QCOMPARE(m_bus->requests().count(body), 1);
}

void TestTrackedLdb::pollsItAlone()
{
    m_ldb->setPolledAlone(true);
    QCOMPARE(m_link->polledAlone(), QStringLiteral("0A"));
    QSignalSpy records(m_ldb.get(), &TrackedLdb::generalInformationUpdated);
    // What was under way when the others were left out may still come.
    WAIT_VERIFY(records.size() > 3);
    records.clear();
    WAIT_VERIFY(records.size() > 5);
    for (const QList<QVariant>& record : records) {
        QCOMPARE(record.first().toString(), QStringLiteral("0A"));
    }
    m_ldb->setPolledAlone(false);
    records.clear();
    WAIT_VERIFY(!records.isEmpty() && records.last().first().toString() == QLatin1String("03"));
}

void TestTrackedLdb::connectionLost()
{
    const ExpectWarning gone("Port .*: ");
    QSignalSpy lost(m_ldb.get(), &TrackedLdb::connectionLost);
    QVERIFY(m_ldb->isReachable());
    m_bus->hangUp();
    WAIT_VERIFY(!lost.isEmpty());
    m_link->stop();
    QVERIFY(!m_ldb->isReachable());
    send(Command::EndAudioMute);
    QCOMPARE(m_answers, QList<Answer>{Answer::None});
}

void TestTrackedLdb::linkMayDieFirst()
{
    m_link.reset();
    m_ldb->setPolledAlone(false);
    QVERIFY(!m_ldb->isReachable());
    send(Command::EndAudioMute);
    QCOMPARE(m_answers, QList<Answer>{Answer::None});
}

QTEST_GUILESS_MAIN(TestTrackedLdb)

#include "tst_trackedldb.moc"

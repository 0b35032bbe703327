#include "serial/pollschedule.h"
#include "tests/support/testcase.h"

namespace {

/// The next turns as words: "*" marks the begin of a round, "?" a probe.
QString turns(PollSchedule& schedule, int count)
{
    QStringList words;
    for (int i = 0; i < count; ++i) {
        const PollSchedule::Turn turn = schedule.next();
        words.append(QString(turn.beginsRound ? "*" : "") +
                     (turn.kind == PollSchedule::Turn::Kind::Probe ? "?" : "") + turn.hexId);
    }
    return words.join(QLatin1Char(' '));
}

} // namespace

class TestPollSchedule : public TestCase
{
    Q_OBJECT
private slots:
    void init() override;
    void roundsInTheOrderFound();
    void lostOnesTakeTurnsAtOneProbeARound();
    void theReturnedTakesItsPlaceAgain();
    void allLostAreProbedInTurn();
    void oneAlone();

private:
    PollSchedule m_schedule;
};

void TestPollSchedule::init()
{
    TestCase::init();
    m_schedule.clear();
    for (const char* hexId : {"03", "0A", "F0"}) {
        m_schedule.add(QString::fromLatin1(hexId));
    }
}

void TestPollSchedule::roundsInTheOrderFound()
{
    QCOMPARE(turns(m_schedule, 7), QStringLiteral("*03 0A F0 *03 0A F0 *03"));
    m_schedule.restart();
    QCOMPARE(turns(m_schedule, 2), QStringLiteral("*03 0A"));
}

void TestPollSchedule::lostOnesTakeTurnsAtOneProbeARound()
{
    m_schedule.markLost(QStringLiteral("03"));
    m_schedule.markLost(QStringLiteral("F0"));
    m_schedule.markLost(QStringLiteral("F0"));
    QCOMPARE(turns(m_schedule, 6), QStringLiteral("*0A ?03 *0A ?F0 *0A ?03"));
}

void TestPollSchedule::theReturnedTakesItsPlaceAgain()
{
    m_schedule.markLost(QStringLiteral("0A"));
    QCOMPARE(turns(m_schedule, 3), QStringLiteral("*03 F0 ?0A"));
    m_schedule.markPresent(QStringLiteral("0A"));
    QCOMPARE(turns(m_schedule, 4), QStringLiteral("*03 0A F0 *03"));
}

void TestPollSchedule::allLostAreProbedInTurn()
{
    for (const char* hexId : {"0A", "03", "F0"}) {
        m_schedule.markLost(QString::fromLatin1(hexId));
    }
    QCOMPARE(turns(m_schedule, 4), QStringLiteral("*?0A *?03 *?F0 *?0A"));
}

void TestPollSchedule::oneAlone()
{
    m_schedule.markLost(QStringLiteral("03"));
    QVERIFY(!m_schedule.setAlone(QStringLiteral("77")));
    QCOMPARE(turns(m_schedule, 2), QStringLiteral("*0A F0"));
    QVERIFY(m_schedule.setAlone(QStringLiteral("F0")));
    QCOMPARE(turns(m_schedule, 3), QStringLiteral("*F0 *F0 *F0"));
    QVERIFY(m_schedule.setAlone(QString()));
    QCOMPARE(turns(m_schedule, 3), QStringLiteral("*0A F0 ?03"));
}

QTEST_GUILESS_MAIN(TestPollSchedule)
#include "tst_pollschedule.moc"

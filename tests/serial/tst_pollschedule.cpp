#include "serial/conversation/pollschedule.h"
#include "tests/support/testprogram.h"

class TestPollSchedule : public TestCase
{
    Q_OBJECT
private slots:
    void turns_data()
    {
        // Of 03, 0A and F0: what happens ("-" lost, "+" present, "=" alone, "!" not to be found),
        // or a number of turns. "taken": "*" marks the begin of a round, "?" a probe
        const Table<QString, QString> row("steps", "taken");
        row("rounds in the order found", "7", "*03 0A F0 *03 0A F0 *03");
        row("a restart begins a round", "2 restart 2", "*03 0A *03 0A");
        row("lost ones take turns at one probe a round", "-03 -F0 -F0 6",
            "*0A ?03 *0A ?F0 *0A ?03");
        row("the returned takes its place again", "-0A 3 +0A 4", "*03 F0 ?0A *03 0A F0 *03");
        row("all lost are probed in turn", "-0A -03 -F0 4", "*?0A *?03 *?F0 *?0A");
        row("one alone", "-03 !77 2 =F0 3 = 3", "*0A F0 *F0 *F0 *F0 *0A F0 ?03");
    }

    void turns()
    {
        QFETCH(QString, steps);

        PollSchedule schedule;
        for (const char* hexId : {"03", "0A", "F0"}) {
            schedule.add(hexId);
        }
        schedule.restart();
        QStringList words;
        const QStringList each = steps.split(' ');
        for (const QString& step : each) {
            const QString hexId = step.mid(1);
            if (step == "restart") {
                schedule.restart();
            } else if (step.startsWith('-')) {
                schedule.markLost(hexId);
            } else if (step.startsWith('+')) {
                schedule.markPresent(hexId);
            } else if (step.startsWith('=') || step.startsWith('!')) {
                QCOMPARE(schedule.setAlone(hexId), step.startsWith('='));
            } else {
                for (int i = 0; i < step.toInt(); ++i) {
                    const PollSchedule::Turn turn = schedule.next();
                    const bool isProbe = turn.kind == PollSchedule::Turn::Kind::Probe;
                    words << (turn.beginsRound ? "*" : "") + QString(isProbe ? "?" : "") +
                                 turn.hexId;
                }
            }
        }
        QTEST(words.join(' '), "taken");
    }

    void whoMissedIsAskedAgainBetween()
    {
        PollSchedule schedule;
        for (int i = 1; i <= 40; ++i) {
            schedule.add(QString::number(i));
        }
        schedule.restart();
        const QStringList missed{"10", "11", "12", "30", "31", "32", "38"};
        QStringList taken;
        for (int i = 0; i < 50; ++i) {
            const PollSchedule::Turn turn = schedule.next();
            const bool isAgain = turn.kind == PollSchedule::Turn::Kind::Again;
            QVERIFY(!(isAgain && turn.beginsRound));
            taken.append((isAgain ? "~" : "") + turn.hexId);
            if (!isAgain && missed.contains(turn.hexId)) {
                schedule.askAgain(turn.hexId);
            }
            if (turn.hexId == "33") {
                schedule.dropAgain("30");
                schedule.markLost("31");
            }
        }
        // Seven others; never two behind each other; over the end of a round, too.
        QCOMPARE(taken.mid(9, 14).join(' '),
                 QString("10 11 12 13 14 15 16 17 ~10 18 ~11 19 ~12 20"));
        // The lost one is probed at the end of the round.
        QCOMPARE(taken.mid(32, 18).join(' '),
                 QString("30 31 32 33 34 35 36 37 38 39 ~32 40 31 1 2 3 ~38 4"));
    }
};

REGISTER_TEST(TestPollSchedule, QCoreApplication)
#include "tst_pollschedule.moc"

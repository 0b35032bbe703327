#include "serial/conversation/turnplan.h"
#include "tests/support/testprogram.h"

namespace {

constexpr qint64 kMillisecond = 1000;
constexpr qint64 kSecond = 1000000;

/// A plan that knows how long the three questions take together, in ms.
void teach(TurnPlan& plan, qint64 turn, int times = 15)
{
    for (int i = 0; i < times; ++i) {
        for (const auto question :
             {AnswerShape::Status, AnswerShape::Name, AnswerShape::Firmware}) {
            plan.took(question, turn * kMillisecond / 3);
        }
    }
}

} // namespace

class TestTurnPlan : public TestCase
{
    Q_OBJECT
private slots:
    void longRounds()
    {
        TurnPlan plan({});
        plan.judge(253);
        QVERIFY(!plan.isLong()); // nothing is known
        teach(plan, 200);
        plan.judge(25);
        QVERIFY(!plan.isLong());
        plan.judge(26);
        QVERIFY(plan.isLong());
        // A few that come and go change nothing.
        plan.judge(21);
        QVERIFY(plan.isLong());
        plan.judge(20);
        QVERIFY(!plan.isLong());
        plan.judge(25);
        QVERIFY(!plan.isLong());
        // Nor do answers of a bad line, if not most of them are late.
        teach(plan, 3000, 7);
        plan.judge(25);
        QVERIFY(!plan.isLong());
        teach(plan, 3000, 1);
        plan.judge(25);
        QVERIFY(plan.isLong());
    }

    void identity_data()
    {
        const Table<int, int, int> row("every", "ldbs", "identities"); // in twenty rounds
        row("short", 0, 8, 20 * 8);
        row("long", 0, 100, 2 * 100);
        row("each time", 1, 100, 20 * 100);
        row("every fifth", 5, 100, 4 * 100);
        row("every fifth, short", 5, 8, 4 * 8);
    }

    void identity()
    {
        QFETCH(int, every);
        QFETCH(int, ldbs);
        TurnPlan plan({every, 2000});
        teach(plan, 200);
        int identities = 0;
        int most = 0;
        int least = ldbs;
        for (int round = 0; round < 20; ++round) {
            plan.countRound();
            plan.judge(ldbs);
            int ofRound = 0;
            for (int position = 0; position < ldbs; ++position) {
                const TurnPlan::Questions questions = plan.questions(position, false);
                QCOMPARE(questions.name, questions.firmware);
                ofRound += questions.name ? 1 : 0;
                QVERIFY(plan.questions(position, true).name);
            }
            most = std::max(most, ofRound);
            least = std::min(least, ofRound);
            identities += ofRound;
        }
        QTEST(identities, "identities");
        QVERIFY(most - least <= 1);
    }

    void selected()
    {
        for (const int within : {2000, 0}) {
            TurnPlan plan({0, within});
            teach(plan, 200);
            plan.judge(8);
            plan.select("0A");
            QVERIFY(!plan.isSelectedDue(10 * kSecond)); // rounds are short
            plan.judge(100);
            QCOMPARE(plan.isSelectedDue(10 * kSecond), within > 0);
            plan.statusEnded("0B", 10 * kSecond);
            QCOMPARE(plan.isSelectedDue(10 * kSecond), within > 0);
            plan.statusEnded("0A", 10 * kSecond);
            QVERIFY(!plan.isSelectedDue(11 * kSecond));
            QCOMPARE(plan.isSelectedDue(12 * kSecond), within > 0);
            plan.select("0B");
            QCOMPARE(plan.isSelectedDue(10 * kSecond), within > 0);
            plan.select({});
            QVERIFY(!plan.isSelectedDue(60 * kSecond));
        }
    }
};

REGISTER_TEST(TestTurnPlan, QCoreApplication)
#include "tst_turnplan.moc"

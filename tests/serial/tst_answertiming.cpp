#include "serial/conversation/answertiming.h"
#include "tests/support/testprogram.h"

using Belief = AnswerTiming::Belief;

namespace {

constexpr qint64 kUsual = 60000;
constexpr qint64 kSooner = kUsual - 16000;

void ask(AnswerTiming& timing)
{
    timing.begin("0A", AnswerShape::Status, false);
}

void answerAsUsual(AnswerTiming& timing, int times)
{
    for (int i = 0; i < times; ++i) {
        ask(timing);
        timing.answered(1, kUsual);
    }
}

/// Drops an answer after which nothing comes, and gets the usual one to the repeated question.
void dropAndRepeat(AnswerTiming& timing, qint64 flight)
{
    ask(timing);
    QCOMPARE(timing.judgeFrame(1, flight), Belief::TooSoon);
    timing.nothingFollowed(1);
    timing.answered(2, kUsual);
}

} // namespace

/// What an answer's time says about whose it is.
class TestAnswerTiming : public TestCase
{
    Q_OBJECT
private slots:
    void learnsAStepFromTwoThatAgree()
    {
        AnswerTiming timing;
        answerAsUsual(timing, 40);
        dropAndRepeat(timing, kSooner);
        dropAndRepeat(timing, kSooner + 2000);
        ask(timing);
        QCOMPARE(timing.judgeFrame(1, kSooner), Belief::Believed);

        // A step is rare: it outlives what is remembered of the other times, but not for ever.
        answerAsUsual(timing, 200);
        ask(timing);
        QCOMPARE(timing.judgeFrame(1, kSooner), Belief::Believed);
        answerAsUsual(timing, 400);
        ask(timing);
        QCOMPARE(timing.judgeFrame(1, kSooner), Belief::TooSoon);
    }

    void doubtsTheOtherOnes_data()
    {
        const Table<qint64, int, qint64> row("first", "between", "second");
        row("do not agree", kSooner, 0, kSooner - 4000);
        row("far below the usual time", kUsual - 30000, 0, kUsual - 30000);
        row("long apart", kSooner, 70, kSooner);
    }

    void doubtsTheOtherOnes()
    {
        QFETCH(qint64, first);
        QFETCH(int, between);
        QFETCH(qint64, second);
        AnswerTiming timing;
        answerAsUsual(timing, 40);
        dropAndRepeat(timing, first);
        answerAsUsual(timing, between);
        dropAndRepeat(timing, second);
        ask(timing);
        QCOMPARE(timing.judgeFrame(1, second), Belief::TooSoon);
    }
};

REGISTER_TEST(TestAnswerTiming, QCoreApplication)
#include "tst_answertiming.moc"

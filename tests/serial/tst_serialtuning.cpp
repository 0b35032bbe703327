#include "serial/link/serialtuning.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <memory>

class TestSerialTuning : public TestCase
{
    Q_OBJECT
private slots:
    void numbersOfTheFile_data()
    {
        const Table<QByteArray, QByteArray, QList<int>, bool> row("count", "wait", "numbers",
                                                                  "warns");
        row("whole numbers", "7", "250", {7, 250}, false);
        row("too small", "-2", "0", {0, 1}, false);
        // Taken for 0, each of these would have every LDB lost at the first missed answer.
        row("empty", "", "", {3, 1500}, true);
        row("words", "three", "1500 ms", {3, 1500}, true);
        row("fraction", "2.5", "1500.0", {3, 1500}, true);
        row("list", "3,3", "1,500", {3, 1500}, true);
    }

    void numbersOfTheFile()
    {
        QFETCH(QByteArray, count);
        QFETCH(QByteArray, wait);
        QFETCH(bool, warns);
        const Sandbox sandbox;
        sandbox.writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=" + count +
                            "\nBYTES_RECEIVED_WAIT_TIME=" + wait + "\n");
        const auto expected = warns ? std::make_unique<ExpectWarning>("no whole number") : nullptr;
        const SerialTuning tuning = SerialTuning::load();
        QTEST((QList<int>{tuning.disconnectedCount, tuning.answerWaitTime}), "numbers");
    }
};

REGISTER_TEST(TestSerialTuning, QCoreApplication)
#include "tst_serialtuning.moc"

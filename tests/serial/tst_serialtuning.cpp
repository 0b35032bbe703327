#include "serial/link/serialtuning.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <memory>

class TestSerialTuning : public TestCase
{
    Q_OBJECT
private slots:
    void numbersOfTheFile_data()
    {
        // What each number of the file is; "numbers": count, wait, identity, selected
        const Table<QByteArray, QByteArray, QList<int>, bool> row("count", "others", "numbers",
                                                                  "warns");
        row("whole numbers", "7", "250", {7, 250, 250, 250}, false);
        row("too small", "-2", "-1", {0, 1, 0, 0}, false);
        row("nothing", "0", "0", {0, 1, 0, 0}, false);
        // Taken for 0, each of these would have every LDB lost at the first missed answer.
        row("empty", "", "", {3, 1500, 0, 2000}, true);
        row("words", "three", "1500 ms", {3, 1500, 0, 2000}, true);
        row("fraction", "2.5", "1500.0", {3, 1500, 0, 2000}, true);
        row("list", "3,3", "1,500", {3, 1500, 0, 2000}, true);
    }

    void numbersOfTheFile()
    {
        QFETCH(QByteArray, count);
        QFETCH(QByteArray, others);
        QFETCH(bool, warns);
        m_sandbox->writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=" + count +
                               "\nBYTES_RECEIVED_WAIT_TIME=" + others + "\nIDENTITY_EVERY_ROUNDS=" +
                               others + "\nSELECTED_WITHIN_MS=" + others + "\n");
        const auto expected = warns ? std::make_unique<ExpectWarning>("no whole number") : nullptr;
        const SerialTuning tuning = SerialTuning::load();
        QTEST((QList<int>{tuning.disconnectedCount, tuning.answerWaitTime,
                          tuning.identityEveryRounds, tuning.selectedWithin}),
              "numbers");
    }
};

REGISTER_TEST(TestSerialTuning, QCoreApplication)
#include "tst_serialtuning.moc"

#include "serial/serialtuning.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"

#include <memory>

class TestSerialTuning : public TestCase
{
    Q_OBJECT
private slots:
    void numbersOfTheFile_data();
    void numbersOfTheFile();
};

void TestSerialTuning::numbersOfTheFile_data()
{
    QTest::addColumn<QByteArray>("count");
    QTest::addColumn<QByteArray>("wait");
    QTest::addColumn<int>("disconnectedCount");
    QTest::addColumn<int>("answerWaitTime");
    QTest::addColumn<bool>("warns");

    QTest::newRow("whole numbers") << QByteArray("7") << QByteArray("250") << 7 << 250 << false;
    QTest::newRow("too small") << QByteArray("-2") << QByteArray("0") << 0 << 1 << false;
    // Taken for 0, each of these would have every LDB lost at the first missed answer.
    QTest::newRow("empty") << QByteArray() << QByteArray() << 3 << 1500 << true;
    QTest::newRow("words") << QByteArray("three") << QByteArray("1500 ms") << 3 << 1500 << true;
    QTest::newRow("fraction") << QByteArray("2.5") << QByteArray("1500.0") << 3 << 1500 << true;
    QTest::newRow("list") << QByteArray("3,3") << QByteArray("1,500") << 3 << 1500 << true;
}

void TestSerialTuning::numbersOfTheFile()
{
    QFETCH(QByteArray, count);
    QFETCH(QByteArray, wait);
    QFETCH(bool, warns);
    const Sandbox sandbox;
    sandbox.writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=" + count +
                        "\nBYTES_RECEIVED_WAIT_TIME=" + wait + "\n");
    std::unique_ptr<ExpectWarning> expected;
    if (warns) {
        expected = std::make_unique<ExpectWarning>("no whole number");
    }
    const SerialTuning tuning = SerialTuning::load();
    QTEST(tuning.disconnectedCount, "disconnectedCount");
    QTEST(tuning.answerWaitTime, "answerWaitTime");
}

QTEST_GUILESS_MAIN(TestSerialTuning)
#include "tst_serialtuning.moc"

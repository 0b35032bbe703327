#include "serial/framecodec.h"
#include "serial/hextext.h"
#include "serial/serialprocessor.h"
#include "tests/support/testcase.h"

// The wire's constants stand here once more: a test that took them from the code it checks could
// not notice when one changes. Check digits were worked out by a separate script.
namespace {

const QByteArray kStatusFrame =
    QByteArray("\x01") + "00000000000A00000000000000C05D0000C05D0000D2049CFF" + "C1\x04";

QByteArray reassembled(const QList<QByteArray>& batches, bool* complete)
{
    QByteArray total;
    *complete = false;
    for (QByteArray batch : batches) {
        *complete = framecodec::processReceivedData(batch, total);
        if (*complete) {
            break;
        }
    }
    return total;
}

} // namespace

class TestFrameCodec : public TestCase
{
    Q_OBJECT
private slots:
    void checksOfBodies_data();
    void checksOfBodies();
    void numbersAsText_data();
    void numbersAsText();
    void assemblesBatches_data();
    void assemblesBatches();
    void assemblesByteByByte();
    void collectsNoFlood();
    void validates_data();
    void validates();
    void noTruncationIsValid();
    void noSingleBitErrorIsTakenForTheFrame();
    void readsDeviceText_data();
    void readsDeviceText();
};

void TestFrameCodec::checksOfBodies_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QByteArray>("check");

    QTest::newRow("poll") << QByteArray("FE0170") << QByteArray("C9");
    QTest::newRow("status request") << QByteArray("FE0A737803") << QByteArray("3A");
    QTest::newRow("FIM reset") << QByteArray("FE0A73780000") << QByteArray("DB");
    QTest::newRow("reset of all") << QByteArray("FEFF73780001") << QByteArray("FD");
    QTest::newRow("last address") << QByteArray("FEFD70") << QByteArray("72");
    QTest::newRow("one byte") << QByteArray("1") << QByteArray("2A");
    QTest::newRow("long body") << QByteArray(300, 'A') << QByteArray("69");
    QTest::newRow("status answer") << kStatusFrame.mid(1, 50) << QByteArray("C1");
}

void TestFrameCodec::checksOfBodies()
{
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, check);

    QCOMPARE(framecodec::createCommand(body), QByteArray("\x01") + body + check + "\x04");
    auto* bytes = reinterpret_cast<quint8*>(body.data());
    QCOMPARE(static_cast<uint>(SerialProcessor::crc8(bytes, static_cast<uint16_t>(body.size()))),
             check.toUInt(nullptr, 16));
    QCOMPARE(static_cast<int>(SerialProcessor::crc8(bytes, 0)), 0xFF);
}

void TestFrameCodec::numbersAsText_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("text");

    QTest::newRow("zero") << 0 << QByteArray("00");
    QTest::newRow("ten") << 10 << QByteArray("0A");
    QTest::newRow("byte") << 255 << QByteArray("FF");
    QTest::newRow("more than a byte") << 256 << QByteArray("100");
}

void TestFrameCodec::numbersAsText()
{
    QFETCH(int, number);
    QFETCH(QByteArray, text);

    QCOMPARE(SerialProcessor::intToHex(number), text);
}

void TestFrameCodec::assemblesBatches_data()
{
    QTest::addColumn<QList<QByteArray>>("batches");
    QTest::addColumn<bool>("complete");
    QTest::addColumn<QByteArray>("total");

    using Batches = QList<QByteArray>;
    const QByteArray soh("\x01");
    const QByteArray frame = soh + "AB12\x04";
    QTest::newRow("whole") << Batches{frame} << true << frame;
    QTest::newRow("split") << Batches{soh + "A", "B1", "2\x04"} << true << frame;
    QTest::newRow("not ended") << Batches{soh + "AB12"} << false << soh + "AB12";
    QTest::newRow("garbage before") << Batches{"xy" + frame} << true << frame;
    QTest::newRow("bytes after are dropped") << Batches{frame + "ZZ\x04"} << true << frame;
    QTest::newRow("last start counts")
        << Batches{"zz" + soh + "11" + soh + "AB12\x04"} << true << frame;
    QTest::newRow("a start discards what was collected")
        << Batches{soh + "999", soh + "AB12\x04"} << true << frame;
    QTest::newRow("two frames in a batch") << Batches{soh + "77\x04" + frame} << true << frame;
    QTest::newRow("acknowledge alone") << Batches{"\x06"} << true << QByteArray("\x06");
    QTest::newRow("refusal alone") << Batches{"\x15"} << true << QByteArray("\x15");
    QTest::newRow("end before the last start")
        << Batches{QByteArray("\x04") + soh + "A"} << false << soh + "A";
    QTest::newRow("nothing") << Batches{QByteArray()} << false << QByteArray();
}

void TestFrameCodec::assemblesBatches()
{
    QFETCH(QList<QByteArray>, batches);
    QFETCH(bool, complete);
    QFETCH(QByteArray, total);

    bool isComplete = false;
    QCOMPARE(reassembled(batches, &isComplete), total);
    QCOMPARE(isComplete, complete);
}

void TestFrameCodec::assemblesByteByByte()
{
    QList<QByteArray> batches;
    for (const char byte : kStatusFrame) {
        batches.append(QByteArray(1, byte));
    }
    bool isComplete = false;
    QCOMPARE(reassembled(batches, &isComplete), kStatusFrame);
    QVERIFY(isComplete);
}

void TestFrameCodec::collectsNoFlood()
{
    const QByteArray flood = QByteArray(1000, 'A');
    QByteArray total("\x01");
    for (int i = 0; i < 1000; ++i) {
        QByteArray batch = flood;
        QVERIFY(!framecodec::processReceivedData(batch, total));
        QVERIFY2(total.size() < 200000, qPrintable(QString::number(total.size())));
    }
    QByteArray batch = kStatusFrame;
    QVERIFY(framecodec::processReceivedData(batch, total));
    QCOMPARE(total, kStatusFrame);
}

void TestFrameCodec::validates_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<QByteArray>("body");

    const QByteArray soh("\x01");
    QTest::newRow("status") << kStatusFrame << true << kStatusFrame.mid(1, 50);
    QTest::newRow("one-character body") << soh + "12A\x04" << true << QByteArray("1");
    QTest::newRow("acknowledge") << QByteArray("\x06") << true << QByteArray("\x06");
    QTest::newRow("refusal") << QByteArray("\x15") << false << QByteArray();
    QTest::newRow("nothing") << QByteArray() << false << QByteArray();
    QTest::newRow("empty body") << soh + "FF\x04" << false << QByteArray();
    QTest::newRow("start and end only") << soh + "\x04" << false << QByteArray();
    QTest::newRow("wrong check") << soh + "FE0170C8\x04" << false << QByteArray();
    QTest::newRow("check in lower case") << soh + "FE0170c9\x04" << false << QByteArray();
    QTest::newRow("textbook check") << soh + "FE01706A\x04" << false << QByteArray();
    QTest::newRow("no start") << QByteArray("FE0170C9\x04") << false << QByteArray();
    QTest::newRow("no end") << soh + "FE0170C9" << false << QByteArray();
    QTest::newRow("noise, then acknowledge") << QByteArray("x\x06") << false << QByteArray();
}

void TestFrameCodec::validates()
{
    QFETCH(QByteArray, answer);
    QFETCH(bool, valid);
    QFETCH(QByteArray, body);

    QCOMPARE(framecodec::responseValidation(answer), valid);
    if (valid) {
        QCOMPARE(answer, body);
    }
}

void TestFrameCodec::noTruncationIsValid()
{
    for (int length = 0; length < kStatusFrame.size(); ++length) {
        QByteArray answer = kStatusFrame.left(length);
        QVERIFY2(!framecodec::responseValidation(answer), qPrintable(QString::number(length)));
    }
}

void TestFrameCodec::noSingleBitErrorIsTakenForTheFrame()
{
    for (int bit = 0; bit < kStatusFrame.size() * 8; ++bit) {
        QByteArray batch = kStatusFrame;
        batch[bit / 8] = static_cast<char>(batch.at(bit / 8) ^ (1 << (bit % 8)));
        QByteArray total;
        const bool valid =
            framecodec::processReceivedData(batch, total) && framecodec::responseValidation(total);
        QVERIFY2(!valid, qPrintable(QStringLiteral("bit %1").arg(bit)));
    }
}

void TestFrameCodec::readsDeviceText_data()
{
    QTest::addColumn<QByteArray>("pairs");
    QTest::addColumn<QString>("text");

    QTest::newRow("padded with zeros") << QByteArray("48616C6C203100000000") << "Hall 1";
    QTest::newRow("padded with blanks") << QByteArray("48616C6C2020") << "Hall";
    QTest::newRow("blanks before the zeros") << QByteArray("48616C6C20200000") << "Hall";
    QTest::newRow("old bytes behind the end") << QByteArray("48616C6C2000726F6F6D") << "Hall";
    QTest::newRow("old bytes that are no UTF-8") << QByteArray("48616C6C2000FCFF") << "Hall";
    QTest::newRow("UTF-8") << QByteArray("42C3BC726F") << QStringLiteral("B\u00FCro");
    QTest::newRow("Latin-1") << QByteArray("42FC726F") << QStringLiteral("B\u00FCro");
    QTest::newRow("only zeros") << QByteArray("00000000") << "";
    QTest::newRow("odd number of digits") << QByteArray("484") << "";
    QTest::newRow("no digits") << QByteArray("48ZZ") << "";
}

void TestFrameCodec::readsDeviceText()
{
    QFETCH(QByteArray, pairs);
    QFETCH(QString, text);

    QCOMPARE(hextext::toText(pairs), text);
}

QTEST_GUILESS_MAIN(TestFrameCodec)
#include "tst_framecodec.moc"

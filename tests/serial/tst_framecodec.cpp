#include "serial/link/serialprocessor.h"
#include "serial/wire/framecodec.h"
#include "serial/wire/hextext.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

// The wire's constants stand here once more: a test that took them from the code it checks could
// not notice when one changes. Check digits were worked out by a separate script.
namespace {

const QByteArray kStatusFrame =
    QByteArray("\x01") + "00000000000A00000000000000C05D0000C05D0000D2049CFF" + "C1\x04";

using Batches = QList<QByteArray>;

Batches byteByByte(const QByteArray& frame)
{
    Batches batches;
    for (const char byte : frame) {
        batches.append(QByteArray(1, byte));
    }
    return batches;
}

} // namespace

class TestFrameCodec : public TestCase
{
    Q_OBJECT
private slots:
    void checksOfBodies_data();
    void checksOfBodies();
    void numbersAsText();
    void assemblesBatches_data();
    void assemblesBatches();
    void validates_data();
    void validates();
    void noDamagedFrameIsValid();
    void readsDeviceText_data();
    void readsDeviceText();
};

void TestFrameCodec::checksOfBodies_data()
{
    addColumns<QByteArray, QByteArray>("body", "check");

    QTest::newRow("poll") << QByteArray("FE0170") << QByteArray("C9");
    QTest::newRow("reset of all") << QByteArray("FEFF73780001") << QByteArray("FD");
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
}

void TestFrameCodec::numbersAsText()
{
    QCOMPARE(SerialProcessor::intToHex(10), QByteArray("0A"));
    QCOMPARE(SerialProcessor::intToHex(256), QByteArray("100"));
}

void TestFrameCodec::assemblesBatches_data()
{
    addColumns<QList<QByteArray>, bool, QByteArray>("batches", "complete", "total");

    const QByteArray soh("\x01");
    const QByteArray frame = soh + "AB12\x04";
    QTest::newRow("byte by byte") << byteByByte(frame) << true << frame;
    QTest::newRow("not ended") << Batches{soh + "AB12"} << false << soh + "AB12";
    QTest::newRow("garbage before") << Batches{"xy" + frame} << true << frame;
    QTest::newRow("bytes after are dropped") << Batches{frame + "ZZ\x04"} << true << frame;
    QTest::newRow("a start discards what was collected")
        << Batches{soh + "999", soh + "AB12\x04"} << true << frame;
    QTest::newRow("two frames in a batch") << Batches{soh + "77\x04" + frame} << true << frame;
    QTest::newRow("acknowledge alone") << Batches{"\x06"} << true << QByteArray("\x06");
    QTest::newRow("refusal alone") << Batches{"\x15"} << true << QByteArray("\x15");
    QTest::newRow("end before the last start")
        << Batches{QByteArray("\x04") + soh + "A"} << false << soh + "A";
}

void TestFrameCodec::assemblesBatches()
{
    QFETCH(QList<QByteArray>, batches);
    QFETCH(bool, complete);

    QByteArray total;
    for (QByteArray& batch : batches) {
        const bool isLast = &batch == &batches.last();
        QCOMPARE(framecodec::processReceivedData(batch, total), isLast && complete);
    }
    QTEST(total, "total");
}

void TestFrameCodec::validates_data()
{
    // "body": empty: not valid
    addColumns<QByteArray, QByteArray>("answer", "body");

    const QByteArray soh("\x01");
    QTest::newRow("status") << kStatusFrame << kStatusFrame.mid(1, 50);
    QTest::newRow("one-character body") << soh + "12A\x04" << QByteArray("1");
    QTest::newRow("acknowledge") << QByteArray("\x06") << QByteArray("\x06");
    QTest::newRow("refusal") << QByteArray("\x15") << QByteArray();
    QTest::newRow("empty body") << soh + "FF\x04" << QByteArray();
    QTest::newRow("check in lower case") << soh + "FE0170c9\x04" << QByteArray();
    QTest::newRow("textbook check") << soh + "FE01706A\x04" << QByteArray();
    QTest::newRow("no start") << QByteArray("FE0170C9\x04") << QByteArray();
    QTest::newRow("noise, then acknowledge") << QByteArray("x\x06") << QByteArray();
}

void TestFrameCodec::validates()
{
    QFETCH(QByteArray, answer);
    QFETCH(QByteArray, body);

    QCOMPARE(framecodec::responseValidation(answer), !body.isEmpty());
    if (!body.isEmpty()) {
        QCOMPARE(answer, body);
    }
}

void TestFrameCodec::noDamagedFrameIsValid()
{
    for (int length = 0; length < kStatusFrame.size(); ++length) {
        QByteArray answer = kStatusFrame.left(length);
        QVERIFY2(!framecodec::responseValidation(answer), qPrintable(QString::number(length)));
    }
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
    addColumns<QByteArray, QString>("pairs", "text");

    QTest::newRow("blanks before the zeros") << QByteArray("48616C6C2031202000000000") << "Hall 1";
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
    QTEST(hextext::toText(pairs), "text");
}

REGISTER_TEST(TestFrameCodec, QCoreApplication)
#include "tst_framecodec.moc"

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
    void checksOfBodies_data()
    {
        const Table<QByteArray, QByteArray> row("body", "check");
        row("poll", "FE0170", "C9");
        row("reset of all", "FEFF73780001", "FD");
        row("one byte", "1", "2A");
        row("long body", QByteArray(300, 'A'), "69");
        row("status answer", kStatusFrame.mid(1, 50), "C1");
    }

    void checksOfBodies()
    {
        QFETCH(QByteArray, body);
        QFETCH(QByteArray, check);

        QCOMPARE(framecodec::createCommand(body), QByteArray("\x01") + body + check + "\x04");
        auto* bytes = reinterpret_cast<quint8*>(body.data());
        QCOMPARE(
            static_cast<uint>(SerialProcessor::crc8(bytes, static_cast<uint16_t>(body.size()))),
            check.toUInt(nullptr, 16));
    }

    void numbersAsText()
    {
        QCOMPARE(SerialProcessor::intToHex(10), QByteArray("0A"));
        QCOMPARE(SerialProcessor::intToHex(256), QByteArray("100"));
    }

    void assemblesBatches_data()
    {
        const Table<QList<QByteArray>, bool, QByteArray> row("batches", "complete", "total");
        const QByteArray soh("\x01");
        const QByteArray frame = soh + "AB12\x04";
        row("byte by byte", byteByByte(frame), true, frame);
        row("not ended", Batches{soh + "AB12"}, false, soh + "AB12");
        row("garbage before", Batches{"xy" + frame}, true, frame);
        row("bytes after are dropped", Batches{frame + "ZZ\x04"}, true, frame);
        row("a start discards what was collected", Batches{soh + "999", soh + "AB12\x04"}, true,
            frame);
        row("two frames in a batch", Batches{soh + "77\x04" + frame}, true, frame);
        row("acknowledge alone", Batches{"\x06"}, true, "\x06");
        row("refusal alone", Batches{"\x15"}, true, "\x15");
        row("end before the last start", Batches{QByteArray("\x04") + soh + "A"}, false, soh + "A");
    }

    void assemblesBatches()
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

    void validates_data()
    {
        // "body": empty: not valid
        const Table<QByteArray, QByteArray> row("answer", "body");
        const QByteArray soh("\x01");
        row("status", kStatusFrame, kStatusFrame.mid(1, 50));
        row("one-character body", soh + "12A\x04", "1");
        row("acknowledge", "\x06", "\x06");
        row("refusal", "\x15", {});
        row("empty body", soh + "FF\x04", {});
        row("check in lower case", soh + "FE0170c9\x04", {});
        row("textbook check", soh + "FE01706A\x04", {});
        row("no start", "FE0170C9\x04", {});
        row("noise, then acknowledge", "x\x06", {});
    }

    void validates()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QByteArray, body);

        QCOMPARE(framecodec::responseValidation(answer), !body.isEmpty());
        if (!body.isEmpty()) {
            QCOMPARE(answer, body);
        }
    }

    void noDamagedFrameIsValid()
    {
        for (int length = 0; length < kStatusFrame.size(); ++length) {
            QByteArray answer = kStatusFrame.left(length);
            QVERIFY2(!framecodec::responseValidation(answer), qPrintable(QString::number(length)));
        }
        for (int bit = 0; bit < kStatusFrame.size() * 8; ++bit) {
            QByteArray batch = kStatusFrame;
            batch[bit / 8] = static_cast<char>(batch.at(bit / 8) ^ (1 << (bit % 8)));
            QByteArray total;
            const bool valid = framecodec::processReceivedData(batch, total) &&
                               framecodec::responseValidation(total);
            QVERIFY2(!valid, qPrintable(QStringLiteral("bit %1").arg(bit)));
        }
    }

    void readsDeviceText_data()
    {
        const Table<QByteArray, QString> row("pairs", "text");
        row("blanks before the zeros", "48616C6C2031202000000000", "Hall 1");
        row("old bytes behind the end", "48616C6C2000726F6F6D", "Hall");
        row("old bytes that are no UTF-8", "48616C6C2000FCFF", "Hall");
        row("UTF-8", "42C3BC726F", QStringLiteral("B\u00FCro"));
        row("Latin-1", "42FC726F", QStringLiteral("B\u00FCro"));
        row("only zeros", "00000000", "");
        row("odd number of digits", "484", "");
        row("no digits", "48ZZ", "");
    }

    void readsDeviceText()
    {
        QFETCH(QByteArray, pairs);
        QTEST(hextext::toText(pairs), "text");
    }
};

REGISTER_TEST(TestFrameCodec, QCoreApplication)
#include "tst_framecodec.moc"

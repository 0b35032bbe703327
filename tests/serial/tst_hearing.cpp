#include "serial/conversation/hearing.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

namespace {

// Frames worked out by hand: body, its check digits.
const QByteArray kFrame("\x01"
                        "FE0170C9"
                        "\x04");
constexpr qint64 kRequestEnd = 15000;
constexpr qint64 kLater = 40000;

} // namespace

class TestHearing : public TestCase
{
    Q_OBJECT
private slots:
    void cutsWhatCame_data()
    {
        // Reads, one after another 1 ms apart, after the request's end unless said otherwise; what
        // comes of them: "sound", "among" (sound, among other bytes), "single", "damaged", "stray".
        QTest::addColumn<QList<QByteArray>>("reads");
        QTest::addColumn<qint64>("from");
        QTest::addColumn<QString>("heard");

        const auto row = [](const char* name, const QList<QByteArray>& reads, const char* heard,
                            qint64 from = kLater) {
            QTest::newRow(name) << reads << from << QString(heard);
        };
        QByteArray wrong = kFrame;
        wrong[3] = 'D';
        QByteArray noEnd = kFrame;
        noEnd[noEnd.size() - 1] = '\x05';
        QByteArray noStart = kFrame.mid(1);
        row("nothing", {}, "");
        row("a frame", {kFrame}, "sound");
        row("byte by byte", {kFrame.left(1), kFrame.mid(1, 7), kFrame.mid(8)}, "sound");
        row("before the request's end", {kFrame}, "sound", 0);
        row("a stray byte before it", {"\x55", kFrame}, "among");
        row("in the same read", {"\x06" + kFrame}, "among");
        row("a stray byte behind it", {kFrame + "\x15"}, "among");
        row("two frames", {kFrame + kFrame}, "among");
        row("another begins behind it", {kFrame + "\x01"}, "among");
        row("a broken one before it", {kFrame.left(5), kFrame}, "among");
        row("ACK", {"\x06"}, "single");
        row("NAK", {"\x15"}, "single");
        row("two ACKs", {"\x06", "\x06"}, "stray");
        row("wrong check digits", {wrong}, "damaged");
        row("wrong check digits before the request's end", {wrong}, "stray", 0);
        row("no start", {noStart}, "damaged");
        row("ends in its middle",
            {QByteArray("\x01"
                        "FE0A7378\x04")},
            "damaged");
        row("too little of it",
            {QByteArray("\x01"
                        "FE0A737\x04")},
            "stray");
        row("lower case is no digit",
            {QByteArray("\x01"
                        "fe0a7378\x04")},
            "stray");
        row("no end", {noEnd}, "stray");
        row("a lone start and end", {"\x01\x04"}, "stray");
        row("a lone start", {"\x01"}, "stray");
    }

    void cutsWhatCame()
    {
        QFETCH(QList<QByteArray>, reads);
        QFETCH(qint64, from);
        Hearing hearing;
        hearing.begin(kRequestEnd);
        qint64 now = from;
        for (const QByteArray& read : qAsConst(reads)) {
            hearing.take(read, now);
            now += 1000;
        }
        QString heard = hearing.hasStrayBytes() ? "stray" : "";
        if (hearing.soundBody()) {
            QCOMPARE(*hearing.soundBody(), QByteArray("FE0170"));
            heard = hearing.isAlone() ? "sound" : "among";
        } else if (hearing.singleByte()) {
            heard = "single";
        } else if (hearing.isDamagedAnswer(now)) {
            heard = "damaged";
        }
        QTEST(heard, "heard");
    }

    void aPauseEndsWhatHasNoEnd()
    {
        Hearing hearing;
        hearing.begin(0);
        hearing.take("\x01"
                     "FE01",
                     1000);
        QVERIFY(!hearing.pauseAt());
        QVERIFY(hearing.isUnderWay(40999));
        QVERIFY(!hearing.isUnderWay(41000));
        hearing.take("70FE", 2000);
        QCOMPARE(hearing.pauseAt(), std::optional<qint64>(42000));
        QVERIFY(!hearing.isDamagedAnswer(41999));
        QVERIFY(hearing.isDamagedAnswer(42000));
        hearing.setAside();
        QVERIFY(!hearing.isDamagedAnswer(90000) && hearing.hasStrayBytes());
        hearing.take(kFrame, 90000);
        QVERIFY(hearing.soundBody() && !hearing.isAlone());
    }

    void keepsLittleOfABabblingLine()
    {
        Hearing hearing;
        hearing.begin(0);
        for (int i = 0; i < 10000; ++i) {
            hearing.take("0123456789", i);
            QVERIFY(!hearing.soundBody());
        }
        hearing.take(QByteArray(1 << 20, 'A'), 20000);
        hearing.take(kFrame, 30000); // found all the same, and not believed
        QVERIFY(hearing.soundBody() && !hearing.isAlone());
    }
};

REGISTER_TEST(TestHearing, NoApplication)
#include "tst_hearing.moc"

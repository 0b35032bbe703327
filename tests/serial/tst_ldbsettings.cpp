#include "serial/ldb/ldbsettings.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

namespace {

// The name is "Hall" and a zero; what stands behind the zero is no part of it.
const QByteArray kRecord = "0AXXYYZZ000000000048616C6C004142430000000000000000??0000";

QByteArray withDigits(int position, const QByteArray& digits)
{
    QByteArray record = kRecord;
    return record.replace(position, digits.size(), digits);
}

/// All fields in one text, so that a row of data states the whole record.
QString summary(const LdbSettings& s)
{
    QString flags;
    for (const bool flag : {s.generalFaultOutput, s.earthLeakageDetection, s.earthWireOpenDetection,
                            s.startInServiceMode, s.amplifierDetection, s.audioMute}) {
        flags += flag ? QLatin1Char('1') : QLatin1Char('0');
    }
    return QStringLiteral("%1 %2 %3 delay %4 fims %5 further %6")
        .arg(s.address)
        .arg(s.name, flags)
        .arg(s.openDetectionDelay)
        .arg(s.numberOfFims)
        .arg(s.furtherByte);
}

} // namespace

class TestLdbSettings : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    }
    void decodes_data()
    {
        const Table<int, QByteArray, QString> row("position", "digits", "expected");
        row("nothing set", 0, "0A", "10 Hall 000000 delay 0 fims 0 further 0");
        row("lower-case digits", 0, "fd", "253 Hall 000000 delay 0 fims 0 further 0");
        row("general fault output", 8, "01", "10 Hall 100000 delay 0 fims 0 further 0");
        row("earth leakage detection", 8, "02", "10 Hall 010000 delay 0 fims 0 further 0");
        row("earth wire open detection", 8, "04", "10 Hall 001000 delay 0 fims 0 further 0");
        row("start in service mode", 8, "08", "10 Hall 000100 delay 0 fims 0 further 0");
        row("amplifier detection", 8, "10", "10 Hall 000010 delay 0 fims 0 further 0");
        row("unused flag bits", 8, "E0", "10 Hall 000000 delay 0 fims 0 further 0");
        row("further byte", 10, "A7", "10 Hall 000000 delay 0 fims 0 further 167");
        row("audio mute by any value", 12, "80", "10 Hall 000001 delay 0 fims 0 further 0");
        row("delay, low byte first", 14, "3412", "10 Hall 000000 delay 4660 fims 0 further 0");
        row("fims, low byte first", 52, "FFFE", "10 Hall 000000 delay 0 fims 65279 further 0");
        row("empty name", 18, "00", "10  000000 delay 0 fims 0 further 0");
        row("name of 16 bytes", 18, "4142434445464748494A4B4C4D4E4F50",
            "10 ABCDEFGHIJKLMNOP 000000 delay 0 fims 0 further 0");
    }

    void decodes()
    {
        QFETCH(int, position);
        QFETCH(QByteArray, digits);
        QFETCH(QString, expected);
        const std::optional<LdbSettings> settings = decodeLdbSettings(withDigits(position, digits));
        QVERIFY(settings.has_value());
        QCOMPARE(summary(*settings), expected);
        const QByteArray record = withDigits(position, digits);
        const QString own = expected.section(' ', 0, 0);
        QVERIFY(decodeLdbSettings(record, QString::number(own.toInt(), 16)).has_value());
        QVERIFY(!decodeLdbSettings(record, "7F").has_value());
        // And back: the same flags, but none where the record has none.
        constexpr int kFlags = 8;
        const bool hasFlags = position == kFlags && digits != "E0";
        QCOMPARE(encodeFlags(*settings), hasFlags ? digits : QByteArray("00"));
    }

    void refuses_data()
    {
        const Table<QByteArray> row("answer");
        row("an acknowledgement", "\x06");
        row("one digit short", kRecord.left(55));
        row("one digit long", kRecord + "0");
        for (const int position : {0, 1, 8, 9, 10, 11, 12, 13, 14, 17, 18, 49, 52, 55}) {
            QTest::addRow("no digit at %d", position) << withDigits(position, "G");
        }
    }

    void refuses()
    {
        QFETCH(QByteArray, answer);
        QVERIFY(!decodeLdbSettings(answer).has_value());
    }

    void decodesNameInLocalEncoding_data()
    {
        const Table<QByteArray, QByteArray, QString> row("codec", "digits", "name");
        const QString buero = QString::fromUtf8("B\xC3\xBCro");
        row("UTF-8", "UTF-8", "42C3BC726F00", buero);
        row("Windows", "windows-1252", "42FC726F00", buero);
        row("Latin-1 bytes on UTF-8", "UTF-8", "42FC726F00", buero);
        row("UTF-8 cut by the zero", "UTF-8", "42C300BC", QString::fromUtf8("B\xC3\x83"));
    }

    void decodesNameInLocalEncoding()
    {
        QFETCH(QByteArray, codec);
        QFETCH(QByteArray, digits);
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
        QTEST(decodeLdbSettings(withDigits(18, digits)).value_or(LdbSettings()).name, "name");
    }

    void tellsStorableNames_data()
    {
        const Table<QByteArray, QString, bool> row("codec", "name", "isStorable");
        const QString umlauts(8, QChar(0xFC));
        row("15 bytes", "UTF-8", QStringLiteral("123456789012345"), true);
        row("16 bytes", "UTF-8", QStringLiteral("1234567890123456"), false);
        row("8 characters of 16 bytes", "UTF-8", umlauts, false);
        row("8 characters of 8 bytes", "ISO-8859-1", umlauts, true);
        row("not in the encoding", "ISO-8859-1", QString(QChar(0x20AC)), false);
        row("a zero inside", "UTF-8", QString(QChar::Null), false);
    }

    void tellsStorableNames()
    {
        QFETCH(QByteArray, codec);
        QFETCH(QString, name);
        QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
        QTEST(isStorableName(name), "isStorable");
    }

    void decodesFirmwareId_data()
    {
        // "expected": empty: refused
        const Table<QByteArray, QString> row("answer", "expected");
        row("12 digits", "4C444220312E", "LDB 1.");
        row("10 digits", "4142434445", "");
        row("odd number of digits", "4142434445464", "");
        row("zero byte", "414243444500", "");
        row("no digit", "41424344454G", "");
    }

    void decodesFirmwareId()
    {
        QFETCH(QByteArray, answer);
        QTEST(decodeFirmwareId(answer).value_or(QString()), "expected");
    }

    void encodesWords()
    {
        QCOMPARE(encodeSwappedWord(0), QByteArray("0000"));
        QCOMPARE(encodeSwappedWord(250), QByteArray("FA00"));
        QCOMPARE(encodeSwappedWord(256), QByteArray("10001")); // not truncated
    }
};

REGISTER_TEST(TestLdbSettings, NoApplication)
#include "tst_ldbsettings.moc"

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
    void decodes_data();
    void decodes();
    void refuses_data();
    void refuses();
    void decodesNameInLocalEncoding_data();
    void decodesNameInLocalEncoding();
    void tellsStorableNames_data();
    void tellsStorableNames();
    void decodesFirmwareId_data();
    void decodesFirmwareId();
    void encodesWords();
};

void TestLdbSettings::decodes_data()
{
    addColumns<int, QByteArray, QString>("position", "digits", "expected");

    const auto row = [](const char* tag, int position, const char* digits, const char* expected) {
        QTest::newRow(tag) << position << QByteArray(digits) << QString::fromLatin1(expected);
    };
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

void TestLdbSettings::decodes()
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

void TestLdbSettings::refuses_data()
{
    QTest::addColumn<QByteArray>("answer");

    QTest::newRow("an acknowledgement") << QByteArray("\x06");
    QTest::newRow("one digit short") << kRecord.left(55);
    QTest::newRow("one digit long") << kRecord + "0";
    for (const int position : {0, 1, 8, 9, 10, 11, 12, 13, 14, 17, 18, 49, 52, 55}) {
        QTest::addRow("no digit at %d", position) << withDigits(position, "G");
    }
}

void TestLdbSettings::refuses()
{
    QFETCH(QByteArray, answer);
    QVERIFY(!decodeLdbSettings(answer).has_value());
}

void TestLdbSettings::decodesNameInLocalEncoding_data()
{
    addColumns<QByteArray, QByteArray, QString>("codec", "digits", "name");

    const QString buero = QString::fromUtf8("B\xC3\xBCro");
    QTest::newRow("UTF-8") << QByteArray("UTF-8") << QByteArray("42C3BC726F00") << buero;
    QTest::newRow("Windows") << QByteArray("windows-1252") << QByteArray("42FC726F00") << buero;
    QTest::newRow("Latin-1 bytes on UTF-8")
        << QByteArray("UTF-8") << QByteArray("42FC726F00") << buero;
    QTest::newRow("UTF-8 cut by the zero")
        << QByteArray("UTF-8") << QByteArray("42C300BC") << QString::fromUtf8("B\xC3\x83");
}

void TestLdbSettings::decodesNameInLocalEncoding()
{
    QFETCH(QByteArray, codec);
    QFETCH(QByteArray, digits);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
    QTEST(decodeLdbSettings(withDigits(18, digits)).value_or(LdbSettings()).name, "name");
}

void TestLdbSettings::tellsStorableNames_data()
{
    addColumns<QByteArray, QString, bool>("codec", "name", "isStorable");

    const QString umlauts(8, QChar(0xFC));
    QTest::newRow("15 bytes") << QByteArray("UTF-8") << QStringLiteral("123456789012345") << true;
    QTest::newRow("16 bytes") << QByteArray("UTF-8") << QStringLiteral("1234567890123456") << false;
    QTest::newRow("8 characters of 16 bytes") << QByteArray("UTF-8") << umlauts << false;
    QTest::newRow("8 characters of 8 bytes") << QByteArray("ISO-8859-1") << umlauts << true;
    QTest::newRow("not in the encoding")
        << QByteArray("ISO-8859-1") << QString(QChar(0x20AC)) << false;
    QTest::newRow("a zero inside") << QByteArray("UTF-8") << QString(QChar::Null) << false;
}

void TestLdbSettings::tellsStorableNames()
{
    QFETCH(QByteArray, codec);
    QFETCH(QString, name);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
    QTEST(isStorableName(name), "isStorable");
}

void TestLdbSettings::decodesFirmwareId_data()
{
    // "expected": empty: refused
    addColumns<QByteArray, QString>("answer", "expected");

    QTest::newRow("12 digits") << QByteArray("4C444220312E") << "LDB 1.";
    QTest::newRow("10 digits") << QByteArray("4142434445") << "";
    QTest::newRow("odd number of digits") << QByteArray("4142434445464") << "";
    QTest::newRow("zero byte") << QByteArray("414243444500") << "";
    QTest::newRow("no digit") << QByteArray("41424344454G") << "";
}

void TestLdbSettings::decodesFirmwareId()
{
    QFETCH(QByteArray, answer);
    QTEST(decodeFirmwareId(answer).value_or(QString()), "expected");
}

void TestLdbSettings::encodesWords()
{
    QCOMPARE(encodeSwappedWord(0), QByteArray("0000"));
    QCOMPARE(encodeSwappedWord(250), QByteArray("FA00"));
    QCOMPARE(encodeSwappedWord(256), QByteArray("10001")); // not truncated
}

REGISTER_TEST(TestLdbSettings, NoApplication)
#include "tst_ldbsettings.moc"

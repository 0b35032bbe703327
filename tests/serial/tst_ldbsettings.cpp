#include "serial/ldbsettings.h"
#include "serial/ldbsettingscommands.h"
#include "tests/support/testcase.h"

#include <QTextCodec>

Q_DECLARE_METATYPE(bool LdbSettings::*)

namespace {

// "Hall" and a zero; what stands behind the zero is no part of the name.
const QByteArray kHallDigits("48616C6C00414243000000000000000000");

QByteArray record(const QByteArray& address, const QByteArray& flags, const QByteArray& further,
                  const QByteArray& mute, const QByteArray& delay, const QByteArray& name,
                  const QByteArray& fims)
{
    return address + "XXYYZZ" + flags + further + mute + delay + name + "??" + fims;
}

QByteArray hallRecord()
{
    return record("0A", "00", "00", "00", "0000", kHallDigits.left(32), "0000");
}

QByteArray withDigits(int position, const QByteArray& digits)
{
    return hallRecord().replace(position, digits.size(), digits);
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
    void encodesFlags_data();
    void encodesFlags();
    void encodesWords_data();
    void encodesWords();
    void writesInOrder_data();
    void writesInOrder();
    void survivesRoundTrip();
};

void TestLdbSettings::decodes_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("expected");

    const auto row = [](const char* tag, int position, const char* digits, const char* expected) {
        QTest::newRow(tag) << withDigits(position, digits) << QString::fromLatin1(expected);
    };
    row("nothing set", 0, "0A", "10 Hall 000000 delay 0 fims 0 further 0");
    row("address FD", 0, "FD", "253 Hall 000000 delay 0 fims 0 further 0");
    row("lower-case digits", 0, "fd", "253 Hall 000000 delay 0 fims 0 further 0");
    row("skipped digits", 2, "!!!!!!", "10 Hall 000000 delay 0 fims 0 further 0");
    row("general fault output", 8, "01", "10 Hall 100000 delay 0 fims 0 further 0");
    row("earth leakage detection", 8, "02", "10 Hall 010000 delay 0 fims 0 further 0");
    row("earth wire open detection", 8, "04", "10 Hall 001000 delay 0 fims 0 further 0");
    row("start in service mode", 8, "08", "10 Hall 000100 delay 0 fims 0 further 0");
    row("amplifier detection", 8, "10", "10 Hall 000010 delay 0 fims 0 further 0");
    row("unused flag bits", 8, "E0", "10 Hall 000000 delay 0 fims 0 further 0");
    row("further byte", 10, "A7", "10 Hall 000000 delay 0 fims 0 further 167");
    row("audio mute", 12, "01", "10 Hall 000001 delay 0 fims 0 further 0");
    row("audio mute by another value", 12, "80", "10 Hall 000001 delay 0 fims 0 further 0");
    row("delay low byte", 14, "0500", "10 Hall 000000 delay 5 fims 0 further 0");
    row("delay high byte", 14, "0005", "10 Hall 000000 delay 1280 fims 0 further 0");
    row("delay both bytes", 14, "3412", "10 Hall 000000 delay 4660 fims 0 further 0");
    row("fims low byte", 52, "1400", "10 Hall 000000 delay 0 fims 20 further 0");
    row("fims both bytes", 52, "FFFE", "10 Hall 000000 delay 0 fims 65279 further 0");
    row("empty name", 18, "00", "10  000000 delay 0 fims 0 further 0");
    row("name of 16 bytes", 18, "4142434445464748494A4B4C4D4E4F50",
        "10 ABCDEFGHIJKLMNOP 000000 delay 0 fims 0 further 0");
}

void TestLdbSettings::decodes()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, expected);
    const std::optional<LdbSettings> settings = decodeLdbSettings(answer);
    QVERIFY(settings.has_value());
    QCOMPARE(summary(*settings), expected);
}

void TestLdbSettings::refuses_data()
{
    QTest::addColumn<QByteArray>("answer");

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("an acknowledgement") << QByteArray("\x06");
    QTest::newRow("a refusal") << QByteArray("\x15");
    QTest::newRow("one digit short") << hallRecord().left(55);
    QTest::newRow("one digit long") << hallRecord() + "0";
    for (const int position : {0, 1, 8, 9, 10, 11, 12, 13, 14, 17, 18, 49, 52, 55}) {
        QTest::addRow("no digit at %d", position) << withDigits(position, "G");
    }
    QTest::newRow("a sign for a digit") << withDigits(8, "+1");
    QTest::newRow("a blank for a digit") << withDigits(52, " 140");
}

void TestLdbSettings::refuses()
{
    QFETCH(QByteArray, answer);
    QVERIFY(!decodeLdbSettings(answer).has_value());
}

void TestLdbSettings::decodesNameInLocalEncoding_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QByteArray>("digits");
    QTest::addColumn<QString>("name");

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
    QFETCH(QString, name);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
    const auto settings = decodeLdbSettings(withDigits(18, digits));
    QVERIFY(settings.has_value());
    QCOMPARE(settings->name, name);
}

void TestLdbSettings::tellsStorableNames_data()
{
    QTest::addColumn<QByteArray>("codec");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isStorable");

    const QString umlauts(8, QChar(0xFC));
    QTest::newRow("empty") << QByteArray("UTF-8") << QString() << true;
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
    QFETCH(bool, isStorable);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(codec));
    QCOMPARE(isStorableName(name), isStorable);
}

void TestLdbSettings::decodesFirmwareId_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("expected"); // null: refused

    QTest::newRow("8 characters") << QByteArray("4C444220312E3037") << QStringLiteral("LDB 1.07");
    QTest::newRow("12 digits") << QByteArray("414243444546") << QStringLiteral("ABCDEF");
    QTest::newRow("10 digits") << QByteArray("4142434445") << QString();
    QTest::newRow("odd number of digits") << QByteArray("4142434445464") << QString();
    QTest::newRow("zero byte") << QByteArray("414243444500") << QString();
    QTest::newRow("no digit") << QByteArray("41424344454G") << QString();
    QTest::newRow("a settings record") << hallRecord() << QString();
}

void TestLdbSettings::decodesFirmwareId()
{
    QFETCH(QByteArray, answer);
    QFETCH(QString, expected);
    const std::optional<QString> firmware = decodeFirmwareId(answer);
    QCOMPARE(firmware.has_value(), !expected.isNull());
    QCOMPARE(firmware.value_or(QString()), expected);
}

void TestLdbSettings::encodesFlags_data()
{
    QTest::addColumn<bool LdbSettings::*>("flag");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("general fault output") << &LdbSettings::generalFaultOutput << QByteArray("01");
    QTest::newRow("earth leakage") << &LdbSettings::earthLeakageDetection << QByteArray("02");
    QTest::newRow("earth wire open") << &LdbSettings::earthWireOpenDetection << QByteArray("04");
    QTest::newRow("service mode") << &LdbSettings::startInServiceMode << QByteArray("08");
    QTest::newRow("amplifier") << &LdbSettings::amplifierDetection << QByteArray("10");
    QTest::newRow("audio mute is none") << &LdbSettings::audioMute << QByteArray("00");
}

void TestLdbSettings::encodesFlags()
{
    QFETCH(bool LdbSettings::*, flag);
    QFETCH(QByteArray, expected);
    LdbSettings settings;
    settings.*flag = true;
    QCOMPARE(encodeFlags(settings), expected);
}

void TestLdbSettings::encodesWords_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("0") << 0 << QByteArray("0000");
    QTest::newRow("5") << 5 << QByteArray("0500");
    QTest::newRow("250 upper case") << 250 << QByteArray("FA00");
    QTest::newRow("255") << 255 << QByteArray("FF00");
    QTest::newRow("256 is not truncated") << 256 << QByteArray("10001");
    QTest::newRow("65535 is not truncated") << 65535 << QByteArray("FFFFFF");
}

void TestLdbSettings::encodesWords()
{
    QFETCH(int, value);
    QFETCH(QByteArray, expected);
    QCOMPARE(encodeSwappedWord(static_cast<quint16>(value)), expected);
}

void TestLdbSettings::writesInOrder_data()
{
    QTest::addColumn<bool>("withMute");
    QTest::addColumn<QList<QByteArray>>("bodies");

    QTest::newRow("editor") << true << QList<QByteArray>{"FE1F73630248616C6C", "FE1F7363141D",
                                                         "FE1F7363170A00",     "FE1F73631601",
                                                         "FE1F7363031400",     "FE1F737806"};
    QTest::newRow("file") << false
                          << QList<QByteArray>{"FE1F73630248616C6C", "FE1F7363141D",
                                               "FE1F7363170A00", "FE1F7363031400", "FE1F737806"};
}

void TestLdbSettings::writesInOrder()
{
    QFETCH(bool, withMute);
    QFETCH(QList<QByteArray>, bodies);
    LdbSettings settings;
    settings.name = QStringLiteral("Hall");
    settings.generalFaultOutput = true;
    settings.earthWireOpenDetection = true;
    settings.startInServiceMode = true;
    settings.amplifierDetection = true;
    settings.audioMute = true;
    settings.openDetectionDelay = 10;
    settings.numberOfFims = 20;

    QList<QByteArray> written;
    for (const auto& command :
         settingsCommands(QStringLiteral("1F"), settings,
                          withMute ? AudioMuteChange::Written : AudioMuteChange::LeftAlone)) {
        written.append(command->commandData());
    }
    QCOMPARE(written, bodies);
}

void TestLdbSettings::survivesRoundTrip()
{
    // Every value whose high byte is zero comes back as it was written.
    for (int value = 0; value <= 255; ++value) {
        const auto word = static_cast<quint16>(value);
        const auto settings = decodeLdbSettings(withDigits(14, encodeSwappedWord(word)));
        QVERIFY(settings.has_value());
        QCOMPARE(settings->openDetectionDelay, word);
    }
}

QTEST_APPLESS_MAIN(TestLdbSettings)
#include "tst_ldbsettings.moc"

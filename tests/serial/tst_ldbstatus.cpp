#include "serial/generalinformation.h"
#include "serial/ldbstatus.h"
#include "tests/support/testcase.h"

namespace {

const QByteArray kHealthy = "00000000000A00000000000000C05D0000C05D0000D2049CFF";

QByteArray withField(int position, const QByteArray& digits)
{
    QByteArray body = kHealthy;
    return body.replace(position, digits.size(), digits);
}

QStringList row(const QByteArray& body, int index)
{
    const LdbStatusDecoding decoded = decodeLdbStatus(body);
    return generalinformation::buildRows(QStringLiteral("0A"), QStringLiteral("Hall"),
                                         decoded.status, QStringLiteral("s"), QStringLiteral("ms"))
        .value(index);
}

} // namespace

class TestLdbStatus : public TestCase
{
    Q_OBJECT
private slots:
    void buildsRows_data();
    void buildsRows();
    void elevenRows();
    void loopTexts_data();
    void loopTexts();
    void earthTexts_data();
    void earthTexts();
    void validity_data();
    void validity();
    void disconnectedSaysNothingGood();
    void numbersKeepThePointInEveryLocale();
    void shortRecordsReadAsNothing();
};

void TestLdbStatus::buildsRows_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("id") << kHealthy << 0 << QStringList{"0A", "10"};
    QTest::newRow("name") << kHealthy << 1 << QStringList{"Hall", "0"};
    QTest::newRow("state quiescent") << kHealthy << 2 << QStringList{"Quiescent", "10"};
    QTest::newRow("state booting") << withField(10, "00") << 2 << QStringList{"Booting", "0"};
    QTest::newRow("state measuring") << withField(10, "14") << 2 << QStringList{"Measuring", "20"};
    QTest::newRow("state service") << withField(10, "1E") << 2 << QStringList{"Service mode", "30"};
    QTest::newRow("state 40") << withField(10, "28") << 2
                              << QStringList{"Fim reset executing", "40"};
    QTest::newRow("state 41") << withField(10, "29") << 2 << QStringList{"Fim reset failed", "41"};
    QTest::newRow("state 42") << withField(10, "2A") << 2 << QStringList{"Fim reset done", "42"};
    QTest::newRow("state 50") << withField(10, "32") << 2
                              << QStringList{"Factory reset executing", "50"};
    QTest::newRow("state 51") << withField(10, "33") << 2
                              << QStringList{"Factory reset failed", "51"};
    QTest::newRow("state 52") << withField(10, "34") << 2
                              << QStringList{"Factory reset done", "52"};
    QTest::newRow("state 253") << withField(10, "FD") << 2 << QStringList{"Check Settings", "253"};
    QTest::newRow("state 254") << withField(10, "FE") << 2 << QStringList{"Fault", "254"};
    QTest::newRow("state 255") << withField(10, "FF") << 2 << QStringList{"Disconnected", "255"};
    QTest::newRow("state unknown") << withField(10, "0B") << 2 << QStringList{"Unknown", "11"};
    QTest::newRow("primary volts")
        << withField(26, "34120300") << 4 << QStringList{"4.7 V", "4.66", "4660", "3"};
    QTest::newRow("primary current below zero")
        << withField(42, "18FC") << 5 << QStringList{"-10.0 mA", "-10", "-1000"};
    QTest::newRow("primary current") << kHealthy << 5 << QStringList{"12.3 mA", "12.34", "1234"};
    QTest::newRow("secondary volts")
        << withField(34, "C05D0100") << 6 << QStringList{"24.0 V", "24", "24000", "1"};
    QTest::newRow("secondary current") << kHealthy << 7 << QStringList{"-1.0 mA", "-1", "-100"};
    QTest::newRow("highest voltage")
        << withField(26, "FFFF") << 4 << QStringList{"65.5 V", "65.535", "65535", "0"};
    QTest::newRow("primary short, voltage")
        << withField(20, "01") << 4 << QStringList{"Short", "-40000", "-40000"};
    QTest::newRow("primary short, current")
        << withField(20, "01") << 5 << QStringList{"Short", "-40000", "-40000"};
    QTest::newRow("primary short leaves the secondary")
        << withField(20, "01") << 7 << QStringList{"-1.0 mA", "-1", "-100"};
    QTest::newRow("secondary short remembered")
        << withField(22, "02") << 6 << QStringList{"Short(memory)", "-40000", "-40000"};
    QTest::newRow("short field of no meaning")
        << withField(22, "03") << 7 << QStringList{"-1.0 mA", "-1", "-100"};
    QTest::newRow("amplifier ok") << kHealthy << 9 << QStringList{"Ok", "0"};
    QTest::newRow("amplifier polling") << withField(24, "01") << 9 << QStringList{"Polling", "1"};
    QTest::newRow("amplifier lost") << withField(24, "02") << 9 << QStringList{"Disconnected", "2"};
    QTest::newRow("amplifier back") << withField(24, "03") << 9 << QStringList{"Reconnected", "3"};
    QTest::newRow("amplifier none")
        << withField(24, "FE") << 9 << QStringList{"Not Supported", "254"};
    QTest::newRow("amplifier unknown") << withField(24, "04") << 9 << QStringList{"Unknown", "4"};
    QTest::newRow("timestamps") << kHealthy << 10 << QStringList{"s", "ms"};
    QTest::newRow("loop from three fields")
        << withField(12, "0222") << 3
        << QStringList{"Short(memory) + Open(memory) + DC Leakage(memory)", "42"};
    QTest::newRow("loop bit without a text")
        << withField(14, "4") << 3 << QStringList{"Unknown", "64"};
    QTest::newRow("loop bits ignored") << withField(12, "FC8C") << 3 << QStringList{"Ok", "0"};
    QTest::newRow("earth from two fields")
        << withField(16, "0102") << 8 << QStringList{"Leakage + Open(memory)", "6"};
    QTest::newRow("earth bit without a text")
        << withField(16, "04") << 8 << QStringList{"Unknown", "16"};
}

void TestLdbStatus::buildsRows()
{
    QFETCH(QByteArray, body);
    QFETCH(int, index);
    QFETCH(QStringList, expected);

    QVERIFY(decodeLdbStatus(body).valid);
    QCOMPARE(row(body, index), expected);
}

void TestLdbStatus::elevenRows()
{
    const auto rows = generalinformation::buildRows(QStringLiteral("01"), {}, LdbStatus(), {}, {});
    QCOMPARE(rows.size(), 11);
}

void TestLdbStatus::loopTexts_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");

    QHash<int, QString> known{
        {0, "Ok"},
        {1, "Open"},
        {2, "Open(memory)"},
        {4, "Short"},
        {6, "Short + Open(memory)"},
        {8, "Short(memory)"},
        {9, "Short(memory) + Open"},
        {10, "Short(memory) + Open(memory)"},
        {16, "DC Leakage"},
        {17, "Open + DC Leakage"},
        {18, "Open(memory) + DC Leakage"},
        {20, "Short + DC Leakage"},
        {22, "Short + Open(memory) + DC Leakage"},
        {24, "Short(memory) + DC Leakage"},
        {25, "Short(memory) + Open + DC Leakage"},
        {26, "Short(memory) + Open(memory) + DC Leakage"},
        {32, "DC Leakage(memory)"},
        {33, "Open + DC Leakage(memory)"},
        {34, "Open(memory) + DC Leakage(memory)"},
        {36, "Short + DC Leakage(memory)"},
        {38, "Short + Open(memory) + DC Leakage(memory)"},
        {40, "Short(memory) + DC Leakage(memory)"},
        {41, "Short(memory)+ Open + DC Leakage(memory)"},
        {42, "Short(memory) + Open(memory) + DC Leakage(memory)"},
    };
    for (int code = 0; code < 128; ++code) {
        QTest::addRow("%d", code) << code << known.value(code, QStringLiteral("Unknown"));
    }
}

void TestLdbStatus::loopTexts()
{
    QFETCH(int, code);
    QFETCH(QString, text);

    QCOMPARE(ldbLoopStateText(static_cast<LdbLoopState>(code)), text);
}

void TestLdbStatus::earthTexts_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");

    const QStringList texts{"Ok",
                            "Open",
                            "Open(memory)",
                            "Ok",
                            "Leakage",
                            "Leakage + Open",
                            "Leakage + Open(memory)",
                            "Leakage",
                            "Leakage(memory)",
                            "Leakage(memory) + Open",
                            "Leakage(memory) + Open(memory)",
                            "Leakage(memory)",
                            "Ok",
                            "Open",
                            "Open(memory)",
                            "Ok"};
    for (int code = 0; code < 32; ++code) {
        QTest::addRow("%d", code) << code << texts.value(code, QStringLiteral("Unknown"));
    }
}

void TestLdbStatus::earthTexts()
{
    QFETCH(int, code);
    QFETCH(QString, text);

    QCOMPARE(ldbEarthStateText(static_cast<LdbEarthState>(code)), text);
}

void TestLdbStatus::validity_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("valid");

    QTest::newRow("healthy") << kHealthy << true;
    QTest::newRow("49 characters") << kHealthy.left(49) << false;
    QTest::newRow("51 characters") << kHealthy + "0" << false;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("acknowledge") << QByteArray("\x06") << false;
    QTest::newRow("skipped characters do not count") << withField(2, "xyzxyz") << true;
    QTest::newRow("malformed primary current") << withField(42, "zzzz") << true;
    QTest::newRow("malformed secondary current") << withField(46, "-12 ") << true;
    for (const int position : {0, 8, 10, 12, 14, 15, 16, 18, 20, 22, 24, 26, 30, 34, 38, 41}) {
        QTest::addRow("no digit at %d", position) << withField(position, "g") << false;
    }
    QTest::newRow("sign") << withField(26, "+123") << false;
    QTest::newRow("blank") << withField(10, " A") << false;
    QTest::newRow("prefix") << withField(26, "0x12") << false;
    QTest::newRow("lower case") << withField(10, "1e") << true;
}

void TestLdbStatus::validity()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, valid);

    const LdbStatusDecoding decoded = decodeLdbStatus(body);
    QCOMPARE(decoded.valid, valid);
    if (body.size() != 50) {
        QCOMPARE(decoded.status.primaryVoltage, quint16(0));
        QCOMPARE(static_cast<int>(decoded.status.state), 0);
    }
}

void TestLdbStatus::disconnectedSaysNothingGood()
{
    namespace gi = generalinformation;
    const auto rows = gi::buildRows(QStringLiteral("FD"), QStringLiteral("Disconnected"),
                                    LdbStatus::disconnected(), {}, {});
    QCOMPARE(rows.at(0), (QStringList{"FD", "253"}));
    QCOMPARE(rows.at(2), (QStringList{"Disconnected", "255"}));
    QCOMPARE(gi::text(rows, gi::LoopRow), QStringLiteral("Unknown"));
    QCOMPARE(gi::text(rows, gi::EarthRow), QStringLiteral("Unknown"));
    QCOMPARE(gi::text(rows, gi::AmplifierRow), QStringLiteral("Unknown"));
    for (const int index : {4, 5, 6, 7}) {
        QCOMPARE(rows.at(index).at(1), QStringLiteral("0"));
    }
}

void TestLdbStatus::numbersKeepThePointInEveryLocale()
{
    const QLocale former;
    QLocale::setDefault(QLocale(QLocale::Dutch));
    const QStringList volts = row(kHealthy, 4);
    const QStringList milliamperes = row(kHealthy, 5);
    QLocale::setDefault(former);
    QCOMPARE(volts.at(0), QStringLiteral("24.0 V"));
    QCOMPARE(milliamperes.at(1), QStringLiteral("12.34"));
}

void TestLdbStatus::shortRecordsReadAsNothing()
{
    namespace gi = generalinformation;
    const QList<QStringList> oneRow{{"0A", "10"}};
    QCOMPARE(gi::text(oneRow, gi::AmplifierRow), QString());
    QCOMPARE(gi::integer(oneRow, gi::ModeRow), 0);
    QVERIFY(!gi::timestamp(oneRow).isValid());
}

QTEST_GUILESS_MAIN(TestLdbStatus)
#include "tst_ldbstatus.moc"

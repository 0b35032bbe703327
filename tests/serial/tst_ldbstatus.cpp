#include "serial/ldb/generalinformation.h"
#include "serial/ldb/ldbstatus.h"
#include "tests/support/testprogram.h"

using namespace generalinformation;

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
    return buildRows(QStringLiteral("0A"), QStringLiteral("Hall"), decoded.status,
                     QStringLiteral("s"), QStringLiteral("ms"))
        .value(index);
}

/// The words of a fault that is there (bit 0), remembered (bit 1), both or neither.
QString faultText(const char* fault, int bits)
{
    const QStringList texts{"", fault, QString(fault) + "(memory)", ""};
    return texts.at(bits & 3);
}

/// The words of several faults in one.
QString sumText(QStringList faults)
{
    faults.removeAll(QString());
    return faults.isEmpty() ? "Ok" : faults.join(" + ");
}

QString loopText(int code)
{
    const int opened = code & 3;
    const int shorted = code >> 2 & 3;
    const int leakage = code >> 4;
    // A fault cannot be both, and no loop is seen to be open behind a short.
    if (opened == 3 || shorted == 3 || leakage >= 3 || (shorted == 1 && opened == 1)) {
        return "Unknown";
    }
    const QString text = sumText(
        {faultText("Short", shorted), faultText("Open", opened), faultText("DC Leakage", leakage)});
    return code == 41 ? "Short(memory)+ Open + DC Leakage(memory)" : text; // as it always was
}

QString earthText(int code)
{
    return code < 16 ? sumText({faultText("Leakage", code >> 2), faultText("Open", code)})
                     : "Unknown";
}

} // namespace

class TestLdbStatus : public TestCase
{
    Q_OBJECT
private slots:
    void buildsRows_data()
    {
        // "expected": its strings, joined by "|"
        addColumns<QByteArray, int, QString>("body", "index", "expected");

        const auto row = [](const char* tag, int position, const char* digits, Row index,
                            const char* expected) {
            QTest::newRow(tag) << withField(position, digits) << int(index) << expected;
        };
        row("id", 0, "", DeviceIdRow, "0A|10");
        row("name", 0, "", NameRow, "Hall|0|Hall");
        row("state", 10, "14", ModeRow, "Measuring|20");
        row("primary volts", 26, "34120300", PrimaryVoltageRow, "4.7 V|4.66|4660|3");
        row("primary current", 0, "", PrimaryCurrentRow, "12.3 mA|12.34|1234");
        row("primary current below zero", 42, "18FC", PrimaryCurrentRow, "-10.0 mA|-10|-1000");
        row("secondary volts", 34, "C05D0100", SecondaryVoltageRow, "24.0 V|24|24000|1");
        row("secondary current", 0, "", SecondaryCurrentRow, "-1.0 mA|-1|-100");
        row("highest voltage", 26, "FFFF", PrimaryVoltageRow, "65.5 V|65.535|65535|0");
        row("primary short, voltage", 20, "01", PrimaryVoltageRow, "Short|-40000|-40000");
        row("primary short, current", 20, "01", PrimaryCurrentRow, "Short|-40000|-40000");
        row("primary short, secondary", 20, "01", SecondaryCurrentRow, "-1.0 mA|-1|-100");
        row("short remembered", 22, "02", SecondaryVoltageRow, "Short(memory)|-40000|-40000");
        row("short field of no meaning", 22, "03", SecondaryCurrentRow, "-1.0 mA|-1|-100");
        row("amplifier", 24, "02", AmplifierRow, "Disconnected|2");
        row("timestamps", 0, "", TimestampRow, "s|ms");
        row("loop from three fields", 12, "0222", LoopRow,
            "Short(memory) + Open(memory) + DC Leakage(memory)|42");
        row("loop bit without a text", 14, "4", LoopRow, "Unknown|64");
        row("loop bits ignored", 12, "FC8C", LoopRow, "Ok|0");
        row("earth from two fields", 16, "0102", EarthRow, "Leakage + Open(memory)|6");
        row("earth bit without a text", 16, "04", EarthRow, "Unknown|16");
    }

    void buildsRows()
    {
        QFETCH(QByteArray, body);
        QFETCH(int, index);
        QFETCH(QString, expected);

        QVERIFY(decodeLdbStatus(body).valid);
        QCOMPARE(row(body, index).join('|'), expected);
    }

    void everyCodeHasItsText_data()
    {
        addColumns<QString, QString>("actual", "expected");

        const QMap<int, QString> modes{{0, "Booting"},
                                       {10, "Quiescent"},
                                       {20, "Measuring"},
                                       {30, "Service mode"},
                                       {40, "Fim reset executing"},
                                       {41, "Fim reset failed"},
                                       {42, "Fim reset done"},
                                       {50, "Factory reset executing"},
                                       {51, "Factory reset failed"},
                                       {52, "Factory reset done"},
                                       {253, "Check Settings"},
                                       {254, "Fault"},
                                       {255, "Disconnected"}};
        const QMap<int, QString> amplifiers{{0, "Ok"},
                                            {1, "Polling"},
                                            {2, "Disconnected"},
                                            {3, "Reconnected"},
                                            {254, "Not Supported"}};
        for (int code = 0; code < 256; ++code) {
            QTest::addRow("mode %d", code)
                << ldbStateText(static_cast<LdbState>(code)) << modes.value(code, "Unknown");
            QTest::addRow("amplifier %d", code)
                << ldbAmplifierText(code) << amplifiers.value(code, "Unknown");
            QTest::addRow("loop %d", code)
                << ldbLoopStateText(static_cast<LdbLoopState>(code)) << loopText(code);
            QTest::addRow("earth %d", code)
                << ldbEarthStateText(static_cast<LdbEarthState>(code)) << earthText(code);
        }
    }

    void everyCodeHasItsText()
    {
        QFETCH(QString, actual);
        QTEST(actual, "expected");
    }

    void validity_data()
    {
        const Table<QByteArray, bool> row("body", "valid");
        row("49 characters", kHealthy.left(49), false);
        row("51 characters", kHealthy + "0", false);
        row("skipped characters do not count", withField(2, "xyzxyz"), true);
        row("malformed primary current", withField(42, "zzzz"), true);
        row("malformed secondary current", withField(46, "-12 "), true);
        for (const int position : {0, 8, 10, 12, 14, 15, 16, 18, 20, 22, 24, 26, 30, 34, 38, 41}) {
            QTest::addRow("no digit at %d", position) << withField(position, "g") << false;
        }
        row("sign", withField(26, "+123"), false);
        row("blank", withField(10, " A"), false);
        row("prefix", withField(26, "0x12"), false);
        row("lower case", withField(10, "1e"), true);
    }

    void validity()
    {
        QFETCH(QByteArray, body);
        QTEST(decodeLdbStatus(body).valid, "valid");
    }

    void disconnectedSaysNothingGood()
    {
        const auto rows = buildRows("FD", "Hall", LdbStatus::disconnected(), {}, {});
        QCOMPARE(rows.at(DeviceIdRow), (QStringList{"FD", "253"}));
        QCOMPARE(rows.at(ModeRow), (QStringList{"Disconnected", "255"}));
        QCOMPARE(text(rows, NameRow), "Disconnected (Hall)");
        QCOMPARE(ownName(rows), "Hall");
        QVERIFY(isLost(rows));
        for (int row = LoopRow; row <= AmplifierRow; ++row) {
            QVERIFY(!hasValue(rows, static_cast<Row>(row)));
            QCOMPARE(text(rows, static_cast<Row>(row)), QString::fromUtf8("–"));
        }
        // The codes stay for the colours; of a measurement there is no number that could be taken
        // for one.
        QCOMPARE(integer(rows, LoopRow), 64);
        QCOMPARE(integer(rows, EarthRow), 16);
        QCOMPARE(integer(rows, AmplifierRow), 255);
        for (int row = PrimaryVoltageRow; row <= SecondaryCurrentRow; ++row) {
            QCOMPARE(field(rows, static_cast<Row>(row), ValueColumn), QString());
        }
        const auto nameless = buildRows("FD", {}, LdbStatus::disconnected(), {}, {});
        QCOMPARE(text(nameless, NameRow), "Disconnected");
    }

    void numbersKeepThePointInEveryLocale()
    {
        const QLocale former;
        QLocale::setDefault(QLocale(QLocale::Dutch));
        const QStringList volts = row(kHealthy, PrimaryVoltageRow);
        const QStringList milliamperes = row(kHealthy, PrimaryCurrentRow);
        QLocale::setDefault(former);
        QCOMPARE(volts.at(TextColumn), QStringLiteral("24.0 V"));
        QCOMPARE(milliamperes.at(ValueColumn), QStringLiteral("12.34"));
    }

    void shortRecordsReadAsNothing()
    {
        const QList<QStringList> oneRow{{"0A", "10"}};
        QCOMPARE(text(oneRow, AmplifierRow), QString());
        QCOMPARE(integer(oneRow, ModeRow), 0);
        QVERIFY(!timestamp(oneRow).isValid());
    }
};

REGISTER_TEST(TestLdbStatus, QCoreApplication)
#include "tst_ldbstatus.moc"

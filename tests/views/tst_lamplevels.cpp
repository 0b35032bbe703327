#include "tests/support/testcase.h"
#include "tests/views/records.h"
#include "views/lamplevels.h"

using records::Codes;
using records::withCodes;

namespace {

/// The levels of A, B, C and D as four digits.
QString digits(const LampLevels& levels)
{
    QString result;
    for (const Lamp lamp : {Lamp::A, Lamp::B, Lamp::C, Lamp::D}) {
        result += QString::number(static_cast<int>(levels.of(lamp)));
    }
    return result;
}

} // namespace

class TestLampLevels : public TestCase
{
    Q_OBJECT
private slots:
    void everyCode_data();
    void everyCode();
    void combinations_data();
    void combinations();
    void missingRowsRaiseNothing();
    void rounds_data();
    void rounds();
};

void TestLampLevels::everyCode_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("levelPosition");
    QTest::addColumn<QString>("levels"); // one digit a code, from code 0; the rest is 0

    // Worked out from the meaning of the codes: a present fault is major, a remembered one minor,
    // and codes that read "Unknown" raise nothing (but 3, which is counted as remembered).
    QTest::newRow("loop") << "loop" << 2
                          << "02112020121000002220202022200000"
                             "12102020121";
    QTest::newRow("earth") << "earth" << 1 << "0210222212110210";
    QTest::newRow("amplifier") << "amplifier" << 2 << "0021";
    QTest::newRow("service mode") << "mode" << 0
                                  << QString(30, QLatin1Char('0')) + QLatin1Char('1');
    QTest::newRow("check settings")
        << "mode" << 3 << QString(253, QLatin1Char('0')) + QLatin1Char('1');
}

void TestLampLevels::everyCode()
{
    QFETCH(QString, field);
    QFETCH(int, levelPosition);
    QFETCH(QString, levels);

    int Codes::*const varied = field == QLatin1String("loop")    ? &Codes::loop
                               : field == QLatin1String("earth") ? &Codes::earth
                               : field == QLatin1String("mode")  ? &Codes::mode
                                                                 : &Codes::amplifier;
    for (int code = 0; code < 256; ++code) {
        Codes codes;
        codes.*varied = code;
        const QString found = digits(lampLevels(withCodes(QStringLiteral("01"), codes)));
        const QChar expected = code < levels.size() ? levels.at(code) : QLatin1Char('0');
        QVERIFY2(found.at(levelPosition) == expected, qPrintable(QString::number(code)));
        // The mode lights two lamps, one test row each; the other codes light their own alone.
        const int lit = 4 - found.count(QLatin1Char('0'));
        QVERIFY(varied == &Codes::mode || lit == (expected == QLatin1Char('0') ? 0 : 1));
    }
}

void TestLampLevels::combinations_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("loop");
    QTest::addColumn<int>("earth");
    QTest::addColumn<int>("amplifier");
    QTest::addColumn<QString>("levels");

    QTest::newRow("remembered open, amplifier fine") << 10 << 2 << 0 << 0 << "0010";
    QTest::newRow("remembered open, amplifier gone") << 10 << 2 << 0 << 2 << "0020";
    QTest::newRow("remembered open, amplifier back") << 10 << 2 << 0 << 3 << "0010";
    QTest::newRow("open, amplifier back") << 10 << 1 << 0 << 3 << "0020";
    QTest::newRow("loop unknown, amplifier gone") << 10 << 5 << 0 << 2 << "0020";
    QTest::newRow("everything at once, service") << 30 << 4 << 4 << 2 << "1220";
    QTest::newRow("everything at once, settings") << 253 << 8 << 8 << 3 << "0111";
    QTest::newRow("disconnected") << 255 << 64 << 16 << 255 << "0000";
}

void TestLampLevels::combinations()
{
    QFETCH(int, mode);
    QFETCH(int, loop);
    QFETCH(int, earth);
    QFETCH(int, amplifier);
    QFETCH(QString, levels);

    QCOMPARE(digits(lampLevels(withCodes(QStringLiteral("01"), {mode, loop, earth, amplifier}))),
             levels);
}

void TestLampLevels::missingRowsRaiseNothing()
{
    QCOMPARE(digits(lampLevels({})), QStringLiteral("0000"));
    QCOMPARE(digits(lampLevels({{QStringLiteral("01"), QStringLiteral("1")}})),
             QStringLiteral("0000"));
}

void TestLampLevels::rounds_data()
{
    QTest::addColumn<QString>("records"); // "<hexId>:<earth code>"
    QTest::addColumn<QString>("shown");   // lamp B's level, "-" within a round

    QTest::newRow("a single LDB ends a round each time") << "01:4 01:2 01:0"
                                                         << "2 1 0";
    QTest::newRow("the fault of another shows when the first comes again")
        << "01:0 02:4 03:0 01:0 02:0 01:0"
        << "0 - - 2 - 0";
    QTest::newRow("the record that ends a round counts for that round only")
        << "01:0 02:2 01:4 02:0 01:0"
        << "0 - 2 - 0";
    QTest::newRow("a level does not fall within a round") << "01:0 02:4 02:0 03:2 01:0"
                                                          << "0 - - - 2";
    QTest::newRow("no round ends without the first LDB") << "03:0 01:4 02:0 01:0 02:0"
                                                         << "0 - - - -";
    QTest::newRow("ids are told apart by case") << "0A:0 0a:4 0A:0"
                                                << "0 - 2";
}

void TestLampLevels::rounds()
{
    QFETCH(QString, records);
    QFETCH(QString, shown);

    BusCondition condition;
    QStringList found;
    const QStringList each = records.split(QLatin1Char(' '));
    for (const QString& record : each) {
        Codes codes;
        codes.earth = record.section(QLatin1Char(':'), 1).toInt();
        const QString hexId = record.section(QLatin1Char(':'), 0, 0);
        const auto levels = condition.add(hexId, withCodes(hexId, codes));
        found << (levels ? digits(*levels).mid(1, 1) : QStringLiteral("-"));
    }
    QCOMPARE(found.join(QLatin1Char(' ')), shown);
}

QTEST_GUILESS_MAIN(TestLampLevels)
#include "tst_lamplevels.moc"

#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tests/views/records.h"
#include "views/lamps/lampcondition.h"

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
    void everyCode()
    {
        // Worked out from the meaning of the codes, from code 0, the rest 0: a present fault is
        // major, a remembered one minor, and codes that read "Unknown" raise nothing (but 3, which
        // is counted as remembered).
        const QString loop("0211202012100000222020202220000012102020121");
        const QString earth("0210222212110210");
        const QString amplifier("0021");
        const auto levelOf = [](const QString& levels, int code) {
            return code < levels.size() ? QString(levels.at(code)) : "0";
        };
        const auto found = [](const Codes& codes) {
            return digits(lampLevels(withCodes("01", codes)));
        };
        for (int code = 0; code < 256; ++code) {
            const QString tag = QString::number(code) + ": ";
            QCOMPARE(tag + found({code}), tag + (code == 30    ? "1000"
                                                 : code == 253 ? "0001"
                                                               : "0000"));
            QCOMPARE(tag + found({10, code}), tag + "00" + levelOf(loop, code) + "0");
            QCOMPARE(tag + found({10, 0, code}), tag + "0" + levelOf(earth, code) + "00");
            QCOMPARE(tag + found({10, 0, 0, code}), tag + "00" + levelOf(amplifier, code) + "0");
        }
    }

    void combinations_data()
    {
        const Table<Codes, QString> row("codes", "levels");
        row("remembered open, amplifier gone", {10, 2, 0, 2}, "0020");
        row("open, amplifier back", {10, 1, 0, 3}, "0020");
        row("loop unknown, amplifier gone", {10, 5, 0, 2}, "0020");
        row("everything at once, service", {30, 4, 4, 2}, "1220");
        row("everything at once, settings", {253, 8, 8, 3}, "0111");
        row("disconnected", {255, 64, 16, 255}, "0000");
    }

    void combinations()
    {
        QFETCH(Codes, codes);
        QTEST(digits(lampLevels(withCodes("01", codes))), "levels");
    }

    void rounds_data()
    {
        // "records": "<hexId>:<earth code>"
        // "shown": lamp B's level, "-" within a round
        const Table<QString, QString> row("records", "shown");
        row("a single LDB ends a round each time", "01:4 01:2 01:0", "2 1 0");
        row("the fault of another shows when the first comes again",
            "01:0 02:4 03:0 01:0 02:0 01:0", "0 - - 2 - 0");
        row("the record that ends a round counts for that round only", "01:0 02:2 01:4 02:0 01:0",
            "0 - 2 - 0");
        row("a level does not fall within a round", "01:0 02:4 02:0 03:2 01:0", "0 - - - 2");
        row("no round ends without the first LDB", "03:0 01:4 02:0 01:0 02:0", "0 - - - -");
    }

    void rounds()
    {
        QFETCH(QString, records);

        BusCondition condition;
        QStringList found;
        const QStringList each = records.split(' ');
        for (const QString& record : each) {
            const QString hexId = record.section(':', 0, 0);
            const int earth = record.section(':', 1).toInt();
            const auto levels = condition.add(hexId, withCodes(hexId, {10, 0, earth}));
            found << (levels ? digits(*levels).mid(1, 1) : "-");
        }
        QTEST(found.join(' '), "shown");
    }
};

REGISTER_TEST(TestLampLevels, QCoreApplication)
#include "tst_lamplevels.moc"

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
        // "steps": "<hexId>:<earth code>", "|" for a round's end
        // "shown": lamp B's level behind each
        const Table<QString, QString> row("steps", "shown");
        row("lit at once, dark at the end of the round in which it has gone",
            "01:0 02:4 | 01:0 02:0 |", "0 2 2 2 2 0");
        row("a record from between the turns lights it as well", "01:0 02:0 01:4 | 01:0 |",
            "0 0 2 2 2 0");
        row("what was raised in a round is shown until the next one's end", "01:4 01:0 | 01:0 |",
            "2 2 2 2 0");
        row("it falls to what is left", "01:4 02:2 | 01:0 02:2 |", "2 2 2 2 2 1");
        row("one that has missed its turn still counts", "01:0 02:4 | 01:0 | 01:0 02:0 |",
            "0 2 2 2 2 2 2 0");
        row("one that is lost does not", "01:4 | 01:16 |", "2 2 2 0");
        row("one that has gone for good does not", "01:0 02:4 | x | 01:0 |", "0 2 2 2 0 0 0");
    }

    void rounds()
    {
        QFETCH(QString, steps);

        BusCondition condition;
        QStringList found;
        const QStringList each = steps.split(' ');
        for (const QString& step : each) {
            const QString hexId = step.section(':', 0, 0);
            if (step == "|") {
                condition.endRound();
            } else if (step == "x") {
                condition.keepOnly({"01"});
            } else {
                condition.add(hexId, withCodes(hexId, {10, 0, step.section(':', 1).toInt()}));
            }
            found << digits(condition.shown()).mid(1, 1);
        }
        QTEST(found.join(' '), "shown");
    }

    void oneRuleOfFaults()
    {
        for (const Codes& codes : {Codes{30}, Codes{51}, Codes{253}, Codes{254}, Codes{255},
                                   Codes{10, 2}, Codes{10, 0, 2}, Codes{10, 0, 0, 3}}) {
            QVERIFY(isFaulty(withCodes("01", codes)));
        }
        for (const Codes& codes : {Codes{}, Codes{20}, Codes{50}, Codes{10, 0, 0, 255}}) {
            QVERIFY(!isFaulty(withCodes("01", codes)));
        }
    }
};

REGISTER_TEST(TestLampLevels, QCoreApplication)
#include "tst_lamplevels.moc"

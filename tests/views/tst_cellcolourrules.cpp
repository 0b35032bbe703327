#include "serial/ldb/generalinformation.h"
#include "serial/link/serialtuning.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "views/tables/cellcolours.h"

#include <memory>

using namespace generalinformation;

namespace {

const QString kNone = "(none)";

/// A tuning file with these rules for the mode, separated by blanks.
QByteArray tuning(const QByteArray& rulesOfMode, const QByteArray& size = "column\\size=11\n")
{
    QByteArray ini = "[TableSettings]\n" + size;
    for (const QByteArray& line : rulesOfMode.split(' ')) {
        ini += "column\\3\\" + line + '\n';
    }
    return ini;
}

QColor colourOf(const CellColourRules& rules, int row, int value)
{
    return cellcolours::ruleColour(rules, row, {"text", QString::number(value)});
}

const QString kShippedFile = QStringLiteral(PROJECT_FOLDER "/settings.ini");

} // namespace

class TestCellColourRules : public TestCase
{
    Q_OBJECT
private slots:
    void ruleApplies_data()
    {
        // "warning": a pattern, or empty
        addColumns<QByteArray, int, QString, QByteArray>("ini", "value", "colour", "warning");

        const auto row = [](const char* tag, const QByteArray& rules, int value,
                            const QString& colour, const QByteArray& warning = {}) {
            QTest::newRow(tag) << tuning(rules) << value << colour << warning;
        };
        const QByteArray fromAndTo = "value0=3 color0=red value1=3 color1=lime";
        row("at both thresholds the later wins", fromAndTo, 3, "#00ff00");
        row("above", fromAndTo, 4, "#ff0000");
        row("below", fromAndTo, 2, "#00ff00");
        const QByteArray exact =
            "value0=1 color0=red value2=30 color2=blue value24=30 color24=#102030";
        row("last rule", exact, 30, "#102030");
        row("exact is no range", exact, 31, "#ff0000");
        row("none applies", exact, 0, kNone);
        row("rule 25 does not exist", "value25=5 color25=red", 5, kNone);
        row("switched off", "value0=-9999 color0=red", 5, kNone);
        row("negative threshold", "value2=-40000 color2=red", -40000, "#ff0000");
        row("colour without threshold", "color0=red", 5, kNone);
        row("empty colour takes the cell out", "value0=1 color0=red value2=7 color2=", 7, kNone);
        row("missing colour does too", "value0=1 color0=red value2=7", 7, kNone);
        row("unreadable threshold counts as 0", "value2=many color2=red", 0, "#ff0000",
            "column/3/value2.*many");
        row("unknown colour is no colour", "value2=5 color2=reddish", 5, kNone,
            "column/3/color2.*reddish");
        const QByteArray rule("value0=0 color0=red");
        const auto fileRow = [](const char* tag, const QByteArray& ini) {
            QTest::newRow(tag) << ini << 0 << kNone << QByteArray();
        };
        fileRow("empty file", {});
        fileRow("array without size", tuning(rule, {}));
        fileRow("array too short", tuning(rule, "column\\size=2\n"));
    }

    void ruleApplies()
    {
        QFETCH(QByteArray, ini);
        QFETCH(int, value);
        QFETCH(QString, colour);
        QFETCH(QByteArray, warning);
        m_sandbox->writeTuning(ini);
        const auto expected =
            warning.isEmpty() ? nullptr : std::make_unique<ExpectWarning>(warning.constData());
        const QColor painted = colourOf(CellColourRules::fromTuningFile(), ModeRow, value);
        QCOMPARE(painted.isValid() ? painted.name() : kNone, colour);
    }

    void rulesBelongToTheirRow()
    {
        QVERIFY(!CellColourRules::fromTuningFile().colourName(ModeRow, 5)); // no file
        m_sandbox->writeTuning(tuning("value0=0 color0=red"));
        const CellColourRules rules = CellColourRules::fromTuningFile();
        for (int row = -1; row <= RowCount; ++row) {
            QCOMPARE(rules.colourName(row, 5).has_value(), row == ModeRow);
        }
    }

    void shippedTuningHasTheBuiltInValues()
    {
        const SerialTuning builtIn = SerialTuning::load();
        const QSettings shipped(kShippedFile, QSettings::IniFormat);
        const auto number = [&shipped](const char* key) {
            return shipped.value(key).toInt();
        };
        QCOMPARE(number("SerialSettings/DISCONNECTED_COUNT"), builtIn.disconnectedCount);
        QCOMPARE(number("SerialSettings/BYTES_RECEIVED_WAIT_TIME"), builtIn.answerWaitTime);
        QCOMPARE(number("FimTracking/SHORT_DETECTION_CURRENT"), 220);
        QCOMPARE(number("FimTracking/PRIMARY_FIM_STARTUP_CURRENT"), 11);
        QCOMPARE(number("FimTracking/SECONDARY_FIM_STARTUP_CURRENT"), 11);
    }

    void shippedColoursTellFaultsFromNormal()
    {
        const CellColourRules rules = CellColourRules::fromTuningFile(kShippedFile);
        const auto check = [&rules](int row, int code, bool isColoured) {
            QVERIFY2(colourOf(rules, row, code).isValid() == isColoured,
                     qPrintable(QStringLiteral("row %1, %2").arg(row).arg(code)));
        };
        for (const int mode : {0, 10, 20, 30, 40, 41, 42, 50, 51, 52, 253, 254, 255}) {
            check(ModeRow, mode, !QList<int>{0, 10, 20, 42, 52}.contains(mode));
        }
        for (int code = 0; code < 128; ++code) {
            check(LoopRow, code, ldbLoopStateText(static_cast<LdbLoopState>(code)) != "Ok");
        }
        for (int code = 0; code < 32; ++code) {
            check(EarthRow, code, ldbEarthStateText(static_cast<LdbEarthState>(code)) != "Ok");
        }
        for (const int amplifier : {0, 1, 2, 3, 4, 254, 255}) {
            check(AmplifierRow, amplifier, !QList<int>{0, 1, 254}.contains(amplifier));
        }
        for (int row = PrimaryVoltageRow; row <= SecondaryCurrentRow; ++row) {
            check(row, kMissingMeasurement, true);
            for (int value = -400; value <= 400; ++value) {
                check(row, value, false);
            }
        }
    }
};

REGISTER_TEST(TestCellColourRules, QApplication)
#include "tst_cellcolourrules.moc"

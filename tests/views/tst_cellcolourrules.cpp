#include "serial/generalinformation.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "views/cellcolourrules.h"
#include "views/cellcolours.h"

#include <QSettings>

namespace {

const QString kNone = QStringLiteral("(none)");

QByteArray tuning(const QByteArray& rulesOfMode)
{
    QByteArray ini = "[TableSettings]\ncolumn\\size=11\n";
    for (const QByteArray& line : rulesOfMode.split(' ')) {
        ini += "column\\3\\" + line + '\n';
    }
    return ini;
}

const QString kShippedFile = QStringLiteral(PROJECT_FOLDER "/settings.ini");

} // namespace

class TestCellColourRules : public TestCase
{
    Q_OBJECT
private slots:
    void ruleApplies_data();
    void ruleApplies();
    void unreadableRulesAreWarnedOf_data();
    void unreadableRulesAreWarnedOf();
    void missingPartsGiveNoColour_data();
    void missingPartsGiveNoColour();
    void rulesBelongToTheirRow();
    void textContrasts_data();
    void textContrasts();
    void shippedTuningHasTheBuiltInValues_data();
    void shippedTuningHasTheBuiltInValues();
    void shippedColoursTellFaultsFromNormal_data();
    void shippedColoursTellFaultsFromNormal();
    void shippedColoursLeaveMeasurementsAlone();
};

void TestCellColourRules::ruleApplies_data()
{
    QTest::addColumn<QByteArray>("rules");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("colour");

    const QByteArray fromAndTo = "value0=3 color0=red value1=3 color1=green";
    QTest::newRow("at both thresholds the later wins") << fromAndTo << 3 << "green";
    QTest::newRow("above") << fromAndTo << 4 << "red";
    QTest::newRow("below") << fromAndTo << 2 << "green";
    const QByteArray exact = "value0=1 color0=red value2=30 color2=blue value24=30 color24=gold";
    QTest::newRow("last rule") << exact << 30 << "gold";
    QTest::newRow("exact is no range") << exact << 31 << "red";
    QTest::newRow("none applies") << exact << 0 << kNone;
    QTest::newRow("rule 25 does not exist") << QByteArray("value25=5 color25=red") << 5 << kNone;
    QTest::newRow("switched off") << QByteArray("value0=-9999 color0=red") << 5 << kNone;
    QTest::newRow("switched off at its own value")
        << QByteArray("value2=-9999 color2=red") << -9999 << kNone;
    QTest::newRow("negative threshold")
        << QByteArray("value2=-40000 color2=red") << -40000 << "red";
    QTest::newRow("colour without threshold") << QByteArray("color0=red") << 5 << kNone;
    QTest::newRow("empty colour takes the cell out again")
        << QByteArray("value0=1 color0=red value2=7 color2=") << 7 << "";
    QTest::newRow("missing colour does too")
        << QByteArray("value0=1 color0=red value2=7") << 7 << "";
    QTest::newRow("number sign") << QByteArray("value2=7 color2=#102030") << 7 << "#102030";
}

void TestCellColourRules::ruleApplies()
{
    QFETCH(QByteArray, rules);
    QFETCH(int, value);
    QFETCH(QString, colour);
    const Sandbox sandbox;
    sandbox.writeTuning(tuning(rules));
    const CellColourRules read = CellColourRules::fromTuningFile();
    QCOMPARE(read.colourName(generalinformation::ModeRow, value).value_or(kNone), colour);
}

void TestCellColourRules::unreadableRulesAreWarnedOf_data()
{
    QTest::addColumn<QByteArray>("rules");
    QTest::addColumn<QByteArray>("warning");
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("colour");
    QTest::newRow("threshold counts as 0") << QByteArray("value2=many color2=red")
                                           << QByteArray("column/3/value2.*many") << 0 << "#ff0000";
    QTest::newRow("unknown colour is no colour")
        << QByteArray("value2=5 color2=reddish") << QByteArray("column/3/color2.*reddish") << 5
        << kNone;
}

void TestCellColourRules::unreadableRulesAreWarnedOf()
{
    QFETCH(QByteArray, rules);
    QFETCH(QByteArray, warning);
    QFETCH(int, value);
    QFETCH(QString, colour);
    const Sandbox sandbox;
    sandbox.writeTuning(tuning(rules));
    const ExpectWarning expected(warning.constData());
    const CellColourRules read = CellColourRules::fromTuningFile();
    const QColor painted = cellcolours::ruleColour(
        read, generalinformation::ModeRow, {QStringLiteral("text"), QString::number(value)});
    QCOMPARE(painted.isValid() ? painted.name() : kNone, colour);
}

void TestCellColourRules::missingPartsGiveNoColour_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("other group") << QByteArray("[Table]\ncolumn\\size=3\ncolumn\\3\\value0=0\n"
                                               "column\\3\\color0=red\n");
    QTest::newRow("array without size")
        << QByteArray("[TableSettings]\ncolumn\\3\\value0=0\ncolumn\\3\\color0=red\n");
    QTest::newRow("array too short")
        << QByteArray("[TableSettings]\ncolumn\\size=2\ncolumn\\3\\value0=0\n"
                      "column\\3\\color0=red\n");
}

void TestCellColourRules::missingPartsGiveNoColour()
{
    QFETCH(QByteArray, ini);
    const Sandbox sandbox;
    QVERIFY(!CellColourRules::fromTuningFile().colourName(generalinformation::ModeRow, 0));
    sandbox.writeTuning(ini);
    QVERIFY(!CellColourRules::fromTuningFile().colourName(generalinformation::ModeRow, 0));
}

void TestCellColourRules::rulesBelongToTheirRow()
{
    const Sandbox sandbox;
    sandbox.writeTuning(tuning("value0=0 color0=red"));
    const CellColourRules rules = CellColourRules::fromTuningFile();
    for (int row = -1; row <= generalinformation::RowCount; ++row) {
        QCOMPARE(rules.colourName(row, 5).has_value(), row == generalinformation::ModeRow);
    }
}

void TestCellColourRules::textContrasts_data()
{
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QColor>("text");
    QTest::newRow("white") << QColor(Qt::white) << QColor(Qt::black);
    QTest::newRow("black") << QColor(Qt::black) << QColor(Qt::white);
    QTest::newRow("yellow") << QColor(Qt::yellow) << QColor(Qt::black);
    QTest::newRow("pure blue is dark") << QColor(Qt::blue) << QColor(Qt::white);
    QTest::newRow("pure green is bright") << QColor(Qt::green) << QColor(Qt::black);
    QTest::newRow("dark red") << QColor(Qt::darkRed) << QColor(Qt::white);
}

void TestCellColourRules::textContrasts()
{
    QFETCH(QColor, background);
    QFETCH(QColor, text);
    QCOMPARE(cellcolours::readableTextOn(background), text);
}

void TestCellColourRules::shippedTuningHasTheBuiltInValues_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("value");
    QTest::newRow("disconnect") << "SerialSettings/DISCONNECTED_COUNT" << 3;
    QTest::newRow("wait") << "SerialSettings/BYTES_RECEIVED_WAIT_TIME" << 1500;
    QTest::newRow("short") << "FimTracking/SHORT_DETECTION_CURRENT" << 220;
    QTest::newRow("primary") << "FimTracking/PRIMARY_FIM_STARTUP_CURRENT" << 11;
    QTest::newRow("secondary") << "FimTracking/SECONDARY_FIM_STARTUP_CURRENT" << 11;
}

void TestCellColourRules::shippedTuningHasTheBuiltInValues()
{
    QFETCH(QString, key);
    QFETCH(int, value);
    const QSettings shipped(kShippedFile, QSettings::IniFormat);
    QCOMPARE(shipped.value(key).toInt(), value);
    QVERIFY(shipped.contains(QStringLiteral("SerialSettings/BYTES_WRITTEN_WAIT_TIME")));
    QVERIFY(shipped.contains(QStringLiteral("SerialSettings/CLEAR_SERIAL_BUS_AFTER_WRITE")));
}

void TestCellColourRules::shippedColoursTellFaultsFromNormal_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("isColoured");

    const QList<int> normalModes{0, 10, 20, 42, 52};
    const QList<int> modes{0, 10, 20, 30, 40, 41, 42, 50, 51, 52, 253, 254, 255};
    for (const int mode : modes) {
        QTest::addRow("mode %d", mode)
            << int(generalinformation::ModeRow) << mode << !normalModes.contains(mode);
    }
    const QString ok = QStringLiteral("Ok");
    for (int code = 0; code < 128; ++code) {
        QTest::addRow("loop %d", code) << int(generalinformation::LoopRow) << code
                                       << (ldbLoopStateText(static_cast<LdbLoopState>(code)) != ok);
    }
    for (int code = 0; code < 32; ++code) {
        QTest::addRow("earth %d", code)
            << int(generalinformation::EarthRow) << code
            << (ldbEarthStateText(static_cast<LdbEarthState>(code)) != ok);
    }
    const QList<int> normalAmplifiers{0, 1, 254};
    const QList<int> amplifiers{0, 1, 2, 3, 4, 254, 255};
    for (const int amplifier : amplifiers) {
        QTest::addRow("amplifier %d", amplifier)
            << int(generalinformation::AmplifierRow) << amplifier
            << !normalAmplifiers.contains(amplifier);
    }
    for (const int row :
         {generalinformation::PrimaryVoltageRow, generalinformation::PrimaryCurrentRow,
          generalinformation::SecondaryVoltageRow, generalinformation::SecondaryCurrentRow}) {
        QTest::addRow("short at row %d", row) << int(row) << -40000 << true;
    }
}

void TestCellColourRules::shippedColoursTellFaultsFromNormal()
{
    QFETCH(int, row);
    QFETCH(int, code);
    QFETCH(bool, isColoured);
    static const CellColourRules rules = CellColourRules::fromTuningFile(kShippedFile);
    const QColor colour =
        cellcolours::ruleColour(rules, row, {QStringLiteral("text"), QString::number(code)});
    QCOMPARE(colour.isValid(), isColoured);
}

void TestCellColourRules::shippedColoursLeaveMeasurementsAlone()
{
    const CellColourRules rules = CellColourRules::fromTuningFile(kShippedFile);
    for (const int row :
         {generalinformation::PrimaryVoltageRow, generalinformation::PrimaryCurrentRow,
          generalinformation::SecondaryVoltageRow, generalinformation::SecondaryCurrentRow}) {
        for (int value = -400; value <= 400; ++value) {
            QVERIFY(!rules.colourName(row, value));
        }
    }
}

QTEST_MAIN(TestCellColourRules)
#include "tst_cellcolourrules.moc"

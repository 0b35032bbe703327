#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/views/bracketingtranslator.h"
#include "tests/views/records.h"
#include "views/devicedetailtable.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTableView>

using records::healthy;
using records::record;

namespace {

const QString kLdb = QStringLiteral("07");

QStringList list(const char* joined)
{
    return QString::fromLatin1(joined).split(QLatin1Char('|'));
}

struct Detail
{
    Sandbox sandbox;
    QTableView view;
    DeviceDetailTable table;
    QAbstractItemModelTester tester;

    explicit Detail(const QByteArray& tuning = {})
        : table((sandbox.writeTuning(tuning), &view))
        , tester(view.model(), QAbstractItemModelTester::FailureReportingMode::QtTest)
    {
        table.setCurrentHexId(kLdb);
    }

    QVariant data(int row, int column, int role = Qt::DisplayRole) const
    {
        return view.model()->index(row, column).data(role);
    }
    QStringList texts(int column) const
    {
        QStringList list;
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            list << data(row, column).toString();
        }
        return list;
    }
    QColor background(int row, int column = DeviceDetailTable::ValueColumn) const
    {
        return data(row, column, Qt::BackgroundRole).value<QBrush>().color();
    }
};

const QByteArray kModeRedAtService = "[TableSettings]\ncolumn\\size=10\ncolumn\\3\\value2=30\n"
                                     "column\\3\\color2=darkred\n";

} // namespace

class TestDeviceDetailTable : public TestCase
{
    Q_OBJECT
private slots:
    void showsTheCurrentLdbOnly();
    void shadesRowsInTurn();
    void coloursByRuleAndBack();
    void recordOfAnyLength_data();
    void recordOfAnyLength();
    void anotherLdbEmptiesTheValues();
    void retranslationKeepsTheValues();
    void unchangedRecordChangesNothing();
};

void TestDeviceDetailTable::showsTheCurrentLdbOnly()
{
    Detail detail;
    QVERIFY(detail.view.horizontalHeader()->isHidden());
    const QStringList empty = detail.texts(DeviceDetailTable::ValueColumn);
    detail.table.processData(QStringLiteral("08"), record(QStringLiteral("08")));
    QCOMPARE(detail.texts(DeviceDetailTable::ValueColumn), empty);

    LdbStatus status = healthy(LdbState::Measuring);
    status.secondaryPortShort = 1;
    detail.table.processData(kLdb, record(kLdb, status, QStringLiteral("Platform")));
    QCOMPARE(detail.texts(DeviceDetailTable::ValueColumn),
             list("07|Platform|Measuring|Ok|24.1 V|12.3 mA|Short|Short|Ok|Ok|"
                  "2024-05-06: 07:08:09"));
    QCOMPARE(detail.texts(DeviceDetailTable::LabelColumn),
             list("ID|Name|Mode|Loop|Primary Port||Secondary Port||Earth|Amplifier|"));
}

void TestDeviceDetailTable::shadesRowsInTurn()
{
    Detail detail;
    detail.table.processData(kLdb, record(kLdb));
    const QColor base = QPalette().color(QPalette::Base);
    const QColor alternate = QPalette().color(QPalette::AlternateBase);
    const QList<int> baseRows{0, 2, 4, 5, 8, 10};
    for (int row = 0; row < detail.view.model()->rowCount(); ++row) {
        const QColor expected = baseRows.contains(row) ? base : alternate;
        QCOMPARE(detail.background(row, DeviceDetailTable::LabelColumn), expected);
        QCOMPARE(detail.background(row, DeviceDetailTable::ValueColumn), expected);
    }
}

void TestDeviceDetailTable::coloursByRuleAndBack()
{
    constexpr int kValue = DeviceDetailTable::ValueColumn;
    Detail detail(kModeRedAtService);
    const QColor shade = detail.background(generalinformation::ModeRow);
    const QVariant text = detail.data(generalinformation::ModeRow, kValue, Qt::ForegroundRole);

    detail.table.processData(kLdb, record(kLdb, healthy(LdbState::ServiceMode)));
    QCOMPARE(detail.background(generalinformation::ModeRow), QColor("darkred"));
    QCOMPARE(detail.data(generalinformation::ModeRow, kValue, Qt::ForegroundRole)
                 .value<QBrush>()
                 .color(),
             QColor(Qt::white));
    QCOMPARE(detail.background(generalinformation::LoopRow),
             QPalette().color(QPalette::AlternateBase));

    detail.table.processData(kLdb, record(kLdb));
    QCOMPARE(detail.background(generalinformation::ModeRow), shade);
    QCOMPARE(detail.data(generalinformation::ModeRow, kValue, Qt::ForegroundRole), text);
}

void TestDeviceDetailTable::recordOfAnyLength_data()
{
    QTest::addColumn<int>("entries");
    QTest::addColumn<int>("shown");
    QTest::newRow("none") << 0 << 0;
    QTest::newRow("one counts as none") << 1 << 0;
    QTest::newRow("some") << 4 << 4;
    QTest::newRow("more than known") << 14 << 14;
}

void TestDeviceDetailTable::recordOfAnyLength()
{
    QFETCH(int, entries);
    QFETCH(int, shown);
    // A rule that holds for the value 0 must not colour rows of which there is no value.
    Detail detail("[TableSettings]\ncolumn\\size=10\ncolumn\\9\\value2=0\n"
                  "column\\9\\color2=red\n");
    detail.table.processData(kLdb, record(kLdb));
    QCOMPARE(detail.background(generalinformation::EarthRow), QColor("red"));

    QList<QStringList> cut = record(kLdb).mid(0, entries);
    while (cut.size() < entries) {
        cut.append({QStringLiteral("further"), QStringLiteral("1")});
    }
    detail.table.processData(kLdb, cut);
    const QStringList values = detail.texts(DeviceDetailTable::ValueColumn);
    QCOMPARE(values.size(), qMax(int(generalinformation::RowCount), entries));
    QCOMPARE(values.size() - values.count(QString()), shown);
    QCOMPARE(detail.background(generalinformation::EarthRow) == QColor("red"),
             entries > generalinformation::EarthRow);
}

void TestDeviceDetailTable::anotherLdbEmptiesTheValues()
{
    Detail detail(kModeRedAtService);
    detail.table.processData(kLdb, record(kLdb, healthy(LdbState::ServiceMode)));
    const QStringList values = detail.texts(DeviceDetailTable::ValueColumn);

    detail.table.setCurrentHexId(kLdb);
    QCOMPARE(detail.texts(DeviceDetailTable::ValueColumn), values);

    detail.table.setCurrentHexId(QStringLiteral("08"));
    QCOMPARE(detail.texts(DeviceDetailTable::ValueColumn).join(QString()), QString());
    QVERIFY(detail.background(generalinformation::ModeRow) != QColor("darkred"));
    QCOMPARE(detail.data(0, DeviceDetailTable::LabelColumn).toString(), QStringLiteral("ID"));
}

void TestDeviceDetailTable::retranslationKeepsTheValues()
{
    Detail detail(kModeRedAtService);
    detail.table.processData(kLdb, record(kLdb, healthy(LdbState::ServiceMode)));
    const QStringList values = detail.texts(DeviceDetailTable::ValueColumn);

    const BracketingTranslator translator;
    detail.table.retranslate();
    QCOMPARE(
        detail.texts(DeviceDetailTable::LabelColumn),
        list("[ID]|[Name]|[Mode]|[Loop]|[Primary Port]||[Secondary Port]||[Earth]|[Amplifier]|"));
    QCOMPARE(detail.texts(DeviceDetailTable::ValueColumn), values);
    QCOMPARE(detail.background(generalinformation::ModeRow), QColor("darkred"));
    QCOMPARE(detail.view.model()->headerData(0, Qt::Horizontal).toString(),
             QStringLiteral("Details"));
}

void TestDeviceDetailTable::unchangedRecordChangesNothing()
{
    Detail detail(kModeRedAtService);
    detail.table.processData(kLdb, record(kLdb, healthy(LdbState::ServiceMode)));
    const QSignalSpy changes(detail.view.model(), &QAbstractItemModel::dataChanged);
    detail.table.processData(kLdb, record(kLdb, healthy(LdbState::ServiceMode)));
    QCOMPARE(changes.count(), 0);
    LdbStatus status = healthy(LdbState::ServiceMode);
    status.primaryVoltage = 23000;
    detail.table.processData(kLdb, record(kLdb, status));
    QCOMPARE(changes.count(), 1);
}

QTEST_MAIN(TestDeviceDetailTable)
#include "tst_devicedetailtable.moc"

#include "tests/support/bracketingtranslator.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"
#include "tests/views/records.h"
#include "views/tables/devicedetailtable.h"

#include <QtWidgets>

using records::healthy;
using records::record;
using namespace generalinformation;

namespace {

const QString kLdb = "07";

struct Detail
{
    Sandbox sandbox;
    QTableView view;
    DeviceDetailTable table;
    QAbstractItemModelTester tester;

    explicit Detail(const QByteArray& rules = {})
        : table((sandbox.writeTuning("[TableSettings]\ncolumn\\size=10\n" + rules), &view))
        , tester(view.model(), QAbstractItemModelTester::FailureReportingMode::QtTest)
    {
        table.setCurrentHexId(kLdb);
        table.setMonitoring(records::monitored());
    }

    void poll(const LdbStatus& status = healthy())
    {
        table.processData(kLdb, record(kLdb, status));
    }
    /// The texts of a column, joined by "|".
    QString texts(int column) const { return columnTexts(*view.model(), column).join('|'); }
    QString labels() const { return texts(DeviceDetailTable::LabelColumn); }
    QString values() const { return texts(DeviceDetailTable::ValueColumn); }
    QColor colour(int row, int role, int column = DeviceDetailTable::ValueColumn) const
    {
        return view.model()->index(row, column).data(role).value<QBrush>().color();
    }
    QColor background(int row) const { return colour(row, Qt::BackgroundRole); }
};

const QByteArray kModeRedAtService = "column\\3\\value2=30\ncolumn\\3\\color2=darkred\n";
const QString kEmpty(10, '|');

} // namespace

class TestDeviceDetailTable : public TestCase
{
    Q_OBJECT
private slots:
    void showsTheCurrentLdbOnly()
    {
        Detail detail(kModeRedAtService);
        QVERIFY(detail.view.horizontalHeader()->isHidden());
        detail.table.processData("08", record("08"));
        QCOMPARE(detail.values().remove('|'), QString());

        LdbStatus status = healthy(LdbState::ServiceMode);
        status.secondaryPortShort = 1;
        detail.poll(status);
        const QString values("07|Hall|Service mode|Ok|24.0 V|12.3 mA|Short|Short|Ok|Ok|"
                             "2026-03-04: 10:00:00");
        QCOMPARE(detail.values(), values);
        detail.table.setCurrentHexId(kLdb);
        QCOMPARE(detail.values(), values);

        detail.table.setCurrentHexId("08");
        QCOMPARE(detail.values(), kEmpty);
        QVERIFY(detail.background(ModeRow) != QColor("darkred"));
        QCOMPARE(detail.labels(),
                 "ID|Name|Mode|Loop|Primary Port||Secondary Port||Earth|Amplifier|");
    }

    void coloursByRuleAndBack()
    {
        Detail detail(kModeRedAtService);
        detail.poll();
        const QColor shade = detail.background(ModeRow);
        const QColor text = detail.colour(ModeRow, Qt::ForegroundRole);
        detail.poll(healthy(LdbState::ServiceMode));
        QCOMPARE(detail.background(ModeRow), QColor("darkred"));
        QCOMPARE(detail.colour(ModeRow, Qt::ForegroundRole), QColor(Qt::white));
        QCOMPARE(detail.background(LoopRow), QPalette().color(QPalette::AlternateBase));

        // Another language leaves the values and their colours.
        const QString values = detail.values();
        const BracketingTranslator translator;
        detail.table.retranslate();
        QCOMPARE(detail.labels(), "[ID]|[Name]|[Mode]|[Loop]|[Primary Port]||[Secondary Port]||"
                                  "[Earth]|[Amplifier]|");
        QCOMPARE(detail.values(), values);
        QCOMPARE(detail.background(ModeRow), QColor("darkred"));

        detail.poll();
        QCOMPARE(detail.background(ModeRow), shade);
        QCOMPARE(detail.colour(ModeRow, Qt::ForegroundRole), text);
    }
};

REGISTER_TEST(TestDeviceDetailTable, QApplication)
#include "tst_devicedetailtable.moc"

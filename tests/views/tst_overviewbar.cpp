#include "tests/support/bracketingtranslator.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"
#include "tests/views/records.h"
#include "views/tables/devicedetailtable.h"
#include "views/tables/deviceoverviewtable.h"
#include "views/tables/mutemarks.h"
#include "views/tables/overviewbar.h"
#include "views/tables/overviewcolumns.h"

#include <QtWidgets>

#include <memory>

using records::Codes;
using records::withCodes;

namespace {

const Codes kWell{};
const Codes kLost{255, 64, 16, 255};
const Codes kShort{10, 4};

/// The table with what stands above it, as the window has them.
struct Overview
{
    QWidget window;
    OverviewBar* bar = new OverviewBar(&window);
    QTableView* view = new QTableView(&window);
    std::unique_ptr<DeviceOverviewTable> table = std::make_unique<DeviceOverviewTable>(view);
    QAbstractItemModelTester tester{view->model(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest};
    QLineEdit* text = bar->findChild<QLineEdit*>();
    QCheckBox* onlyFaults = bar->findChild<QCheckBox*>("overviewOnlyFaultsBox");
    QCheckBox* faultsFirst = bar->findChild<QCheckBox*>("overviewFaultsFirstBox");
    QPushButton* hidden = bar->findChild<QPushButton*>();

    Overview()
    {
        bar->setView(view);
        table->setMonitoring(records::monitored());
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(bar);
        layout->addWidget(view);
        window.resize(900, 400);
        window.show();
        QApplication::setActiveWindow(&window);
        settle();
    }

    static void settle() { VirtualTime::current()->advance(200); }
    void poll(const QString& hexId, const Codes& codes = {}, const QString& name = "Hall")
    {
        QList<QStringList> record = withCodes(hexId, codes, name);
        if (codes.mode == kLost.mode) {
            record = records::record(hexId, LdbStatus::disconnected(), name);
        }
        table->processData(hexId, record);
    }
    /// The ids shown, from the top.
    QString shown() const { return columnTexts(*view->model(), overview::IdColumn).join(' '); }
    QString counts() const
    {
        const QString count = bar->findChild<QLabel*>("overviewCountLabel")->text();
        return hidden->isHidden() ? count : count + ", " + hidden->text();
    }
    bool isCountMarked() const
    {
        return bar->findChild<QLabel*>("overviewCountLabel")->autoFillBackground();
    }
    bool isInSight(const QString& hexId) const
    {
        const int row = columnTexts(*view->model(), overview::IdColumn).indexOf(hexId);
        const QRect cell = view->visualRect(view->model()->index(row, overview::IdColumn));
        return !cell.isEmpty() && view->viewport()->rect().contains(cell.center());
    }
    void fill()
    {
        for (int address = 1; address <= 0x30; ++address) {
            poll(QStringLiteral("%1").arg(address, 2, 16, QLatin1Char('0')).toUpper());
        }
        settle();
    }
    QString currentId() const
    {
        return view->currentIndex().siblingAtColumn(overview::IdColumn).data().toString();
    }
};

} // namespace

class TestOverviewBar : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        m_sandbox = std::make_unique<Sandbox>();
        TestCase::init();
    }
    void cleanup() override
    {
        m_sandbox.reset();
        TestCase::cleanup();
    }

    void filter_data()
    {
        const Table<QString, bool, QString, QString> row("text", "onlyFaults", "shown", "counts");
        row("nothing", "  ", false, "01 05 09 0A 0B FD", "6 of 6");
        row("a name, also of a lost one", "stair", false, "05 0A FD", "3 of 6, [2] hidden");
        row("two words", "STAIRS disc", false, "0A FD", "2 of 6, [3] hidden");
        row("the words of two rows", "stairs quay", false, "FD", "1 of 6, [4] hidden");
        row("an id", "0b", false, "0B FD", "2 of 6, [3] hidden");
        row("a mode", "service", false, "09 FD", "2 of 6, [3] hidden");
        row("a condition", "short", false, "05 FD", "2 of 6, [3] hidden");
        row("no measurement", "24", false, "FD", "1 of 6, [4] hidden");
        row("only faults", "", true, "05 09 0A 0B FD", "5 of 6");
        row("both", "stairs", true, "05 0A FD", "3 of 6, [2] hidden");
    }

    void filter()
    {
        QFETCH(QString, text);
        QFETCH(bool, onlyFaults);
        Overview overview;
        overview.poll("FD", kWell, "Ticked");
        overview.poll("01", kWell, "Quay");
        overview.poll("05", kShort, "Stairs");
        overview.poll("09", {30}, "Quay");
        overview.poll("0A", kLost, "Stairs");
        overview.poll("0B", {254}, "Quay");
        overview.text->setText(text);
        overview.onlyFaults->setChecked(onlyFaults);
        QTEST(overview.shown(), "shown");
        QString counts = overview.counts();
        QTEST(counts.replace(QRegularExpression(" (\\d) faults hidden"), " [\\1] hidden"),
              "counts");
        // A click shows what is hidden in spite of its fault.
        overview.hidden->click();
        QVERIFY(overview.hidden->isHidden());
    }

    void followsTheRecords()
    {
        Overview overview;
        overview.poll("FD", kWell);
        overview.poll("01");
        overview.onlyFaults->click();
        QCOMPARE(overview.shown(), "FD");
        overview.poll("01", kLost);
        overview.poll("02", kShort);
        QCOMPARE(overview.shown(), "01 02 FD");
        overview.poll("01");
        QCOMPARE(overview.shown(), "02 FD");
        QCOMPARE(overview.counts(), "2 of 3");

        overview.onlyFaults->click();
        // Those that are known and have not been heard yet are missing as well.
        Monitoring monitoring = records::monitored();
        monitoring.known = 4;
        overview.table->setMonitoring(monitoring);
        QCOMPARE(overview.counts(), "3 of 4");
        QVERIFY(!overview.isCountMarked()); // nothing hides it
        monitoring.known = 3;
        overview.table->setMonitoring(monitoring);
        overview.text->setText("none such");
        QCOMPARE(overview.counts(), "1 of 3, 1 faults hidden");
        QVERIFY(overview.isCountMarked());
        overview.poll("01", kLost);
        QCOMPARE(overview.counts(), "1 of 3, 2 faults hidden");
        overview.poll("02");
        QCOMPARE(overview.counts(), "1 of 3, 1 faults hidden");
        overview.table->keepOnly({"02", "FD"});
        monitoring.known = 2;
        overview.table->setMonitoring(monitoring);
        QCOMPARE(overview.counts(), "1 of 2");
        // Another one is ticked, though none that is left is shown.
        overview.table->keepOnly({"02"});
        QCOMPARE(overview.shown(), "02");
        QCOMPARE(overview.table->selectedHexId(), "02");
    }

    void faultsFirst()
    {
        Overview overview;
        for (const char* hexId : {"01", "02", "03", "04"}) {
            overview.poll(hexId);
        }
        overview.poll("03", kShort);
        overview.faultsFirst->click();
        QCOMPARE(overview.shown(), "03 01 02 04");
        overview.poll("04", kLost);
        QCOMPARE(overview.shown(), "03 04 01 02");
        overview.view->sortByColumn(overview::IdColumn, Qt::DescendingOrder);
        QCOMPARE(overview.shown(), "04 03 02 01");
        overview.poll("03");
        QCOMPARE(overview.shown(), "04 03 02 01");
        overview.poll("04");
        overview.poll("02", {254});
        QCOMPARE(overview.shown(), "02 04 03 01");
        overview.faultsFirst->click();
        QCOMPARE(overview.shown(), "04 03 02 01");
    }

    void selectedStaysVisible()
    {
        Overview overview;
        overview.fill();
        overview.table->selectLdb("1A");
        overview.text->setText("2C");
        Overview::settle();
        QCOMPARE(overview.shown(), "1A 2C");
        // From elsewhere a hidden one is ticked: it is shown, and the former one is not any more.
        overview.table->selectLdb("2A");
        QCOMPARE(overview.shown(), "2A 2C");
        overview.text->clear();
        Overview::settle();
        QVERIFY(overview.isInSight("2A"));
        overview.view->sortByColumn(overview::IdColumn, Qt::DescendingOrder);
        Overview::settle();
        QVERIFY(overview.isInSight("2A"));
        // Others that come to the top do not push it out.
        overview.faultsFirst->click();
        for (const char* hexId : {"01", "02", "03", "04", "05", "06", "07", "08", "09", "0A"}) {
            overview.poll(hexId, kShort);
        }
        Overview::settle();
        QVERIFY(overview.isInSight("2A"));
        // Who scrolls away from it is not fetched back by a record.
        overview.view->scrollToTop();
        overview.poll("0B", kShort);
        Overview::settle();
        QVERIFY(!overview.isInSight("2A"));
    }

    void rowsThatWereHiddenFit()
    {
        Overview overview;
        overview.poll("01");
        overview.poll("02");
        overview.text->setText("nothing");
        overview.poll("02", {10, 42, 15}); // more than one line
        overview.text->clear();
        Overview::settle();
        QVERIFY(overview.view->rowHeight(1) > overview.view->rowHeight(0));
        // In the row's place another one is as high as its own texts.
        overview.view->sortByColumn(overview::IdColumn, Qt::DescendingOrder);
        Overview::settle();
        QVERIFY(overview.view->rowHeight(0) > overview.view->rowHeight(1));
    }

    void namesFitBesideTheirMark()
    {
        Overview overview;
        QTableView details;
        const DeviceDetailTable detailTable(&details);
        MuteMarks marks(overview.view->model(), details.model());
        overview.poll("01");
        overview.poll("02", {}, "Gate & admin");
        overview.table->selectLdb("01");
        Overview::settle();
        const QModelIndex name = overview.view->model()->index(1, overview::NameColumn);
        const int width = overview.view->sizeHintForIndex(name).width();
        overview.view->setColumnWidth(overview::NameColumn, width + 1);
        Overview::settle();
        const int oneLine = overview.view->rowHeight(1);
        marks.setMuted("02", true);
        Overview::settle();
        QVERIFY(overview.view->rowHeight(1) > oneLine);
        marks.setMuted("02", false);
        Overview::settle();
        QCOMPARE(overview.view->rowHeight(1), oneLine);
        overview.table->selectLdb("02"); // stands in bold
        Overview::settle();
        QVERIFY(overview.view->rowHeight(1) > oneLine);
    }

    void mutesOfHiddenRows()
    {
        Overview overview;
        QTableView details;
        const DeviceDetailTable detailTable(&details);
        MuteMarks marks(overview.view->model(), details.model());
        overview.poll("01");
        overview.poll("02");
        const auto isMarked = [&] {
            const QModelIndex name = overview.view->model()->index(1, overview::NameColumn);
            return !name.data(Qt::DecorationRole).isNull();
        };
        for (const bool isMuted : {true, false}) {
            overview.text->setText("nothing");
            marks.setMuted("02", isMuted);
            overview.text->clear();
            QCOMPARE(isMarked(), isMuted);
        }
    }

    void keyboardAlone()
    {
        Overview overview;
        overview.poll("01", kWell, "Hall");
        overview.poll("02", kWell, "Tank farm");
        overview.poll("03", kWell, "Stairs");
        overview.poll("04", kLost, "Stairs");
        overview.view->setFocus();
        QTest::keyClick(&overview.window, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(overview.text->hasFocus());
        QTest::keyClicks(overview.text, "stairs");
        QCOMPARE(overview.shown(), "01 03 04");
        QTest::keyClick(overview.text, Qt::Key_Down);
        QVERIFY(overview.view->hasFocus());
        QTest::keyClick(overview.view, Qt::Key_Down);
        QTest::keyClick(overview.view, Qt::Key_Space);
        QCOMPARE(overview.table->selectedHexId(), "03");
        QTest::keyClick(overview.view, Qt::Key_Escape);
        QCOMPARE(overview.shown(), "01 02 03 04");

        // Typed letters lead from name to name, and tick nothing.
        const auto type = [&overview](const QString& letters, const QString& hexId) {
            QTest::keyClicks(overview.view, letters);
            QCOMPARE(overview.currentId(), hexId);
            VirtualTime::current()->advance(QApplication::keyboardInputInterval());
        };
        type("tankf", "02");
        type("s", "03");
        type("s", "04");
        type("S", "03");
        type("sq", "04"); // as far as there was one
        QTest::keyClicks(overview.view, "h");
        QTest::keyClick(overview.view, Qt::Key_Space);
        QCOMPARE(overview.table->selectedHexId(), "01");
    }

    void choiceComesBack()
    {
        {
            Overview overview;
            overview.text->setText("quay");
            overview.faultsFirst->click();
            overview.bar->save();
        }
        Overview overview;
        QCOMPARE(overview.text->text(), "quay");
        QVERIFY(overview.faultsFirst->isChecked() && !overview.onlyFaults->isChecked());
        overview.poll("01");
        overview.poll("02", kShort);
        QCOMPARE(overview.shown(), "01");
        QCOMPARE(overview.counts(), "1 of 2, 1 faults hidden");
    }

    void otherLanguage()
    {
        Overview overview;
        overview.poll("01");
        overview.poll("02", kShort);
        overview.text->setText("01");
        const BracketingTranslator translator;
        QEvent change(QEvent::LanguageChange);
        QCoreApplication::sendEvent(overview.bar, &change);
        QCOMPARE(overview.counts(), "[1 of 2], [1 faults hidden]");
        QCOMPARE(overview.text->placeholderText(), "[Filter (Ctrl+F)]");
    }

private:
    std::unique_ptr<Sandbox> m_sandbox;
};

REGISTER_TEST(TestOverviewBar, InVirtualTime<QApplication>)
#include "tst_overviewbar.moc"

#include "app/shared/constants.h"
#include "tests/support/bracketingtranslator.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"
#include "tests/views/records.h"
#include "views/tables/deviceoverviewtable.h"
#include "views/tables/overviewcolumns.h"

#include <QtWidgets>

#include <memory>

using records::healthy;
using records::record;

namespace {

const QString kOne = "01";
const QString kFive = "05";
const QString kNine = "09";

/// The table on a view of its own, as the window has it.
struct Overview
{
    QTableView view;
    std::unique_ptr<DeviceOverviewTable> object = std::make_unique<DeviceOverviewTable>(&view);
    QAbstractItemModelTester tester{view.model(),
                                    QAbstractItemModelTester::FailureReportingMode::QtTest};
    QSignalSpy selected{object.get(), &DeviceOverviewTable::selectedLDBChanged};

    Overview()
    {
        object->setMonitoring(records::monitored());
        view.resize(900, 300);
        view.show();
    }

    void poll(const QString& hexId, const LdbStatus& status = healthy())
    {
        object->processData(hexId, record(hexId, status));
    }
    void pollAll(const QStringList& hexIds)
    {
        for (const QString& hexId : hexIds) {
            poll(hexId);
        }
    }
    QModelIndex cell(int row, int column) const { return view.model()->index(row, column); }
    QString text(int row, int column) const { return cell(row, column).data().toString(); }
    QStringList column(int column) const { return columnTexts(*view.model(), column); }
    /// Ids of the ticked rows, as shown.
    QStringList ticked() const
    {
        QStringList ids;
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            if (cell(row, overview::TickColumn).data(Qt::CheckStateRole) == Qt::Checked) {
                ids << text(row, overview::IdColumn);
            }
        }
        return ids;
    }
    bool setTick(int row, Qt::CheckState state)
    {
        return view.model()->setData(cell(row, overview::TickColumn), state, Qt::CheckStateRole);
    }
    QStringList takeSelected()
    {
        QStringList ids;
        for (const QList<QVariant>& arguments : qAsConst(selected)) {
            ids << arguments.first().toString();
        }
        selected.clear();
        return ids;
    }
    QList<int> shownColumns() const
    {
        QList<int> columns;
        for (int column = 0; column < view.model()->columnCount(); ++column) {
            if (!view.isColumnHidden(column)) {
                columns << column;
            }
        }
        return columns;
    }
    QImage picture() { return view.viewport()->grab().toImage(); }
};

const QList<int> kNamedColumns{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

QSettings userSettings()
{
    return QSettings("Velmark", "Tavro Cordex Sniffer");
}
const QString kStateKey = "position/deviceOverviewTableState";

} // namespace

class TestDeviceOverviewTable : public TestCase
{
    Q_OBJECT
private slots:
    void refreshChangesInPlace()
    {
        Overview table;
        table.pollAll({kOne, kFive, kNine});
        table.object->selectLdb(kFive);
        LdbStatus status = healthy(LdbState::ServiceMode);
        status.secondaryPortShort = 2;
        status.primaryVoltage = 12345;
        status.earthByte1 = 1;
        table.object->processData(kFive, record(kFive, status, "Platform"));
        QStringList texts;
        for (int column = 0; column < overview::ColumnCount; ++column) {
            texts << table.text(1, column);
            QVERIFY(!(table.cell(1, column).flags() & Qt::ItemIsEditable));
        }
        QCOMPARE(texts.join('|'), "|05|Platform|Service mode|Ok|12.3 V|12.3 mA|Short(memory)|"
                                  "Short(memory)|Leakage|Ok|2026-03-04: 10:00:00");
        QCOMPARE(table.view.model()->rowCount(), 3);
        QCOMPARE(table.ticked(), QStringList(kFive));
    }

    void coloursFollowTheRules()
    {
        m_sandbox->writeTuning("[TableSettings]\ncolumn\\size=10\ncolumn\\3\\value2=30\n"
                               "column\\3\\color2=darkblue\n");
        Overview table;
        const auto colour = [&](int column, int role) {
            return table.cell(0, column).data(role).value<QBrush>().color();
        };
        // A new row is coloured as a refreshed one is.
        for (int round = 0; round < 2; ++round) {
            table.poll(kOne, healthy(LdbState::ServiceMode));
            QCOMPARE(colour(overview::ModeColumn, Qt::BackgroundRole), QColor("darkblue"));
            QCOMPARE(colour(overview::ModeColumn, Qt::ForegroundRole), QColor(Qt::white));
            QVERIFY(!table.cell(0, overview::LoopColumn).data(Qt::BackgroundRole).isValid());
        }
        table.poll(kOne);
        for (const int column : kNamedColumns) {
            QVERIFY(!table.cell(0, column).data(Qt::BackgroundRole).isValid());
            QVERIFY(!table.cell(0, column).data(Qt::ForegroundRole).isValid());
        }
    }

    void rowsAreOrderedByIdUntilTheUserSorts()
    {
        Overview table;
        table.pollAll({kNine, kOne, kFive});
        QCOMPARE(table.column(overview::IdColumn).join(' '), "01 05 09");
        QHeaderView* header = table.view.horizontalHeader();
        QVERIFY(header->isSortIndicatorShown());
        const QPoint idCell(header->sectionViewportPosition(overview::IdColumn) + 10, 10);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, idCell);
        QCOMPARE(table.column(overview::IdColumn).join(' '), "09 05 01");
        table.pollAll({kOne, "07", kNine});
        QCOMPARE(table.column(overview::IdColumn).join(' '), "09 07 05 01");
        QCOMPARE(table.ticked(), QStringList(kNine));
    }

    void tickIsExclusive()
    {
        Overview table;
        QVERIFY(!table.object->selectLdb(kOne));
        // The first LDB is selected, whatever comes next.
        table.pollAll({kFive, kOne});
        QCOMPARE(table.takeSelected(), QStringList(kFive));
        QCOMPARE(table.object->selectedHexId(), kFive);

        QVERIFY(table.setTick(0, Qt::Checked));
        QCOMPARE(table.ticked(), QStringList(kOne));
        QVERIFY(table.object->selectLdb(kFive));
        QVERIFY(table.object->selectLdb(kFive));
        QCOMPARE(table.takeSelected(), (QStringList{kOne, kFive}));
        // It can be replaced, but not taken away.
        table.setTick(1, Qt::Unchecked);
        QVERIFY(!table.object->selectLdb(kNine));
        table.object->setSelectionEnabled(false);
        QVERIFY(!table.object->selectLdb(kOne));
        QCOMPARE(table.ticked(), QStringList(kFive));
        QCOMPARE(table.takeSelected(), QStringList());
    }

    void userTicksARow()
    {
        Overview table;
        table.pollAll({kNine, kOne, kFive});
        table.view.showColumn(overview::TickColumn);
        table.takeSelected();
        const auto press = [&table](Qt::Key key) {
            table.view.setCurrentIndex(table.cell(1, overview::NameColumn));
            QTest::keyClick(&table.view, key);
        };
        const std::function<void()> ways[] = {
            [&] { clickCell(table.view, 1, overview::EarthColumn); },
            [&] { clickCell(table.view, 1, overview::TickColumn); }, [&] { press(Qt::Key_Space); },
            [&] { press(Qt::Key_Enter); },
            [&] {
                press(Qt::Key_Return);
            }};
        for (const auto& act : ways) {
            table.object->setSelectionEnabled(false);
            act();
            QCOMPARE(table.ticked(), QStringList(kNine));
            table.object->setSelectionEnabled(true);
            press(Qt::Key_Shift);
            QCOMPARE(table.ticked(), QStringList(kNine));
            act();
            act();
            QCOMPARE(table.ticked(), QStringList(kFive));
            QCOMPARE(table.takeSelected(), QStringList(kFive));
            table.object->selectLdb(kNine);
            table.takeSelected();
        }
    }

    void tickedRowIsMarked()
    {
        Overview table;
        table.pollAll({kOne, kFive, kNine}); // of the same values, the last one never ticked
        const auto rowPicture = [&](int row) {
            const QRect first = table.view.visualRect(table.cell(row, overview::NameColumn));
            const QRect last = table.view.visualRect(table.cell(row, overview::AmplifierColumn));
            return table.picture().copy(first.united(last));
        };
        const auto spoken = [&](int row) {
            return table.cell(row, overview::IdColumn).data(Qt::AccessibleTextRole).toString();
        };
        QVERIFY(rowPicture(0) != rowPicture(2));
        QCOMPARE(rowPicture(1), rowPicture(2));
        QCOMPARE(spoken(0), "01, selected");

        table.object->selectLdb(kFive);
        table.pollAll({kOne, kFive, kNine});
        QCOMPARE(rowPicture(0), rowPicture(2));
        QVERIFY(rowPicture(1) != rowPicture(2));
        QCOMPARE(spoken(0), QString());
        QCOMPARE(spoken(1), "05, selected");

        // When the mark cannot be moved, it looks like that, and so does the tick where it is
        // shown.
        table.view.showColumn(overview::TickColumn);
        const auto tickPicture = [&] {
            return table.picture().copy(table.view.visualRect(table.cell(1, overview::TickColumn)));
        };
        const QImage enabledRow = rowPicture(1);
        const QImage enabledTick = tickPicture();
        table.object->setSelectionEnabled(false);
        QVERIFY(rowPicture(1) != enabledRow);
        QVERIFY(tickPicture() != enabledTick);
    }

    void clearTicksTheSameLdbAgain_data()
    {
        // Ids joined by blanks, "(" and ")" for a round's begin and end; "ticked": before;
        // "isAnother": and announced.
        const Table<QString, QString, QString, bool> row("ticked", "polls", "tickedAfter",
                                                         "isAnother");
        row("it comes first", "05", "( 05 01", "05", false);
        row("it comes later", "09", "( 01 05 09 01", "09", false);
        row("it is still to come", "09", "( 01 05 01 01", "", false);
        row("it comes in the first whole round", "09", "01 05 ) ( 09 )", "09", false);
        row("it does not come", "09", "( 05 01 )", "01", true);
        row("it comes too late", "09", "( 01 05 ) ( 09", "01", true);
    }

    void clearTicksTheSameLdbAgain()
    {
        QFETCH(QString, ticked);
        QFETCH(QString, polls);
        QFETCH(QString, tickedAfter);
        QFETCH(bool, isAnother);
        Overview table;
        table.pollAll({kOne, kFive, kNine});
        table.object->selectLdb(ticked);
        table.takeSelected();
        table.object->keepOnly({});
        table.object->keepOnly({});
        QCOMPARE(table.view.model()->rowCount(), 0);
        QCOMPARE(table.object->selectedHexId(), ticked);
        const QStringList steps = polls.split(' ');
        for (const QString& step : steps) {
            if (step == "(") {
                table.object->beginRound();
            } else if (step == ")") {
                table.object->endRound();
            } else {
                table.poll(step);
            }
        }
        QCOMPARE(table.ticked().join(' '), tickedAfter);
        QCOMPARE(table.takeSelected().join(' '), isAnother ? tickedAfter : QString());

        // Whatever came, the user's own choice counts at once, and once.
        const bool isNews = table.object->selectedHexId() != kOne;
        table.object->selectLdb(kOne);
        table.pollAll({kOne, kFive, kNine});
        QCOMPARE(table.ticked(), QStringList(kOne));
        QCOMPARE(table.takeSelected(), isNews ? QStringList(kOne) : QStringList());
    }

    void layoutComesBack()
    {
        {
            Overview table;
            QCOMPARE(table.shownColumns(), kNamedColumns);
            table.object->saveTableState(); // nothing was shown yet
            QVERIFY(!userSettings().contains(kStateKey));
            table.pollAll({kOne, kFive});
            QHeaderView* header = table.view.horizontalHeader();
            header->resizeSection(overview::LoopColumn, 222);
            // The columns of a port move together.
            header->moveSection(header->visualIndex(overview::PrimaryCurrentColumn),
                                header->visualIndex(overview::NameColumn));
            table.view.sortByColumn(overview::IdColumn, Qt::DescendingOrder);
            // What a layout shows that is to be hidden, and hides that is to be shown.
            table.view.setColumnHidden(overview::TickColumn, false);
            table.view.setColumnHidden(overview::NameColumn, true);
            table.object->keepOnly({});
            table.object->saveTableState();
        }
        Overview table;
        table.pollAll({kOne, kFive});
        const QHeaderView* header = table.view.horizontalHeader();
        QCOMPARE(header->sectionSize(overview::LoopColumn), 222);
        QCOMPARE(header->visualIndex(overview::PrimaryVoltageColumn), 2);
        QCOMPARE(header->visualIndex(overview::PrimaryCurrentColumn), 3);
        QCOMPARE(table.column(overview::IdColumn), (QStringList{kFive, kOne}));
        QCOMPARE(table.shownColumns(), kNamedColumns);
    }

    void unusableLayoutIsLeft_data()
    {
        const Table<QByteArray, bool> row("state", "warns");
        const auto layoutOf = [](int columns) {
            QStandardItemModel model(1, columns);
            QTableView view;
            view.setModel(&model);
            view.sortByColumn(columns - 1, Qt::DescendingOrder);
            return view.horizontalHeader()->saveState();
        };
        row("empty", {}, true);
        row("garbage", QByteArray(300, 'x'), true);
        const QByteArray whole = layoutOf(overview::ColumnCount);
        row("cut off", whole.left(whole.size() / 2), true);
        // These the header takes, as far as they fit.
        row("sorted by a hidden column", whole, false);
        row("of fewer columns", layoutOf(1), false);
        row("of more columns", layoutOf(40), false);
    }

    void unusableLayoutIsLeft()
    {
        QFETCH(QByteArray, state);
        QFETCH(bool, warns);
        userSettings().setValue(kStateKey, state);
        const auto expected =
            warns ? std::make_unique<ExpectWarning>("layout of the overview table") : nullptr;
        Overview table;
        table.pollAll({kFive, kOne});
        QCOMPARE(table.view.horizontalHeader()->count(), int(overview::ColumnCount));
        QCOMPARE(table.shownColumns(), kNamedColumns);
        for (const int column : kNamedColumns) {
            QVERIFY(table.view.columnWidth(column) > 10);
        }
        QCOMPARE(table.column(overview::IdColumn), (QStringList{kOne, kFive}));
        table.picture();
    }

    void clearAndRetranslateKeepTheLayout()
    {
        Overview table;
        table.pollAll({kOne, kFive});
        QHeaderView* header = table.view.horizontalHeader();
        header->resizeSection(overview::NameColumn, 177);
        header->moveSection(header->visualIndex(overview::AmplifierColumn), 1);
        table.view.sortByColumn(overview::ModeColumn, Qt::DescendingOrder);
        const QByteArray layout = header->saveState();
        const BracketingTranslator translator;
        table.object->retranslate();
        QCOMPARE(header->saveState(), layout);
        const auto* tree = qobject_cast<QAbstractItemModel*>(
            table.cell(0, 0).data(Qt::UserRole).value<QObject*>());
        QVERIFY(tree != nullptr);
        QStringList texts;
        for (int column = 0; column < tree->columnCount(); ++column) {
            texts << tree->index(0, column).data().toString();
        }
        QCOMPARE(texts.join('|'),
                 "|[ID]|[Name]|[Mode]|[Loop]|[Primary Port]|[Secondary Port]|[Earth]|"
                 "[Amplifier]");
        table.object->keepOnly({});
        QCOMPARE(header->saveState(), layout);
        table.view.resize(500, 300);
        table.poll(kFive);
        QCOMPARE(header->saveState(), layout);
    }
};

REGISTER_TEST(TestDeviceOverviewTable, QApplication)
#include "tst_deviceoverviewtable.moc"

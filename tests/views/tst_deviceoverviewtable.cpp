#include "app/shared/constants.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "tests/views/bracketingtranslator.h"
#include "tests/views/records.h"
#include "views/checkboxdelegate.h"
#include "views/deviceoverviewtable.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QPainter>
#include <QSettings>
#include <QTableView>

#include <memory>

using records::healthy;
using records::record;

namespace {

const QString kOne = QStringLiteral("01");
const QString kFive = QStringLiteral("05");
const QString kNine = QStringLiteral("09");

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
    QStringList column(int column) const
    {
        QStringList texts;
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            texts << text(row, column);
        }
        return texts;
    }
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
    void click(int row, int column)
    {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                          view.visualRect(cell(row, column)).center());
    }
    QImage picture() { return view.viewport()->grab().toImage(); }
};

const QList<int> kNamedColumns{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

QSettings userSettings()
{
    return QSettings(QStringLiteral("Velmark"), QStringLiteral("Tavro Cordex Sniffer"));
}
const QString kStateKey = QStringLiteral("position/deviceOverviewTableState");

} // namespace

class TestDeviceOverviewTable : public TestCase
{
    Q_OBJECT
private slots:
    void init() override;
    void cleanup() override;

    void firstLdbIsSelected();
    void refreshChangesInPlace();
    void coloursFollowTheRules();
    void unchangedRecordChangesNothing();
    void shortRecordNeverBreaks_data();
    void shortRecordNeverBreaks();
    void rowsAreOrderedByIdUntilTheUserSorts();

    void tickIsExclusive();
    void userTicksARow_data();
    void userTicksARow();
    void selectLdbTicksKnownLdbsOnly();
    void tickedRowIsMarked();
    void clearTicksTheSameLdbAgain_data();
    void clearTicksTheSameLdbAgain();

    void serviceColumnsStayHidden();
    void layoutComesBack();
    void layoutIsNotSavedBeforeTheFirstRow();
    void unusableLayoutIsLeft_data();
    void unusableLayoutIsLeft();
    void clearAndRetranslateKeepTheLayout();
    void retranslationReachesEveryText();
    void columnsFillTheTable();

    void viewAndTableDieInAnyOrder();
    void delegateToggles_data();
    void delegateToggles();
    void delegateCentresTheBox();

private:
    std::unique_ptr<Sandbox> m_sandbox;
};

void TestDeviceOverviewTable::init()
{
    m_sandbox = std::make_unique<Sandbox>();
    TestCase::init();
}

void TestDeviceOverviewTable::cleanup()
{
    userSettings().clear();
    m_sandbox.reset();
    TestCase::cleanup();
}

void TestDeviceOverviewTable::firstLdbIsSelected()
{
    Overview table;
    table.poll(kFive);
    QCOMPARE(table.takeSelected(), QStringList(kFive));
    table.pollAll({kOne, kNine});
    QCOMPARE(table.takeSelected(), QStringList());
    QCOMPARE(table.ticked(), QStringList(kFive));
    QCOMPARE(table.object->selectedHexId(), kFive);
}

void TestDeviceOverviewTable::refreshChangesInPlace()
{
    Overview table;
    table.pollAll({kOne, kFive, kNine});
    table.object->selectLdb(kFive);
    LdbStatus status = healthy(LdbState::ServiceMode);
    status.secondaryPortShort = 2;
    status.secondaryVoltage = 1;
    status.primaryVoltage = 12345;
    status.earthByte1 = 1;
    table.object->processData(kFive, record(kFive, status, QStringLiteral("Platform")));

    QStringList texts;
    for (int column = 0; column < overview::ColumnCount; ++column) {
        texts << table.text(1, column);
        QCOMPARE(table.cell(1, column).flags() & Qt::ItemIsEditable, Qt::ItemFlags());
    }
    QCOMPARE(texts.join(QLatin1Char('|')),
             QStringLiteral("|05|Platform|Service mode|Ok|12.3 V|12.3 mA|Short(memory)|"
                            "Short(memory)|Leakage|Ok|2024-05-06: 07:08:09"));
    for (const int column : kNamedColumns) {
        QCOMPARE(table.cell(1, column).data(Qt::TextAlignmentRole).toInt(),
                 int(Qt::AlignHCenter | Qt::AlignVCenter));
    }
    QCOMPARE(table.view.model()->rowCount(), 3);
    QCOMPARE(table.ticked(), QStringList(kFive));
}

void TestDeviceOverviewTable::coloursFollowTheRules()
{
    m_sandbox->writeTuning("[TableSettings]\ncolumn\\size=10\ncolumn\\3\\value2=30\n"
                           "column\\3\\color2=darkblue\ncolumn\\5\\value2=-40000\n"
                           "column\\5\\color2=orangered\n");
    Overview table;
    const auto colour = [&](int column, int role) {
        return table.cell(0, column).data(role).value<QBrush>().color().name();
    };
    // A new row is coloured as a refreshed one is.
    for (int round = 0; round < 2; ++round) {
        LdbStatus status = healthy(LdbState::ServiceMode);
        status.primaryPortShort = 1;
        table.poll(kOne, status);
        QCOMPARE(colour(overview::ModeColumn, Qt::BackgroundRole), QColor("darkblue").name());
        QCOMPARE(colour(overview::ModeColumn, Qt::ForegroundRole), QColor(Qt::white).name());
        QCOMPARE(colour(overview::PrimaryVoltageColumn, Qt::BackgroundRole),
                 QColor("orangered").name());
        QCOMPARE(colour(overview::PrimaryVoltageColumn, Qt::ForegroundRole),
                 QColor(Qt::black).name());
        QVERIFY(!table.cell(0, overview::LoopColumn).data(Qt::BackgroundRole).isValid());
    }
    table.poll(kOne);
    for (const int column : kNamedColumns) {
        QVERIFY(!table.cell(0, column).data(Qt::BackgroundRole).isValid());
        QVERIFY(!table.cell(0, column).data(Qt::ForegroundRole).isValid());
    }
}

void TestDeviceOverviewTable::unchangedRecordChangesNothing()
{
    Overview table;
    table.pollAll({kOne, kOne});
    const QSignalSpy changes(table.view.model(), &QAbstractItemModel::dataChanged);
    table.poll(kOne);
    QCOMPARE(changes.count(), 0);
    LdbStatus status = healthy();
    status.primaryCurrent = 2000;
    table.poll(kOne, status);
    QCOMPARE(changes.count(), 1);
}

void TestDeviceOverviewTable::shortRecordNeverBreaks_data()
{
    QTest::addColumn<QList<int>>("lengths"); // of one LDB's records, one after the other
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("loop");
    QTest::newRow("one entry first") << QList<int>{1} << ""
                                     << "";
    QTest::newRow("one entry again and again") << QList<int>{1, 1, 1} << ""
                                               << "";
    QTest::newRow("one entry, then all") << QList<int>{1, 11} << "Hall"
                                         << "Ok";
    QTest::newRow("all, then one entry") << QList<int>{11, 1} << "Hall"
                                         << "Ok";
    QTest::newRow("some, then all") << QList<int>{3, 11} << "Hall"
                                    << "Ok";
    QTest::newRow("some") << QList<int>{3, 3} << "Hall"
                          << "";
    QTest::newRow("none at all") << QList<int>{0, 0} << ""
                                 << "";
    QTest::newRow("too many") << QList<int>{14, 14} << "Hall"
                              << "Ok";
}

void TestDeviceOverviewTable::shortRecordNeverBreaks()
{
    QFETCH(QList<int>, lengths);
    QFETCH(QString, name);
    QFETCH(QString, loop);
    Overview table;
    for (const int length : lengths) {
        QList<QStringList> cut = record(kFive).mid(0, length);
        while (cut.size() < length) {
            cut.append({QStringLiteral("further"), QStringLiteral("1")});
        }
        table.object->processData(kFive, cut);
    }
    QCOMPARE(table.view.model()->rowCount(), 1);
    QCOMPARE(table.text(0, overview::NameColumn), name);
    QCOMPARE(table.text(0, overview::LoopColumn), loop);
    QCOMPARE(table.takeSelected(), QStringList(kFive));
    QCOMPARE(table.shownColumns(), kNamedColumns);
    // Such a row takes part in everything else.
    table.poll(kNine);
    QVERIFY(table.object->selectLdb(kNine));
    QVERIFY(table.object->selectLdb(kFive));
    table.object->retranslate();
    table.picture();
}

void TestDeviceOverviewTable::rowsAreOrderedByIdUntilTheUserSorts()
{
    Overview table;
    table.pollAll({kNine, kOne, kFive});
    QCOMPARE(table.column(overview::IdColumn), (QStringList{kOne, kFive, kNine}));
    QVERIFY(table.view.horizontalHeader()->isSortIndicatorShown());

    QHeaderView* header = table.view.horizontalHeader();
    const QPoint idCell(header->sectionViewportPosition(overview::IdColumn) + 10, 10);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, idCell);
    QCOMPARE(table.column(overview::IdColumn), (QStringList{kNine, kFive, kOne}));
    table.pollAll({kOne, QStringLiteral("07"), kNine});
    QCOMPARE(table.column(overview::IdColumn),
             (QStringList{kNine, QStringLiteral("07"), kFive, kOne}));
    QCOMPARE(table.ticked(), QStringList(kNine));
}

void TestDeviceOverviewTable::tickIsExclusive()
{
    Overview table;
    table.pollAll({kOne, kFive, kNine});
    table.takeSelected();
    QVERIFY(table.setTick(1, Qt::Checked));
    QCOMPARE(table.ticked(), QStringList(kFive));
    QCOMPARE(table.takeSelected(), QStringList(kFive));
    table.setTick(1, Qt::Unchecked);
    QCOMPARE(table.ticked(), QStringList(kFive));
    table.setTick(0, Qt::Unchecked);
    QCOMPARE(table.ticked(), QStringList(kFive));
    QCOMPARE(table.takeSelected(), QStringList());
}

void TestDeviceOverviewTable::userTicksARow_data()
{
    QTest::addColumn<int>("key"); // 0 for a click
    QTest::addColumn<bool>("ticks");
    QTest::newRow("click") << 0 << true;
    QTest::newRow("space") << int(Qt::Key_Space) << true;
    QTest::newRow("enter") << int(Qt::Key_Enter) << true;
    QTest::newRow("return") << int(Qt::Key_Return) << true;
    QTest::newRow("another key") << int(Qt::Key_Shift) << false;
}

void TestDeviceOverviewTable::userTicksARow()
{
    QFETCH(int, key);
    QFETCH(bool, ticks);
    Overview table;
    table.pollAll({kNine, kOne, kFive});
    table.takeSelected();
    const auto act = [&] {
        if (key == 0) {
            table.click(1, overview::EarthColumn);
        } else {
            table.view.setCurrentIndex(table.cell(1, overview::NameColumn));
            QTest::keyClick(&table.view, static_cast<Qt::Key>(key));
        }
    };
    table.object->setSelectionEnabled(false);
    act();
    QCOMPARE(table.ticked(), QStringList(kNine));
    table.object->setSelectionEnabled(true);
    act();
    QCOMPARE(table.ticked(), QStringList(ticks ? kFive : kNine));
    act();
    QCOMPARE(table.ticked(), QStringList(ticks ? kFive : kNine));
    QCOMPARE(table.takeSelected(), ticks ? QStringList(kFive) : QStringList());
}

void TestDeviceOverviewTable::selectLdbTicksKnownLdbsOnly()
{
    Overview table;
    QVERIFY(!table.object->selectLdb(kOne));
    table.pollAll({kOne, kFive});
    table.takeSelected();
    QVERIFY(!table.object->selectLdb(kNine));
    QVERIFY(table.object->selectLdb(kFive));
    QVERIFY(table.object->selectLdb(kFive));
    table.object->setSelectionEnabled(false);
    QVERIFY(!table.object->selectLdb(kOne));
    QCOMPARE(table.takeSelected(), QStringList(kFive));
    QCOMPARE(table.ticked(), QStringList(kFive));
}

void TestDeviceOverviewTable::tickedRowIsMarked()
{
    Overview table;
    table.pollAll({kOne, kFive});
    table.poll(kNine); // the same values as the others, never ticked
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
    QCOMPARE(spoken(0), QStringLiteral("01, selected"));

    table.object->selectLdb(kFive);
    table.pollAll({kOne, kFive, kNine});
    QCOMPARE(rowPicture(0), rowPicture(2));
    QVERIFY(rowPicture(1) != rowPicture(2));
    QCOMPARE(spoken(0), QString());
    QCOMPARE(spoken(1), QStringLiteral("05, selected"));

    const QImage enabled = rowPicture(1);
    table.object->setSelectionEnabled(false);
    QVERIFY(rowPicture(1) != enabled);
}

void TestDeviceOverviewTable::clearTicksTheSameLdbAgain_data()
{
    QTest::addColumn<QString>("ticked"); // before
    QTest::addColumn<QStringList>("polls");
    QTest::addColumn<QStringList>("tickedAfter");
    QTest::addColumn<QStringList>("announced");
    QTest::newRow("it comes first")
        << kFive << QStringList{kFive, kOne} << QStringList{kFive} << QStringList();
    QTest::newRow("it comes later")
        << kNine << QStringList{kOne, kFive, kNine, kOne} << QStringList{kNine} << QStringList();
    QTest::newRow("it is still to come")
        << kNine << QStringList{kOne, kFive} << QStringList() << QStringList();
    QTest::newRow("it does not come")
        << kNine << QStringList{kFive, kOne, kFive} << QStringList{kFive} << QStringList{kFive};
    QTest::newRow("it comes too late")
        << kNine << QStringList{kOne, kFive, kOne, kNine} << QStringList{kOne} << QStringList{kOne};
    QTest::newRow("one other LDB only")
        << kNine << QStringList{kOne, kOne} << QStringList{kOne} << QStringList{kOne};
}

void TestDeviceOverviewTable::clearTicksTheSameLdbAgain()
{
    QFETCH(QString, ticked);
    QFETCH(QStringList, polls);
    QFETCH(QStringList, tickedAfter);
    QFETCH(QStringList, announced);
    Overview table;
    table.pollAll({kOne, kFive, kNine});
    table.object->selectLdb(ticked);
    table.takeSelected();
    table.object->clear();
    table.object->clear();
    QCOMPARE(table.view.model()->rowCount(), 0);
    QCOMPARE(table.object->selectedHexId(), ticked);
    table.pollAll(polls);
    QCOMPARE(table.ticked(), tickedAfter);
    QCOMPARE(table.takeSelected(), announced);

    // Whatever came, the user's own choice counts at once, and once.
    table.object->selectLdb(kOne);
    table.pollAll({kOne, kFive, kNine});
    QCOMPARE(table.ticked(), QStringList(kOne));
    QCOMPARE(table.takeSelected(), announced.value(0) == kOne ? QStringList() : QStringList(kOne));
}

void TestDeviceOverviewTable::serviceColumnsStayHidden()
{
    Overview table;
    QCOMPARE(table.shownColumns(), kNamedColumns);
    table.poll(kOne);
    QCOMPARE(table.shownColumns(), kNamedColumns);
    // A stored layout that shows what is to be hidden, and hides what is to be shown.
    table.view.setColumnHidden(overview::TickColumn, false);
    table.view.setColumnHidden(overview::TimestampColumn, false);
    table.view.setColumnHidden(overview::NameColumn, true);
    table.object->saveTableState();
    table.object->loadTableState();
    QCOMPARE(table.shownColumns(), kNamedColumns);
}

void TestDeviceOverviewTable::layoutComesBack()
{
    {
        Overview table;
        table.pollAll({kOne, kFive});
        QHeaderView* header = table.view.horizontalHeader();
        header->resizeSection(overview::LoopColumn, 222);
        header->moveSection(header->visualIndex(overview::EarthColumn),
                            header->visualIndex(overview::NameColumn));
        table.view.sortByColumn(overview::IdColumn, Qt::DescendingOrder);
        table.object->saveTableState();
        QVERIFY(userSettings().contains(kStateKey));
    }
    Overview table;
    table.pollAll({kOne, kFive});
    const QHeaderView* header = table.view.horizontalHeader();
    QCOMPARE(header->sectionSize(overview::LoopColumn), 222);
    QCOMPARE(header->visualIndex(overview::EarthColumn), 2);
    QCOMPARE(table.column(overview::IdColumn), (QStringList{kFive, kOne}));
    QCOMPARE(table.shownColumns(), kNamedColumns);
}

void TestDeviceOverviewTable::layoutIsNotSavedBeforeTheFirstRow()
{
    Overview table;
    table.object->saveTableState();
    QVERIFY(!userSettings().contains(kStateKey));
    table.poll(kOne);
    table.object->clear();
    table.object->saveTableState();
    QVERIFY(userSettings().contains(kStateKey));
}

void TestDeviceOverviewTable::unusableLayoutIsLeft_data()
{
    QTest::addColumn<QByteArray>("state");
    QTest::addColumn<bool>("warns");
    const auto layoutOf = [](int columns) {
        QStandardItemModel model(1, columns);
        QTableView view;
        view.setModel(&model);
        view.sortByColumn(columns - 1, Qt::DescendingOrder);
        return view.horizontalHeader()->saveState();
    };
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("garbage") << QByteArray(300, 'x') << true;
    const QByteArray whole = layoutOf(overview::ColumnCount);
    QTest::newRow("cut off") << whole.left(whole.size() / 2) << true;
    // These the header takes, as far as they fit.
    QTest::newRow("sorted by a hidden column") << whole << false;
    QTest::newRow("of fewer columns") << layoutOf(1) << false;
    QTest::newRow("of more columns") << layoutOf(40) << false;
}

void TestDeviceOverviewTable::unusableLayoutIsLeft()
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

void TestDeviceOverviewTable::clearAndRetranslateKeepTheLayout()
{
    Overview table;
    table.pollAll({kOne, kFive});
    QHeaderView* header = table.view.horizontalHeader();
    header->resizeSection(overview::NameColumn, 177);
    header->moveSection(header->visualIndex(overview::AmplifierColumn), 1);
    table.view.sortByColumn(overview::ModeColumn, Qt::DescendingOrder);
    const QByteArray layout = header->saveState();
    table.object->retranslate();
    QCOMPARE(header->saveState(), layout);
    table.object->clear();
    QCOMPARE(header->saveState(), layout);
    table.view.resize(500, 300);
    table.poll(kFive);
    QCOMPARE(header->saveState(), layout);
}

void TestDeviceOverviewTable::retranslationReachesEveryText()
{
    Overview table;
    table.poll(kOne);
    const QImage before = table.view.horizontalHeader()->grab().toImage();
    const BracketingTranslator translator;
    table.object->retranslate();
    const auto* tree =
        qobject_cast<QAbstractItemModel*>(table.cell(0, 0).data(Qt::UserRole).value<QObject*>());
    QVERIFY(tree != nullptr);
    QStringList texts;
    for (int column = 0; column < tree->columnCount(); ++column) {
        const QModelIndex top = tree->index(0, column);
        texts << top.data().toString();
        for (int child = 0; child < tree->columnCount(top); ++child) {
            texts << tree->index(0, child, top).data().toString();
        }
    }
    QCOMPARE(texts.join(QLatin1Char('|')),
             QStringLiteral("|[ID]|[Name]|[Mode]|[Loop]|[Primary Port]|Vpri|Ipri|"
                            "[Secondary Port]|Vsec|Isec|[Earth]|[Amplifier]"));
    QVERIFY(table.view.horizontalHeader()->grab().toImage() != before);
    QCOMPARE(table.cell(0, overview::IdColumn).data(Qt::AccessibleTextRole).toString(),
             QStringLiteral("[01, selected]"));
}

void TestDeviceOverviewTable::columnsFillTheTable()
{
    Overview table;
    const auto spare = [&] {
        return table.view.viewport()->width() - table.view.horizontalHeader()->length();
    };
    table.view.resize(1200, 300);
    QCoreApplication::processEvents();
    QCOMPARE(spare(), 0);
    table.poll(kOne);
    // Rows or not, in the proportions that the user has given them.
    QHeaderView* header = table.view.horizontalHeader();
    header->resizeSection(overview::NameColumn, header->sectionSize(overview::NameColumn) + 60);
    header->resizeSection(overview::ModeColumn, header->sectionSize(overview::ModeColumn) - 60);
    const int formerName = header->sectionSize(overview::NameColumn);
    const int formerEarth = header->sectionSize(overview::EarthColumn);
    table.view.resize(900, 300);
    QCoreApplication::processEvents();
    QCOMPARE(spare(), 0);
    QVERIFY(qAbs(header->sectionSize(overview::NameColumn) * formerEarth -
                 header->sectionSize(overview::EarthColumn) * formerName) <
            formerName + formerEarth);

    // What the user has made wider than the table stays so.
    header->resizeSection(overview::NameColumn, 400);
    const int length = header->length();
    table.view.resize(700, 300);
    QCoreApplication::processEvents();
    QCOMPARE(header->length(), length);
}

void TestDeviceOverviewTable::viewAndTableDieInAnyOrder()
{
    Overview table;
    table.poll(kOne);
    table.object.reset();
    table.picture();
    table.view.horizontalHeader()->grab();

    auto view = std::make_unique<QTableView>();
    DeviceOverviewTable orphan(view.get());
    orphan.processData(kOne, record(kOne));
    view.reset();
    orphan.processData(kFive, record(kFive));
    QVERIFY(orphan.selectLdb(kFive));
    orphan.setSelectionEnabled(false);
    orphan.saveTableState();
    orphan.loadTableState();
    orphan.retranslate();
    orphan.clear();
}

void TestDeviceOverviewTable::delegateToggles_data()
{
    QTest::addColumn<int>("event");
    QTest::addColumn<int>("flags");
    QTest::addColumn<QVariant>("state");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<QVariant>("after");
    constexpr int kToggles = Qt::ItemIsUserCheckable | Qt::ItemIsEnabled;
    constexpr int kRelease = QEvent::MouseButtonRelease;
    const QVariant unchecked(Qt::Unchecked);
    const QVariant checked(Qt::Checked);
    QTest::newRow("ticks") << kRelease << kToggles << unchecked << true << checked;
    QTest::newRow("unticks") << kRelease << kToggles << checked << true << unchecked;
    QTest::newRow("partly ticked becomes ticked")
        << kRelease << kToggles << QVariant(Qt::PartiallyChecked) << true << checked;
    QTest::newRow("press") << int(QEvent::MouseButtonPress) << kToggles << unchecked << true
                           << unchecked;
    QTest::newRow("double click") << int(QEvent::MouseButtonDblClick) << kToggles << unchecked
                                  << true << unchecked;
    QTest::newRow("delegate disabled") << kRelease << kToggles << unchecked << false << unchecked;
    QTest::newRow("item disabled")
        << kRelease << int(Qt::ItemIsUserCheckable) << unchecked << true << unchecked;
    QTest::newRow("not checkable")
        << kRelease << int(Qt::ItemIsEnabled) << unchecked << true << unchecked;
    QTest::newRow("no state") << kRelease << kToggles << QVariant() << true << QVariant();
}

void TestDeviceOverviewTable::delegateToggles()
{
    QFETCH(int, event);
    QFETCH(int, flags);
    QFETCH(QVariant, state);
    QFETCH(bool, enabled);
    QFETCH(QVariant, after);
    QStandardItemModel model;
    auto* item = new QStandardItem;
    item->setFlags(Qt::ItemFlags(flags));
    if (state.isValid()) {
        item->setData(state.toInt(), Qt::CheckStateRole);
    }
    model.appendRow(item);
    CheckBoxDelegate delegate;
    delegate.setEnabled(enabled);
    QMouseEvent mouse(static_cast<QEvent::Type>(event), QPointF(1, 1), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    const bool handled = delegate.editorEvent(&mouse, &model, {}, item->index());
    QCOMPARE(item->data(Qt::CheckStateRole).isValid(), after.isValid());
    QCOMPARE(item->data(Qt::CheckStateRole).toInt(), after.toInt());
    QCOMPARE(handled, after != state);
}

void TestDeviceOverviewTable::delegateCentresTheBox()
{
    QStandardItemModel model;
    auto* item = new QStandardItem;
    item->setCheckable(true);
    item->setCheckState(Qt::Checked);
    model.appendRow(item);
    const QRect cell(0, 0, 101, 41);
    const auto draw = [&](bool enabled) {
        QImage image(cell.size(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QStyleOptionViewItem option;
        option.rect = cell;
        option.state = QStyle::State_Enabled;
        CheckBoxDelegate delegate;
        delegate.setEnabled(enabled);
        delegate.paint(&painter, option, item->index());
        return image;
    };
    const QImage image = draw(true);
    QRect painted;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white)) {
                painted |= QRect(x, y, 1, 1);
            }
        }
    }
    QVERIFY(painted.width() > 8 && painted.width() < 30);
    const QPoint off = painted.center() - cell.center();
    QVERIFY2(off.manhattanLength() <= 2,
             qPrintable(QStringLiteral("%1, %2").arg(off.x()).arg(off.y())));
    QVERIFY(draw(false) != image);
}

QTEST_MAIN(TestDeviceOverviewTable)
#include "tst_deviceoverviewtable.moc"

#include "tests/support/testcase.h"
#include "views/headertree.h"
#include "views/hierarchicalheaderview.h"
#include "views/overviewcolumns.h"
#include "views/proxymodelhierachicalheader.h"

#include <QPaintEvent>
#include <QStandardItemModel>
#include <QTableView>

#include <memory>

namespace {

/// A tree written as "A,B(C,D)": top cells, children in brackets.
void fillTree(QStandardItemModel& tree, const QString& text)
{
    tree.clear();
    QStandardItem* parent = nullptr;
    QString name;
    const auto finish = [&] {
        if (name.isEmpty()) {
            return;
        }
        auto* item = new QStandardItem(name);
        if (parent != nullptr) {
            parent->appendColumn({item});
        } else {
            const int column = tree.columnCount();
            tree.setItem(0, column, item);
        }
        name.clear();
    };
    for (const QChar letter : text) {
        if (letter == QLatin1Char('(')) {
            finish();
            parent = tree.item(0, tree.columnCount() - 1);
        } else if (letter == QLatin1Char(')')) {
            finish();
            parent = nullptr;
        } else if (letter == QLatin1Char(',')) {
            finish();
        } else {
            name += letter;
        }
    }
    finish();
}

/// Gives away what is protected in a header view.
class OpenHeader : public HierarchicalHeaderView
{
public:
    using HierarchicalHeaderView::HierarchicalHeaderView;
    using HierarchicalHeaderView::sectionSizeFromContents;
};

/// What a widget was asked to paint since it was filtered by this.
class PaintedRegion : public QObject
{
public:
    QRegion region;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return QObject::eventFilter(watched, event);
    }
};

/// A table of `columns` columns under a header of the given tree.
struct Table
{
    std::unique_ptr<QStandardItemModel> tree = std::make_unique<QStandardItemModel>();
    QStandardItemModel source;
    ProxyModelHierachicalHeader proxy;
    QTableView view;
    OpenHeader* header;

    explicit Table(const QString& text, int columns)
        : source(3, columns)
        , header(new OpenHeader(Qt::Horizontal, &view))
    {
        fillTree(*tree, text);
        proxy.setSourceModel(&source);
        proxy.setHorizontalHeaderModel(tree.get());
        view.setModel(&proxy);
        view.setHorizontalHeader(header);
        view.resize(700, 200);
        header->setHighlightSections(false);
        view.show();
    }

    QImage picture() const { return pictureOf(header); }
    static QImage pictureOf(QWidget* widget)
    {
        return widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    /// Whether a vertical line of the picture is one plain stretch from `top` to `bottom`: no edge
    /// between cells crosses it. Taken where no text stands.
    static bool isSeamless(const QImage& image, int x, int top, int bottom)
    {
        // Shades of the style's gradient differ by little, a frame by much.
        constexpr int kFrameContrast = 20;
        for (int y = top + 1; y <= bottom; ++y) {
            if (qAbs(qGray(image.pixel(x, y)) - qGray(image.pixel(x, y - 1))) > kFrameContrast) {
                return false;
            }
        }
        return true;
    }

    QString order() const
    {
        QString text;
        for (int visual = 0; visual < header->count(); ++visual) {
            text += QString::number(header->logicalIndex(visual));
        }
        return text;
    }
};

const QString kGrouped = QStringLiteral("A,B,G(C,D),E");
constexpr int kGroupedColumns = 5;

} // namespace

class TestHierarchicalHeader : public TestCase
{
    Q_OBJECT
private slots:
    void initTestCase();
    void leafIsFound_data();
    void leafIsFound();
    void proxyCarriesTheHeaderModels();
    void sorting_data();
    void sorting();
    void sizesCountEveryLevel();
    void cellsRolesAreHonoured_data();
    void cellsRolesAreHonoured();
    void topCellJoinsItsSections();
    void resizingAChildRedrawsItsGroup();
    void flatTreeDrawsLikeThePlainHeader();
    void deletedHeaderModelLeavesAPlainHeader();
    void hoverShowsAndGoes_data();
    void hoverShowsAndGoes();
    void groupsStayTogether_data();
    void groupsStayTogether();
    void sortArrowStandsAtTheLeaf();
    void verticalHeaderIsTransposed();
};

void TestHierarchicalHeader::initTestCase()
{
    // Texts are compared as the locale orders them: not the machine's here.
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void TestHierarchicalHeader::leafIsFound_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<int>("leaf");
    QTest::addColumn<QString>("path"); // name, first leaf and leaf count of each cell
    QTest::newRow("plain") << "A,B,C" << 1 << "B1+1";
    QTest::newRow("first child") << "A,B,G(C,D),E" << 2 << "G2+2 C2+1";
    QTest::newRow("second child") << "A,B,G(C,D),E" << 3 << "G2+2 D3+1";
    QTest::newRow("after a group") << "A,B,G(C,D),E" << 4 << "E4+1";
    QTest::newRow("second group") << "G(A,B),H(C,D,E)" << 4 << "H2+3 E4+1";
    QTest::newRow("past the end") << "A,B,G(C,D),E" << 5 << "";
    QTest::newRow("before the start") << "A,B" << -1 << "";
    QTest::newRow("no cells") << "" << 0 << "";
}

void TestHierarchicalHeader::leafIsFound()
{
    QFETCH(QString, tree);
    QFETCH(int, leaf);
    QFETCH(QString, path);
    QStandardItemModel model;
    fillTree(model, tree);
    QStringList found;
    const QVector<headertree::Cell> cells = headertree::pathToLeaf(model, leaf);
    for (const headertree::Cell& cell : cells) {
        found << QStringLiteral("%1%2+%3")
                     .arg(cell.index.data().toString())
                     .arg(cell.firstLeaf)
                     .arg(cell.leafCount);
    }
    QCOMPARE(found.join(QLatin1Char(' ')), path);
}

void TestHierarchicalHeader::proxyCarriesTheHeaderModels()
{
    QStandardItemModel source(1, 1);
    source.setData(source.index(0, 0), 5, Qt::UserRole);
    auto horizontal = std::make_unique<QStandardItemModel>();
    QStandardItemModel vertical;
    ProxyModelHierachicalHeader proxy;
    proxy.setSourceModel(&source);
    QCOMPARE(proxy.index(0, 0).data(256), QVariant(5));

    proxy.setHorizontalHeaderModel(horizontal.get());
    proxy.setVerticalHeaderModel(&vertical);
    QCOMPARE(proxy.data(QModelIndex(), 256).value<QObject*>(), horizontal.get());
    QCOMPARE(proxy.index(0, 0).data(257).value<QObject*>(), &vertical);
    horizontal.reset();
    QCOMPARE(proxy.index(0, 0).data(256), QVariant(5));

    proxy.addGroupStartColumn(7);
    proxy.addGroupStartColumn(5);
    QCOMPARE(proxy.groupStartColumns().keys(), (QList<int>{5, 7}));
}

void TestHierarchicalHeader::sorting_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariantList>("codes"); // one a row, invalid for none
    QTest::addColumn<QString>("sorted");     // rows are "b", "a", "C"
    const QVariant none;
    const int mode = overview::ModeColumn;
    const int name = overview::NameColumn;
    QTest::newRow("mode by code") << mode << QVariantList{20, 30, 10} << "Cba";
    QTest::newRow("equal codes by text") << mode << QVariantList{0, 0, 0} << "abC";
    QTest::newRow("no codes by text") << mode << QVariantList{none, none, none} << "abC";
    QTest::newRow("one code missing") << mode << QVariantList{5, none, none} << "abC";
    QTest::newRow("other columns by text") << name << QVariantList{20, 30, 10} << "abC";
}

void TestHierarchicalHeader::sorting()
{
    QFETCH(int, column);
    QFETCH(QVariantList, codes);
    QFETCH(QString, sorted);
    const QString texts = QStringLiteral("baC");
    QStandardItemModel source(3, overview::ColumnCount);
    for (int row = 0; row < 3; ++row) {
        source.setData(source.index(row, column), QString(texts.at(row)));
        source.setData(source.index(row, column), codes.at(row), Qt::UserRole);
    }
    ProxyModelHierachicalHeader proxy;
    proxy.setSourceModel(&source);
    for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        proxy.sort(column, order);
        QString found;
        for (int row = 0; row < 3; ++row) {
            found += proxy.index(row, column).data().toString();
        }
        if (order == Qt::DescendingOrder) {
            std::reverse(found.begin(), found.end());
        }
        QCOMPARE(found, sorted);
    }
}

void TestHierarchicalHeader::sizesCountEveryLevel()
{
    const Table table(kGrouped, kGroupedColumns);
    const QSize plain = table.header->sectionSizeFromContents(0);
    const QSize child = table.header->sectionSizeFromContents(2);
    QCOMPARE(child.height(), 2 * plain.height());
    QCOMPARE(table.header->height(), child.height());
    // Without a cell of its own a section is measured by its number.
    QCOMPARE(table.header->sectionSizeFromContents(99).height(), plain.height());
}

void TestHierarchicalHeader::cellsRolesAreHonoured_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("value");
    QFont large;
    large.setPixelSize(60);
    QTest::newRow("font") << int(Qt::FontRole) << QVariant(large);
    QTest::newRow("size hint") << int(Qt::SizeHintRole) << QVariant(QSize(70, 66));
    QTest::newRow("upright text") << int(Qt::UserRole) << QVariant(1);
}

void TestHierarchicalHeader::cellsRolesAreHonoured()
{
    QFETCH(int, role);
    QFETCH(QVariant, value);
    const Table table(QStringLiteral("LongerText,B"), 2);
    const QSize before = table.header->sectionSizeFromContents(0);
    const QImage pictureBefore = table.picture();
    table.tree->item(0, 0)->setData(value, role);
    const QSize after = table.header->sectionSizeFromContents(0);
    if (role == Qt::SizeHintRole) {
        QCOMPARE(after, value.toSize());
    } else if (role == Qt::UserRole) {
        QCOMPARE(after, before.transposed());
    } else {
        QVERIFY(after.height() >= 60);
    }
    // A grown cell makes the whole header grow, without anybody asking.
    QCoreApplication::processEvents();
    QCOMPARE(table.header->sizeHint().height(), after.height());
    QVERIFY(table.picture() != pictureBefore);
}

void TestHierarchicalHeader::topCellJoinsItsSections()
{
    const Table table(QStringLiteral("A,G(C,D),E"), 4);
    const QImage image = table.picture();
    const int height = image.height();
    const int middle = table.header->sectionPosition(2); // between the two children
    const auto hasEdge = [&](int top, int bottom) {
        for (int y = top; y < bottom; ++y) {
            const int left = qGray(image.pixel(middle - 4, y));
            const int edge = qMin(qGray(image.pixel(middle - 1, y)), qGray(image.pixel(middle, y)));
            if (left - edge < 8) {
                return false;
            }
        }
        return true;
    };
    // The children are parted by a line, the cell above them is not (its text may cross there).
    QVERIFY(hasEdge(height * 3 / 4, height - 4));
    QVERIFY(!hasEdge(2, height / 4));
    // A group has an edge half-way up, a single cell fills the height.
    QVERIFY(!Table::isSeamless(image, middle - 8, height / 4, height * 3 / 4));
    QVERIFY(Table::isSeamless(image, 6, 4, height - 4));
}

void TestHierarchicalHeader::resizingAChildRedrawsItsGroup()
{
    Table table(QStringLiteral("A,G(C,D),E"), 4);
    QVERIFY(QTest::qWaitForWindowExposed(&table.view));
    QCoreApplication::processEvents();
    PaintedRegion painted;
    table.header->viewport()->installEventFilter(&painted);
    // The view itself repaints from the resized section on; the one before it shares its cell.
    table.header->resizeSection(2, 180);
    QCoreApplication::processEvents();
    const QRect before(table.header->sectionViewportPosition(1), 0, table.header->sectionSize(1),
                       table.header->height());
    QCOMPARE(painted.region.intersected(before), QRegion(before));

    const QImage image = table.picture();
    const int parting = table.header->sectionPosition(2);
    QVERIFY(Table::isSeamless(image, parting - 8, 2, image.height() / 2 - 4));
    QVERIFY(!Table::isSeamless(image, parting - 8, 2, image.height() - 4));
}

void TestHierarchicalHeader::flatTreeDrawsLikeThePlainHeader()
{
    const Table table(QStringLiteral("A,B,C"), 3);
    QHeaderView plain(Qt::Horizontal);
    QStandardItemModel labelled(3, 3);
    labelled.setHorizontalHeaderLabels(
        {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
    plain.setModel(&labelled);
    QFont bold = plain.font();
    bold.setBold(true);
    plain.setFont(bold);
    plain.resize(table.header->size());
    QCOMPARE(table.header->sizeHint(), plain.sizeHint());
    QCOMPARE(table.picture(), Table::pictureOf(&plain));
}

void TestHierarchicalHeader::deletedHeaderModelLeavesAPlainHeader()
{
    Table table(kGrouped, kGroupedColumns);
    const int tall = table.header->sizeHint().height();
    table.tree.reset();
    QCOMPARE(table.header->sizeHint().height() * 2, tall);
    table.header->resizeSection(2, 33);
    QCoreApplication::processEvents();
    QVERIFY(!table.picture().isNull());
    // And a model that knows of no header tree makes one from the start.
    QStandardItemModel other(1, 2);
    table.view.setModel(&other);
    QCOMPARE(table.header->count(), 2);
    QCOMPARE(table.header->sizeHint().height() * 2, tall);
}

void TestHierarchicalHeader::hoverShowsAndGoes_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QList<int>>("shownBy"); // sections that look different
    QTest::newRow("single cell") << 1 << QList<int>{1};
    // The cell above is one, whichever of its children the mouse is on.
    QTest::newRow("first child") << 2 << QList<int>{2, 3};
    QTest::newRow("second child") << 3 << QList<int>{2, 3};
}

void TestHierarchicalHeader::hoverShowsAndGoes()
{
    QFETCH(int, section);
    QFETCH(QList<int>, shownBy);
    const Table table(kGrouped, kGroupedColumns);
    table.header->setSectionsClickable(true);
    const QImage calm = table.picture();
    const QPoint onLeaf(table.header->sectionViewportPosition(section) + 5,
                        table.header->height() - 3);
    QMouseEvent move(QEvent::MouseMove, onLeaf, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(table.header->viewport(), &move);
    const QImage hovered = table.picture();
    QList<int> different;
    for (int at = 0; at < table.header->count(); ++at) {
        const QRect area(table.header->sectionViewportPosition(at) + 2, 0,
                         table.header->sectionSize(at) - 4, calm.height());
        if (calm.copy(area) != hovered.copy(area)) {
            different << at;
        }
    }
    QCOMPARE(different, shownBy);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(table.header, &leave);
    QCOMPARE(table.picture(), calm);
}

void TestHierarchicalHeader::groupsStayTogether_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("order"); // groups 1+2 and 4+5 of seven sections
    QTest::newRow("first of a group goes right") << 1 << 6 << "0345612";
    QTest::newRow("second of a group goes left") << 2 << 0 << "1203456";
    QTest::newRow("first goes left") << 4 << 0 << "4501236";
    QTest::newRow("second goes right") << 2 << 6 << "0345612";
    QTest::newRow("swapping a group puts it right") << 1 << 2 << "0123456";
    QTest::newRow("another one dropped inside") << 0 << 1 << "1203456";
    QTest::newRow("one group dropped into another") << 4 << 2 << "0124536";
    QTest::newRow("no group touched") << 3 << 6 << "0124563";
}

void TestHierarchicalHeader::groupsStayTogether()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, order);
    const Table table(QStringLiteral("A,G(B,C),D,H(E,F),I"), 7);
    table.header->setGroupStarts({{1, 1}, {4, 1}});
    table.header->moveSection(from, to);
    QCOMPARE(table.order(), order);
}

void TestHierarchicalHeader::sortArrowStandsAtTheLeaf()
{
    // Where an arrow of the whole group would stand, too.
    constexpr int kLastOfGroup = 2;
    const Table table(QStringLiteral("A,G(C,D),E"), 4);
    const QImage before = table.picture();
    table.header->setSortIndicatorShown(true);
    table.header->setSortIndicator(kLastOfGroup, Qt::AscendingOrder);
    const QImage after = table.picture();
    const int half = before.height() / 2;
    const QRect top(0, 0, before.width(), half - 2);
    QCOMPARE(after.copy(top), before.copy(top));
    const QRect leaf(table.header->sectionPosition(kLastOfGroup), half,
                     table.header->sectionSize(kLastOfGroup), half);
    QVERIFY(after.copy(leaf) != before.copy(leaf));
}

void TestHierarchicalHeader::verticalHeaderIsTransposed()
{
    QStandardItemModel tree;
    fillTree(tree, QStringLiteral("A,G(B,C)"));
    QStandardItemModel source(3, 1);
    ProxyModelHierachicalHeader proxy;
    proxy.setSourceModel(&source);
    proxy.setVerticalHeaderModel(&tree);
    QTableView view;
    view.setModel(&proxy);
    auto* header = new OpenHeader(Qt::Vertical, &view);
    view.setVerticalHeader(header);
    view.show();
    const QSize plain = header->sectionSizeFromContents(0);
    const QSize grouped = header->sectionSizeFromContents(1);
    QCOMPARE(grouped.height(), plain.height());
    QVERIFY(grouped.width() > plain.width());
    // The group's cell is painted across both its rows: no edge between them on its left.
    const QImage image = Table::pictureOf(header);
    QVERIFY(Table::isSeamless(image, 1, header->sectionPosition(1) + 4,
                              header->sectionPosition(2) + 8));
}

QTEST_MAIN(TestHierarchicalHeader)
#include "tst_hierarchicalheader.moc"

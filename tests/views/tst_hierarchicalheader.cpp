#include "tests/support/testprogram.h"
#include "views/header/hierarchicalheaderview.h"
#include "views/header/proxymodelhierachicalheader.h"

#include <QtWidgets>

#include <memory>

namespace {

constexpr int kCodeColumn = 3;

/// A tree written as "A G:CD": top cells, and behind a colon their children, one letter each.
void fillTree(QStandardItemModel& tree, const QString& text)
{
    const QStringList cells = text.split(' ', Qt::SkipEmptyParts);
    for (int column = 0; column < cells.size(); ++column) {
        auto* cell = new QStandardItem(cells.at(column).section(':', 0, 0));
        const QString children = cells.at(column).section(':', 1);
        for (const QChar child : children) {
            cell->appendColumn({new QStandardItem(child)});
        }
        tree.setItem(0, column, cell);
    }
}

/// A table of `columns` columns under a header of the given tree.
struct HeadedTable
{
    std::unique_ptr<QStandardItemModel> tree = std::make_unique<QStandardItemModel>();
    QStandardItemModel source;
    ProxyModelHierachicalHeader proxy;
    QTableView view;
    HierarchicalHeaderView* header;

    explicit HeadedTable(const QString& text, int columns)
        : source(3, columns)
        , header(new HierarchicalHeaderView(Qt::Horizontal, &view))
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

    QImage picture() const
    {
        return header->grab().toImage().convertToFormat(QImage::Format_RGB32);
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

const QString kGrouped = "A G:BC D H:EF I";
constexpr int kGroupedColumns = 7;

} // namespace

class TestHierarchicalHeader : public TestCase
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        // Texts are compared as the locale orders them: not the machine's here.
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    }

    void sorting_data()
    {
        // "codes": one a row, invalid for none
        // "sorted": rows are "b", "a", "C"
        addColumns<int, QVariantList, QString>("column", "codes", "sorted");
        const QVariant none;
        const int mode = kCodeColumn;
        const int name = kCodeColumn - 1;
        QTest::newRow("by number") << mode << QVariantList{20, 30, 10} << "Cba";
        QTest::newRow("equal numbers by text") << mode << QVariantList{0, 0, 0} << "abC";
        QTest::newRow("one number alone") << mode << QVariantList{5, none, none} << "abC";
        QTest::newRow("fractions, below zero") << mode << QVariantList{-9.5, 10.0, -10.5} << "Cba";
        QTest::newRow("every column") << name << QVariantList{20, 30, 10} << "Cba";
    }

    void sorting()
    {
        QFETCH(int, column);
        QFETCH(QVariantList, codes);
        QFETCH(QString, sorted);
        const QString texts = "baC";
        QStandardItemModel source(3, kCodeColumn + 1);
        for (int row = 0; row < 3; ++row) {
            source.setData(source.index(row, column), QString(texts.at(row)));
            source.setData(source.index(row, column), codes.at(row), Qt::UserRole);
        }
        ProxyModelHierachicalHeader proxy;
        proxy.setSourceModel(&source);
        const auto shown = [&](int row) {
            return proxy.index(row, column).data().toString();
        };
        proxy.sort(column, Qt::AscendingOrder);
        QCOMPARE(shown(0) + shown(1) + shown(2), sorted);
        proxy.sort(column, Qt::DescendingOrder);
        QCOMPARE(shown(2) + shown(1) + shown(0), sorted);
    }

    void topCellJoinsItsSections()
    {
        const HeadedTable table("A G:CD E", 4);
        const QImage image = table.picture();
        const int height = image.height();
        const int middle = table.header->sectionPosition(2); // between the two children
        const auto hasEdge = [&](int top, int bottom) {
            for (int y = top; y < bottom; ++y) {
                const int left = qGray(image.pixel(middle - 4, y));
                const int edge =
                    qMin(qGray(image.pixel(middle - 1, y)), qGray(image.pixel(middle, y)));
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
        QVERIFY(!HeadedTable::isSeamless(image, middle - 8, height / 4, height * 3 / 4));
        QVERIFY(HeadedTable::isSeamless(image, 6, 4, height - 4));
        // The arrow of the sorting stands at the child.
        table.header->setSortIndicatorShown(true);
        table.header->setSortIndicator(2, Qt::AscendingOrder);
        const QRect top(0, 0, image.width(), height / 2 - 2);
        QCOMPARE(table.picture().copy(top), image.copy(top));
    }

    void groupsStayTogether_data()
    {
        // "order": groups 1+2 and 4+5 of seven sections
        const Table<int, int, QString> row("from", "to", "order");
        row("first of a group goes right", 1, 6, "0345612");
        row("second of a group goes left", 2, 0, "1203456");
        row("second goes right", 2, 6, "0345612");
        row("another one dropped inside", 0, 1, "1203456");
        row("one group dropped into another", 4, 2, "0124536");
        row("no group touched", 3, 6, "0124563");
    }

    void groupsStayTogether()
    {
        QFETCH(int, from);
        QFETCH(int, to);
        QFETCH(QString, order);
        const HeadedTable table(kGrouped, kGroupedColumns);
        table.header->setGroupStarts({{1, 1}, {4, 1}});
        table.header->moveSection(from, to);
        QCOMPARE(table.order(), order);
    }
};

REGISTER_TEST(TestHierarchicalHeader, QApplication)
#include "tst_hierarchicalheader.moc"

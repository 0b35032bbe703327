#include "importexport/report/documentbuilder.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QRegularExpression>
#include <QSet>
#include <QTextBlock>
#include <QTextOption>
#include <QTextTable>

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

using namespace reportpart;

namespace {

// In 0.1 mm.
constexpr int kTextSize = 34;
constexpr int kTableSize = 26;
constexpr int kHeadSizes[] = {kTableSize, 23, 20, 18};
constexpr int kHeadingSizes[] = {60, 44, 36};
constexpr double kHeadingAbove[] = {0, 60, 40};
constexpr double kHeadingBelow[] = {24, 14, 10};
constexpr double kPadding = 7;
constexpr double kSlack = 40; // what Qt's own layout of pages may need besides
constexpr double kSignatureSpace = 260;
constexpr double kLine = 2;
constexpr double kWhole = 100; // per cent
constexpr double kBelowTable = 20;
constexpr double kWidestWord = 0.25; // of the page; a longer word is parted

const QColor kHeadGround(0xe8, 0xec, 0xf0);
const QColor kLineColour(0xb0, 0xb0, 0xb0);
const QColor kBadColour(0xb3, 0x26, 0x1e);
const QColor kWarnedColour(0xa0, 0x40, 0x00);

QTextCharFormat formatOf(int size, bool isBold = false)
{
    QTextCharFormat format;
    format.setProperty(QTextFormat::FontPixelSize, size);
    format.setFontWeight(isBold ? QFont::Bold : QFont::Normal);
    return format;
}

QTextCharFormat formatOf(const Cell& cell)
{
    QTextCharFormat format = formatOf(kTableSize, cell.tone == Cell::Tone::Bad);
    switch (cell.tone) {
    case Cell::Tone::Bad:
        format.setForeground(kBadColour);
        break;
    case Cell::Tone::Warned:
        format.setForeground(kWarnedColour);
        break;
    case Cell::Tone::Plain:
        break;
    }
    return format;
}

/// The width of a text as tables set it.
QFont tableFont(int size)
{
    QFont font;
    font.setPixelSize(size);
    font.setBold(true);
    return font;
}

QSet<QString> wordsOf(const QString& text)
{
    static const QRegularExpression blank(QStringLiteral("\\s"));
    const QStringList words = text.split(blank, Qt::SkipEmptyParts);
    return QSet<QString>(words.begin(), words.end());
}

/// A cell is one block, so that its place is known.
QString inOneBlock(QString text)
{
    return text.replace(QLatin1Char('\n'), QChar::LineSeparator);
}

void fill(QTextTable* table, int row, int column, const QString& text,
          const QTextCharFormat& format)
{
    QTextCursor cursor = table->cellAt(row, column).firstCursorPosition();
    cursor.setBlockCharFormat(format);
    cursor.insertText(inOneBlock(text), format);
}

double widestOf(const QSet<QString>& words, int size)
{
    const QFontMetricsF metrics(tableFont(size));
    double width = 0;
    for (const QString& word : words) {
        width = qMax(width, metrics.horizontalAdvance(word));
    }
    return width;
}

/// What each column needs for its longest word, with or without its title.
std::vector<double> leastOf(const Table& table, double page, int headSize)
{
    std::vector<double> least;
    least.reserve(table.columns.size());
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        QSet<QString> words;
        for (const auto& row : table.rows) {
            words +=
                table.columns[i].isInOneLine ? QSet<QString>{row[i].text} : wordsOf(row[i].text);
        }
        const double ofTitle =
            headSize > 0 ? widestOf(wordsOf(table.columns[i].title), headSize) : 0;
        const double width = qMax(widestOf(words, kTableSize), ofTitle);
        least.push_back(qMin(width + 2 * kPadding + 2 * kLine, page * kWidestWord));
    }
    return least;
}

double sumOf(const std::vector<double>& widths)
{
    return std::accumulate(widths.begin(), widths.end(), 0.0);
}

/// Gives each column what it needs at least, then shares the rest of the page by the columns' own
/// shares.
std::vector<double> spread(const std::vector<double>& least, const std::vector<double>& wanted,
                           double page)
{
    std::vector<double> more;
    more.reserve(least.size());
    for (std::size_t i = 0; i < least.size(); ++i) {
        more.push_back(qMax(wanted[i] - least[i], 0.0));
    }
    const double sum = sumOf(more);
    const double left = qMax(page - sumOf(least), 0.0);
    const double whole = qMax(page, sumOf(least));
    std::vector<double> widths;
    widths.reserve(least.size());
    for (std::size_t i = 0; i < least.size(); ++i) {
        const double share = sum > 0 ? left * more[i] / sum : 0;
        widths.push_back(kWhole * (least[i] + share) / whole);
    }
    return widths;
}

QTextTableFormat tableFormat(const std::vector<double>& widths)
{
    QTextTableFormat format;
    format.setWidth(QTextLength(QTextLength::PercentageLength, kWhole));
    format.setCellSpacing(0);
    format.setCellPadding(kPadding);
    format.setBorder(kLine);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(kLineColour);
    format.setBorderCollapse(true);
    QVector<QTextLength> lengths;
    lengths.reserve(static_cast<int>(widths.size()));
    for (const double width : widths) {
        lengths.append(QTextLength(QTextLength::PercentageLength, width));
    }
    format.setColumnWidthConstraints(lengths);
    return format;
}

} // namespace

DocumentBuilder::DocumentBuilder(const ReportContents& contents, QSizeF body)
    : m_contents(contents)
    , m_body(body)
{
}

std::unique_ptr<QTextDocument> DocumentBuilder::build()
{
    const auto measured = layOut({}, false);
    return layOut(breaksFor(measure(*measured)), true);
}

std::unique_ptr<QTextDocument> DocumentBuilder::layOut(const Breaks& breaks, bool hasPages)
{
    m_breaks = breaks;
    m_placed.clear();
    auto document = std::make_unique<QTextDocument>();
    m_document = document.get();
    m_document->setUndoRedoEnabled(false);
    m_document->setDocumentMargin(0);
    m_document->setUseDesignMetrics(true);
    QFont font;
    font.setPixelSize(kTextSize);
    m_document->setDefaultFont(font);
    QTextOption option = m_document->defaultTextOption();
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    m_document->setDefaultTextOption(option);
    m_cursor = QTextCursor(m_document);
    m_cursor.beginEditBlock();
    for (m_part = 0; m_part < m_contents.parts.size(); ++m_part) {
        std::visit([this](const auto& part) { put(part); }, m_contents.parts[m_part]);
    }
    m_cursor.endEditBlock();
    m_cursor = QTextCursor();
    if (hasPages) {
        m_document->setPageSize(m_body);
    } else {
        m_document->setTextWidth(m_body.width());
    }
    return document;
}

/// Begins a block at the end; a new document has its first one already.
void DocumentBuilder::beginBlock(double above, double below)
{
    QTextBlockFormat format;
    format.setTopMargin(above);
    format.setBottomMargin(below);
    if (isBreak(-1)) {
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    }
    if (m_document->isEmpty()) {
        m_cursor.setBlockFormat(format);
    } else {
        m_cursor.insertBlock(format);
    }
    Placed placed;
    placed.place = {m_part, -1};
    placed.position = m_cursor.position();
    placed.margin = above;
    m_placed.push_back(placed);
}

void DocumentBuilder::put(const Heading& heading)
{
    const int level = qBound(0, heading.level, static_cast<int>(std::size(kHeadingSizes)) - 1);
    beginBlock(kHeadingAbove[level], kHeadingBelow[level]);
    m_placed.back().isHeading = true;
    m_cursor.insertText(inOneBlock(heading.text), formatOf(kHeadingSizes[level], true));
}

void DocumentBuilder::put(const Paragraph& paragraph)
{
    beginBlock(0, kPadding);
    m_cursor.setBlockCharFormat(formatOf(kTextSize));
    m_cursor.insertText(inOneBlock(paragraph.text), formatOf(kTextSize));
}

/// No column is narrower than its longest word. Titles with very long ones are set smaller; if that
/// does not help, they are parted.
void DocumentBuilder::fit(const Table& table)
{
    const double page = m_body.width();
    std::vector<double> wanted;
    wanted.reserve(table.columns.size());
    for (const Column& column : table.columns) {
        wanted.push_back(column.width);
    }
    const double sum = sumOf(wanted);
    for (double& width : wanted) {
        width *= page / sum;
    }
    for (const int size : kHeadSizes) {
        m_headSize = size;
        const std::vector<double> least = leastOf(table, page, size);
        if (sumOf(least) <= page) {
            m_widths = spread(least, wanted, page);
            return;
        }
    }
    m_widths = spread(leastOf(table, page, 0), leastOf(table, page, m_headSize), page);
}

void DocumentBuilder::put(const Table& table)
{
    fit(table);
    std::size_t from = 0;
    for (std::size_t row = 1; row < table.rows.size(); ++row) {
        if (isBreak(static_cast<int>(row))) {
            putRows(table, from, row);
            from = row;
        }
    }
    putRows(table, from, table.rows.size());
}

void DocumentBuilder::putRows(const Table& table, std::size_t from, std::size_t to)
{
    const int head = table.hasHead() ? 1 : 0;
    const int columns = static_cast<int>(table.columns.size());
    QTextTableFormat format = tableFormat(m_widths);
    if (isBreak(static_cast<int>(from))) {
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    }
    if (!head) {
        format.setBorder(0);
    }
    format.setHeaderRowCount(head);
    m_cursor.movePosition(QTextCursor::End);
    QTextTable* placed = m_cursor.insertTable(head + static_cast<int>(to - from), columns, format);
    for (int column = 0; column < columns && head > 0; ++column) {
        QTextTableCell cell = placed->cellAt(0, column);
        QTextCharFormat ground = cell.format();
        ground.setBackground(kHeadGround);
        cell.setFormat(ground);
        fill(placed, 0, column, table.columns[static_cast<std::size_t>(column)].title,
             formatOf(m_headSize, true));
    }
    for (std::size_t row = from; row < to; ++row) {
        const std::vector<Cell>& cells = table.rows[row];
        const int placedRow = head + static_cast<int>(row - from);
        for (int column = 0; column < columns; ++column) {
            const Cell& cell = cells[static_cast<std::size_t>(column)];
            QTextCharFormat text = formatOf(cell);
            if (head == 0) {
                text.setProperty(QTextFormat::FontPixelSize, kTextSize);
            }
            fill(placed, placedRow, column, cell.text, text);
        }
        Placed here;
        here.place = {m_part, static_cast<int>(row)};
        here.table = placed;
        here.row = placedRow;
        m_placed.push_back(here);
    }
    // Qt needs a block after a table.
    m_cursor.movePosition(QTextCursor::End);
    m_cursor.setBlockCharFormat(formatOf(1));
    QTextBlockFormat below;
    below.setBottomMargin(kBelowTable);
    m_cursor.setBlockFormat(below);
}

void DocumentBuilder::put(const Picture& picture)
{
    const QString name = QStringLiteral("picture%1").arg(m_part);
    m_document->addResource(QTextDocument::ImageResource, QUrl(name), picture.image);
    QTextImageFormat format;
    format.setName(name);
    format.setWidth(m_body.width());
    format.setHeight(m_body.width() * picture.image.height() / qMax(1, picture.image.width()));
    beginBlock(kPadding, 0);
    m_cursor.insertImage(format);
    m_cursor.insertText(QString(QChar::LineSeparator) + picture.caption, formatOf(kTableSize));
}

void DocumentBuilder::put(const Signatures& signatures)
{
    Table table;
    std::vector<Cell> captions;
    for (const QString& caption : signatures.captions) {
        table.columns.push_back({{}, 1});
        captions.emplace_back(caption);
    }
    table.rows.push_back(std::move(captions));
    beginBlock(kSignatureSpace, 0); // room to sign
    m_placed.back().isHeading = true;
    fit(table);
    putRows(table, 0, 1);
    QTextTable* placed = m_placed.back().table;
    for (int column = 0; column < placed->columns(); ++column) {
        QTextTableCell cell = placed->cellAt(0, column);
        QTextTableCellFormat format = cell.format().toTableCellFormat();
        format.setTopBorder(kLine);
        format.setTopBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setTopBorderBrush(QColor(Qt::black));
        cell.setFormat(format);
    }
}

std::vector<DocumentBuilder::Unit> DocumentBuilder::measure(const QTextDocument& document) const
{
    const QAbstractTextDocumentLayout* layout = document.documentLayout();
    std::vector<Unit> units;
    units.reserve(m_placed.size());
    const auto rowRect = [layout](QTextTable* table, int row) {
        QRectF rect;
        for (int column = 0; column < table->columns(); ++column) {
            const QTextTableCell cell = table->cellAt(row, column);
            rect |= layout->blockBoundingRect(cell.firstCursorPosition().block());
        }
        return rect.adjusted(0, -kPadding - kLine, 0, kPadding + kLine);
    };
    for (const Placed& placed : m_placed) {
        Unit unit;
        unit.place = placed.place;
        unit.isHeading = placed.isHeading;
        QRectF rect;
        if (placed.table) {
            rect = rowRect(placed.table, placed.row);
            const bool hasHead = placed.table->format().headerRowCount() > 0;
            const QRectF head = hasHead ? rowRect(placed.table, 0) : QRectF();
            if (placed.place.second == 0 && hasHead) {
                rect |= head;
            } else if (hasHead) {
                unit.head = head.height();
            } else if (placed.place.second == 0) {
                rect.setTop(layout->frameBoundingRect(placed.table).top());
            }
        } else {
            rect = layout->blockBoundingRect(document.findBlock(placed.position));
            rect.setTop(rect.top() - placed.margin);
        }
        unit.top = rect.top();
        unit.bottom = rect.bottom();
        units.push_back(unit);
    }
    return units;
}

DocumentBuilder::Breaks DocumentBuilder::breaksFor(std::vector<Unit> units) const
{
    // A heading stays with what follows it.
    for (std::size_t i = units.size(); i-- > 1;) {
        if (units[i - 1].isHeading) {
            units[i - 1].bottom = units[i].bottom;
        }
    }
    Breaks breaks;
    double pageTop = 0;
    double head = 0;
    bool isOverfull = false;
    const double room = m_body.height() - kSlack;
    for (const Unit& unit : units) {
        const bool fits = unit.bottom - pageTop + head <= room;
        if ((!fits || isOverfull) && unit.top > pageTop) {
            breaks.insert(unit.place);
            pageTop = unit.top;
            head = unit.head;
        }
        // Qt parts it; where its last page ends is not known here.
        isOverfull = !unit.isHeading && unit.bottom - unit.top + unit.head > room;
    }
    return breaks;
}

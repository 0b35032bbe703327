#include "views/tables/overviewlayout.h"

#include "app/shared/usersettings.h"
#include "serial/ldb/generalinformation.h"
#include "views/header/hierarchicalheaderview.h"
#include "views/tables/overviewcolumns.h"

#include <QMap>
#include <QRegularExpression>
#include <QResizeEvent>
#include <QTableView>

#include <algorithm>

namespace {

constexpr QChar kBreak(0x200B); // a blank of no width
constexpr int kCodes = 256;     // more than any code of a record

// What is left of the width is shared in these proportions.
int widthShareOf(int column)
{
    switch (column) {
    case overview::NameColumn:
    case overview::ModeColumn:
        return 3;
    case overview::LoopColumn:
        return 6;
    case overview::EarthColumn:
        return 2;
    default:
        return 1;
    }
}

/// All texts that a column can show, but for names.
QStringList textsOf(int column)
{
    using namespace generalinformation;
    QStringList texts;
    switch (column) {
    case overview::IdColumn:
        return {QStringLiteral("MM")};
    case overview::NameColumn:
        return {QStringLiteral("Control_room")};
    case overview::PrimaryVoltageColumn:
    case overview::PrimaryCurrentColumn:
    case overview::SecondaryVoltageColumn:
    case overview::SecondaryCurrentColumn: {
        LdbStatus status;
        for (const LdbPortShort portShort : {LdbPortShort::Short, LdbPortShort::ShortMemory}) {
            status.primaryPortShort = static_cast<quint8>(portShort);
            texts << text(buildRows({}, {}, status, {}, {}), PrimaryVoltageRow);
        }
        return texts << QStringLiteral("-888.8_mA");
    }
    default:
        break;
    }
    for (int code = 0; code < kCodes; ++code) {
        switch (column) {
        case overview::ModeColumn:
            texts << ldbStateText(static_cast<LdbState>(code));
            break;
        case overview::LoopColumn:
            texts << ldbLoopStateText(static_cast<LdbLoopState>(code));
            break;
        case overview::EarthColumn:
            texts << ldbEarthStateText(static_cast<LdbEarthState>(code));
            break;
        default:
            texts << ldbAmplifierText(code);
            break;
        }
    }
    return texts;
}

} // namespace

OverviewLayout::OverviewLayout(QTableView* view, HierarchicalHeaderView* header, QObject* parent)
    : QObject(parent)
    , m_view(view)
    , m_header(header)
    , m_viewport(header->viewport())
{
    hideServiceColumns();
    m_header->setSectionResizeMode(QHeaderView::Interactive);
    m_header->setSectionsMovable(true);
    retranslate();
    m_viewport->installEventFilter(this);
}

QString OverviewLayout::breakable(QString text)
{
    return text.replace(QLatin1Char('('), kBreak + QStringLiteral("("));
}

void OverviewLayout::retranslate()
{
    static const QRegularExpression gap(QStringLiteral("[ \\x{200B}]|(?<=-)(?=[^0-9])"));
    // The ticked row's id and name are bold.
    QFont font = m_view->font();
    font.setBold(true);
    const QFontMetrics bold(font);
    const QFontMetrics plain = m_view->fontMetrics();
    const int margin = 2 * (m_view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1) + 2;
    m_leastWidths = QVector<int>(overview::ColumnCount);
    for (int column = overview::IdColumn; column < overview::TimestampColumn; ++column) {
        const bool isBold = column == overview::IdColumn || column == overview::NameColumn;
        // The mark of the ticked row stands beside its id, not beside the title.
        const int mark = column == overview::IdColumn ? plain.ascent() : 0;
        int& least = m_leastWidths[column];
        least = m_header->sectionSizeHint(column);
        for (const QString& text : textsOf(column)) {
            for (const QString& word : breakable(text).split(gap)) {
                const int advance = (isBold ? bold : plain).horizontalAdvance(word);
                least = std::max(least, advance + margin + mark);
            }
        }
    }
    if (!m_isLoaded) {
        fillWidth();
    }
}

/// Shows exactly the columns that the header names.
void OverviewLayout::hideServiceColumns()
{
    for (int column = 0; column < overview::ColumnCount; ++column) {
        m_view->setColumnHidden(column, column == overview::TickColumn ||
                                            column == overview::TimestampColumn);
    }
}

/// Stretches the shown columns over the table's width.
void OverviewLayout::fillWidth()
{
    int width = m_viewport->width();
    for (const int least : qAsConst(m_leastWidths)) {
        width -= least;
    }
    const auto least = [this](int column) {
        return m_leastWidths.at(column);
    };
    // Each its least, and its share of the rest.
    const int rest = std::max(0, width);
    int shares = 0;
    for (int column = overview::IdColumn; column < overview::TimestampColumn; ++column) {
        shares += widthShareOf(column);
    }
    shareWidth(
        m_viewport->width(),
        [&](int column) { return least(column) * shares + widthShareOf(column) * rest; }, least);
}

/// Gives each shown column its share of the width, but none less than its least.
void OverviewLayout::shareWidth(int width, const std::function<int(int column)>& shareOf,
                                const std::function<int(int column)>& leastOf)
{
    QMap<int, int> widths;
    QVector<int> open;
    // A header whose model has gone has no columns, and none of them is hidden.
    for (int column = 0; column < std::min<int>(m_header->count(), overview::ColumnCount);
         ++column) {
        if (!m_header->isSectionHidden(column)) {
            open.append(column);
        }
    }
    qint64 shares = 0;
    // One that would be too narrow takes from the others, which may become too narrow then.
    for (bool isSettled = false; !isSettled;) {
        isSettled = true;
        shares = 0;
        for (const int column : qAsConst(open)) {
            shares += shareOf(column);
        }
        for (const int column : QVector<int>(open)) {
            if (width * qint64{shareOf(column)} / std::max<qint64>(shares, 1) < leastOf(column)) {
                widths.insert(column, leastOf(column));
                width = std::max(0, width - leastOf(column));
                open.removeOne(column);
                isSettled = false;
                break;
            }
        }
    }
    // Positions are rounded, not widths, so that no gap is left at the right.
    qint64 before = 0;
    for (const int column : qAsConst(open)) {
        const qint64 behind = before + shareOf(column);
        widths.insert(column, static_cast<int>(width * behind / shares - width * before / shares));
        before = behind;
    }
    for (auto it = widths.cbegin(); it != widths.cend(); ++it) {
        m_header->resizeSection(it.key(), it.value());
    }
}

/// Columns that fill the table go on doing so, in the proportions that the user gave them; columns
/// that the user made wider or narrower than the table stay as they are.
void OverviewLayout::followWidth(const QResizeEvent& resize)
{
    if (!m_isLoaded) {
        fillWidth();
    } else if (m_header->length() == resize.oldSize().width()) {
        const auto present = [this](int column) {
            return m_header->sectionSize(column);
        };
        shareWidth(resize.size().width(), present,
                   [&](int column) { return std::min(m_leastWidths.at(column), present(column)); });
    }
}

bool OverviewLayout::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == m_viewport && m_view) {
        followWidth(*static_cast<QResizeEvent*>(event));
    }
    return QObject::eventFilter(watched, event);
}

void OverviewLayout::save() const
{
    if (m_view && m_isLoaded) {
        userSettings().setValue(constants::kOverviewTableStateKey, m_header->saveState());
    }
}

void OverviewLayout::load()
{
    m_isLoaded = true;
    const QVariant state = userSettings().value(constants::kOverviewTableStateKey);
    if (!m_view || !state.isValid()) {
        return;
    }
    if (!m_header->restoreState(state.toByteArray())) {
        qWarning("The stored layout of the overview table cannot be read");
    }
    hideServiceColumns();
    // A layout of another version may sort by what is not shown here.
    const int sortedBy = m_header->sortIndicatorSection();
    if (sortedBy >= m_header->count() || m_header->isSectionHidden(sortedBy)) {
        m_view->sortByColumn(overview::IdColumn, Qt::AscendingOrder);
    }
}

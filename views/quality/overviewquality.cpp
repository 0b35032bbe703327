#include "views/quality/overviewquality.h"

#include "app/shared/usersettings.h"
#include "recording/recordingaccess.h"
#include "serial/ldb/microseconds.h"
#include "views/quality/qualityhistory.h"
#include "views/quality/qualitystrip.h"
#include "views/tables/overviewcolumns.h"

#include <QHelpEvent>
#include <QTableView>
#include <QThread>
#include <QToolTip>

#include <utility>

namespace {

constexpr int kRefreshInterval = 5000; // ms
using microseconds::kMinute;
constexpr int kBars = 15;
constexpr int kHeight = 3;     // pixels: the ID keeps its room
constexpr int kSideMargin = 4; // pixels
constexpr int kBelow = 2;      // for the mark of the selected row

/// The begin of the first bar. The last bar is the minute under way.
qint64 beginOf(qint64 end)
{
    return wholeMinutes(end - 1) - (kBars - 1) * kMinute;
}

} // namespace

OverviewQuality::OverviewQuality(QTableView* view, const LiveQuality* live, RecordingAccess* access,
                                 std::function<qint64()> moment, QObject* parent)
    : QAbstractItemDelegate(parent)
    , m_view(view)
    , m_former(view->itemDelegate())
    , m_live(live)
    , m_access(access)
    , m_moment(std::move(moment))
    , m_areShown(userSettings().value(constants::kOverviewLineQualityKey, true).toBool())
{
    Q_ASSERT(QThread::currentThread() == thread());
    // Below an ID is always room: a name can take two lines.
    view->setItemDelegateForColumn(overview::IdColumn, this);
    m_refresh.setInterval(kRefreshInterval);
    connect(&m_refresh, &QTimer::timeout, this, &OverviewQuality::refresh);
    m_refresh.start();
    // What was asked of the former recording is not answered.
    connect(m_access, &RecordingAccess::pathChanged, this, [this] { m_asked.reset(); });
}

void OverviewQuality::setBarsShown(bool areShown)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_areShown = areShown;
    userSettings().setValue(constants::kOverviewLineQualityKey, areShown);
    refresh();
    if (m_view) {
        m_view->viewport()->update();
    }
}

void OverviewQuality::setShown(std::optional<qint64> at)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (at) {
        at = wholeMinutes(*at);
    }
    if (at != m_shown) {
        m_shown = at;
        refresh();
    }
}

void OverviewQuality::refresh()
{
    if (!m_areShown || !m_view) {
        return;
    }
    const qint64 end = m_shown.value_or(m_moment());
    const TimeSpan span{beginOf(end), end};
    if (!m_shown) {
        take(end, m_live->minutes(span));
        return;
    }
    if (m_asked) {
        return; // the next moment is read after it
    }
    m_asked = end;
    m_access->ask(
        this, [span](RecordingReader& reader) { return reader.minutes({}, span); },
        [this, end](const std::vector<RecordedMinute>& minutes) {
            m_asked.reset();
            if (m_shown) {
                take(end, minutes);
            }
            if (m_shown && *m_shown != end) {
                refresh();
            }
        });
}

void OverviewQuality::take(qint64 end, const std::vector<RecordedMinute>& minutes)
{
    const qint64 first = beginOf(end);
    m_bars.clear();
    for (const RecordedMinute& minute : minutes) {
        std::vector<QualityBar>& bars = m_bars[minute.hexId];
        bars.resize(kBars);
        const qint64 place = (minute.at - first) / kMinute;
        if (place >= 0 && place < kBars) {
            bars[static_cast<std::size_t>(place)].counts.add(minute);
        }
    }
    if (m_view) {
        m_view->viewport()->update();
    }
}

void OverviewQuality::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const
{
    if (m_former) {
        m_former->paint(painter, option, index);
    }
    const auto bars = m_bars.constFind(index.siblingAtColumn(overview::IdColumn).data().toString());
    if (!m_areShown || bars == m_bars.constEnd()) {
        return;
    }
    const QRect place(option.rect.left() + kSideMargin, option.rect.bottom() + 1 - kBelow - kHeight,
                      option.rect.width() - 2 * kSideMargin, kHeight);
    qualitystrip::paint(*painter, place, *bars, true);
}

QSize OverviewQuality::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return m_former ? m_former->sizeHint(option, index) : QSize();
}

bool OverviewQuality::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (m_former && m_former->helpEvent(event, view, option, index)) {
        return true;
    }
    const auto bars = m_bars.constFind(index.siblingAtColumn(overview::IdColumn).data().toString());
    if (event->type() != QEvent::ToolTip || !m_areShown || bars == m_bars.constEnd()) {
        return false;
    }
    QualityCounts sum;
    for (const QualityBar& bar : *bars) {
        sum.add(bar.counts);
    }
    QToolTip::showText(event->globalPos(),
                       tr("The line in the last 15 minutes: %1").arg(linequality::sharesText(sum)),
                       view, option.rect);
    return true;
}

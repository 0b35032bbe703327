#include "app/lookback/timebar.h"

#include "app/shared/colours.h"
#include "serial/ldb/microseconds.h"
#include "views/events/eventkinds.h"

#include <QDateTime>
#include <QHelpEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QThread>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int kPadding = 3; // above and below the text, pixels
constexpr int kTickLength = 5;
constexpr int kLabelsApart = 90; // pixels
constexpr int kSnap = 4;         // pixels around an event
constexpr double kZoomStep = 1.25;
constexpr double kNotch = 120.0; // of the wheel

} // namespace

TimeBar::TimeBar(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    describe();
}

QSize TimeBar::sizeHint() const
{
    return {400, fontMetrics().height() + 2 * kPadding};
}

void TimeBar::setContent(TimeBarContent content)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_content = std::move(content);
    m_now = m_content.extent.to;
    m_ground = QPixmap();
    update();
}

void TimeBar::setPosition(std::optional<qint64> at)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_position = at;
    if (at && m_zoomed && (*at < m_zoomed->from || *at > m_zoomed->to)) {
        const qint64 half = (m_zoomed->to - m_zoomed->from) / 2;
        const qint64 from = std::max(std::min(*at - half, bounds().to - 2 * half), bounds().from);
        m_zoomed = TimeSpan{from, from + 2 * half};
        m_ground = QPixmap();
    }
    describe();
    update();
}

void TimeBar::setNow(qint64 now)
{
    const TimeScale before = scale();
    m_now = std::max(now, m_content.extent.to);
    // Most seconds move nothing by as much as a pixel.
    if (scale().span().to - before.span().to > (before.span().to - before.span().from) / width()) {
        m_ground = QPixmap();
        update();
    }
}

TimeSpan TimeBar::bounds() const
{
    return {m_content.extent.from, std::max(m_now, m_content.extent.to)};
}

TimeScale TimeBar::scale() const
{
    return {m_zoomed.value_or(bounds()), liveLeft()};
}

int TimeBar::liveLeft() const
{
    return std::max(1, width() - fontMetrics().horizontalAdvance(tr("Live")) - 4 * kPadding);
}

void TimeBar::drawGround()
{
    const qreal ratio = devicePixelRatioF();
    m_ground = QPixmap(size() * ratio);
    m_ground.setDevicePixelRatio(ratio);
    m_ground.fill(colours::kBarGround);
    QPainter painter(&m_ground);
    const TimeScale shown = scale();
    const auto band = [&](qint64 from, qint64 to) {
        const double left = shown.xOf(from);
        return QRectF(left, 0, std::max(1.0, shown.xOf(to) - left), height());
    };
    if (!m_content.isEmpty()) {
        for (const RecordedRun& run : m_content.runs) {
            if (run.begun < shown.span().to && run.until > shown.span().from) {
                painter.fillRect(band(run.begun, run.until), QColor(colours::kBarRun));
            }
        }
        for (const RecordedGap& gap : m_content.gaps) {
            if (gap.from < shown.span().to && gap.to > shown.span().from) {
                painter.fillRect(band(gap.from, gap.to), QColor(colours::kBarGround));
                painter.fillRect(band(gap.from, gap.to),
                                 QBrush(QColor(colours::kBarText), Qt::BDiagPattern));
            }
        }
        drawTimes(painter, shown);
        drawEvents(painter, shown);
    } else {
        painter.setPen(QColor(colours::kBarText));
        painter.drawText(QRect(2 * kPadding, 0, shown.width(), height()), Qt::AlignVCenter,
                         tr("Nothing is recorded yet."));
    }
}

void TimeBar::drawTimes(QPainter& painter, const TimeScale& shown) const
{
    painter.setPen(QColor(colours::kBarText));
    const bool isInDays = shown.isInDays(kLabelsApart);
    for (const qint64 at : shown.ticks(kLabelsApart)) {
        const QDateTime time = microseconds::localTime(at);
        const bool isDay = isInDays || time.time() == QTime(0, 0);
        const QString text =
            isDay ? QLocale().toString(time.date(), QStringLiteral("ddd d MMM"))
                  : time.toString(time.time().second() == 0 ? QStringLiteral("hh:mm")
                                                            : QStringLiteral("hh:mm:ss"));
        const int x = static_cast<int>(std::lround(shown.xOf(at)));
        painter.drawLine(x, height() - kTickLength, x, height());
        if (x + kPadding + painter.fontMetrics().horizontalAdvance(text) < shown.width()) {
            painter.drawText(QRect(x + kPadding, 0, kLabelsApart, height()), Qt::AlignVCenter,
                             text);
        }
    }
}

void TimeBar::drawEvents(QPainter& painter, const TimeScale& shown) const
{
    const auto first =
        std::lower_bound(m_content.events.begin(), m_content.events.end(), shown.span().from,
                         [](const RecordedEvent& event, qint64 at) { return event.at < at; });
    for (auto event = first; event != m_content.events.end() && event->at <= shown.span().to;
         ++event) {
        const int x = static_cast<int>(shown.xOf(event->at));
        painter.fillRect(x, 0, 2, height() - kTickLength, eventkinds::colourOf(*event));
    }
}

void TimeBar::paintEvent(QPaintEvent*)
{
    if (m_ground.isNull()) {
        drawGround();
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_ground);
    const QRect live(liveLeft(), 0, width() - liveLeft(), height());
    painter.fillRect(live, QColor(m_position ? colours::kBarGround : colours::kMonitored));
    painter.setPen(QColor(colours::kBarText));
    painter.drawLine(live.topLeft(), live.bottomLeft());
    painter.setPen(Qt::black);
    painter.drawText(live, Qt::AlignCenter, tr("Live"));
    if (m_position) {
        const int x = static_cast<int>(std::lround(scale().xOf(*m_position)));
        painter.fillRect(x - 1, 0, 3, height(), QColor(colours::kRecordedText));
        painter.setBrush(QColor(colours::kRecorded));
        painter.setPen(QColor(colours::kRecordedText));
        painter.drawRect(x - kPadding, 0, 2 * kPadding, kTickLength);
    }
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

void TimeBar::want(const QPoint& position)
{
    if (position.x() >= liveLeft()) {
        emit liveWanted();
        return;
    }
    if (m_content.isEmpty()) {
        return;
    }
    const TimeScale shown = scale();
    qint64 at = shown.atOf(position.x());
    if (!m_isDragged && !m_content.events.empty()) {
        // A click on a tick means its event.
        const auto distance = [&](const RecordedEvent& event) {
            return std::abs(shown.xOf(event.at) - position.x());
        };
        const auto nearest =
            std::min_element(m_content.events.begin(), m_content.events.end(),
                             [&distance](const RecordedEvent& left, const RecordedEvent& right) {
                                 return distance(left) < distance(right);
                             });
        if (distance(*nearest) < kSnap) {
            at = nearest->at;
        }
    }
    emit momentWanted(at);
}

void TimeBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_isDragged = false;
        want(event->pos());
    }
}

void TimeBar::mouseMoveEvent(QMouseEvent* event)
{
    if ((event->buttons() & Qt::LeftButton) != 0) {
        m_isDragged = true;
        want(event->pos());
    }
}

void TimeBar::mouseReleaseEvent(QMouseEvent*)
{
    m_isDragged = false;
}

void TimeBar::wheelEvent(QWheelEvent* event)
{
    if (m_content.isEmpty()) {
        return;
    }
    const double notches = event->angleDelta().y() / kNotch;
    const TimeScale shown = scale();
    const TimeSpan span =
        shown.zoomed(shown.atOf(event->position().x()), std::pow(kZoomStep, -notches), bounds());
    const TimeSpan all = bounds();
    m_zoomed = span.from <= all.from && span.to >= all.to ? std::nullopt : std::make_optional(span);
    m_ground = QPixmap();
    event->accept();
    update();
}

QString TimeBar::tip(const QPoint& position) const
{
    if (m_content.isEmpty()) {
        return {};
    }
    if (position.x() >= liveLeft()) {
        return tr("Back to what is now (Esc)");
    }
    const TimeScale shown = scale();
    QStringList lines{QLocale().toString(microseconds::localTime(shown.atOf(position.x())),
                                         QLocale::ShortFormat)};
    constexpr int kMostLines = 8;
    for (const RecordedEvent& event : m_content.events) {
        if (std::abs(shown.xOf(event.at) - position.x()) < kSnap && lines.size() <= kMostLines) {
            lines.append(
                QStringLiteral("%1  %2 %3")
                    .arg(microseconds::localTime(event.at).toString(QStringLiteral("hh:mm:ss")),
                         event.hexId.isEmpty() ? QString() : tr("LDB %1:").arg(event.hexId),
                         event.description()));
        }
    }
    return lines.join(QLatin1Char('\n'));
}

bool TimeBar::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), tip(help->pos()), this);
        return true;
    }
    return QWidget::event(event);
}

void TimeBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        m_ground = QPixmap();
        describe();
    }
}

void TimeBar::resizeEvent(QResizeEvent*)
{
    m_ground = QPixmap();
}

void TimeBar::describe()
{
    setAccessibleName(tr("Recorded time"));
    setAccessibleDescription(m_position ? QLocale().toString(microseconds::localTime(*m_position))
                                        : tr("Live"));
}

#include "views/quality/qualitystrip.h"

#include "app/shared/colours.h"
#include "serial/ldb/microseconds.h"

#include <QAbstractItemView>
#include <QDateTime>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kMargin = 2;          // pixels around the bars
constexpr int kLeastHeight = 3;     // of a bar that has something to say
constexpr int kGapFrom = 4;         // width from which on there is a gap between bars
constexpr double kFullShare = 0.25; // bad share at which a bar is full

QRect innerOf(const QRect& rect)
{
    return rect.adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

/// Positions are rounded, not widths, so that the last bar ends where the rectangle does.
QRect placeOf(const QRect& inner, std::size_t bar, std::size_t bars)
{
    const auto at = [&](std::size_t place) {
        return inner.left() +
               static_cast<int>(static_cast<std::size_t>(inner.width()) * place / bars);
    };
    return {at(bar), inner.top(), std::max(1, at(bar + 1) - at(bar)), inner.height()};
}

QColor colourOf(QualityBar::Level level)
{
    switch (level) {
    case QualityBar::Level::Nothing:
        break;
    case QualityBar::Level::Good:
        return colours::kQualityGood;
    case QualityBar::Level::Some:
        return colours::kQualitySome;
    case QualityBar::Level::Bad:
        return colours::kQualityBad;
    }
    return Qt::transparent;
}

int heightOf(const QualityBar& bar, int whole)
{
    const double share = static_cast<double>(bar.counts.bad()) /
                         static_cast<double>(std::max<qint64>(bar.counts.asked, 1));
    // The root shows small shares, which are the usual ones.
    const double part = std::sqrt(std::min(1.0, share / kFullShare));
    return std::min(whole, kLeastHeight + static_cast<int>(part * (whole - kLeastHeight)));
}

} // namespace

void qualitystrip::paint(QPainter& painter, const QRect& rect, const std::vector<QualityBar>& bars,
                         bool isFlat)
{
    const QRect inner = isFlat ? rect : innerOf(rect);
    for (std::size_t number = 0; number < bars.size(); ++number) {
        const QualityBar& bar = bars[number];
        QRect place = placeOf(inner, number, bars.size());
        if (place.width() >= kGapFrom) {
            place.setWidth(place.width() - 1);
        }
        if (!isFlat) {
            place.setTop(place.bottom() + 1 - heightOf(bar, place.height()));
        }
        if (bar.counts.asked > 0) {
            painter.fillRect(place, colourOf(bar.level()));
        }
    }
}

const QualityBar* qualitystrip::barAt(const QRect& rect, const std::vector<QualityBar>& bars, int x)
{
    const QRect inner = innerOf(rect);
    for (std::size_t number = 0; number < bars.size(); ++number) {
        const QRect place = placeOf(inner, number, bars.size());
        if (x >= place.left() && x <= place.right()) {
            return &bars[number];
        }
    }
    return nullptr;
}

void QualityStripDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    qualitystrip::paint(*painter, option.rect,
                        index.data(kBarsRole).value<std::vector<QualityBar>>(), false);
}

bool QualityStripDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                                     const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const auto bars = index.data(kBarsRole).value<std::vector<QualityBar>>();
    const QualityBar* bar = qualitystrip::barAt(option.rect, bars, event->pos().x());
    if (bar == nullptr) {
        QToolTip::hideText();
        return true;
    }
    const QString begin =
        microseconds::localTime(bar->at).toString(QStringLiteral("yyyy-MM-dd HH:mm"));
    QToolTip::showText(event->globalPos(),
                       begin + QLatin1Char('\n') + linequality::sharesText(bar->counts), view,
                       option.rect);
    return true;
}

#include "tracking/plot/plotbox.h"

#include "app/shared/colours.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace {

constexpr int kMargin = 4;
constexpr int kColumnGap = 8;
constexpr int kOpacity = 225; // what lies below is felt, but never in the way of reading

int nameWidth(const PlotBox& box, const QFontMetrics& metrics)
{
    int width = 0;
    for (const PlotBox::Line& line : box.lines) {
        width = std::max(width, metrics.horizontalAdvance(line.name));
    }
    return width;
}

} // namespace

QSize PlotBox::size(const QFont& font) const
{
    const QFontMetrics metrics(font);
    const int names = nameWidth(*this, metrics);
    int width = metrics.horizontalAdvance(heading);
    for (const Line& line : lines) {
        width = std::max(width, names + kColumnGap + metrics.horizontalAdvance(line.value));
    }
    const int height = metrics.height() * (static_cast<int>(lines.size()) + 1);
    return {width + 2 * kMargin, height + 2 * kMargin};
}

void PlotBox::draw(QPainter* painter, const QFont& font, const QPointF& topLeft) const
{
    const QFontMetrics metrics(font);
    QColor ground(colours::kPlotCanvas);
    ground.setAlpha(kOpacity);
    painter->save();
    painter->setFont(font);
    painter->setPen(QColor(colours::kPlotFrameLight));
    painter->setBrush(ground);
    painter->drawRect(QRectF(topLeft, QSizeF(size(font))));

    const double left = topLeft.x() + kMargin;
    const double values = left + nameWidth(*this, metrics) + kColumnGap;
    double baseline = topLeft.y() + kMargin + metrics.ascent();
    painter->setPen(QColor(colours::kPlotText));
    painter->drawText(QPointF(left, baseline), heading);
    for (const Line& line : lines) {
        baseline += metrics.height();
        painter->setPen(line.color);
        painter->drawText(QPointF(left, baseline), line.name);
        painter->setPen(QColor(colours::kPlotText));
        painter->drawText(QPointF(values, baseline), line.value);
    }
    painter->restore();
}

QString PlotBox::text() const
{
    QStringList parts{heading};
    for (const Line& line : lines) {
        parts << line.name + QLatin1Char(' ') + line.value;
    }
    return parts.join(QStringLiteral(", "));
}

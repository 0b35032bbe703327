#include "tracking/plot/plotcursor.h"

#include "app/shared/colours.h"

#include <QPainter>

#include <algorithm>

namespace {

constexpr int kDistance = 6; // pixels between the line and its table

} // namespace

PlotCursor::PlotCursor(QWidget* canvas)
    : QWidget(canvas)
{
    setObjectName(QStringLiteral("plotCursor"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void PlotCursor::showAt(int x, const PlotBox& box)
{
    setGeometry(parentWidget()->rect());
    const auto repaint = [this] {
        update(QRect(m_x, 0, 1, height()));
        update(boxRect().adjusted(-1, -1, 2, 2));
    };
    repaint();
    m_x = x;
    m_box = box;
    repaint();
    show();
    raise();
}

QRect PlotCursor::boxRect() const
{
    const QSize size = m_box.size(font());
    const int right = m_x + kDistance;
    const int left = m_x - kDistance - size.width();
    // At the side that has the room; on a narrow canvas over the line.
    const int x = right + size.width() < width() || left < 0 ? right : left;
    return {QPoint(std::max(std::min(x, width() - size.width() - 1), 0),
                   std::max((height() - size.height()) / 2, 0)),
            size};
}

void PlotCursor::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setPen(QColor(colours::kPlotText));
    painter.drawLine(m_x, 0, m_x, height());
    m_box.draw(&painter, font(), boxRect().topLeft());
}

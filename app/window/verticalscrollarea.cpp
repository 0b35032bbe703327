#include "app/window/verticalscrollarea.h"

#include <QEvent>
#include <QScrollBar>

VerticalScrollArea::VerticalScrollArea(QWidget* parent)
    : QScrollArea(parent)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

QSize VerticalScrollArea::minimumSizeHint() const
{
    QSize size = QScrollArea::minimumSizeHint();
    if (widget() != nullptr) {
        const QScrollBar* bar = verticalScrollBar();
        size.setWidth(widget()->minimumSizeHint().width() + 2 * frameWidth() +
                      (bar->isVisibleTo(this) ? bar->sizeHint().width() : 0));
    }
    return size;
}

bool VerticalScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    const bool isFiltered = QScrollArea::eventFilter(watched, event);
    // The bar comes and goes with the content's height.
    if (watched == widget() &&
        (event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize)) {
        updateGeometry();
    }
    return isFiltered;
}

#include "app/verticalscrollarea.h"

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
        // The bar has its room before it is needed, so that nothing moves when it comes.
        size.setWidth(widget()->minimumSizeHint().width() +
                      verticalScrollBar()->sizeHint().width() + 2 * frameWidth());
    }
    return size;
}

bool VerticalScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    const bool isFiltered = QScrollArea::eventFilter(watched, event);
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return isFiltered;
}

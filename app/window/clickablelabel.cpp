#include "app/window/clickablelabel.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

ClickableLabel::ClickableLabel(QWidget* parent)
    : QLabel(parent)
{
    setCursor(Qt::PointingHandCursor);
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event)
{
    QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) {
        emit clicked();
    }
}

void ClickableLabel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space) {
        emit clicked();
    } else {
        QLabel::keyPressEvent(event);
    }
}

void ClickableLabel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (hasFocus()) {
        QStylePainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
    }
}

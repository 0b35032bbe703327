#include "views/lamps/lampimage.h"

#include <QGuiApplication>
#include <QPainter>

#include <cmath>

namespace lampimage {

namespace {

// The rest of the square stays free, so that neighbouring lamps do not touch.
constexpr QRect kEllipse(0, 0, 16, 16);

} // namespace

QPixmap draw(QRgb colour)
{
    const double ratio = std::ceil(qGuiApp->devicePixelRatio());
    QPixmap pixmap(QSize(kSize, kSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(colour));
    painter.drawEllipse(kEllipse);
    return pixmap;
}

} // namespace lampimage

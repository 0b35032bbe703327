#include "resources/generator/icons.h"

#include <QPainter>
#include <QPainterPath>

namespace icons {

namespace {

constexpr int kSide = 96;
// Dark enough for a light button, light enough for a dark one.
constexpr QRgb kInk = 0xFF5C7080;

QImage canvas(int scale)
{
    QImage image(kSide * scale, kSide * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// The origin in the middle, lengths in kept pixels.
void prepare(QPainter& painter, int scale)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.translate(kSide / 2.0, kSide / 2.0);
}

} // namespace

QImage globe(int scale)
{
    constexpr double radius = 40;
    constexpr double meridianRadius = 17;
    constexpr double parallelHeight = 20;
    constexpr double parallelHalfWidth = 34.5;
    QImage image = canvas(scale);
    QPainter painter(&image);
    prepare(painter, scale);
    painter.setPen(QPen(QColor::fromRgba(kInk), 6));
    painter.drawEllipse(QPointF(0, 0), radius, radius);
    painter.drawEllipse(QPointF(0, 0), meridianRadius, radius);
    painter.drawLine(QLineF(0, -radius, 0, radius));
    painter.drawLine(QLineF(-radius, 0, radius, 0));
    for (const double y : {-parallelHeight, parallelHeight}) {
        painter.drawLine(QLineF(-parallelHalfWidth, y, parallelHalfWidth, y));
    }
    return image;
}

QImage gear(int scale)
{
    constexpr int teeth = 8;
    constexpr double bodyRadius = 31;
    constexpr double holeRadius = 13;
    constexpr double toothRadius = 44;
    constexpr double footHalfWidth = 9.5;
    constexpr double tipHalfWidth = 6.5;
    constexpr double fullTurn = 360;
    QPainterPath shape;
    shape.addEllipse(QPointF(0, 0), bodyRadius, bodyRadius);
    for (int i = 0; i < teeth; ++i) {
        QPainterPath tooth;
        tooth.addPolygon(
            QPolygonF({QPointF(-footHalfWidth, 0), QPointF(-footHalfWidth, bodyRadius),
                       QPointF(-tipHalfWidth, toothRadius), QPointF(tipHalfWidth, toothRadius),
                       QPointF(footHalfWidth, bodyRadius), QPointF(footHalfWidth, 0)}));
        shape |= QTransform().rotate(fullTurn * i / teeth).map(tooth);
    }
    QPainterPath hole;
    hole.addEllipse(QPointF(0, 0), holeRadius, holeRadius);

    QImage image = canvas(scale);
    QPainter painter(&image);
    prepare(painter, scale);
    painter.fillPath(shape.subtracted(hole), QColor::fromRgba(kInk));
    return image;
}

} // namespace icons

#include "resources/generator/appicon.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace appicon {

namespace {

constexpr double kPi = 3.14159265358979323846;

constexpr QRgb kTileColour = 0xFF1F5F96;
constexpr QRgb kLoopColour = 0xFFFFFFFF;
constexpr QRgb kModuleColour = 0xFFFFA13D;

// From this side on there is room for all of the loop's modules.
constexpr int kDetailedSide = 32;

} // namespace

QVector<int> sides()
{
    return {16, 22, 24, 32, 48, 64, 128, 256};
}

QImage draw(int side, int scale)
{
    // In parts of the side.
    constexpr double corner = 0.18;
    constexpr double loopRadius = 0.29;
    const bool detailed = side >= kDetailedSide;
    const int modules = detailed ? 6 : 4;
    const double stroke = detailed ? 0.055 : 0.075;
    const double moduleRadius = detailed ? 0.095 : 0.125;

    QImage image(side * scale, side * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side * scale, side * scale);

    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(kTileColour));
    painter.drawRoundedRect(QRectF(0, 0, 1, 1), corner, corner);

    const QPointF centre(0.5, 0.5);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor::fromRgba(kLoopColour), stroke));
    painter.drawEllipse(centre, loopRadius, loopRadius);
    if (detailed) {
        // The trace of what is measured.
        painter.setPen(QPen(QColor::fromRgba(kLoopColour), stroke, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        painter.drawPolyline(
            QPolygonF({QPointF(0.35, 0.52), QPointF(0.43, 0.52), QPointF(0.48, 0.39),
                       QPointF(0.54, 0.62), QPointF(0.58, 0.52), QPointF(0.65, 0.52)}));
    }

    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(kModuleColour));
    for (int i = 0; i < modules; ++i) {
        const double angle = 2 * kPi * i / modules;
        painter.drawEllipse(centre + loopRadius * QPointF(std::cos(angle), std::sin(angle)),
                            moduleRadius, moduleRadius);
    }
    return image;
}

} // namespace appicon

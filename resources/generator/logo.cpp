#include "resources/generator/logo.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace logo {

namespace {

constexpr int kWidth = 480;
constexpr int kHeight = 120;
constexpr double kLetterHeight = 56;
constexpr double kLetterWidth = 50;
constexpr double kLetterGap = 22;
constexpr double kStroke = 11;
constexpr double kMarkRadius = 36;
constexpr double kMarkLeft = 14;
constexpr double kWordLeft = 126;
constexpr double kPi = 3.14159265358979323846;

constexpr QRgb kWordColour = 0xFF2B7BBD;
constexpr QRgb kMarkColour = 0xFFE8862A;

QPainterPath polyline(std::initializer_list<QPointF> points)
{
    QPainterPath path;
    for (const QPointF& point : points) {
        const QPointF scaled(point.x() * kLetterWidth, point.y() * kLetterHeight);
        if (path.elementCount() == 0) {
            path.moveTo(scaled);
        } else {
            path.lineTo(scaled);
        }
    }
    return path;
}

/// The letter's centre line, in a box of kLetterWidth by kLetterHeight with the origin top left.
QPainterPath letter(QChar name)
{
    QPainterPath path;
    switch (name.toLatin1()) {
    case 'A':
        path = polyline({{0, 1}, {0.5, 0}, {1, 1}});
        path.addPath(polyline({{0.2, 0.68}, {0.8, 0.68}}));
        break;
    case 'N':
        path = polyline({{0.05, 1}, {0.05, 0}, {0.95, 1}, {0.95, 0}});
        break;
    case 'O':
        path.addEllipse(QRectF(-2, 0, kLetterWidth + 4, kLetterHeight));
        break;
    case 'R':
        path = polyline({{0.1, 1}, {0.1, 0}, {0.6, 0}});
        path.arcTo(QRectF(0.35 * kLetterWidth, 0, 0.6 * kLetterWidth, 0.56 * kLetterHeight), 90,
                   -180);
        path.lineTo(QPointF(0.1 * kLetterWidth, 0.56 * kLetterHeight));
        path.addPath(polyline({{0.55, 0.56}, {0.95, 1}}));
        break;
    case 'T':
        path = polyline({{0, 0}, {1, 0}});
        path.addPath(polyline({{0.5, 0}, {0.5, 1}}));
        break;
    case 'V':
        path = polyline({{0, 0}, {0.5, 1}, {1, 0}});
        break;
    default:
        qFatal("no drawing of this letter");
    }
    return path;
}

void drawMark(QPainter& painter)
{
    constexpr int modules = 6;
    constexpr double moduleRadius = 8;
    const QPointF centre(kMarkLeft + kMarkRadius, kHeight / 2.0);
    painter.setPen(QPen(painter.brush(), kStroke / 2));
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(centre, kMarkRadius, kMarkRadius);
    painter.restore();
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < modules; ++i) {
        const double angle = 2 * kPi * i / modules;
        painter.drawEllipse(centre + kMarkRadius * QPointF(std::cos(angle), std::sin(angle)),
                            moduleRadius, moduleRadius);
    }
}

void drawWord(QPainter& painter, const QString& name, const QColor& colour)
{
    painter.save();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, kStroke, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.translate(kWordLeft, (kHeight - kLetterHeight) / 2);
    for (const QChar character : name) {
        painter.drawPath(letter(character));
        painter.translate(kLetterWidth + kLetterGap, 0);
    }
    painter.restore();
}

void drawAll(QPainter& painter, const QString& name, const QColor& mark, const QColor& word)
{
    painter.setBrush(mark);
    drawMark(painter);
    drawWord(painter, name, word);
}

/// Blurred by scaling down and up again: soft enough for a shadow.
QImage blurred(const QImage& image, int factor)
{
    return image.scaled(image.size() / factor, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .scaled(image.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage canvas(int scale)
{
    QImage image(kWidth * scale, kHeight * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

QImage draw(const QString& name, int scale)
{
    constexpr double shadowOffset = 4;
    constexpr int shadowSoftness = 5;
    const QColor shadowColour(0, 0, 0, 120);

    QImage shadow = canvas(scale);
    {
        QPainter painter(&shadow);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(scale, scale);
        drawAll(painter, name, shadowColour, shadowColour);
    }

    QImage image = canvas(scale);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.drawImage(QRectF(shadowOffset, shadowOffset, kWidth, kHeight),
                      blurred(shadow, shadowSoftness * scale / 2));
    drawAll(painter, name, QColor::fromRgba(kMarkColour), QColor::fromRgba(kWordColour));
    return image;
}

} // namespace logo

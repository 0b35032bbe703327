#include "resources/generator/flags.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

namespace flags {

namespace {

constexpr int kWidth = 96;
constexpr int kHeight = 64;
constexpr double kCornerRadius = 6;

using Stripes = std::array<QColor, 3>;

/// A canvas in kept pixels with rounded corners; `finish` outlines it, so that white does not melt
/// into a white list.
class FlagPainter
{
public:
    explicit FlagPainter(int scale)
        : m_image(kWidth * scale, kHeight * scale, QImage::Format_ARGB32_Premultiplied)
    {
        m_image.fill(Qt::transparent);
        m_painter.begin(&m_image);
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.scale(scale, scale);
        m_outline.addRoundedRect(QRectF(1, 1, kWidth - 2, kHeight - 2), kCornerRadius,
                                 kCornerRadius);
        m_painter.setClipPath(m_outline);
    }

    QPainter& painter() { return m_painter; }

    QImage finish()
    {
        m_painter.setClipping(false);
        m_painter.strokePath(m_outline, QPen(QColor(0, 0, 0, 110), 2));
        m_painter.end();
        return m_image;
    }

private:
    QImage m_image;
    QPainter m_painter;
    QPainterPath m_outline;
};

QImage striped(int scale, const Stripes& stripes, Qt::Orientation direction)
{
    FlagPainter flag(scale);
    const auto count = static_cast<double>(stripes.size());
    for (std::size_t i = 0; i < stripes.size(); ++i) {
        const double start = static_cast<double>(i) / count;
        const QRectF stripe = direction == Qt::Horizontal
                                  ? QRectF(0, start * kHeight, kWidth, kHeight / count)
                                  : QRectF(start * kWidth, 0, kWidth / count, kHeight);
        flag.painter().fillRect(stripe, stripes.at(i));
    }
    return flag.finish();
}

void drawDiagonals(QPainter& painter, const QColor& colour, double width)
{
    painter.setPen(QPen(colour, width));
    painter.drawLine(QLineF(0, 0, kWidth, kHeight));
    painter.drawLine(QLineF(0, kHeight, kWidth, 0));
}

void drawCross(QPainter& painter, const QColor& colour, double width)
{
    painter.fillRect(QRectF(0, (kHeight - width) / 2, kWidth, width), colour);
    painter.fillRect(QRectF((kWidth - width) / 2, 0, width, kHeight), colour);
}

} // namespace

QImage dutch(int scale)
{
    return striped(scale, {QColor(0xAE, 0x1C, 0x28), Qt::white, QColor(0x21, 0x46, 0x8B)},
                   Qt::Horizontal);
}

QImage french(int scale)
{
    return striped(scale, {QColor(0x00, 0x32, 0x95), Qt::white, QColor(0xE1, 0x26, 0x34)},
                   Qt::Vertical);
}

QImage british(int scale)
{
    const QColor blue(0x01, 0x21, 0x69);
    const QColor red(0xC8, 0x10, 0x2E);
    FlagPainter flag(scale);
    flag.painter().fillRect(QRectF(0, 0, kWidth, kHeight), blue);
    drawDiagonals(flag.painter(), Qt::white, 13);
    drawDiagonals(flag.painter(), red, 5);
    drawCross(flag.painter(), Qt::white, 21);
    drawCross(flag.painter(), red, 12);
    return flag.finish();
}

} // namespace flags

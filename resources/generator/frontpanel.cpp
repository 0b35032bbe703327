#include "resources/generator/frontpanel.h"

#include <QPainter>
#include <QPainterPath>

namespace frontpanel {

namespace {

constexpr int kWidth = 720;
constexpr int kHeight = 440;

const QRectF kPanel(20, 60, 680, 230);
constexpr QRgb kPanelColour = 0xFFD5D9DD;
constexpr QRgb kEdgeColour = 0xFF59626B;
constexpr QRgb kPrintColour = 0xFF2A3138;
constexpr QRgb kConnectorColour = 0xFF2F7D4F;
constexpr QRgb kScrewColour = 0xFFB7BEC5;
constexpr QRgb kWireColour = 0xFF7A838C;
constexpr QRgb kAttentionColour = 0xFFE06A00;

constexpr QSizeF kConnector(150, 56);
const QPointF kPrimaryConnector(250, 200);
const QPointF kSecondaryConnector(500, 200);
constexpr int kTerminals = 4;

QColor colour(QRgb rgb)
{
    return QColor::fromRgba(rgb);
}

void print(QPainter& painter, const QRectF& box, const QString& text, int pixelSize)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(pixelSize);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(colour(kPrintColour));
    painter.drawText(box, Qt::AlignCenter, text);
}

void drawScrew(QPainter& painter, const QPointF& centre, double radius)
{
    painter.setPen(QPen(colour(kEdgeColour), 2));
    painter.setBrush(colour(kScrewColour));
    painter.drawEllipse(centre, radius, radius);
    painter.drawLine(centre + QPointF(-radius * 0.6, -radius * 0.6),
                     centre + QPointF(radius * 0.6, radius * 0.6));
}

void drawPanel(QPainter& painter)
{
    constexpr double cornerScrewInset = 22;
    constexpr double cornerScrewRadius = 9;
    painter.setPen(QPen(colour(kEdgeColour), 4));
    painter.setBrush(colour(kPanelColour));
    painter.drawRoundedRect(kPanel, 10, 10);
    const QRectF screws =
        kPanel.adjusted(cornerScrewInset, cornerScrewInset, -cornerScrewInset, -cornerScrewInset);
    for (const QPointF& corner :
         {screws.topLeft(), screws.topRight(), screws.bottomLeft(), screws.bottomRight()}) {
        drawScrew(painter, corner, cornerScrewRadius);
    }
}

void drawLamps(QPainter& painter)
{
    constexpr double lampRadius = 10;
    constexpr double lampPitch = 34;
    const QPointF firstLamp(120, 130);
    const QColor lamps[] = {QColor(0x4C, 0xB0, 0x50), QColor(0xF2, 0xC0, 0x2E),
                            QColor(0xF2, 0xC0, 0x2E), QColor(0xF2, 0xC0, 0x2E)};
    painter.setPen(QPen(colour(kEdgeColour), 2));
    QPointF centre = firstLamp;
    for (const QColor& lamp : lamps) {
        painter.setBrush(lamp);
        painter.drawEllipse(centre, lampRadius, lampRadius);
        centre += QPointF(0, lampPitch);
    }
    print(painter, QRectF(70, 80, 100, 30), QStringLiteral("LDB"), 26);
}

/// The terminal screws of a plug, left to right along its front.
void drawTerminals(QPainter& painter, const QRectF& plug)
{
    constexpr double screwRadius = 11;
    for (int i = 0; i < kTerminals; ++i) {
        const double x = plug.left() + (i + 0.5) * plug.width() / kTerminals;
        drawScrew(painter, QPointF(x, plug.center().y()), screwRadius);
    }
}

/// A plug with the two pairs of loop wires that leave it downwards, to the edge of the picture.
void drawPlug(QPainter& painter, const QPointF& topLeft)
{
    const QRectF plug(topLeft, kConnector);
    painter.setPen(QPen(colour(kWireColour), 7, Qt::SolidLine, Qt::FlatCap));
    for (int i = 0; i < kTerminals; ++i) {
        const double x = plug.left() + (i + 0.5) * plug.width() / kTerminals;
        painter.drawLine(QLineF(x, plug.bottom(), x, kHeight));
    }
    painter.setPen(QPen(colour(kEdgeColour), 3));
    painter.setBrush(colour(kConnectorColour));
    painter.drawRoundedRect(plug, 5, 5);
    drawTerminals(painter, plug);
}

/// The empty socket that a plug leaves behind.
void drawSocket(QPainter& painter, const QPointF& topLeft)
{
    constexpr QSizeF pin(10, 26);
    const QRectF socket(topLeft, kConnector);
    painter.setPen(QPen(colour(kEdgeColour), 3));
    painter.setBrush(colour(kPrintColour));
    painter.drawRoundedRect(socket, 5, 5);
    for (int i = 0; i < kTerminals; ++i) {
        const double x = socket.left() + (i + 0.5) * socket.width() / kTerminals;
        painter.fillRect(
            QRectF(QPointF(x - pin.width() / 2, socket.center().y() - pin.height() / 2), pin),
            colour(kScrewColour));
    }
}

void drawAttention(QPainter& painter)
{
    // A ring around the socket, and an arrow from above.
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour(kAttentionColour), 7));
    painter.drawRoundedRect(QRectF(kSecondaryConnector, kConnector).adjusted(-14, -14, 14, 14), 14,
                            14);
    const double x = kSecondaryConnector.x() + kConnector.width() / 2;
    QPainterPath arrow;
    arrow.addPolygon(
        QPolygonF({QPointF(x - 15, 6), QPointF(x + 15, 6), QPointF(x + 15, 70), QPointF(x + 38, 70),
                   QPointF(x, 116), QPointF(x - 38, 70), QPointF(x - 15, 70)}));
    arrow.closeSubpath();
    painter.setPen(QPen(Qt::white, 4));
    painter.setBrush(colour(kAttentionColour));
    painter.drawPath(arrow);
}

void drawPullMarks(QPainter& painter, double plugTop)
{
    // The way of the plug, out of its socket.
    const QRectF socket(kSecondaryConnector, kConnector);
    painter.setPen(QPen(colour(kAttentionColour), 5, Qt::DotLine));
    for (const double x : {socket.left() + 4, socket.right() - 4}) {
        painter.drawLine(QLineF(x, socket.bottom() + 18, x, plugTop - 4));
    }
}

} // namespace

QImage draw(int scale)
{
    constexpr double pulledDistance = 126;
    constexpr double printAbove = 46;
    QImage image(kWidth * scale, kHeight * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);

    drawPanel(painter);
    drawLamps(painter);
    print(painter, QRectF(kPrimaryConnector - QPointF(20, printAbove), QSizeF(190, 30)),
          QStringLiteral("PRIMARY"), 26);
    drawPlug(painter, kPrimaryConnector);
    print(painter, QRectF(kSecondaryConnector - QPointF(20, printAbove + 8), QSizeF(190, 30)),
          QStringLiteral("SECONDARY"), 26);
    drawSocket(painter, kSecondaryConnector);
    drawPlug(painter, kSecondaryConnector + QPointF(0, pulledDistance));
    drawPullMarks(painter, kSecondaryConnector.y() + pulledDistance);
    drawAttention(painter);
    return image;
}

} // namespace frontpanel

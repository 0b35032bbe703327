#include "resources/generator/spinner.h"

#include <cmath>

namespace spinner {

namespace {

constexpr int kSide = 64;
constexpr int kDots = 12;
constexpr double kRingRadius = 25;
constexpr double kDotRadius = 5;
constexpr double kPi = 3.14159265358979323846;
constexpr QRgb kFaint = 0xFFB9C4CE;
constexpr QRgb kBright = 0xFF1F6FB2;

QRgb mixed(QRgb from, QRgb to, double share)
{
    const auto channel = [share](int a, int b) {
        return static_cast<int>(std::lround(a + (b - a) * share));
    };
    return qRgb(channel(qRed(from), qRed(to)), channel(qGreen(from), qGreen(to)),
                channel(qBlue(from), qBlue(to)));
}

/// Entry 0 transparent, then one shade a dot of the tail, faint to bright.
QVector<QRgb> shades()
{
    QVector<QRgb> table{qRgba(0, 0, 0, 0)};
    for (int i = 0; i < kDots; ++i) {
        table.append(mixed(kFaint, kBright, static_cast<double>(i) / (kDots - 1)));
    }
    return table;
}

void fillDot(QImage& frame, const QPointF& centre, uint shade)
{
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            if (std::hypot(x + 0.5 - centre.x(), y + 0.5 - centre.y()) <= kDotRadius) {
                frame.setPixel(x, y, shade);
            }
        }
    }
}

QImage frameWithHead(int head)
{
    QImage frame(kSide, kSide, QImage::Format_Indexed8);
    frame.setColorTable(shades());
    frame.fill(0);
    for (int i = 0; i < kDots; ++i) {
        const double angle = 2 * kPi * i / kDots;
        const QPointF centre(kSide / 2.0 + kRingRadius * std::sin(angle),
                             kSide / 2.0 - kRingRadius * std::cos(angle));
        const int behind = (head - i + kDots) % kDots;
        fillDot(frame, centre, static_cast<uint>(kDots - behind));
    }
    return frame;
}

} // namespace

QVector<QImage> frames()
{
    QVector<QImage> all;
    all.reserve(kDots);
    for (int head = 0; head < kDots; ++head) {
        all.append(frameWithHead(head));
    }
    return all;
}

} // namespace spinner

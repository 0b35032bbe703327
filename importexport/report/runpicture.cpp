#include "importexport/report/visitcontents.h"
#include "serial/ldb/microseconds.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(VisitReport)
};

constexpr QSize kSize(1800, 640);
constexpr int kLeft = 150;
constexpr int kTop = 60;
constexpr int kRight = 30;
constexpr int kBottom = 60;
constexpr int kTextSize = 28;
constexpr int kTicks = 5;
// They can be told apart on white paper, also in grey: one is dashed.
const QColor kPrimaryColour(0x1b, 0x6e, 0x36);
const QColor kSecondaryColour(0xb3, 0x26, 0x1e);
const QColor kGridColour(0xd0, 0xd0, 0xd0);

/// A step of 1, 2 or 5 times a power of ten; about `kTicks` of them make the range.
double stepOf(double range)
{
    const double rough = range / kTicks;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double times : {1.0, 2.0, 5.0}) {
        if (rough <= times * power) {
            return times * power;
        }
    }
    return 10 * power;
}

/// Where times and currents lie in the picture.
class Chart
{
public:
    explicit Chart(const std::vector<ReportedSample>& samples)
        : m_from(samples.front().at)
        , m_to(qMax(samples.back().at, samples.front().at + 1))
    {
        const auto widen = [this](const std::optional<double>& value) {
            if (value) {
                m_least = qMin(m_least, *value);
                m_most = qMax(m_most, *value);
            }
        };
        for (const ReportedSample& sample : samples) {
            widen(sample.primary);
            widen(sample.secondary);
        }
        m_step = stepOf(qMax(m_most - m_least, 1.0));
        m_least = std::floor(m_least / m_step) * m_step;
        m_most = qMax(std::ceil(m_most / m_step) * m_step, m_least + m_step);
    }

    QRectF area() const
    {
        return QRectF(kLeft, kTop, kSize.width() - kLeft - kRight, kSize.height() - kTop - kBottom);
    }
    double x(qint64 at) const
    {
        return area().left() + area().width() * static_cast<double>(at - m_from) /
                                   static_cast<double>(m_to - m_from);
    }
    double y(double value) const
    {
        return area().bottom() - area().height() * (value - m_least) / (m_most - m_least);
    }

    void drawGrid(QPainter& painter) const;
    void drawCurve(QPainter& painter, const std::vector<ReportedSample>& samples,
                   std::optional<double> ReportedSample::*value, const QPen& pen) const;

private:
    qint64 m_from;
    qint64 m_to;
    double m_least = 0;
    double m_most = 0;
    double m_step = 1;
};

void Chart::drawGrid(QPainter& painter) const
{
    const int lines = static_cast<int>(std::lround((m_most - m_least) / m_step));
    for (int line = 0; line <= lines; ++line) {
        const double value = m_least + line * m_step;
        painter.setPen(QPen(kGridColour, 2));
        painter.drawLine(QPointF(area().left(), y(value)), QPointF(area().right(), y(value)));
        painter.setPen(Qt::black);
        painter.drawText(QRectF(0, y(value) - kTextSize, kLeft - 12, 2 * kTextSize),
                         Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(value, 'g', 4) + QStringLiteral(" mA"));
    }
    constexpr int kTextWidth = 200;
    constexpr int kEdge = 10; // which a page may cut off
    for (int tick = 0; tick <= kTicks; ++tick) {
        const qint64 at = m_from + (m_to - m_from) * tick / kTicks;
        painter.setPen(QPen(kGridColour, 2));
        painter.drawLine(QPointF(x(at), area().top()), QPointF(x(at), area().bottom()));
        painter.setPen(Qt::black);
        const double left =
            qBound(0.0, x(at) - kTextWidth / 2.0, double(kSize.width() - kTextWidth - kEdge));
        painter.drawText(QRectF(left, area().bottom() + 4, kTextWidth, kBottom - 4),
                         left + kTextWidth + kEdge >= kSize.width()
                             ? Qt::AlignRight | Qt::AlignVCenter
                             : int(Qt::AlignCenter),
                         microseconds::localTime(at).toString(QStringLiteral("hh:mm:ss")));
    }
}

void Chart::drawCurve(QPainter& painter, const std::vector<ReportedSample>& samples,
                      std::optional<double> ReportedSample::*value, const QPen& pen) const
{
    QPainterPath path;
    bool isOn = false; // no line across a gap
    for (const ReportedSample& sample : samples) {
        const std::optional<double>& current = sample.*value;
        if (current && isOn) {
            path.lineTo(x(sample.at), y(*current));
        } else if (current) {
            path.moveTo(x(sample.at), y(*current));
            path.lineTo(x(sample.at) + 1, y(*current));
        }
        isOn = current.has_value();
    }
    painter.setPen(pen);
    painter.drawPath(path);
}

} // namespace

QImage runPicture(const std::vector<ReportedSample>& samples)
{
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    if (samples.size() < 2) {
        return image;
    }
    const Chart chart(samples);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font;
    font.setPixelSize(kTextSize);
    painter.setFont(font);
    chart.drawGrid(painter);
    const QPen primary(kPrimaryColour, 4);
    QPen secondary(kSecondaryColour, 4);
    secondary.setStyle(Qt::DashLine);
    chart.drawCurve(painter, samples, &ReportedSample::primary, primary);
    chart.drawCurve(painter, samples, &ReportedSample::secondary, secondary);
    double left = kLeft;
    const auto legend = [&](const QPen& pen, const QString& text) {
        constexpr double kLine = 80;
        painter.setPen(pen);
        painter.drawLine(QPointF(left, kTop / 2.0), QPointF(left + kLine, kTop / 2.0));
        painter.setPen(Qt::black);
        const double width = painter.fontMetrics().horizontalAdvance(text);
        painter.drawText(QRectF(left + kLine + 12, 0, width + 4, kTop), Qt::AlignVCenter, text);
        left += kLine + width + 60;
    };
    legend(primary, Texts::tr("Primary current"));
    legend(secondary, Texts::tr("Secondary current"));
    return image;
}

#include "tracking/plot/plotmarks.h"

#include "app/shared/colours.h"
#include "serial/ldb/generalinformation.h"
#include "tracking/plot/plot.h"

#include <QPainter>
#include <qwt_scale_map.h>

namespace {

constexpr double kAboveCurves = 40.0;
constexpr int kMargin = 4;
constexpr std::array<char, PlotMarks::MarkCount> kLetters = {'A', 'B'};

} // namespace

PlotMarks::PlotMarks()
{
    setZ(kAboveCurves);
}

void PlotMarks::set(Mark mark, const std::optional<PlotReading>& reading)
{
    m_marks.at(mark) = reading;
}

bool PlotMarks::isAny() const
{
    return m_marks[A] || m_marks[B];
}

void PlotMarks::describe(const std::vector<PlotCurveInfo>& curves)
{
    m_box = PlotBox();
    if (!m_marks[A] || !m_marks[B]) {
        return;
    }
    m_box.heading =
        QStringLiteral("B - A: ") + plotreading::durationText(m_marks[B]->time - m_marks[A]->time);
    for (const PlotCurveInfo& curve : curves) {
        const auto first = m_marks[A]->nearest.find(curve.number);
        const auto second = m_marks[B]->nearest.find(curve.number);
        const bool isKnown =
            first != m_marks[A]->nearest.end() && second != m_marks[B]->nearest.end();
        m_box.lines.push_back({curve.color, curve.name,
                               isKnown
                                   ? plotreading::differenceText(second->second - first->second) +
                                         QLatin1Char(' ') + curve.unit
                                   : generalinformation::kNoValue});
    }
}

void PlotMarks::draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& /*yMap*/,
                     const QRectF& canvasRect) const
{
    painter->save();
    painter->setFont(m_font);
    painter->setPen(QPen(QColor(colours::kPlotText), 1.0, Qt::DashLine));
    const double ascent = QFontMetricsF(m_font).ascent();
    for (std::size_t i = 0; i < MarkCount; ++i) {
        if (!m_marks.at(i)) {
            continue;
        }
        const double x = xMap.transform(m_marks.at(i)->time);
        if (x < canvasRect.left() || x > canvasRect.right()) {
            continue;
        }
        painter->drawLine(QPointF(x, canvasRect.top()), QPointF(x, canvasRect.bottom()));
        painter->drawText(QPointF(x + kMargin, canvasRect.top() + kMargin + ascent),
                          QString(QLatin1Char(kLetters.at(i))));
    }
    painter->restore();
    if (!m_box.lines.empty()) {
        const double below = QFontMetricsF(m_font).height() + 2.0 * kMargin; // the letters
        m_box.draw(painter, m_font, canvasRect.topLeft() + QPointF(kMargin, below));
    }
}

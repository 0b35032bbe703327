#include "tracking/plot/historycurve.h"

#include "tracking/plot/plotappearance.h"
#include "tracking/plot/polylinebuilder.h"

#include <QPainter>
#include <qwt_scale_map.h>

namespace {

constexpr double kPenWidth = 1.0;
constexpr double kLonePointWidth = 3.0;
constexpr double kFarOutside = 1e7;
const QRectF kNoBounds(0.0, 0.0, -1.0, -1.0);

void drawPolylines(QPainter* painter, const PolylineBuilder& built)
{
    int start = 0;
    for (const int end : built.lineEnds()) {
        painter->drawPolyline(built.points().constData() + start, end - start);
        start = end;
    }
}

void drawBars(QPainter* painter, const PolylineBuilder& built)
{
    if (built.bars().isEmpty()) {
        return;
    }
    painter->save();
    painter->setRenderHints(painter->renderHints(), false);
    painter->setBrush(painter->pen().color());
    painter->setPen(Qt::NoPen);
    painter->drawRects(mergedBars(built.bars()));
    painter->restore();
}

void drawLonePoints(QPainter* painter, const PolylineBuilder& built)
{
    if (built.lonePoints().isEmpty()) {
        return;
    }
    QPen pen = painter->pen();
    pen.setWidthF(kLonePointWidth);
    pen.setCapStyle(Qt::RoundCap);
    painter->setPen(pen);
    painter->drawPoints(built.lonePoints().constData(), built.lonePoints().size());
}

/// A position in pixels, kept where whole numbers can hold it however far outside it lies.
double bounded(double pixels)
{
    return std::clamp(pixels, -kFarOutside, kFarOutside);
}

} // namespace

QRectF HistorySeries::boundingRect() const
{
    const double* const times = m_history.times();
    const double* const values = m_history.values(m_number);
    double lowest = 0.0;
    double highest = 0.0;
    int first = -1;
    int last = -1;
    for (int i = std::max(m_firstShown, m_history.firstNotBefore(m_scaledFrom));
         i < m_history.size(); ++i) {
        const double value = values[i];
        if (!PlotHistory::isDrawable(value)) {
            continue;
        }
        if (first < 0) {
            first = i;
            lowest = highest = value;
        }
        last = i;
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
    }
    if (first < 0) {
        return kNoBounds;
    }
    return {times[first], lowest, times[last] - times[first], highest - lowest};
}

HistoryCurve::HistoryCurve(const QString& name, const QColor& color, const PlotHistory& history,
                           int number)
    : QwtPlotCurve(name)
    , m_series(new HistorySeries(history, number))
    , m_color(color)
{
    setSamples(m_series);
    setPen(color, kPenWidth, Qt::SolidLine);
    setRenderHint(QwtPlotItem::RenderAntialiased, true);
}

void HistoryCurve::setPast(bool isPast)
{
    setPen(isPast ? plotappearance::pastColor() : m_color, kPenWidth, Qt::SolidLine);
}

void HistoryCurve::drawLines(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                             const QRectF& /*canvasRect*/, int from, int to) const
{
    const PlotHistory& history = m_series->history();
    const double* const times = history.times();
    const double* const values = history.values(m_series->number());
    // One sample beyond each edge, so that the lines run on to the edges.
    const int begin = std::max(m_series->firstShown() + from,
                               history.firstNotBefore(std::min(xMap.s1(), xMap.s2())) - 1);
    const int end = std::min(m_series->firstShown() + to + 1,
                             history.firstAfter(std::max(xMap.s1(), xMap.s2())) + 1);

    PolylineBuilder built;
    for (int i = begin; i < end; ++i) {
        if (PlotHistory::isDrawable(values[i])) {
            built.add({bounded(xMap.transform(times[i])), bounded(yMap.transform(values[i]))});
        } else {
            built.breakRun();
        }
    }
    built.finish();
    drawPolylines(painter, built);
    drawBars(painter, built);
    drawLonePoints(painter, built);
}

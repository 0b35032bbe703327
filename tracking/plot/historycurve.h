#pragma once

#include "tracking/plot/plothistory.h"

#include <QColor>
#include <QString>
#include <qwt_plot_curve.h>
#include <qwt_series_data.h>

#include <algorithm>

/// One curve of a history as the plotting library reads samples: in place, without a copy.
class HistorySeries : public QwtSeriesData<QPointF>
{
public:
    /// `history` must hold the curve `number` and outlive the series.
    HistorySeries(const PlotHistory& history, int number)
        : m_history(history)
        , m_number(number)
    {
    }

    /// Leaves out the samples before index `firstShown`.
    void setFirstShown(int firstShown) { m_firstShown = firstShown; }
    /// Only samples from `time` on (ms since the epoch) take part in the scaling of an axis.
    void setScaledFrom(double time) { m_scaledFrom = time; }

    size_t size() const override
    {
        return static_cast<size_t>(std::max(m_history.size() - m_firstShown, 0));
    }
    QPointF sample(size_t index) const override
    {
        const size_t position = index + static_cast<size_t>(m_firstShown);
        return {m_history.times()[position], m_history.values(m_number)[position]};
    }
    /// Bounds of the drawable samples that take part in the scaling; invalid where there is none.
    QRectF boundingRect() const override;

    const PlotHistory& history() const { return m_history; }
    int number() const { return m_number; }
    int firstShown() const { return m_firstShown; }

private:
    const PlotHistory& m_history;
    int m_number;
    int m_firstShown = 0;
    double m_scaledFrom = 0.0;
};

/// A curve that draws a history: a thin antialiased line with gaps where values are missing. It
/// looks only at the samples within the shown time, and draws no more than the pixels can show.
class HistoryCurve : public QwtPlotCurve
{
public:
    HistoryCurve(const QString& name, const QColor& color, const PlotHistory& history, int number);

    HistorySeries* series() const { return m_series; }
    /// While it is not of the past.
    QColor color() const { return m_color; }

    /// Draws it grey, as something that is over, or in its colour.
    void setPast(bool isPast);

protected:
    void drawLines(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
                   const QRectF& canvasRect, int from, int to) const override;

private:
    HistorySeries* m_series; // owned by the base class
    QColor m_color;
};

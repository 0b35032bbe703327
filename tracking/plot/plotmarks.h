#pragma once

#include "tracking/plot/plotbox.h"
#include "tracking/plot/plotreading.h"

#include <qwt_plot_item.h>

#include <array>
#include <optional>

struct PlotCurveInfo;

/// Two marks on a plot, A and B, and what lies between them: the differences in time and, where
/// both have one, in the value of each curve. Being part of the chart, they are in its pictures.
class PlotMarks : public QwtPlotItem
{
public:
    enum Mark : std::size_t
    {
        A,
        B,
        MarkCount
    };

    PlotMarks();

    /// Sets a mark, or takes it off.
    void set(Mark mark, const std::optional<PlotReading>& reading);
    bool isAny() const;
    /// Composes what is said of the differences; with no line where not both marks are set.
    void describe(const std::vector<PlotCurveInfo>& curves);
    const PlotBox& box() const { return m_box; }
    void setFont(const QFont& font) { m_font = font; }

    void draw(QPainter* painter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;

private:
    std::array<std::optional<PlotReading>, MarkCount> m_marks;
    PlotBox m_box;
    QFont m_font;
};

#pragma once

#include <QMap>
#include <QPointF>
#include <qwt_interval.h>
#include <qwt_plot_magnifier.h>

#include <optional>

/// Zooms a plot about the mouse: the wheel turned away from the user zooms in. However far it is
/// turned, an axis keeps a span at which its numbers and its clock still work. Values are never
/// shown in a wider span than they had, because a day of them would be a flat line.
///
/// With Ctrl the wheel zooms the time alone; with Shift, or turned sideways, it moves it.
class MyQwtPlotMagnifier : public QwtPlotMagnifier
{
    Q_OBJECT
public:
    explicit MyQwtPlotMagnifier(QWidget* canvas);

    /// Takes what the axes show now as the view from which the limits of zooming are counted.
    void setReferenceView();
    /// Zooms about the middle as the wheel does, by so many notches; positive zooms in.
    void zoom(int notches);

signals:
    /// The user is about to zoom.
    void aboutToRescale();
    /// The user has zoomed.
    void rescaled();
    /// The user wants to see a later time by this share of the span; an earlier one if negative.
    void panned(double share);

protected:
    void rescale(double factor) override;
    void widgetWheelEvent(QWheelEvent* event) override;

private:
    QwtInterval zoomed(int axis, const QwtInterval& former, double factor) const;

    QMap<int, QwtInterval> m_reference; // by axis
    std::optional<QPointF> m_anchor;    // keeps its place; the middle does without one
    bool m_timeOnly = false;
};

#pragma once

#include "tracking/plot/plot.h"

#include <QColor>
#include <QEvent>
#include <QObject>

class QwtLegendLabel;
class QwtPlotCurve;

/// What a user sees of a plot, and does to it, for tests.
namespace plotinspection {

QwtPlot* chartOf(const QWidget& parent);
/// Null when the plot has no curve of that name.
QwtPlotCurve* curveOf(const QWidget& parent, const char* name);
/// Null when there is no legend or no such item in it.
QwtLegendLabel* legendItemOf(const QWidget& parent, const char* name);

/// Puts the plot on the screen and lets it draw.
void show(QWidget& widget);

/// Turns the wheel over the chart, away from the user when positive.
void turnWheel(const QWidget& parent, int notches);
/// Drags the chart with the left button.
void drag(const QWidget& parent, const QPoint& distance);

/// Whether the pixel column of the canvas has a pixel of nearly that colour, for the colours that
/// are told by one full channel or two.
bool columnShows(const QWidget& parent, int x, const QColor& color);

} // namespace plotinspection

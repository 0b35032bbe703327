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
void turnWheel(const QWidget& parent, int notches,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Moves the mouse over the chart to that column of its canvas.
void moveMouse(const QWidget& parent, int x);
/// Moves it off the chart.
void takeMouseOff(const QWidget& parent);
/// Presses a key over the chart, as one that has the focus.
void pressKey(const QWidget& parent, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Triggers an entry of the menu of the chart, opened at that column; false where it is disabled.
bool chooseInMenu(const QWidget& parent, int x, const char* entry);
/// The column at which the chart shows a moment.
int columnOf(const QWidget& parent, double time);
/// What the cursor says; empty while there is none.
QString cursorText(const QWidget& parent);
/// Drags the chart with the left button.
void drag(const QWidget& parent, const QPoint& distance);

/// Whether the canvas shows nearly that colour within two pixels of the place of a value.
bool showsAt(const QWidget& parent, double time, double value, const QColor& color);

/// Whether the pixel column of the canvas has a pixel of nearly that colour, for the colours that
/// are told by one full channel or two.
bool columnShows(const QWidget& parent, int x, const QColor& color);

} // namespace plotinspection

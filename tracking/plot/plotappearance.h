#pragma once

#include <QColor>
#include <QPalette>
#include <QString>
#include <qwt_text.h>

class QwtPlotCanvas;
class QwtPlotGrid;

/// How plots look: dark in every palette, the legend as the canvas.
namespace plotappearance {

/// Owned by the caller, as is the grid.
QwtPlotCanvas* createCanvas();
QwtPlotGrid* createGrid();

/// The legend's colours, with those roles of `base` that it leaves alone. The text of a curve that
/// is hidden is dimmed.
QPalette legendPalette(const QPalette& base, bool isCurveVisible = true);

/// A colour by its name; an unknown name gives one that shows on the canvas, and a warning.
QColor curveColor(const QString& name);

/// Of a curve that is of the past.
QColor pastColor();
/// What says how long past, as it stands at the top of the canvas.
QwtText pastText(const QString& text);

} // namespace plotappearance

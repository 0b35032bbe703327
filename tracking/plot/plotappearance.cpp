#include "tracking/plot/plotappearance.h"

#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>

namespace {

const QColor kCanvasColor(24, 26, 30);
const QColor kGridColor(62, 66, 74);
const QColor kFallbackCurveColor(220, 220, 220);
const QColor kLegendTextColor(235, 235, 235);
const QColor kHiddenCurveTextColor(130, 134, 142);
const QColor kLegendFrameLight(110, 114, 122);
const QColor kLegendFrameDark(8, 9, 10);

} // namespace

QwtPlotCanvas* plotappearance::createCanvas()
{
    auto* const canvas = new QwtPlotCanvas;
    canvas->setFrameStyle(QFrame::NoFrame);
    QPalette palette = canvas->palette();
    palette.setColor(QPalette::Window, kCanvasColor);
    canvas->setPalette(palette);
    // Nearly every paint changes the picture, so a backing store would only cost time.
    canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, false);
    canvas->setPaintAttribute(QwtPlotCanvas::Opaque, true);
    canvas->setFocusPolicy(Qt::ClickFocus); // for the keys that zoom
    return canvas;
}

QwtPlotGrid* plotappearance::createGrid()
{
    auto* const grid = new QwtPlotGrid;
    grid->setPen(kGridColor, 0.0, Qt::SolidLine);
    return grid;
}

QPalette plotappearance::legendPalette(const QPalette& base, bool isCurveVisible)
{
    QPalette palette = base;
    const QColor textColor = isCurveVisible ? kLegendTextColor : kHiddenCurveTextColor;
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::Mid}) {
        palette.setColor(role, kCanvasColor);
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, textColor);
    }
    palette.setColor(QPalette::Light, kLegendFrameLight);
    palette.setColor(QPalette::Midlight, kLegendFrameLight);
    palette.setColor(QPalette::Dark, kLegendFrameDark);
    palette.setColor(QPalette::Shadow, kLegendFrameDark);
    return palette;
}

QColor plotappearance::curveColor(const QString& name)
{
    QColor color(name);
    if (!color.isValid()) {
        qWarning("Plot: unknown colour %s", qPrintable(name));
        return kFallbackCurveColor;
    }
    return color;
}

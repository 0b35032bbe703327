#include "tracking/plot/plotappearance.h"

#include "app/shared/colours.h"

#include <qwt_plot_canvas.h>
#include <qwt_plot_grid.h>

QwtPlotCanvas* plotappearance::createCanvas()
{
    auto* const canvas = new QwtPlotCanvas;
    canvas->setFrameStyle(QFrame::NoFrame);
    QPalette palette = canvas->palette();
    palette.setColor(QPalette::Window, QColor(colours::kPlotCanvas));
    canvas->setPalette(palette);
    // Nearly every paint changes the picture, so a backing store would only cost time.
    canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, false);
    canvas->setPaintAttribute(QwtPlotCanvas::Opaque, true);
    canvas->setFocusPolicy(Qt::StrongFocus); // for its keys
    canvas->setFocusIndicator(QwtPlotCanvas::CanvasFocusIndicator);
    return canvas;
}

QwtPlotGrid* plotappearance::createGrid()
{
    auto* const grid = new QwtPlotGrid;
    grid->setPen(QColor(colours::kPlotGrid), 0.0, Qt::SolidLine);
    return grid;
}

QPalette plotappearance::legendPalette(const QPalette& base, bool isCurveVisible)
{
    QPalette palette = base;
    const QColor textColor(isCurveVisible ? colours::kPlotText : colours::kPlotTextHidden);
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button, QPalette::Mid}) {
        palette.setColor(role, QColor(colours::kPlotCanvas));
    }
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, textColor);
    }
    palette.setColor(QPalette::Light, QColor(colours::kPlotFrameLight));
    palette.setColor(QPalette::Midlight, QColor(colours::kPlotFrameLight));
    palette.setColor(QPalette::Dark, QColor(colours::kPlotFrameDark));
    palette.setColor(QPalette::Shadow, QColor(colours::kPlotFrameDark));
    return palette;
}

QColor plotappearance::curveColor(const QString& name)
{
    QColor color(name);
    if (!color.isValid()) {
        qWarning("Plot: unknown colour %s", qPrintable(name));
        return colours::kPlotCurve;
    }
    return color;
}

QColor plotappearance::pastColor()
{
    return QColor(colours::kPlotPast);
}

QwtText plotappearance::pastText(const QString& text)
{
    QwtText shown(text, QwtText::PlainText);
    shown.setRenderFlags(Qt::AlignHCenter | Qt::AlignTop);
    shown.setColor(QColor(colours::kPlotPastText));
    shown.setBackgroundBrush(QColor(colours::kPlotCanvas));
    return shown;
}

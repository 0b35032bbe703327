#include "tests/tracking/plotinspection.h"

#include <QCoreApplication>
#include <QtTest>
#include <QtWidgets>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>

#include <cstdlib>

namespace {

constexpr int kWheelNotch = 120;
// A line between two pixel rows lights each of them half.
constexpr int kSampleColorTolerance = 150;

} // namespace

QwtPlot* plotinspection::chartOf(const QWidget& parent)
{
    return parent.findChild<QwtPlot*>();
}

QwtPlotCurve* plotinspection::curveOf(const QWidget& parent, const char* name)
{
    for (QwtPlotItem* item : chartOf(parent)->itemList(QwtPlotItem::Rtti_PlotCurve)) {
        if (item->title().text() == QLatin1String(name)) {
            return static_cast<QwtPlotCurve*>(item);
        }
    }
    return nullptr;
}

QwtLegendLabel* plotinspection::legendItemOf(const QWidget& parent, const char* name)
{
    for (QwtLegendLabel* label : parent.findChildren<QwtLegendLabel*>()) {
        if (label->text().text() == QLatin1String(name)) {
            return label;
        }
    }
    return nullptr;
}

void plotinspection::show(QWidget& widget)
{
    widget.resize(800, 300);
    widget.show();
    QCoreApplication::processEvents();
}

void plotinspection::turnWheel(const QWidget& parent, int notches)
{
    QWidget* const canvas = chartOf(parent)->canvas();
    const QPointF centre = canvas->rect().center();
    for (int i = 0; i < std::abs(notches); ++i) {
        QWheelEvent event(centre, canvas->mapToGlobal(centre.toPoint()), QPoint(),
                          QPoint(0, notches > 0 ? kWheelNotch : -kWheelNotch), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(canvas, &event);
    }
    QCoreApplication::processEvents();
}

void plotinspection::drag(const QWidget& parent, const QPoint& distance)
{
    QWidget* const canvas = chartOf(parent)->canvas();
    const QPoint start = canvas->rect().center();
    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, start);
    QTest::mouseMove(canvas, start + distance);
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, start + distance);
    QCoreApplication::processEvents();
}

bool plotinspection::columnShows(const QWidget& parent, int x, const QColor& color)
{
    const QImage image = chartOf(parent)->canvas()->grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
        const QColor pixel = image.pixelColor(x, y);
        if (std::abs(pixel.red() - color.red()) < kSampleColorTolerance &&
            std::abs(pixel.green() - color.green()) < kSampleColorTolerance &&
            std::abs(pixel.blue() - color.blue()) < kSampleColorTolerance) {
            return true;
        }
    }
    return false;
}

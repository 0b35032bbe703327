#include "tests/tracking/plotinspection.h"

#include "tracking/plot/plotcursor.h"

#include <QCoreApplication>
#include <QtTest>
#include <QtWidgets>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>

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

void plotinspection::turnWheel(const QWidget& parent, int notches, Qt::KeyboardModifiers modifiers)
{
    QWidget* const canvas = chartOf(parent)->canvas();
    const QPointF centre = canvas->rect().center();
    for (int i = 0; i < std::abs(notches); ++i) {
        QWheelEvent event(centre, canvas->mapToGlobal(centre.toPoint()), QPoint(),
                          QPoint(0, notches > 0 ? kWheelNotch : -kWheelNotch), Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
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

void plotinspection::moveMouse(const QWidget& parent, int x)
{
    QWidget* const canvas = chartOf(parent)->canvas();
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(canvas, &enter);
    QMouseEvent move(QEvent::MouseMove, QPointF(x, canvas->height() / 2.0), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(canvas, &move);
    QCoreApplication::processEvents();
}

void plotinspection::takeMouseOff(const QWidget& parent)
{
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(chartOf(parent)->canvas(), &leave);
}

void plotinspection::pressKey(const QWidget& parent, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(chartOf(parent)->canvas(), key, modifiers);
    QCoreApplication::processEvents();
}

bool plotinspection::chooseInMenu(const QWidget& parent, int x, const char* entry)
{
    QWidget* const canvas = chartOf(parent)->canvas();
    const QPoint place(x, canvas->height() / 2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, canvas->mapToGlobal(place));
    QCoreApplication::sendEvent(canvas, &event);
    auto* const menu = parent.findChild<QMenu*>("plotMenu");
    auto* const action = menu->findChild<QAction*>(entry);
    const bool isEnabled = action->isEnabled();
    action->trigger();
    delete menu;
    QCoreApplication::processEvents();
    return isEnabled;
}

int plotinspection::columnOf(const QWidget& parent, double time)
{
    return qRound(chartOf(parent)->canvasMap(QwtPlot::xBottom).transform(time));
}

QString plotinspection::cursorText(const QWidget& parent)
{
    const auto* const cursor = parent.findChild<PlotCursor*>();
    return cursor->isVisible() ? cursor->box().text() : QString();
}

namespace {

bool isNear(const QColor& pixel, const QColor& color)
{
    return std::abs(pixel.red() - color.red()) < kSampleColorTolerance &&
           std::abs(pixel.green() - color.green()) < kSampleColorTolerance &&
           std::abs(pixel.blue() - color.blue()) < kSampleColorTolerance;
}

} // namespace

bool plotinspection::showsAt(const QWidget& parent, double time, double value, const QColor& color)
{
    constexpr int kDistance = 2;
    const QImage image = chartOf(parent)->canvas()->grab().toImage();
    const QPoint place(columnOf(parent, time),
                       qRound(chartOf(parent)->canvasMap(QwtPlot::yLeft).transform(value)));
    for (int x = place.x() - kDistance; x <= place.x() + kDistance; ++x) {
        for (int y = place.y() - kDistance; y <= place.y() + kDistance; ++y) {
            if (image.valid(x, y) && isNear(image.pixelColor(x, y), color)) {
                return true;
            }
        }
    }
    return false;
}

bool plotinspection::columnShows(const QWidget& parent, int x, const QColor& color)
{
    const QImage image = chartOf(parent)->canvas()->grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
        if (isNear(image.pixelColor(x, y), color)) {
            return true;
        }
    }
    return false;
}

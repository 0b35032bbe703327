#include "tracking/plot/plotinspector.h"

#include "serial/ldb/generalinformation.h"
#include "tracking/plot/plot.h"
#include "tracking/plot/plotcursor.h"
#include "tracking/plot/plotmenu.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <qwt_plot_canvas.h>
#include <qwt_scale_map.h>

#include <algorithm>
#include <functional>

namespace {

constexpr int kRecordsPerLeap = 10;
constexpr double kSharePerPage = 0.5;
constexpr double kReach = 1.0; // pixels at either side that are read together

} // namespace

PlotInspector::PlotInspector(Plot* plot)
    : m_plot(plot)
    , m_cursor(new PlotCursor(plot->chart()->canvas()))
    , m_marks(std::make_unique<PlotMarks>())
{
    m_marks->attach(plot->chart());
    QWidget* const canvas = plot->chart()->canvas();
    canvas->setMouseTracking(true);
    canvas->installEventFilter(this);
}

PlotInspector::~PlotInspector() = default;

double PlotInspector::msPerPixel() const
{
    return m_plot->view().shownTime().width() / std::max(m_plot->chart()->canvas()->width(), 1);
}

double PlotInspector::timeAt(int x) const
{
    return m_plot->chart()->canvasMap(QwtPlot::xBottom).invTransform(x);
}

PlotReading PlotInspector::read(const Position& position) const
{
    return plotreading::at(m_plot->history(), position.time,
                           position.isRecord ? 0.0 : kReach * msPerPixel());
}

bool PlotInspector::eventFilter(QObject* watched, QEvent* event)
{
    auto* const canvas = qobject_cast<QwtPlotCanvas*>(watched);
    switch (event->type()) {
    case QEvent::Enter:
        // While the cursor moves over it the picture stays the same.
        canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, true);
        break;
    case QEvent::Leave:
        canvas->setPaintAttribute(QwtPlotCanvas::BackingStore, false);
        hideCursor();
        break;
    case QEvent::MouseButtonPress:
        hideCursor(); // what is dragged is the picture without it
        break;
    case QEvent::MouseMove: {
        const auto* const mouse = static_cast<QMouseEvent*>(event);
        if (mouse->buttons() == Qt::NoButton) {
            m_position = {timeAt(mouse->x()), false};
            showCursor();
        }
        break;
    }
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (processKey(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
        break;
    case QEvent::ContextMenu: {
        const auto* const menu = static_cast<QContextMenuEvent*>(event);
        const bool isMouse = menu->reason() == QContextMenuEvent::Mouse;
        plotmenu::open(*m_plot, menu->globalPos(),
                       isMouse || !m_position ? timeAt(menu->x()) : m_position->time);
        return true;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// Whether the key means something here; while a shortcut is looked for, nothing is done yet.
bool PlotInspector::processKey(const QKeyEvent& event)
{
    const bool isShifted = event.modifiers().testFlag(Qt::ShiftModifier);
    if ((event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0) {
        return false;
    }
    PlotView& view = m_plot->view();
    std::function<void()> act;
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        act = [&] {
            stepToRecord(event.key() == Qt::Key_Right, isShifted ? kRecordsPerLeap : 1);
        };
        break;
    case Qt::Key_PageUp:
        act = [&] {
            view.pan(-kSharePerPage);
        };
        break;
    case Qt::Key_PageDown:
        act = [&] {
            view.pan(kSharePerPage);
        };
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift on many keyboards
        act = [&] {
            view.zoom(1);
        };
        break;
    case Qt::Key_Minus:
        act = [&] {
            view.zoom(-1);
        };
        break;
    case Qt::Key_F:
        act = [&] {
            view.follow();
        };
        break;
    case Qt::Key_A:
    case Qt::Key_B:
        act = [&] {
            if (m_position) {
                setMark(event.key() == Qt::Key_A ? PlotMarks::A : PlotMarks::B, m_position->time);
            }
        };
        break;
    case Qt::Key_Delete:
        act = [&] {
            removeMarks();
        };
        break;
    default:
        return false;
    }
    if (event.type() == QEvent::KeyPress) {
        act();
    }
    return true;
}

void PlotInspector::stepToRecord(bool forward, int records)
{
    const PlotHistory& history = m_plot->history();
    if (history.isEmpty()) {
        return;
    }
    const QwtInterval shown = m_plot->view().shownTime();
    double time = std::min(shown.maxValue(), history.newestTime());
    if (m_position) {
        time = m_position->time;
        for (int i = 0; i < records; ++i) {
            time =
                forward ? plotreading::next(history, time) : plotreading::previous(history, time);
        }
    }
    // A view that rolls is not moved by it.
    if (!shown.contains(time) && !m_plot->view().isHeld()) {
        return;
    }
    m_position = {time, true};
    if (!shown.contains(time)) {
        const double middle = (shown.minValue() + shown.maxValue()) / 2.0;
        m_plot->view().pan((time - middle) / shown.width());
    }
    showCursor();
}

void PlotInspector::showCursor()
{
    if (!m_position || m_plot->history().isEmpty() ||
        !m_plot->view().shownTime().contains(m_position->time)) {
        m_cursor->hide();
        return;
    }
    const PlotReading reading = read(*m_position);
    PlotBox box;
    const bool isToday = plotreading::isSameDay(reading.time, m_plot->history().newestTime());
    box.heading = plotreading::clockText(reading.time, !isToday);
    for (const PlotCurveInfo& curve : m_plot->curves()) {
        const auto value = reading.values.find(curve.number);
        box.lines.push_back({curve.color, curve.name,
                             value == reading.values.end() ? generalinformation::kNoValue
                                                           : plotreading::text(value->second) +
                                                                 QLatin1Char(' ') + curve.unit});
    }
    const QwtScaleMap map = m_plot->chart()->canvasMap(QwtPlot::xBottom);
    m_cursor->showAt(qRound(map.transform(reading.time)), box);
    if (m_position->isRecord) {
        m_plot->chart()->canvas()->setAccessibleDescription(box.text());
    }
}

void PlotInspector::hideCursor()
{
    m_position.reset();
    m_cursor->hide();
}

void PlotInspector::refresh()
{
    m_marks->setFont(m_cursor->font());
    showCursor();
}

void PlotInspector::clear()
{
    hideCursor();
    removeMarks();
}

std::optional<double> PlotInspector::cursorTime() const
{
    return m_position ? std::make_optional(m_position->time) : std::nullopt;
}

void PlotInspector::setMark(PlotMarks::Mark mark, double time)
{
    m_marks->set(mark, read({time, false}));
    redraw();
}

void PlotInspector::removeMarks()
{
    if (m_marks->isAny()) {
        m_marks->set(PlotMarks::A, std::nullopt);
        m_marks->set(PlotMarks::B, std::nullopt);
        redraw();
    }
}

void PlotInspector::redraw()
{
    m_marks->describe(m_plot->curves());
    m_plot->chart()->replot();
}

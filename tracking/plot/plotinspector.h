#pragma once

#include "tracking/plot/plotmarks.h"

#include <QObject>

#include <memory>
#include <optional>

class Plot;
class PlotCursor;
class QKeyEvent;

/// What the user reads off a plot: a cursor that goes with the mouse or, by the keys, from record
/// to record, with the values there; two marks; the menu. It takes the mouse and the keys of the
/// canvas. GUI thread.
class PlotInspector : public QObject
{
    Q_OBJECT
public:
    /// The plot has its chart already, and outlives it with that.
    explicit PlotInspector(Plot* plot);
    ~PlotInspector() override;

    /// Brings cursor and marks to where they belong after the chart has changed.
    void refresh();
    /// Without cursor and marks, as for other curves.
    void clear();

    /// Where the cursor is; nothing while it is not shown.
    std::optional<double> cursorTime() const;
    /// Marks the record at that moment.
    void setMark(PlotMarks::Mark mark, double time);
    void removeMarks();
    const PlotMarks& marks() const { return *m_marks; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Position
    {
        double time;
        bool isRecord; ///< of one record, not of all that lie in its pixel
    };

    bool processKey(const QKeyEvent& event);
    void stepToRecord(bool forward, int records);
    void hideCursor();
    void showCursor();
    void redraw();
    PlotReading read(const Position& position) const;
    double timeAt(int x) const;
    double msPerPixel() const;

    Plot* m_plot;
    PlotCursor* m_cursor; // owned by the canvas
    std::unique_ptr<PlotMarks> m_marks;
    std::optional<Position> m_position;
};

#pragma once

#include "tracking/plot/plotbox.h"

#include <QWidget>

/// The cursor over the canvas of a plot: a line with a table beside it. It lies over the canvas, so
/// that it moves without the curves being drawn again. GUI thread.
class PlotCursor : public QWidget
{
    Q_OBJECT
public:
    /// Covers the canvas, which owns it; hidden until it is shown.
    explicit PlotCursor(QWidget* canvas);

    /// Shows it at that column of the canvas.
    void showAt(int x, const PlotBox& box);
    const PlotBox& box() const { return m_box; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect boxRect() const;

    int m_x = 0;
    PlotBox m_box;
};

#pragma once

#include <QPointF>
#include <QRect>
#include <QVector>

/// Turns points in rising order of x, in pixels, into what is to be drawn: runs of connected
/// points, parted where `breakRun()` is called. Of the points that fall into one pixel column it
/// keeps the first, the highest, the lowest and the last, which is all that the column can show:
/// however many points there are, no peak is lost. A column in which the line goes up and down over
/// a good height becomes a bar, which looks the same and is painted many times faster.
class PolylineBuilder
{
public:
    /// The coordinates must fit into an int.
    void add(const QPointF& point)
    {
        if (m_column.count > 0 && point.x() < m_column.end) {
            extendColumn(point);
        } else {
            startColumn(point);
        }
    }
    /// The next point is not connected with the one before.
    void breakRun();
    /// Ends the last run; to be called before what was built is read.
    void finish() { breakRun(); }

    /// The points of all lines of two points or more, one line after the other.
    const QVector<QPointF>& points() const { return m_points; }
    /// For each such line the index after its last point.
    const QVector<int>& lineEnds() const { return m_lineEnds; }
    /// The columns that are filled, one pixel wide.
    const QVector<QRect>& bars() const { return m_bars; }
    /// The runs of a single point, which no line shows; at most one a pixel.
    const QVector<QPointF>& lonePoints() const { return m_lonePoints; }

private:
    struct Column
    {
        int count = 0;
        double end = 0.0;
        QPointF first;
        QPointF top;
        QPointF bottom;
        QPointF last;
        int topPosition = 0;
        int bottomPosition = 0;
    };

    void startColumn(const QPointF& point);
    void extendColumn(const QPointF& point)
    {
        if (point.y() < m_column.top.y()) {
            m_column.top = point;
            m_column.topPosition = m_column.count;
        } else if (point.y() > m_column.bottom.y()) {
            m_column.bottom = point;
            m_column.bottomPosition = m_column.count;
        }
        m_column.last = point;
        ++m_column.count;
    }
    void flushColumn();
    void flushAsPoints();
    void flushAsBar();
    bool isWithinColumn(int position) const
    {
        return position > 0 && position < m_column.count - 1;
    }
    int lineLength() const
    {
        return m_points.size() - (m_lineEnds.isEmpty() ? 0 : m_lineEnds.last());
    }

    Column m_column;
    QVector<QPointF> m_points;
    QVector<int> m_lineEnds;
    QVector<QRect> m_bars;
    QVector<QPointF> m_lonePoints;
    bool m_lineStartsAtBar = false;
};

/// Rectangles that cover exactly what `bars` cover, for bars one pixel wide in order of x. What
/// neighbours have in common becomes one wide rectangle, which is faster to fill than many thin
/// ones.
QVector<QRect> mergedBars(const QVector<QRect>& bars);

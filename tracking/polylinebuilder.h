#pragma once

#include <QPointF>
#include <QVector>

/// Turns points in rising order of x, in pixels, into the lines to draw: runs of connected points,
/// parted where `breakRun()` is called. Of the points that fall into one pixel column it keeps the
/// first, the lowest, the highest and the last, which is all that the column can show: however
/// many points there are, no peak is lost and the lines stay short.
class PolylineBuilder
{
public:
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

    /// The points of all runs of two points or more, one run behind the other.
    const QVector<QPointF>& points() const { return m_points; }
    /// For each such run the index behind its last point.
    const QVector<int>& runEnds() const { return m_runEnds; }
    /// The runs of a single point, which no line shows; at most one a pixel.
    const QVector<QPointF>& lonePoints() const { return m_lonePoints; }

private:
    struct Column
    {
        int count = 0;
        double end = 0.0;
        QPointF first;
        QPointF lowest;
        QPointF highest;
        QPointF last;
        int lowestPosition = 0;
        int highestPosition = 0;
    };

    void startColumn(const QPointF& point);
    void extendColumn(const QPointF& point)
    {
        if (point.y() < m_column.lowest.y()) {
            m_column.lowest = point;
            m_column.lowestPosition = m_column.count;
        } else if (point.y() > m_column.highest.y()) {
            m_column.highest = point;
            m_column.highestPosition = m_column.count;
        }
        m_column.last = point;
        ++m_column.count;
    }
    void flushColumn();

    Column m_column;
    QVector<QPointF> m_points;
    QVector<int> m_runEnds;
    QVector<QPointF> m_lonePoints;
};

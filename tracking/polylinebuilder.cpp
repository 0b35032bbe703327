#include "tracking/polylinebuilder.h"

#include <cmath>

void PolylineBuilder::startColumn(const QPointF& point)
{
    flushColumn();
    m_column.count = 1;
    m_column.end = std::floor(point.x()) + 1.0;
    m_column.first = m_column.lowest = m_column.highest = m_column.last = point;
    m_column.lowestPosition = m_column.highestPosition = 0;
}

void PolylineBuilder::flushColumn()
{
    if (m_column.count == 0) {
        return;
    }
    const int lastPosition = m_column.count - 1;
    const auto appendInner = [&](const QPointF& point, int position) {
        if (position > 0 && position < lastPosition) {
            m_points.append(point);
        }
    };

    m_points.append(m_column.first);
    if (m_column.lowestPosition < m_column.highestPosition) {
        appendInner(m_column.lowest, m_column.lowestPosition);
        appendInner(m_column.highest, m_column.highestPosition);
    } else {
        appendInner(m_column.highest, m_column.highestPosition);
        appendInner(m_column.lowest, m_column.lowestPosition);
    }
    if (lastPosition > 0) {
        m_points.append(m_column.last);
    }
    m_column.count = 0;
}

void PolylineBuilder::breakRun()
{
    flushColumn();
    const int runStart = m_runEnds.isEmpty() ? 0 : m_runEnds.last();
    const int length = m_points.size() - runStart;
    if (length > 1) {
        m_runEnds.append(m_points.size());
    } else if (length == 1) {
        const QPointF point = m_points.takeLast();
        if (m_lonePoints.isEmpty() || m_lonePoints.last().toPoint() != point.toPoint()) {
            m_lonePoints.append(point);
        }
    }
}

#include "tracking/plot/polylinebuilder.h"

#include <algorithm>
#include <cmath>

namespace {

// Pixels. Below it the antialiased line is cheap, and finer than a bar.
constexpr double kBarHeight = 3.0;

// Bars that are merged at a time. The more there are, the less they all have in common.
constexpr int kMergedBars = 8;

QRect barOf(const QPointF& top, const QPointF& bottom)
{
    const int x = static_cast<int>(std::floor(top.x()));
    const int y = static_cast<int>(std::floor(top.y()));
    return {x, y, 1, static_cast<int>(std::floor(bottom.y())) - y + 1};
}

/// Whether two bars show as one line without a line between them.
bool areJoined(const QRect& left, const QRect& right)
{
    return right.x() == left.x() + 1 && right.top() <= left.bottom() + 1 &&
           left.top() <= right.bottom() + 1;
}

} // namespace

void PolylineBuilder::startColumn(const QPointF& point)
{
    flushColumn();
    m_column.count = 1;
    m_column.end = std::floor(point.x()) + 1.0;
    m_column.first = m_column.top = m_column.bottom = m_column.last = point;
    m_column.topPosition = m_column.bottomPosition = 0;
}

void PolylineBuilder::flushColumn()
{
    if (m_column.count == 0) {
        return;
    }
    const bool turns =
        isWithinColumn(m_column.topPosition) || isWithinColumn(m_column.bottomPosition);
    if (turns && m_column.bottom.y() - m_column.top.y() > kBarHeight) {
        flushAsBar();
    } else {
        flushAsPoints();
    }
    m_column.count = 0;
}

void PolylineBuilder::flushAsPoints()
{
    const auto appendInner = [this](const QPointF& point, int position) {
        if (isWithinColumn(position)) {
            m_points.append(point);
        }
    };
    m_points.append(m_column.first);
    if (m_column.topPosition < m_column.bottomPosition) {
        appendInner(m_column.top, m_column.topPosition);
        appendInner(m_column.bottom, m_column.bottomPosition);
    } else {
        appendInner(m_column.bottom, m_column.bottomPosition);
        appendInner(m_column.top, m_column.topPosition);
    }
    if (m_column.count > 1) {
        m_points.append(m_column.last);
    }
}

void PolylineBuilder::flushAsBar()
{
    const QRect bar = barOf(m_column.top, m_column.bottom);
    const bool comesFromBar = m_lineStartsAtBar && lineLength() == 1;
    if (comesFromBar && areJoined(m_bars.last(), bar)) {
        m_points.removeLast();
    } else if (lineLength() > 0) {
        m_points.append(m_column.first);
        m_lineEnds.append(m_points.size());
    }
    m_bars.append(bar);
    m_points.append(m_column.last);
    m_lineStartsAtBar = true;
}

void PolylineBuilder::breakRun()
{
    flushColumn();
    const int length = lineLength();
    if (length > 1) {
        m_lineEnds.append(m_points.size());
    } else if (length == 1) {
        const QPointF point = m_points.takeLast();
        const bool isNewPixel =
            m_lonePoints.isEmpty() || m_lonePoints.last().toPoint() != point.toPoint();
        if (!m_lineStartsAtBar && isNewPixel) {
            m_lonePoints.append(point);
        }
    }
    m_lineStartsAtBar = false;
}

QVector<QRect> mergedBars(const QVector<QRect>& bars)
{
    QVector<QRect> merged;
    merged.reserve(bars.size() * 2);
    const auto appendIfAny = [&merged](int x, int top, int bottom, int width) {
        if (bottom >= top) {
            merged.append({x, top, width, bottom - top + 1});
        }
    };
    for (int first = 0; first < bars.size();) {
        int top = bars.at(first).top();
        int bottom = bars.at(first).bottom();
        int end = first + 1;
        while (end < bars.size() && end - first < kMergedBars &&
               bars.at(end).x() == bars.at(end - 1).x() + 1 &&
               std::max(top, bars.at(end).top()) <= std::min(bottom, bars.at(end).bottom())) {
            top = std::max(top, bars.at(end).top());
            bottom = std::min(bottom, bars.at(end).bottom());
            ++end;
        }
        appendIfAny(bars.at(first).x(), top, bottom, end - first);
        for (int i = first; i < end; ++i) {
            appendIfAny(bars.at(i).x(), bars.at(i).top(), top - 1, 1);
            appendIfAny(bars.at(i).x(), bottom + 1, bars.at(i).bottom(), 1);
        }
        first = end;
    }
    return merged;
}

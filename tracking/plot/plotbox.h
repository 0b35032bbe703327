#pragma once

#include <QColor>
#include <QFont>
#include <QSize>
#include <QString>

#include <vector>

class QPainter;

/// A small table over the canvas of a plot: a heading and a line for each curve. A plain value.
struct PlotBox
{
    struct Line
    {
        QColor color;
        QString name;
        QString value;
    };

    QString heading;
    std::vector<Line> lines;

    QSize size(const QFont& font) const;
    /// Draws it with its corner at `topLeft`.
    void draw(QPainter* painter, const QFont& font, const QPointF& topLeft) const;
    /// The same in words, one line of the table after the other.
    QString text() const;
};

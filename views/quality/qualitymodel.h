#pragma once

#include "views/quality/qualityhistory.h"

#include <QAbstractTableModel>

#include <functional>
#include <vector>

/// The lines of the line quality as a table: the bus first, then the LDBs as they come. GUI thread.
class QualityModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Column : int
    {
        LdbColumn = 0,
        NameColumn,
        AskedColumn,
        GoodColumn,
        DamagedColumn,
        SilentColumn,
        UnbelievedColumn,
        MedianColumn,
        Part95Column,
        BarsColumn,
        ColumnCount
    };
    using QAbstractTableModel::QAbstractTableModel;

    /// The function that gives an LDB's name, empty for none.
    void setNames(std::function<QString(const QString& hexId)> nameOf);
    /// Selections stay with their LDBs. `isSampled`: flight times are of a sample.
    void setLines(std::vector<LineQuality> lines, bool isSampled);
    void retranslate();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString text(const LineQuality& line, int column) const;
    QString flight(const LineQuality& line, qint64 FlightTimes::*part) const;

    std::function<QString(const QString&)> m_nameOf;
    std::vector<LineQuality> m_lines;
    bool m_isSampled = false;
};

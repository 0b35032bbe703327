#pragma once

#include "serial/ldb/monitoring.h"

#include <QColor>
#include <QObject>
#include <QPointer>
#include <QStandardItemModel>
#include <QStringList>

#include <memory>

class CellColourRules;
class QTableView;

/// The record of the selected LDB, one value a row beside its label. Rows are shaded in turn, the
/// two rows of a port alike, and coloured by the rules of the tuning file. GUI thread.
class DeviceDetailTable : public QObject
{
    Q_OBJECT
public:
    enum Column : int
    {
        LabelColumn = 0,
        ValueColumn,
        ColumnCount
    };

    /// `view` belongs to the caller and may die first. The tuning file is read and the shades are
    /// taken from the palette here, once.
    explicit DeviceDetailTable(QTableView* view, QObject* parent = nullptr);
    ~DeviceDetailTable() override;

    /// Sets the LDB to show. Another one than before empties the values until its record comes.
    void setCurrentHexId(const QString& hexId);

    /// Greys the values while they are not live, and says how old they are.
    void setMonitoring(const Monitoring& monitoring);

public slots:
    /// Shows the record if it is the current LDB's. A record of fewer than two entries empties the
    /// values.
    void processData(const QString& hexId, const QList<QStringList>& dataList);

    /// Sets the labels in the language in force; the values stay.
    void retranslate();

private:
    void setupTable();
    QColor shadeOf(int row) const;
    void setRecord(const QList<QStringList>& dataList);
    void showRecord();
    QString textOf(int row) const;
    void showAge();
    QStandardItem& cell(int row, Column column);

    QString m_currentHexId;
    QList<QStringList> m_record;  ///< the one shown
    std::optional<qint64> m_time; ///< its time
    Monitoring m_monitoring;
    bool m_isLive = false;
    QStandardItemModel m_model;
    QPointer<QTableView> m_view;
    QColor m_baseColour;
    QColor m_alternateColour;
    QColor m_textColour;
    std::unique_ptr<const CellColourRules> m_colourRules;
};

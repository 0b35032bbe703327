#pragma once

#include "views/quality/qualityreading.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <optional>

class QCheckBox;
class QComboBox;
class QLabel;
class QTableView;

class QualityModel;

/// The window "Line quality": how well the exchanges of the bus and of each LDB went, and what is
/// certain about that. Reads only while it is visible. GUI thread.
class QualityWindow : public QWidget
{
    Q_OBJECT
public:
    struct Sources
    {
        QualityReading::Sources reading;
        std::function<QString(const QString& hexId)> nameOf;
    };
    /// What it reads from outlives it.
    QualityWindow(const Sources& sources, QWidget* parent);

    /// The moment that is shown instead of the present.
    void setShown(std::optional<qint64> at);
    /// Whether the overview has its bars.
    void setBarsShown(bool areShown);

public slots:
    void open();

signals:
    void barsShownChanged(bool areShown);
    /// The user wants to see this LDB.
    void ldbActivated(const QString& hexId);

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void build();
    void refresh();
    void retranslate();
    QString noteText() const;

    QualityModel* m_model;
    QualityReading* m_reading;
    QComboBox* m_reach;
    QLabel* m_words;
    QLabel* m_note;
    QTableView* m_view;
    QCheckBox* m_bars;
    QTimer m_refresh; ///< gathers changes that come shortly after one another
    std::optional<qint64> m_shown;
};

#pragma once

#include <QWidget>

class OverviewFilter;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

/// What stands above the overview: the filter field, which Ctrl+F goes to, only faults, faults
/// first, and how many rows are shown of all. Where a faulty LDB is hidden it says so, and a click
/// shows it. GUI thread.
class OverviewBar : public QWidget
{
    Q_OBJECT
public:
    explicit OverviewBar(QWidget* parent = nullptr);

    /// Filters what `view` shows, which a `DeviceOverviewTable` has set up, as the user has left
    /// it; makes type-ahead work there. The view outlives this widget. To be called once.
    void setView(QTableView* view);

    /// Stores the user's choice in the per-user settings.
    void save() const;

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void load();
    void retranslate();
    void choose();
    void showCounts();
    void clearText();
    void goToTable();

    QLineEdit* m_text;
    QCheckBox* m_onlyFaults;
    QCheckBox* m_faultsFirst;
    QLabel* m_count;
    QPushButton* m_hiddenFaults;
    QTableView* m_view = nullptr;
    OverviewFilter* m_filter = nullptr; ///< the view's model
};

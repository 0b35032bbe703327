#pragma once

#include "app/settingstable/tablecomparison.h"
#include "history/formersettings.h"

#include <QDialog>

class QPushButton;
class QTreeWidget;

/// The list of former settings, with what can be done with them. GUI thread.
class FormerList : public QDialog
{
    Q_OBJECT
public:
    FormerList(std::vector<FormerSettings> former, const QString& folder, QWidget* parent);

    /// "Before the import of x.csv, 2026-03-04 05:06:07".
    static QString nameOf(const FormerSettings& former);
    static OtherSettings settingsOf(const FormerSettings& former);

signals:
    void compareWanted(const FormerSettings& former);
    void putBackWanted(const FormerSettings& former);

protected:
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void updateButtons();
    const FormerSettings* current() const;

    std::vector<FormerSettings> m_former;
    QString m_folder;
    QTreeWidget* m_list;
    QPushButton* m_compare;
    QPushButton* m_putBack;
    QPushButton* m_close;
};

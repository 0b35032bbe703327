#pragma once

#include "app/shared/text.h"
#include "importexport/settingsbatch.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;
class QTreeWidget;

/// Shows what would be written before anything is sent: "LDB, field, old -> new", how much it is,
/// and what is left out. Only an explicit yes accepts; Enter and Escape cancel. GUI thread.
class WritePreview : public QDialog
{
    Q_OBJECT
public:
    enum Column
    {
        LdbColumn,
        NameColumn, ///< that the LDB has
        FieldColumn,
        ChangeColumn,
        ColumnCount
    };

    /// Every change has a basis. `leftOut`: a sentence each.
    WritePreview(std::vector<LdbChange> changes, std::vector<Text> leftOut, QWidget* parent);

    const std::vector<LdbChange>& changes() const { return m_changes; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    void refresh();
    void showChanges();

    std::vector<LdbChange> m_changes;
    std::vector<Text> m_leftOut;
    QLabel* m_summary;
    QTreeWidget* m_list;
    QLabel* m_leftOutTitle;
    QListWidget* m_leftOutList;
    QPushButton* m_write;
    QPushButton* m_cancel;
};

#pragma once

#include "importexport/importplan.h"

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;
class QTreeWidget;

/// Shows what an import would write, before anything is sent: each LDB with its name, the name in
/// the file and what changes, and every line and LDB that is left out. Accepted by an explicit yes
/// alone; Enter and Escape cancel. GUI thread.
class ImportPreview : public QDialog
{
    Q_OBJECT
public:
    /// Columns of the LDBs.
    enum Column
    {
        LdbColumn,
        PresentNameColumn,
        FileNameColumn,
        ChangesColumn,
        ColumnCount
    };

    ImportPreview(const ImportPlan& plan, const QString& filePath, QWidget* parent);

    void setPlan(const ImportPlan& plan);

signals:
    /// The IDs of the file are to be read in this way; `setPlan()` is awaited.
    void readingWanted(IdReading reading);

protected:
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void showReading();
    void showLdbs();
    void showProblems();

    ImportPlan m_plan;
    QString m_fileName;
    QLabel* m_summary;
    QLabel* m_reading;
    QPushButton* m_otherReading;
    QTreeWidget* m_ldbs;
    QLabel* m_problemsTitle;
    QListWidget* m_problems;
    QPushButton* m_write;
    QPushButton* m_cancel;
};

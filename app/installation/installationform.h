#pragma once

#include "history/installation.h"

#include <QDialog>

#include <functional>

class InstallationControl;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTreeWidget;

/// Shows the installations that are remembered: their names, places, notes and LDBs, which the user
/// may change; puts another one into force, makes new ones, and exports and imports them. What is
/// typed is stored when the field is left. Nothing waits for it. GUI thread.
class InstallationForm : public QDialog
{
    Q_OBJECT
public:
    enum Column
    {
        AddressColumn,
        NameColumn,
        ColumnCount
    };

    /// `control` outlives this object. `port`: the port of the next or present run.
    InstallationForm(InstallationControl* control, std::function<PortIdentity()> port,
                     QWidget* parent);

    /// Opens it with the installation in force, or raises it.
    void open() override;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    void connectAll();
    void retranslate();
    /// Reads the list anew, and shows the installation of that id.
    void load(const QString& id);
    void show(const QString& id);
    void showLdbs();
    void processChange();
    void keep();
    void use();
    void forgetLdbs();
    void exportShown();
    void import();

    InstallationControl* m_control;
    const std::function<PortIdentity()> m_port;
    std::vector<Installation> m_installations;
    Installation m_shown; ///< as it was read

    QListWidget* m_list;
    QLabel* m_nameLabel;
    QLineEdit* m_name;
    QLabel* m_placeLabel;
    QLineEdit* m_place;
    QLabel* m_notesLabel;
    QPlainTextEdit* m_notes;
    QLabel* m_ldbsLabel;
    QTreeWidget* m_ldbs;
    QPushButton* m_forget;
    QPushButton* m_new;
    QPushButton* m_import;
    QPushButton* m_export;
    QPushButton* m_use;
    QPushButton* m_close;
};

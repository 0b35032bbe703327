#pragma once

#include "app/settingstable/tablefile.h"
#include "app/settingstable/tablefilter.h"
#include "app/shared/enabledcontrols.h"
#include "history/formersettings.h"

#include <QPointer>
#include <QWidget>

#include <functional>

class FileBar;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QTableView;
class QToolBar;
class SerialLink;
class SettingsTransfer;
class TableImport;
class TableReading;
class TableWriting;

/// The window "Settings of all LDB's": reads them, shows what differs, lets the user change,
/// import, write and put them back. Nothing is sent before the preview was confirmed. Closing only
/// hides it: it keeps what was read. GUI thread.
class SettingsTableWindow : public QWidget
{
    Q_OBJECT
public:
    struct Surroundings
    {
        SerialLink* link = nullptr;
        SettingsTransfer* transfer = nullptr;
        std::function<qint64()> wallTime; ///< ms since 1970 UTC, of the link's ports
        /// Whether fault finding has something to put back in this LDB.
        std::function<bool(const QString& hexId)> isPending;
    };

    /// What it works with outlives the window.
    SettingsTableWindow(Surroundings surroundings, QWidget* parent);
    ~SettingsTableWindow() override;

    /// Where former settings are kept from now on.
    void setFormerSettings(const FormerSettingsStore& store);
    /// Another bus is in force.
    void forget();
    /// Whether the bus can be used.
    void apply(Permission permission);
    /// A sentence that says what an end of the program would lose; null for nothing.
    Text underWay() const;

public slots:
    /// Shows the window, and reads all LDBs as soon as they can be read for the first time.
    void open();
    /// Takes the values of a file as edits. While the bus can be used, the LDBs are read first.
    void importFile(const QString& path);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    void buildTable();
    void buildActions();
    QAction* addAction(const char* name, const QKeySequence& shortcut,
                       const std::function<void()>& run);
    void follow();
    void retranslate();
    void fitHeads();
    void updateActions();
    void showProgress(const QString& text, int left, int total);
    void updateStatus();

    QModelIndexList selectedCells() const;
    QStringList selectedLdbs() const;
    void readAtFirst();
    void readAll();
    void copy();
    void paste();
    void setForSelected();

    void chooseImport();
    void takePlanned();

    void chooseComparison();
    void showComparison();
    void exportFile();

    void preview(FormerSettings::Occasion occasion);
    void write(const std::vector<LdbChange>& changes, FormerSettings::Occasion occasion);
    void goOn();
    void showFormer();
    void putBack(const FormerSettings& former);
    void discardEdits();
    void tell(const Text& text, const Text& details = {});

    Surroundings m_around;
    Permission m_permission;
    SettingsTableModel* m_model;
    TableFilter* m_filter;
    TableReading* m_reading;
    TableWriting* m_writing;
    QTableView* m_view;
    QToolBar* m_tools;
    QLineEdit* m_search;
    QComboBox* m_compare;
    QComboBox* m_show;
    QLabel* m_status;
    QProgressBar* m_progress;
    TableImport* m_import; // owned as a child
    FileBar* m_compareBar;
    bool m_hasRead = false;
    TableFile m_compareFile; ///< the file that is compared with, if any
    bool m_isFileCompared = false;
};

#pragma once

#include "app/shared/enabledcontrols.h"
#include "app/shared/text.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <vector>

namespace Ui {
class MainWindow;
}

class FimTracking;
class FormerSettingsStore;
class KeptLdbs;
class Notices;
class PutBack;
class RunControl;
class SerialLink;
class SettingsTableWindow;
class SettingsTransfer;
class StatusBarDisplay;
class WorkNotes;

/// All that asks LDBs for more than their status, or changes them: the editor, the actions, the
/// transfers, fault finding, and what puts back what that has changed. Wires them, keeps them out
/// of each other's way, and knows what is under way. GUI thread.
class LdbWork : public QObject
{
    Q_OBJECT
public:
    struct Surroundings
    {
        SerialLink* link = nullptr;
        RunControl* run = nullptr;
        Notices* notices = nullptr;
        StatusBarDisplay* status = nullptr;
        std::function<qint64()> wallTime; ///< ms since 1970 UTC, of the link's ports
    };

    /// Takes the panels and buttons of the form. Form, surroundings and window outlive this object.
    LdbWork(const Ui::MainWindow& ui, const Surroundings& surroundings, QWidget* window);
    /// Ends what is under way, which may still use the link for it.
    ~LdbWork() override;

    /// Where what LDBs had before a write is kept from now on.
    void setFormerSettings(const FormerSettingsStore& store);
    /// Another bus is in force: what was read is of other LDBs.
    void forget();
    /// Another installation is in force, perhaps in a run: what was read may be of other LDBs.
    void changeSite();

    /// Turns to this LDB and reads its settings; unsaved edits of them stay.
    void setSelectedLdb(const QString& hexId);
    /// What fault finding keeps, and puts back, is that of another installation from now on.
    void setKept(const KeptLdbs& kept);
    /// While held, nothing is put back.
    void holdPutBack(bool isHeld);
    /// Opens the window of fault finding for the selected LDB.
    void startFaultFinding();

    /// Enables what the situation allows.
    void apply(const EnabledControls& controls);
    /// What an end of the program would break off, a sentence each; empty when nothing is under
    /// way.
    std::vector<Text> underWay() const;
    /// Tells what the user does, for the recording.
    const WorkNotes* notes() const { return m_notes; }

signals:
    /// What can be used may differ from before.
    void enabledChanged();

private:
    void initEditor();
    void initTransfer();
    void initTable();
    void initPutBack();
    void showTransfer(bool isOn);

    const Ui::MainWindow& m_ui;
    Surroundings m_around;
    QWidget* m_window;
    WorkNotes* m_notes = nullptr;           // owned
    SettingsTransfer* m_transfer = nullptr; // owned
    SettingsTableWindow* m_table = nullptr; // owned
    PutBack* m_putBack = nullptr;           // owned
    QPointer<FimTracking> m_tracking;       // deletes itself when closed
};

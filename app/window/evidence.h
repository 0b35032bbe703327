#pragma once

#include "serial/link/portsource.h"

#include <QObject>
#include <QPointer>

namespace Ui {
class MainWindow;
}

class EventDesk;
class EvidenceForm;
class InstallationDesk;
class LdbViews;
class LdbWork;
class LookBack;
class Notices;
class QAction;
class QualityDisplay;
class RecordingControl;
class RecordingForm;
class RecordingIndicator;
class RunControl;
class SerialLink;

/// Everything of the window that records, or shows what is recorded. GUI thread.
class Evidence : public QObject
{
    Q_OBJECT
public:
    struct Surroundings
    {
        const Ui::MainWindow& ui;
        SerialLink* link;
        Notices* notices;
        InstallationDesk* desk;
        RunControl* run;
        LdbViews* views;
        LdbWork* work;
        const PortSource& ports; ///< used while it is made
    };

    /// All of the surroundings but the ports outlive this object.
    Evidence(const Surroundings& around, QWidget* window);
    /// What was told by now is on the disk afterwards.
    ~Evidence() override;

    LookBack* lookBack() const { return m_lookBack; }
    /// Shows the present.
    void goLive();
    /// Opens the form that says what is recorded.
    void showPreferences();
    /// Shows in the language in force what no form of its own does.
    void retranslate();

private:
    void makeIndicator(const Surroundings& around);
    void makeMenu(const Surroundings& around, QWidget* window);
    void initLookBack(const Surroundings& around, QWidget* window);
    void showQuality(const Surroundings& around);

    QWidget* m_window;
    RecordingControl* m_control;
    // All owned as children, of this object or of the window.
    LookBack* m_lookBack = nullptr;
    EventDesk* m_events;
    QualityDisplay* m_quality = nullptr;
    QPointer<RecordingIndicator> m_indicator;
    QPointer<RecordingForm> m_preferences;
    QPointer<EvidenceForm> m_form;
    QAction* m_take = nullptr;
    QAction* m_copy = nullptr;
    QAction* m_settings = nullptr;
};

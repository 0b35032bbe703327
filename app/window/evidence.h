#pragma once

#include "app/shared/text.h"
#include "serial/link/portsource.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <vector>

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
class ReportWindow;
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
    /// Shows the end of a recording that was made here or elsewhere; says where it cannot.
    void open(const QString& path);
    /// With what an end of the program would break off of the recording.
    std::vector<Text> underWay(std::vector<Text> others) const;
    /// Opens the form that says what is recorded.
    void showPreferences();
    /// Shows in the language in force what no form of its own does.
    void retranslate();

private:
    void makeIndicator(const Surroundings& around);
    void makeReport(const Surroundings& around, QWidget* window);
    void makeMenu(const Surroundings& around, QWidget* window);
    void initLookBack(const Surroundings& around, QWidget* window);
    void showQuality(const Surroundings& around);

    QWidget* m_window;
    RecordingControl* m_control;
    Notices* m_notices;
    // All owned as children, of this object or of the window.
    LookBack* m_lookBack = nullptr;
    EventDesk* m_events;
    QualityDisplay* m_quality = nullptr;
    QString m_wantedLdb; ///< whose event is gone to; empty: nobody's
    QPointer<RecordingIndicator> m_indicator;
    QPointer<RecordingForm> m_preferences;
    QPointer<EvidenceForm> m_form;
    QPointer<ReportWindow> m_report;
    QAction* m_makeReport = nullptr;
    QAction* m_take = nullptr;
    QAction* m_copy = nullptr;
    QAction* m_settings = nullptr;
};

#pragma once

#include "serial/link/portsource.h"

#include <QObject>

namespace Ui {
class MainWindow;
}

class EventDesk;
class InstallationDesk;
class LdbViews;
class LdbWork;
class LookBack;
class Notices;
class QualityDisplay;
class RecordingControl;
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
    ~Evidence() override;

    LookBack* lookBack() const { return m_lookBack; }
    /// Shows the present.
    void goLive();

private:
    void initLookBack(const Surroundings& around, QWidget* window);

    RecordingControl* m_control;
    LookBack* m_lookBack = nullptr;
    EventDesk* m_events;
    void showQuality(const Surroundings& around);

    RecordingControl* m_control;
    QualityDisplay* m_quality = nullptr; ///< owned as a child
};

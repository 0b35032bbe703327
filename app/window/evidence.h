#pragma once

#include "serial/link/portsource.h"

#include <QObject>

namespace Ui {
class MainWindow;
}

class InstallationDesk;
class LdbViews;
class LdbWork;
class LookBack;
class Notices;
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
    /// Shows the end of a recording that was made here or elsewhere; says where it cannot.
    void open(const QString& path);

private:
    void initLookBack(const Surroundings& around, QWidget* window);

    RecordingControl* m_control;
    Notices* m_notices;
    LookBack* m_lookBack = nullptr;
};

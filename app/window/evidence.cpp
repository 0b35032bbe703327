#include "app/window/evidence.h"

#include "app/events/eventdesk.h"
#include "app/installation/installationdesk.h"
#include "app/recording/recordingcontrol.h"
#include "ui_mainwindow.h"

Evidence::Evidence(const Surroundings& around, QWidget* window)
    : QObject(window)
    , m_control(new RecordingControl({around.link, around.desk->control(), around.notices},
                                     around.ports, this))
    , m_events(new EventDesk({window, around.ui.deviceOverviewAndPlotSplitter, m_control,
                              around.notices, around.ui.statusBar},
                             around.ports.wallTime, this))
{
}

Evidence::~Evidence() = default;

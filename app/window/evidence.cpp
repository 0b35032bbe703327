#include "app/window/evidence.h"

#include "app/events/eventdesk.h"
#include "app/installation/installationdesk.h"
#include "app/recording/recordingcontrol.h"

#include <QMainWindow>

Evidence::Evidence(const Surroundings& around, QWidget* window)
    : QObject(window)
    , m_control(new RecordingControl({around.link, around.desk->control(), around.notices},
                                     around.ports, this))
    , m_events(new EventDesk({static_cast<QMainWindow*>(window), m_control, around.notices},
                             around.ports.wallTime, this))
{
}

Evidence::~Evidence() = default;

#include "app/window/evidence.h"

#include "app/installation/installationdesk.h"
#include "app/recording/recordingcontrol.h"

Evidence::Evidence(const Surroundings& around, QWidget* window)
    : QObject(window)
    , m_control(new RecordingControl({around.link, around.desk->control(), around.notices},
                                     around.ports, this))
{
}

Evidence::~Evidence() = default;

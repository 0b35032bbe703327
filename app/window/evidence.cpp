#include "app/window/evidence.h"

#include "app/installation/installationdesk.h"
#include "app/recording/recordingcontrol.h"
#include "app/window/ldbviews.h"
#include "serial/link/seriallink.h"
#include "ui_mainwindow.h"
#include "views/quality/qualitydisplay.h"

Evidence::Evidence(const Surroundings& around, QWidget* window)
    : QObject(window)
    , m_control(new RecordingControl({around.link, around.desk->control(), around.notices},
                                     around.ports, this))
{
    showQuality(around);
}

Evidence::~Evidence() = default;

void Evidence::showQuality(const Surroundings& around)
{
    m_quality = new QualityDisplay(
        {m_control->access(), [recorder = m_control->recorder()] { return recorder->moment(); },
         [link = around.link](const QString& hexId) {
             return link->nameOf(hexId);
         }},
        around.ui.deviceOverviewTableView, around.ui.overviewBar, this);
    connect(around.link, &SerialLink::exchanged, m_quality->live(), &LiveQuality::takeExchange);
    connect(around.link, &SerialLink::ldbListChanged, m_quality->live(), &LiveQuality::setList);
    connect(m_quality, &QualityDisplay::ldbActivated, around.views, &LdbViews::select);
}

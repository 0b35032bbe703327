#include "app/window/evidence.h"

#include "app/installation/installationdesk.h"
#include "app/lookback/lookback.h"
#include "app/lookback/recordedband.h"
#include "app/notices/notices.h"
#include "app/recording/recordingcontrol.h"
#include "app/window/ldbviews.h"
#include "app/window/ldbwork.h"
#include "app/window/monitoringstrip.h"
#include "app/window/runcontrol.h"
#include "serial/ldb/generalinformation.h"
#include "serial/link/seriallink.h"
#include "ui_mainwindow.h"
#include "views/lamps/lampcondition.h"

#include <QDir>
#include <QFileInfo>

#include <limits>

namespace {

/// What a record tells of that is new.
QString faultText(const QString& hexId, const QList<QStringList>& rows)
{
    if (generalinformation::isLost(rows)) {
        return Evidence::tr("LDB %1 lost").arg(hexId);
    }
    LampCauses causes;
    QStringList conditions;
    for (const CausePage page : causes.update(hexId, rows)) {
        const QString condition = causes.of(page).value(hexId).condition;
        if (!conditions.contains(condition)) {
            conditions.append(condition);
        }
    }
    return Evidence::tr("LDB %1: %2").arg(hexId, conditions.join(QStringLiteral(", ")));
}

} // namespace

Evidence::Evidence(const Surroundings& around, QWidget* window)
    : QObject(window)
    , m_control(new RecordingControl({around.link, around.desk->control(), around.notices},
                                     around.ports, this))
    , m_notices(around.notices)
{
    initLookBack(around, window);
}

Evidence::~Evidence()
{
    delete m_lookBack; // it reads by the control
}

void Evidence::initLookBack(const Surroundings& around, QWidget* window)
{
    auto* lookBack = new LookBack(
        {m_control->access(), around.views->source(), around.ports.wallTime}, window, this);
    m_lookBack = lookBack;
    around.ui.centralLayout->insertWidget(0, lookBack->band());
    around.ui.centralLayout->addWidget(lookBack->bar());
    around.views->setPast(lookBack->source(), lookBack->past());
    connect(lookBack, &LookBack::monitoringChanged, around.views, &LdbViews::setPastMonitoring);
    connect(lookBack->source(), &RecordSource::ldbListChanged, around.views, &LdbViews::keepKnown);
    connect(around.views, &LdbViews::monitoringTold, lookBack,
            [lookBack](const Monitoring& monitoring) {
                lookBack->setNow(MonitoringStrip::text(monitoring));
            });
    connect(around.views, &LdbViews::faultTold, lookBack,
            [lookBack](const QString& hexId, const QList<QStringList>& rows) {
                lookBack->alert(faultText(hexId, rows));
            });
    connect(around.link, &SerialLink::portFailed, lookBack, [lookBack](const QString& portName) {
        lookBack->alert(tr("the connection to %1 was lost").arg(portName));
    });
    connect(lookBack, &LookBack::nothingFound, this, [this] {
        const QString path = QDir::toNativeSeparators(m_control->access()->path());
        m_notices->box(
            QMessageBox::Warning,
            [path] {
                return BoxText{tr("No Recording"),
                               tr("There is no recording that can be read in %1.").arg(path)};
            },
            QStringLiteral("noRecordingBox"));
    });
    RunControl* run = around.run;
    connect(run, &RunControl::enabledChanged, lookBack,
            [lookBack, run] { lookBack->setSelectedLdb(run->selectedLdb()); });
    connect(lookBack, &LookBack::lookingBackChanged, this,
            [strip = around.ui.monitoringStrip, views = around.views, work = around.work,
             run](bool isLookingBack) {
                strip->setVisible(!isLookingBack);
                views->setLookingBack(isLookingBack);
                run->setLookingBack(isLookingBack);
                if (!isLookingBack && !run->selectedLdb().isEmpty()) {
                    work->setSelectedLdb(run->selectedLdb());
                }
            });
    Recorder* recorder = m_control->recorder();
    const auto followRecorder = [this, recorder] {
        m_lookBack->setRecording(recorder->isRecording() &&
                                 m_control->access()->path() == m_control->folder());
    };
    connect(recorder, &Recorder::changed, lookBack, followRecorder);
    connect(m_control->access(), &RecordingAccess::pathChanged, lookBack, followRecorder);
    connect(recorder, &Recorder::eventRecorded, lookBack, &LookBack::refresh);
}

void Evidence::open(const QString& path)
{
    m_control->open(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));
    m_lookBack->goTo(std::numeric_limits<qint64>::max());
}

void Evidence::goLive()
{
    m_lookBack->live();
}

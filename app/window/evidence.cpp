#include "app/window/evidence.h"

#include "app/events/eventdesk.h"
#include "app/installation/installationdesk.h"
#include "app/lookback/lookback.h"
#include "app/lookback/recordedband.h"
#include "app/lookback/shownsource.h"
#include "app/notices/notices.h"
#include "app/recording/evidenceform.h"
#include "app/recording/recordedplot.h"
#include "app/recording/recordingcontrol.h"
#include "app/recording/recordingform.h"
#include "app/recording/recordingindicator.h"
#include "app/report/reportwindow.h"
#include "app/window/ldbviews.h"
#include "app/window/ldbwork.h"
#include "app/window/monitoringstrip.h"
#include "app/window/runcontrol.h"
#include "app/window/worknotes.h"
#include "serial/ldb/generalinformation.h"
#include "serial/link/seriallink.h"
#include "ui_mainwindow.h"
#include "views/lamps/lampcondition.h"
#include "views/quality/qualitydisplay.h"

#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>
#include <QStatusBar>

#include <limits>
#include <utility>

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
    , m_window(window)
    , m_control(new RecordingControl({around.link, around.desk->control(), around.notices},
                                     around.ports, this))
    , m_notices(around.notices)
    , m_events(new EventDesk({window, around.ui.deviceOverviewAndPlotSplitter, m_control,
                              around.notices, around.ui.statusBar},
                             around.ports.wallTime, this))
{
    connect(around.work->notes(), &WorkNotes::noted, m_control->recorder(), &Recorder::note);
    around.views->setHistorySource(new RecordedPlot(m_control->access(), m_control));
    makeIndicator(around);
    makeReport(around, window);
    makeMenu(around, window);
    initLookBack(around, window);
    m_events->setShown([this] { return m_lookBack->shown(); });
    connect(m_events, &EventDesk::momentWanted, this, [this](qint64 at, const QString& hexId) {
        m_wantedLdb = hexId;
        m_lookBack->goTo(at);
    });
    // Not before: its row may come with the moment.
    connect(m_lookBack, &LookBack::shownChanged, this, [this, views = around.views] {
        const QString hexId = std::exchange(m_wantedLdb, {});
        if (!hexId.isEmpty() && m_lookBack->shown()) {
            views->select(hexId);
        }
    });
    showQuality(around);
}

Evidence::~Evidence()
{
    delete m_events;   // it asks what is shown
    delete m_lookBack; // it reads by the control
    // They use the recording.
    delete m_report;
    delete m_form;
    delete m_preferences;
    delete m_indicator;
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

void Evidence::showQuality(const Surroundings& around)
{
    m_quality = new QualityDisplay(
        {m_control->access(), [recorder = m_control->recorder()] { return recorder->moment(); },
         [link = around.link, control = m_control] {
             return link->isRunning() && !(control->recorder()->isRecording() &&
                                           control->access()->path() == control->folder());
         },
         [views = around.views](const QString& hexId) {
             return views->source()->nameOf(hexId);
         }},
        around.ui.deviceOverviewTableView, around.ui.overviewBar, this);
    connect(around.link, &SerialLink::exchanged, m_quality->live(), &LiveQuality::takeExchange);
    connect(around.link, &SerialLink::ldbListChanged, m_quality->live(), &LiveQuality::setList);
    connect(m_quality, &QualityDisplay::ldbActivated, around.views, &LdbViews::select);
    connect(m_lookBack, &LookBack::shownChanged, m_quality,
            [this] { m_quality->setShown(m_lookBack->shown()); });
}

void Evidence::makeIndicator(const Surroundings& around)
{
    m_indicator = new RecordingIndicator(m_control, around.ui.statusBar);
    around.ui.statusBar->insertPermanentWidget(0, m_indicator);
    connect(
        m_indicator, &RecordingIndicator::failed, this,
        [notices = around.notices](const QString& folder) {
            notices->say([folder] {
                return folder.isEmpty() || !QDir(folder).exists()
                           ? tr("Nothing has been recorded yet.")
                           : tr("%1 could not be opened.").arg(QDir::toNativeSeparators(folder));
            });
        });
}

void Evidence::makeMenu(const Surroundings& around, QWidget* window)
{
    const InstallationControl* installation = around.desk->control();
    m_form = new EvidenceForm({m_control, around.ports.wallTime,
                               [run = around.run] { return run->selectedLdb(); },
                               [installation] {
                                   return installation->current().title();
                               }},
                              window);
    m_preferences = new RecordingForm(m_control, window);
    QToolButton* button = around.ui.evidenceButton;
    button->setIcon(window->style()->standardIcon(QStyle::SP_DialogSaveButton));
    auto* menu = new QMenu(button);
    menu->setObjectName(QStringLiteral("evidenceMenu"));
    button->setMenu(menu);
    m_makeReport = menu->addAction(QString(), this, [this] { m_report->open(); });
    m_take = menu->addAction(QString(), this, [this] { m_form->offer(EvidenceOrder::Kind::Log); });
    m_copy = menu->addAction(QString(), this, [this] { m_form->offer(EvidenceOrder::Kind::Copy); });
    menu->addSeparator();
    m_settings = menu->addAction(QString(), this, &Evidence::showPreferences);
    m_makeReport->setObjectName(QStringLiteral("reportAction"));
    m_take->setObjectName(QStringLiteral("takeHomeAction"));
    m_copy->setObjectName(QStringLiteral("copyVisitAction"));
    m_settings->setObjectName(QStringLiteral("recordingSettingsAction"));
}

std::vector<Text> Evidence::underWay(std::vector<Text> others) const
{
    if (m_form->isWriting()) {
        others.emplace_back(
            [] { return tr("Evidence is being written. The file will be missing."); });
    }
    return others;
}

void Evidence::makeReport(const Surroundings& around, QWidget* window)
{
    const InstallationControl* installation = around.desk->control();
    const auto describe = [installation] {
        const Installation& current = installation->current();
        ReportRequest request;
        request.head.installation = current.title();
        request.head.place = current.place;
        request.known = current.ldbs;
        if (!current.id.isEmpty()) {
            request.formerFolder = installation->store().folderOf(current.id);
        }
        return request;
    };
    m_report = new ReportWindow({m_control->access(),
                                 [control = m_control] { control->recorder()->flush(); },
                                 around.ports.wallTime, describe},
                                window);
}

void Evidence::showPreferences()
{
    m_preferences->open();
}

void Evidence::retranslate()
{
    m_makeReport->setText(tr("Report of the &Visit..."));
    m_take->setText(tr("Take Evidence &Home..."));
    m_copy->setText(tr("Save a &Copy of This Visit..."));
    m_settings->setText(tr("&Recording..."));
}

#include "app/window/ldbviews.h"

#include "app/putback/mutewatch.h"
#include "app/shared/colours.h"
#include "app/window/attention.h"
#include "app/window/monitoringstrip.h"
#include "serial/ldb/generalinformation.h"
#include "serial/link/seriallink.h"
#include "tracking/plot/mainwindowplot.h"
#include "ui_mainwindow.h"
#include "views/lamps/lamppanel.h"
#include "views/tables/devicedetailtable.h"
#include "views/tables/deviceoverviewtable.h"
#include "views/tables/mutemarks.h"

namespace {

QIcon logMark(LogPanel::Status status)
{
    switch (status) {
    case LogPanel::Status::Off:
        break;
    case LogPanel::Status::Logging:
        return lampimage::draw(colours::kOrangered);
    case LogPanel::Status::Waiting:
        return lampimage::draw(colours::kAmber);
    }
    return {};
}

} // namespace

LdbViews::LdbViews(const Ui::MainWindow& ui, SerialLink* link, QWidget* parent)
    : QObject(parent)
    , m_ui(ui)
    , m_link(link)
{
    makeViews();
    feed(new Attention(parent));
    connectViews();
}

void LdbViews::makeViews()
{
    m_details = new DeviceDetailTable(m_ui.deviceDetailTableView, this);
    m_overview = new DeviceOverviewTable(m_ui.deviceOverviewTableView, this);
    m_ui.overviewBar->setView(m_ui.deviceOverviewTableView);
    m_muteMarks = new MuteMarks(m_ui.deviceOverviewTableView->model(),
                                m_ui.deviceDetailTableView->model(), this);
    m_plot = new MainWindowPlot(m_ui.plotContainer, this);
    m_lamps = new LampPanel(
        {m_ui.lampALabel, m_ui.lampATextLabel, m_ui.lampCausesA, m_ui.serviceModePage},
        {m_ui.lampBLabel, m_ui.lampBTextLabel, m_ui.lampCausesB, m_ui.earthFaultPage},
        {m_ui.lampCLabel, m_ui.lampCTextLabel, m_ui.lampCausesC, m_ui.openShortLeakPage},
        {m_ui.lampDLabel, nullptr, m_ui.lampCausesD, m_ui.settingsPage}, m_ui.lampCausesOut,
        m_ui.ldbActionToolBox, this);
}

void LdbViews::feed(Attention* attention)
{
    const auto follow = [this](auto* view, auto process) {
        connect(m_link, &SerialLink::generalInformationUpdated, view, process);
    };
    // What shows the present takes also the records from between the turns.
    const auto followAll = [this, &follow](auto* view, auto process) {
        follow(view, process);
        connect(m_link, &SerialLink::extraInformationUpdated, view, process);
    };
    // First: the record that makes an LDB the selected one is shown by the others, too.
    followAll(m_overview, &DeviceOverviewTable::processData);
    followAll(m_details, &DeviceDetailTable::processData);
    follow(m_ui.logTab, &LogPanel::processData);
    follow(m_plot, &MainWindowPlot::processData);
    connect(m_link, &SerialLink::extraInformationUpdated, m_plot, &MainWindowPlot::processExtra);
    followAll(m_lamps, &LampPanel::processData);
    followAll(attention, &Attention::processData);
    connect(m_link, &SerialLink::roundBegun, m_lamps, &LampPanel::beginRound);
    connect(m_link, &SerialLink::roundEnded, m_lamps, &LampPanel::endRound);
    connect(m_link, &SerialLink::roundBegun, m_overview, &DeviceOverviewTable::beginRound);
    connect(m_link, &SerialLink::roundEnded, m_overview, &DeviceOverviewTable::endRound);
    connect(m_link, &SerialLink::awaitedChanged, this, &LdbViews::showAwaited);
    connect(new MuteWatch(m_link, this), &MuteWatch::changed, m_muteMarks, &MuteMarks::setMuted);
}

void LdbViews::connectViews()
{
    connect(m_overview, &DeviceOverviewTable::selectedLDBChanged, this,
            &LdbViews::selectedLdbChanged);
    connect(m_overview, &DeviceOverviewTable::dismissed, this, &LdbViews::dismiss);
    connect(m_ui.monitoringStrip, &MonitoringStrip::dismissLost, this,
            [this] { dismiss(m_overview->lostLdbs()); });
    connect(m_ui.monitoringStrip, &MonitoringStrip::endWaiting, this, &LdbViews::waitingEnded);
    connect(m_plot, &MainWindowPlot::zoomEnabledChanged, m_ui.zoomButton,
            &QAbstractButton::setChecked);
    connect(m_lamps, &LampPanel::ldbActivated, m_overview, &DeviceOverviewTable::selectLdb);
    connect(m_lamps, &LampPanel::pageOpened, this,
            [this] { m_ui.controlTabs->setCurrentWidget(m_ui.statusTab); });
    connect(m_ui.logTab, &LogPanel::statusChanged, this, [this](LogPanel::Status status) {
        m_ui.controlTabs->setTabIcon(m_ui.controlTabs->indexOf(m_ui.logTab), logMark(status));
    });
}

void LdbViews::setMonitoring(const Monitoring& monitoring)
{
    m_ui.monitoringStrip->setMonitoring(monitoring);
    m_overview->setMonitoring(monitoring);
    m_details->setMonitoring(monitoring);
    m_plot->setMonitoring(monitoring);
    m_lamps->setMonitoring(monitoring);
    m_ui.logTab->setMonitoring(monitoring);
}

void LdbViews::setWaiting(bool isWaiting)
{
    m_ui.monitoringStrip->setWaiting(isWaiting);
}

void LdbViews::showAwaited(const QString& hexId)
{
    if (m_link->isAwaited(hexId)) {
        m_overview->processData(hexId,
                                generalinformation::awaitedRows(hexId, m_link->nameOf(hexId)));
    }
}

void LdbViews::keepKnown()
{
    keepOnly(m_link->knownLdbs());
}

void LdbViews::dismiss(const QStringList& hexIds)
{
    m_link->dismiss(hexIds);
    emit dismissed(hexIds);
    // Not the link's list: while a scan is on, that is not complete.
    QStringList kept = m_overview->shownLdbs();
    for (const QString& hexId : hexIds) {
        kept.removeAll(hexId);
    }
    keepOnly(kept);
}

void LdbViews::keepOnly(const QStringList& hexIds)
{
    m_overview->keepOnly(hexIds);
    m_lamps->keepOnly(hexIds);
}

bool LdbViews::select(const QString& hexId)
{
    return m_overview->selectLdb(hexId);
}

void LdbViews::setSelectionEnabled(bool enabled)
{
    m_overview->setSelectionEnabled(enabled);
}

void LdbViews::setSelectedLdb(const QString& hexId)
{
    m_link->setSelectedLdb(hexId);
    m_details->setCurrentHexId(hexId);
    m_muteMarks->setSelectedLdb(hexId);
    m_ui.logTab->setSelectedLdb(hexId);
    m_plot->setSelectedDevice(hexId);
}

void LdbViews::clearPlot()
{
    m_plot->clearPlot();
}

void LdbViews::setHistorySource(PlotHistorySource* source)
{
    m_plot->setHistorySource(source);
}

void LdbViews::setZoomEnabled(bool enabled)
{
    m_plot->setZoomEnabled(enabled);
}

void LdbViews::retranslate()
{
    m_overview->retranslate();
    for (const QString& hexId : m_link->knownLdbs()) {
        showAwaited(hexId);
    }
    m_muteMarks->retranslate();
    m_details->retranslate();
    m_plot->retranslate();
    m_lamps->retranslate();
}

void LdbViews::save() const
{
    m_overview->saveTableState();
    m_ui.overviewBar->save();
    m_ui.logTab->save();
}

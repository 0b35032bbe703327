#include "app/window/ldbviews.h"

#include "app/lookback/shownsource.h"
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

#include <QVBoxLayout>

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
    , m_source(new ShownSource(link, this))
{
    makeViews();
    feed();
    followPresent();
    connectViews();
}

void LdbViews::makeViews()
{
    m_details = new DeviceDetailTable(m_ui.deviceDetailTableView, this);
    m_overview = new DeviceOverviewTable(m_ui.deviceOverviewTableView, this);
    m_ui.overviewBar->setView(m_ui.deviceOverviewTableView);
    m_muteMarks = new MuteMarks(m_ui.deviceOverviewTableView->model(),
                                m_ui.deviceDetailTableView->model(), this);
    makePlots();
    m_lamps = new LampPanel(
        {m_ui.lampALabel, m_ui.lampATextLabel, m_ui.lampCausesA, m_ui.serviceModePage},
        {m_ui.lampBLabel, m_ui.lampBTextLabel, m_ui.lampCausesB, m_ui.earthFaultPage},
        {m_ui.lampCLabel, m_ui.lampCTextLabel, m_ui.lampCausesC, m_ui.openShortLeakPage},
        {m_ui.lampDLabel, nullptr, m_ui.lampCausesD, m_ui.settingsPage}, m_ui.lampCausesOut,
        m_ui.ldbActionToolBox, this);
}

/// One for now and one for what is looked back at: the one that is hidden goes on, or keeps what it
/// has.
void LdbViews::makePlots()
{
    auto* layout = new QVBoxLayout(m_ui.plotContainer);
    layout->setContentsMargins(0, 0, 0, 0);
    m_presentChart = new QWidget(m_ui.plotContainer);
    m_pastChart = new QWidget(m_ui.plotContainer);
    layout->addWidget(m_presentChart);
    layout->addWidget(m_pastChart);
    m_pastChart->hide();
    m_plot = new MainWindowPlot(m_presentChart, this);
}

/// What shows a moment, be it now or another one.
void LdbViews::feed()
{
    // Also the records from between the turns.
    const auto follow = [this](auto* view, auto process) {
        connect(m_source, &RecordSource::generalInformationUpdated, view, process);
        connect(m_source, &RecordSource::extraInformationUpdated, view, process);
    };
    // Before the records of it.
    connect(m_source, &RecordSource::replaced, this, &LdbViews::processReplaced);
    // First: the record that makes an LDB the selected one is shown by the others, too.
    follow(m_overview, &DeviceOverviewTable::processData);
    follow(m_details, &DeviceDetailTable::processData);
    follow(m_lamps, &LampPanel::processData);
    connect(m_source, &RecordSource::roundBegun, m_lamps, &LampPanel::beginRound);
    connect(m_source, &RecordSource::roundEnded, m_lamps, &LampPanel::endRound);
    connect(m_source, &RecordSource::roundBegun, m_overview, &DeviceOverviewTable::beginRound);
    connect(m_source, &RecordSource::roundEnded, m_overview, &DeviceOverviewTable::endRound);
    connect(m_source, &RecordSource::awaitedChanged, this, &LdbViews::showAwaited);
}

/// What is of now, whatever is shown.
void LdbViews::followPresent()
{
    connect(m_link, &SerialLink::generalInformationUpdated, m_ui.logTab, &LogPanel::processData);
    connect(m_link, &SerialLink::generalInformationUpdated, m_plot, &MainWindowPlot::processData);
    connect(m_link, &SerialLink::extraInformationUpdated, m_plot, &MainWindowPlot::processExtra);
    auto* attention = new Attention(m_ui.centralWidget->window());
    connect(m_link, &SerialLink::generalInformationUpdated, attention, &Attention::processData);
    connect(m_link, &SerialLink::extraInformationUpdated, attention, &Attention::processData);
    connect(attention, &Attention::faultTold, this, &LdbViews::faultTold);
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
    m_monitoring = monitoring;
    m_source->setWhole(monitoring.isWhole());
    m_ui.monitoringStrip->setMonitoring(monitoring);
    m_plot->setMonitoring(monitoring);
    m_ui.logTab->setMonitoring(monitoring);
    if (!m_isLookingBack) {
        showMonitoring(monitoring);
    }
    emit monitoringTold(monitoring);
}

void LdbViews::showMonitoring(const Monitoring& monitoring)
{
    m_overview->setMonitoring(monitoring);
    m_details->setMonitoring(monitoring);
    m_lamps->setMonitoring(monitoring);
}

void LdbViews::setPast(const RecordSource* past, PlotHistorySource* samples)
{
    m_pastPlot = new MainWindowPlot(m_pastChart, this);
    m_pastPlot->setHistorySource(samples);
    connect(past, &RecordSource::generalInformationUpdated, m_pastPlot,
            &MainWindowPlot::processData);
    connect(past, &RecordSource::extraInformationUpdated, m_pastPlot,
            &MainWindowPlot::processExtra);
}

void LdbViews::setLookingBack(bool isLookingBack)
{
    Q_ASSERT(m_pastPlot != nullptr);
    m_isLookingBack = isLookingBack;
    m_presentChart->setVisible(!isLookingBack);
    m_pastChart->setVisible(isLookingBack);
    m_muteMarks->setHidden(isLookingBack);
    m_overview->setDismissEnabled(!isLookingBack);
    if (isLookingBack) {
        m_pastPlot->setSelectedDevice(m_selected);
    } else {
        showMonitoring(m_monitoring);
    }
}

void LdbViews::setPastMonitoring(const Monitoring& monitoring)
{
    m_past = monitoring;
    showMonitoring(monitoring);
    m_pastPlot->setMonitoring(monitoring);
}

void LdbViews::setToldMonitoring(const Monitoring& monitoring)
{
    m_pastPlot->setMonitoring(monitoring);
}

void LdbViews::processReplaced(const QStringList& hexIds)
{
    // The lamps begin anew when the whole bus is monitored again.
    m_lamps->setMonitoring(Monitoring());
    m_lamps->setMonitoring(m_isLookingBack ? m_past : m_monitoring);
    keepOnly(hexIds);
    m_details->processData(m_selected, {});
    if (m_isLookingBack) {
        m_pastPlot->beginMoment();
    }
}

void LdbViews::setWaiting(bool isWaiting)
{
    m_ui.monitoringStrip->setWaiting(isWaiting);
}

void LdbViews::showAwaited(const QString& hexId)
{
    if (!m_source->isAwaited(hexId)) {
        return;
    }
    const QList<QStringList> rows = generalinformation::awaitedRows(hexId, m_source->nameOf(hexId));
    m_overview->processData(hexId, rows);
    if (m_isLookingBack) {
        m_details->processData(hexId, rows);
    }
}

void LdbViews::keepKnown()
{
    m_source->keepKnown();
    keepOnly(m_source->knownLdbs());
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
    if (m_isLookingBack) {
        m_overview->showOnly(hexIds);
    } else {
        m_overview->keepOnly(hexIds);
    }
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
    m_selected = hexId;
    m_link->setSelectedLdb(hexId);
    m_details->setCurrentHexId(hexId);
    m_muteMarks->setSelectedLdb(hexId);
    m_ui.logTab->setSelectedLdb(hexId);
    m_plot->setSelectedDevice(hexId);
    if (m_isLookingBack) {
        m_pastPlot->setSelectedDevice(hexId);
    }
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
    if (m_pastPlot != nullptr) {
        m_pastPlot->setZoomEnabled(enabled);
    }
}

void LdbViews::retranslate()
{
    m_overview->retranslate();
    for (const QString& hexId : m_source->knownLdbs()) {
        showAwaited(hexId);
    }
    m_muteMarks->retranslate();
    m_details->retranslate();
    m_plot->retranslate();
    if (m_pastPlot != nullptr) {
        m_pastPlot->retranslate();
    }
    m_lamps->retranslate();
}

void LdbViews::save() const
{
    m_overview->saveTableState();
    m_ui.overviewBar->save();
    m_ui.logTab->save();
}

#include "tracking/faultfinding/fimtracking.h"

#include "app/shared/colours.h"
#include "app/shared/whynot.h"
#include "serial/ldb/generalinformation.h"
#include "tracking/faultfinding/formerstate.h"
#include "tracking/faultfinding/runfindings.h"
#include "tracking/faultfinding/sidepanel.h"
#include "tracking/faultfinding/startquestions.h"
#include "tracking/faultfinding/trackedldb.h"
#include "tracking/faultfinding/trackingtexts.h"
#include "tracking/plot/portplot.h"
#include "ui_fimtracking.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QThread>

#include <algorithm>
#include <utility>

namespace {

using Phase = TrackingRun::Phase;

constexpr int kDisplayPeriod = 250; // ms: seconds never seem to hang
constexpr int kLastSeconds = 10;    // of the countdown, in red
constexpr QMargins kInsetFromParent(100, 50, 100, 50);

void setDigitColour(QWidget* display, const QColor& colour)
{
    QPalette palette = display->palette();
    palette.setColor(QPalette::WindowText, colour); // in all groups
    display->setPalette(palette);
}

} // namespace

FimTracking::FimTracking(const QString& hexId, SerialLink* link, QWidget* parent,
                         const KeptLdbs& kept)
    : FimTracking(std::make_shared<TrackedLdb>(hexId, link), parent, kept)
{
}

FimTracking::FimTracking(std::shared_ptr<TrackedLdb> ldb, QWidget* parent, const KeptLdbs& kept)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                          Qt::WindowCloseButtonHint)
    , m_ui(std::make_unique<Ui::FimTracking>())
    , m_ldb(std::move(ldb))
    , m_run(TrackingThresholds::fromTuningFile())
    , m_questions(new StartQuestions(this))
    , m_findings(new RunFindings(this))
    , m_former(new FormerState(m_ldb.get(), kept, this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    initPalette();
    m_ui->setupUi(this);
    init();
    placeOver(parent);
    show();
    // Later, so that the constructor has returned before the first question opens.
    QTimer::singleShot(0, m_ui->startButton, &QPushButton::click);
}

FimTracking::~FimTracking()
{
    // The window may be deleted with its parent without having been closed.
    endRun();
    releaseLdb();
}

QString FimTracking::hexId() const
{
    return m_ldb->hexId();
}

void FimTracking::init()
{
    m_clock.setSingleShot(true);
    m_clock.setTimerType(Qt::PreciseTimer);
    initConnections();
    initGui();
    m_ui->primarySidePanel->init(tr("Primary port"), QStringLiteral("PriCurr"));
    m_ui->secondarySidePanel->init(tr("Secondary port"), QStringLiteral("secCurr"));
    showPhase();
}

void FimTracking::initConnections()
{
    connect(m_ldb.get(), &TrackedLdb::connectionLost, this,
            [this] { m_run.stop(TrackingRun::StopReason::ConnectionLost); });
    connect(m_ui->fimCountsPanel, &FimCountsPanel::takeOverWanted, this, [this](int fimCount) {
        showNotice(tr("Writing the number of FIM's"));
        emit takeOverWanted(fimCount);
    });
    // Also before the run: who confirms it is to see for which LDB.
    connect(m_ldb.get(), &TrackedLdb::generalInformationUpdated, this, &FimTracking::processData);
    connect(m_ldb.get(), &TrackedLdb::reachableChanged, this, &FimTracking::followLink);
    connect(m_questions, &StartQuestions::answered, this, &FimTracking::prepare);
    connect(m_questions, &StartQuestions::answeredWithoutWayBack, this,
            [this](bool isWanted) { isWanted ? begin() : m_ui->startButton->setChecked(false); });
    connect(m_former, &FormerState::kept, this, &FimTracking::begin);
    connect(m_former, &FormerState::incomplete, m_questions, &StartQuestions::askWithoutWayBack);
    connect(&m_run, &TrackingRun::phaseChanged, this, &FimTracking::showPhase);
    connect(&m_run, &TrackingRun::countdownChanged, this, &FimTracking::showCountdown);
    connect(&m_run, &TrackingRun::commandDue, this, &FimTracking::sendCommand);
    connect(&m_run, &TrackingRun::countChanged, this,
            [this](int ldbPort, int count) { panel(ldbPort)->setCount(count); });
    connect(&m_run, &TrackingRun::currentsProcessed, this, &FimTracking::processPlotData);
    connect(&m_run, &TrackingRun::sideFinished, this, &FimTracking::processSideFinished);
    connect(&m_run, &TrackingRun::faultReported, this, &FimTracking::processFault);
    connect(&m_run, &TrackingRun::resultsReady, this, &FimTracking::showResults);
    connect(&m_clock, &QTimer::timeout, this, &FimTracking::advance);
}

void FimTracking::initGui()
{
    m_ui->ldbLabel->setText(tr("LDB: %1").arg(m_ldb->hexId()));
    processDeviceInformation(QString(), QString(), QString(), QString());
    m_ui->primarySidePanel->reset();
    m_ui->secondarySidePanel->reset();
    m_ui->resultLabel->hide();
    m_ui->fimCountsPanel->reset();
    WhyNot::permit(m_ui->copyReportButton,
                   [] { return tr("There is no report before a run has come to its end."); });
    WhyNot::permit(m_ui->zoomButton,
                   [] { return tr("There is nothing to zoom into before the counting begins."); });
    m_ui->contentStack->setCurrentWidget(m_ui->hintPage);
    showNotice(QString());
}

/// Dark on light whatever the desktop's colours, as the window is read from a distance. Child
/// widgets take their colours from the style sheet; it blocks the palette.
void FimTracking::initPalette()
{
    QPalette palette{QColor(colours::kTrackingButton), QColor(colours::kTrackingGround)};
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Active, role, Qt::black);
        palette.setColor(QPalette::Inactive, role, Qt::black);
    }
    palette.setColor(QPalette::Base, Qt::white);
    setPalette(palette);
}

void FimTracking::placeOver(const QWidget* parent)
{
    if (!parent) {
        return;
    }
    const QRect inside = parent->window()->geometry().marginsRemoved(kInsetFromParent);
    QRect placed(QPoint(), inside.size().expandedTo(minimumSizeHint()));
    placed.moveCenter(inside.center());
    setGeometry(placed);
}

SidePanel* FimTracking::panel(int ldbPort) const
{
    return ldbPort == PrimaryPort ? m_ui->primarySidePanel : m_ui->secondarySidePanel;
}

void FimTracking::showEvent(QShowEvent* event)
{
    m_ldb->setPolledAlone(true);
    m_ldbHeld = true;
    QWidget::showEvent(event);
}

void FimTracking::closeEvent(QCloseEvent* event)
{
    stop();
    releaseLdb();
    QWidget::closeEvent(event);
}

void FimTracking::releaseLdb()
{
    if (std::exchange(m_ldbHeld, false)) {
        m_ldb->setPolledAlone(false);
    }
}

/// What was kept for a run that sent nothing is forgotten; of another one it is told.
void FimTracking::endRun()
{
    m_former->withdraw();
    if (m_stage == Stage::Preparing) {
        m_former->drop();
    }
    if (std::exchange(m_stage, Stage::Idle) != Stage::Idle) {
        emit runEnds(m_former->state(), std::exchange(m_audioMuted, false));
    }
}

void FimTracking::followLink()
{
    const bool isReachable = m_ldb->isReachable();
    if (isReachable && m_ldbHeld) {
        m_ldb->setPolledAlone(true); // a link that was started anew polls all
    }
    const bool isStop = m_ui->startButton->isChecked();
    WhyNot::permit(m_ui->startButton, isReachable || isStop ? Text() : trackingtexts::noConnection);
    m_ui->fimCountsPanel->setReachable(isReachable);
    m_ui->hintLabel->setText(trackingtexts::hint(m_run.phase(), isReachable));
}

void FimTracking::on_startButton_toggled(bool checked)
{
    m_ui->startButton->setText(checked ? tr("Stop") : tr("Start"));
    if (checked) {
        start();
    } else {
        stop();
    }
}

void FimTracking::start()
{
    ++m_runNumber;
    for (QMessageBox* box : findChildren<QMessageBox*>()) {
        box->close();
    }
    m_findings->clear();
    initGui();
    resetPlots();
    m_run.prepare(m_ldb->now());
    advance();
    m_questions->ask();
}

void FimTracking::stop()
{
    m_questions->withdraw();
    endRun();
    m_run.stop(m_run.isActive() ? TrackingRun::StopReason::User : TrackingRun::StopReason::None);
    setFactoryResetCountdownVisible(false);
    m_findings->silence();
    m_clock.stop();
    showTimes();
}

void FimTracking::resetPlots()
{
    for (int port : {PrimaryPort, SecondaryPort}) {
        panel(port)->plot()->clear();
        panel(port)->plot()->setLdb(m_ldb->hexId());
        panel(port)->plot()->setZoom(m_ui->zoomButton->isChecked());
    }
}

void FimTracking::prepare(TrackingMode mode)
{
    if (mode == TrackingMode::Cancelled) {
        m_ui->startButton->setChecked(false);
    } else if (!m_ldb->isReachable()) {
        m_run.stop(TrackingRun::StopReason::ConnectionLost);
    } else {
        m_mode = mode;
        m_stage = Stage::Preparing;
        showNotice(tr("Reading the settings of the LDB, to keep them"));
        emit runBegins();
        m_former->take();
    }
}

void FimTracking::begin()
{
    m_stage = Stage::Running;
    m_ui->fimCountsPanel->setConfigured(configuredFims());
    showNotice(QString());
    m_run.begin(m_mode, m_ldb->now());
    showTimes();
}

void FimTracking::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    using namespace generalinformation;
    if (hexId != m_ldb->hexId()) {
        return;
    }
    processDeviceInformation(text(dataList, NameRow), text(dataList, ModeRow),
                             text(dataList, LoopRow), text(dataList, EarthRow));
    if (m_stage == Stage::Running) {
        m_run.processRecord(dataList, m_ldb->now());
        showTimes();
    }
}

void FimTracking::processDeviceInformation(const QString& name, const QString& mode,
                                           const QString& loopState, const QString& earthState)
{
    m_deviceName = name;
    m_ui->nameLabel->setText(tr("Name: %1").arg(name));
    m_ui->modeLabel->setText(tr("Mode: %1").arg(mode));
    m_ui->loopLabel->setText(tr("Loop: %1").arg(loopState));
    m_ui->earthLabel->setText(tr("Earth: %1").arg(earthState));
}

void FimTracking::processPlotData(double primaryCurrent, double secondaryCurrent,
                                  const QDateTime& timestamp)
{
    const BySide<double> currents{primaryCurrent, secondaryCurrent};
    for (int port : {PrimaryPort, SecondaryPort}) {
        if (m_run.counter().isSideCounting(port)) {
            panel(port)->plot()->addCurrent(currents[port], timestamp);
        }
    }
}

void FimTracking::showPhase()
{
    const Phase phase = m_run.phase();
    m_ui->phaseLabel->setText(trackingtexts::phase(phase, m_run.stopReason()));
    setFactoryResetCountdownVisible(m_run.isCountingDown());
    if (phase == Phase::Rebooting || phase == Phase::Counting) {
        m_ui->contentStack->setCurrentWidget(m_ui->countingPage);
    }
    const QString stopReason = trackingtexts::stopReason(m_run.stopReason());
    if (!stopReason.isEmpty()) {
        showNotice(stopReason);
    }
    if (phase == Phase::Idle || phase == Phase::Finished) {
        m_ui->startButton->setChecked(false);
    }
    followLink();
    showTimes();
}

void FimTracking::advance()
{
    const qint64 now = m_ldb->now();
    m_run.advance(now);
    showTimes();
    if (m_ui->startButton->isChecked()) {
        const qint64 due = m_run.nextDue().value_or(now + kDisplayPeriod);
        m_clock.start(static_cast<int>(std::min<qint64>(due - now, kDisplayPeriod)));
    }
}

void FimTracking::showTimes()
{
    m_ui->phaseTimeLabel->setText(trackingtexts::time(m_run));
    for (int port : {PrimaryPort, SecondaryPort}) {
        panel(port)->setRemaining(trackingtexts::timeToSideEnd(m_run.counter(), port));
    }
}

void FimTracking::setFactoryResetCountdownVisible(bool visible)
{
    const bool isVisible = m_ui->contentStack->currentWidget() == m_ui->countdownPage;
    if (visible == isVisible) {
        return;
    }
    m_ui->countdownTitleLabel->setText(tr("Factory Reset Countdown"));
    m_ui->countdownTextLabel->setText(tr("Factory reset started"));
    setDigitColour(m_ui->countdownLcdNumber, Qt::black);
    m_ui->contentStack->setCurrentWidget(visible ? m_ui->countdownPage : m_ui->hintPage);
}

void FimTracking::showCountdown(int secondsLeft)
{
    setFactoryResetCountdownVisible(true);
    m_ui->countdownLcdNumber->display(secondsLeft);
    if (secondsLeft == kLastSeconds) {
        setDigitColour(m_ui->countdownLcdNumber, Qt::red);
    }
    showTimes();
}

void FimTracking::processSideFinished(int ldbPort, SideEnd result)
{
    panel(ldbPort)->showEnd(result);
    m_findings->addSideEnd(ldbPort, result);
}

void FimTracking::processFault(const FaultReport& report)
{
    for (int port : {PrimaryPort, SecondaryPort}) {
        if (report.positions[port]) {
            panel(port)->showFault(report.kind, *report.positions[port]);
        }
    }
    m_findings->addFault(report);
}

void FimTracking::showResults(int totalFimCount, LoopResult result)
{
    const QString summary = trackingtexts::summary(totalFimCount, result);
    m_findings->finish(m_ldb->hexId(), m_deviceName, m_run, summary);
    m_ui->resultLabel->setText(summary);
    m_ui->resultLabel->setStyleSheet(
        QStringLiteral("background: %1;")
            .arg(result == LoopResult::Connected ? colours::kConnected : colours::kShort));
    m_ui->resultLabel->show();
    WhyNot::permit(m_ui->copyReportButton, Text());
    m_ui->fimCountsPanel->showCounted(totalFimCount);
    showTimes();
}

void FimTracking::processTakenOver(int fimCount, const QString& failure)
{
    if (failure.isEmpty()) {
        m_ui->fimCountsPanel->setConfigured(fimCount);
        showNotice(tr("The number of FIM's in the LDB is now %1.").arg(fimCount));
    } else {
        showNotice(tr("The number of FIM's: %1").arg(failure));
    }
    followLink();
}

std::optional<int> FimTracking::configuredFims() const
{
    const std::optional<LdbSettings>& settings = m_former->state().settings;
    return settings ? std::make_optional<int>(settings->numberOfFims) : std::nullopt;
}

QString FimTracking::reportText() const
{
    return m_findings->reportText();
}

void FimTracking::on_copyReportButton_clicked()
{
    QApplication::clipboard()->setText(reportText());
    showNotice(tr("The report has been copied."));
}

void FimTracking::on_zoomButton_toggled(bool checked)
{
    m_ui->zoomButton->setText(checked ? tr("Zoom Out") : tr("Zoom In"));
    m_ui->primarySidePanel->plot()->setZoom(checked);
    m_ui->secondarySidePanel->plot()->setZoom(checked);
}

void FimTracking::sendCommand(TrackingCommand command)
{
    if (command == TrackingCommand::MuteAudio) {
        m_audioMuted = true;
        WhyNot::permit(m_ui->zoomButton, Text());
    }
    m_ldb->send(command, this, [this, runNumber = m_runNumber, command](const Reply& reply) {
        if (!reply.isAccepted()) {
            processFailure(runNumber, command, reply.kind() == Reply::Kind::Refused);
        }
    });
}

void FimTracking::processFailure(int runNumber, TrackingCommand command, bool isRefused)
{
    if (isRefused && command == TrackingCommand::MuteAudio) {
        m_audioMuted = false;
    }
    if (runNumber != m_runNumber || !m_run.isActive()) {
        return; // of a run that is over, and has said why
    }
    if (command == TrackingCommand::FactoryReset) {
        m_run.doubtFactoryReset(isRefused);
    }
    if (!isRefused || command != TrackingCommand::FactoryReset) {
        showNotice(trackingtexts::commandFailure(command, isRefused));
    }
}

void FimTracking::showNotice(const QString& text)
{
    m_ui->noticeLabel->setText(text);
    m_ui->noticeLabel->setVisible(!text.isEmpty());
}

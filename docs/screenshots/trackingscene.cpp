#include "docs/screenshots/trackingscene.h"

#include "tracking/faultfinding/fimtracking.h"
#include "tracking/faultfinding/startquestions.h"
#include "tracking/faultfinding/trackingtexts.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QTime>

#include <cstdio>

namespace {

constexpr int kQuestionSeconds = 10;
constexpr int kCountdownSeconds = 30;
constexpr int kResetSeconds = 200;
constexpr int kRunSeconds = 1800;
constexpr int kCountingShotCount = 2; // FIMs counted when counting is pictured
/// Long enough for the plots to show it.
constexpr int kSettleSeconds = 5;

void clickText(const QMessageBox* box, const QString& text)
{
    const QList<QAbstractButton*> buttons = box->buttons();
    for (QAbstractButton* button : buttons) {
        if (button->text() == text) {
            button->click();
            return;
        }
    }
    qFatal("there is no button %s", qPrintable(text));
}

} // namespace

TrackingScene::TrackingScene(Stage& stage, TrackingMode mode, const QString& prefix)
    : m_stage(stage)
    , m_mode(mode)
    , m_prefix(prefix)
{
}

void TrackingScene::run()
{
    using Phase = TrackingRun::Phase;
    m_stage.start();
    m_stage.click(QStringLiteral("fimTrackingButton"));
    m_window = m_stage.waitForWindow<FimTracking>();
    answerQuestions();

    const TrackingRun& run = m_window->run();
    Stage::waitFor(
        "the countdown", [&run] { return run.isCountingDown(); }, kCountdownSeconds);
    Stage::pass(kSettleSeconds);
    shoot(m_window, QStringLiteral("waiting"));
    shoot(&m_stage.window(), QStringLiteral("main-window"));
    Stage::waitFor(
        "the reboot", [&run] { return run.phase() == Phase::Rebooting; }, kResetSeconds);
    Stage::pass(1);
    shoot(m_window, QStringLiteral("rebooting"));
    Stage::waitFor(
        "the counting", [&run] { return run.phase() == Phase::Counting; }, kResetSeconds);
    print(QStringLiteral("counting begins"));
    watchCounting();

    Stage::pass(1);
    takeBoxes();
    shoot(m_window, QStringLiteral("finished"));
    print(QStringLiteral("report\n") + m_window->reportText());
    m_window->close();
    Stage::pass(1);
}

void TrackingScene::answerQuestions()
{
    auto* start = m_stage.waitForWindow<QMessageBox>(QStringLiteral("startConfirmationBox"),
                                                     kQuestionSeconds);
    shoot(start, QStringLiteral("confirmation"));
    start->button(QMessageBox::Yes)->click();
    auto* mode =
        m_stage.waitForWindow<QMessageBox>(QStringLiteral("trackingModeBox"), kQuestionSeconds);
    shoot(mode, QStringLiteral("mode"));
    clickText(mode, trackingtexts::mode(m_mode));
    if (m_mode == TrackingMode::FaultFinding) {
        auto* secondary = m_stage.waitForWindow<DisconnectSecondaryPortDialog>();
        shoot(secondary, QStringLiteral("secondary-port"));
        m_stage.simulator().send(QStringLiteral("secondary-port all disconnected"));
        secondary->accept();
    }
}

void TrackingScene::watchCounting()
{
    const TrackingRun& run = m_window->run();
    bool isShot = false;
    QString shown = counts();
    Stage::waitFor(
        "the result",
        [&] {
            if (counts() != shown) {
                shown = counts();
                print(shown);
            }
            if (!isShot && run.counter().fimCount(PrimaryPort) >= kCountingShotCount) {
                isShot = true;
                shoot(m_window, QStringLiteral("counting"));
            }
            takeBoxes();
            return run.phase() != TrackingRun::Phase::Counting;
        },
        kRunSeconds);
    print(counts());
}

QString TrackingScene::counts() const
{
    const FimCounter& counter = m_window->run().counter();
    return QStringLiteral("primary %1, secondary %2, %3")
        .arg(counter.fimCount(PrimaryPort))
        .arg(counter.fimCount(SecondaryPort))
        .arg(m_stage.child<QLabel>(QStringLiteral("loopLabel"), m_window)->text());
}

void TrackingScene::takeBoxes()
{
    while (auto* box = visibleWindow<QMessageBox>()) {
        print(QStringLiteral("box: ") + box->text());
        if (!m_alarmShot) {
            m_alarmShot = true;
            shoot(box, QStringLiteral("alarm"));
        }
        box->accept();
        QCoreApplication::processEvents();
    }
}

void TrackingScene::shoot(QWidget* widget, const QString& phase)
{
    if (!m_prefix.isEmpty()) {
        m_stage.shoot(widget, m_prefix + QLatin1Char('-') + phase);
    }
}

void TrackingScene::print(const QString& text) const
{
    std::printf("%s %4d s  %s\n", qPrintable(QTime::currentTime().toString()),
                m_window->run().secondsGone(), qPrintable(text));
    std::fflush(stdout);
}

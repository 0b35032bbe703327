#include "app/lookback/lookback.h"

#include "app/lookback/gotodialog.h"
#include "app/lookback/recordedband.h"
#include "app/lookback/shownsource.h"
#include "recording/recordingaccess.h"
#include "serial/ldb/microseconds.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QTabBar>
#include <QTableView>
#include <QTextEdit>
#include <QThread>

#include <algorithm>
#include <array>
#include <iterator>
#include <limits>
#include <utility>

namespace {

using microseconds::kSecond;
constexpr qint64 kStep = 10 * kSecond;
constexpr qint64 kFarStep = 600 * kSecond;
using microseconds::kMillisecond;
constexpr int kTickMs = 100;
constexpr int kRefreshMs = 10000;
/// The most that playing makes up for after a stall, ms.
constexpr qint64 kLongestTick = 500;
constexpr std::array kSpeeds{1, 2, 5, 10, 60};
/// How many seconds of playing are read at a time.
constexpr qint64 kReadAhead = 5;

TimeBarContent contentOf(RecordingReader& reader)
{
    constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};
    TimeBarContent content;
    if (const auto extent = reader.extent()) {
        content.extent = *extent;
        content.runs = reader.runs(kAll);
        content.gaps = reader.gaps(kAll);
        content.events = reader.events(kAll);
    }
    return content;
}

KeyPlace placeOf(const QWidget* widget)
{
    if (qobject_cast<const QLineEdit*>(widget) != nullptr ||
        qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
        qobject_cast<const QTextEdit*>(widget) != nullptr) {
        return KeyPlace::TextField;
    }
    if (qobject_cast<const QTableView*>(widget) != nullptr) {
        return KeyPlace::Table;
    }
    if (qobject_cast<const QAbstractButton*>(widget) != nullptr) {
        return KeyPlace::Button;
    }
    if (qobject_cast<const QComboBox*>(widget) != nullptr ||
        qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
        qobject_cast<const QTabBar*>(widget) != nullptr) {
        return KeyPlace::Control;
    }
    // This room does not link the plot's library, so the canvas is known by the name of its class.
    return widget != nullptr && widget->inherits("QwtPlotCanvas") ? KeyPlace::Plot : KeyPlace::Bar;
}

} // namespace

LookBack::LookBack(const Surroundings& around, QWidget* window, QObject* parent)
    : QObject(parent)
    , m_around(around)
    , m_window(window)
    , m_replay(new Replay(this))
    , m_bar(new TimeBar(window))
    , m_band(new RecordedBand(window))
    , m_past(m_replay, around.access)
    , m_asking(std::make_unique<QObject>())
{
    m_bar->setObjectName(QStringLiteral("timeBar"));
    m_band->hide();
    connect(m_bar, &TimeBar::momentWanted, this, &LookBack::goTo);
    connect(m_bar, &TimeBar::liveWanted, this, &LookBack::live);
    connect(m_band, &RecordedBand::liveWanted, this, &LookBack::live);
    connect(m_band, &RecordedBand::playWanted, this, &LookBack::togglePlay);
    connect(m_replay, &Replay::monitoringChanged, this, &LookBack::monitoringChanged);
    connect(m_replay, &Replay::momentTold, this, &LookBack::momentTold);
    connect(around.access, &RecordingAccess::pathChanged, this, &LookBack::forget);
    connect(&m_ticks, &QTimer::timeout, this, &LookBack::tick);
    connect(&m_refresh, &QTimer::timeout, this, &LookBack::refresh);
    m_ticks.setInterval(kTickMs);
    m_refresh.start(kRefreshMs);
    qApp->installEventFilter(this);
    readContent();
}

LookBack::~LookBack() = default;

std::optional<qint64> LookBack::shown() const
{
    return m_isShowing ? std::make_optional(m_replay->position()) : std::nullopt;
}

/// Another recording is in force.
void LookBack::forget()
{
    live();
    m_asking = std::make_unique<QObject>();
    m_isContentDue = false;
    m_bar->setContent({});
    readContent();
}

void LookBack::refresh()
{
    readContent();
}

void LookBack::readContent()
{
    if (m_isContentDue || m_around.access->path().isEmpty()) {
        return;
    }
    m_isContentDue = true;
    m_around.access->ask(m_asking.get(), contentOf, [this](TimeBarContent content) {
        m_isContentDue = false;
        m_bar->setContent(std::move(content));
        if (m_isRecording) {
            m_bar->setNow(m_around.wallTime() * kMillisecond);
        }
    });
}

void LookBack::goTo(qint64 at)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (m_around.access->path().isEmpty()) {
        return;
    }
    const TimeBarContent& content = m_bar->content();
    m_wanted = content.isEmpty() ? at
                                 : std::clamp(at, content.extent.from,
                                              std::max(content.extent.to - 1, m_bar->now()));
    readMoment();
}

/// Reads one moment at a time. Of those wanted meanwhile, the last one counts.
void LookBack::readMoment()
{
    if (m_isMomentDue || !m_wanted) {
        return;
    }
    m_isMomentDue = true;
    m_target = std::exchange(m_wanted, std::nullopt);
    m_around.access->ask(
        m_asking.get(),
        [at = *m_target, hexId = m_hexId](RecordingReader& reader) {
            return moment::read(reader, at, hexId);
        },
        [this](Moment moment) {
            m_isMomentDue = false;
            show(std::move(moment));
            readMoment();
        });
}

void LookBack::show(Moment moment)
{
    m_isStretchDue = false;
    if (!moment.isRecorded) {
        emit nothingFound();
        return;
    }
    if (!m_isShowing) {
        m_isShowing = true;
        m_around.source->show(m_replay);
        emit lookingBackChanged(true);
        m_band->show();
        m_bar->setFocus();
    }
    m_replay->show(std::move(moment));
    showPosition();
}

void LookBack::live()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_wanted.reset();
    m_target.reset();
    m_isMomentDue = false;
    m_isStretchDue = false;
    m_isContentDue = false;
    m_asking = std::make_unique<QObject>(); // drops the answers to what was asked
    setPlaying(false);
    m_alert.clear();
    if (!std::exchange(m_isShowing, false)) {
        return;
    }
    m_bar->setPosition(std::nullopt);
    m_band->hide();
    emit lookingBackChanged(false);
    m_around.source->show(nullptr);
    emit shownChanged();
}

qint64 LookBack::position() const
{
    if (m_wanted || m_isMomentDue) {
        return m_wanted.value_or(m_target.value_or(0));
    }
    return m_isShowing ? m_replay->position() : m_bar->now();
}

void LookBack::showPosition()
{
    m_bar->setPosition(m_replay->position());
    m_band->setShown(
        {m_replay->wallTime(), m_replay->monitoring(), m_isPlaying, kSpeeds.at(m_speed)});
    m_band->setNow(m_alert.isEmpty() ? m_now : m_alert, !m_alert.isEmpty());
    emit shownChanged();
}

void LookBack::setSelectedLdb(const QString& hexId)
{
    if (std::exchange(m_hexId, hexId) != hexId && m_isShowing && !m_wanted) {
        goTo(position()); // with the past of this LDB
    }
}

void LookBack::setNow(const QString& text)
{
    m_now = text;
    if (m_isShowing && m_alert.isEmpty()) {
        m_band->setNow(m_now, false);
    }
    if (m_isRecording) {
        m_bar->setNow(m_around.wallTime() * kMillisecond);
    }
}

void LookBack::alert(const QString& text)
{
    if (m_isShowing) {
        m_alert = text;
        m_band->setNow(m_alert, true);
    }
}

void LookBack::togglePlay()
{
    if (m_isShowing) {
        setPlaying(!m_isPlaying);
        showPosition();
    }
}

void LookBack::setPlaying(bool isPlaying)
{
    m_isPlaying = isPlaying;
    m_lastTick = m_around.wallTime();
    if (isPlaying) {
        m_ticks.start();
        readAhead();
    } else {
        m_ticks.stop();
    }
}

void LookBack::tick()
{
    const qint64 now = m_around.wallTime();
    const qint64 elapsed = std::clamp(now - std::exchange(m_lastTick, now), 0LL, kLongestTick);
    if (!m_isMomentDue) {
        m_replay->advance(elapsed * kMillisecond * kSpeeds.at(m_speed));
    }
    readAhead();
    showPosition();
}

void LookBack::readAhead()
{
    const qint64 ahead = kReadAhead * kSecond * kSpeeds.at(m_speed);
    if (m_isStretchDue || m_isMomentDue ||
        m_replay->readyUntil() - m_replay->position() > ahead / 2) {
        return;
    }
    const TimeBarContent& content = m_bar->content();
    if (!m_isRecording && m_replay->readyUntil() >= content.extent.to - 1) {
        if (m_replay->position() >= m_replay->readyUntil()) {
            setPlaying(false); // the recording has ended
        }
        return;
    }
    m_isStretchDue = true;
    const qint64 from = m_replay->readyUntil();
    m_around.access->ask(
        m_asking.get(),
        [from, ahead](RecordingReader& reader) {
            return moment::stretchOf(reader, from, from + ahead);
        },
        [this](Stretch stretch) {
            m_isStretchDue = false;
            m_replay->add(std::move(stretch));
        });
}

void LookBack::setSpeed(int step)
{
    m_speed = static_cast<std::size_t>(
        std::clamp(static_cast<int>(m_speed) + step, 0, static_cast<int>(kSpeeds.size()) - 1));
    showPosition();
}

void LookBack::stepToRecord(bool isForward)
{
    m_around.access->ask(
        m_asking.get(),
        [at = position(), isForward](RecordingReader& reader) {
            return isForward ? reader.nextRecord(at) : reader.formerRecord(at);
        },
        [this](std::optional<qint64> at) {
            if (at) {
                goTo(*at);
            }
        });
}

void LookBack::stepToEvent(bool isForward)
{
    const std::vector<RecordedEvent>& events = m_bar->content().events;
    const auto isBefore = [](const RecordedEvent& event, qint64 at) {
        return event.at < at;
    };
    const qint64 at = position();
    if (isForward) {
        const auto next = std::lower_bound(events.begin(), events.end(), at + 1, isBefore);
        if (next != events.end()) {
            goTo(next->at);
        }
        return;
    }
    const auto next = std::lower_bound(events.begin(), events.end(), at, isBefore);
    if (next != events.begin()) {
        goTo(std::prev(next)->at);
    }
}

void LookBack::press(BarKey key)
{
    switch (key) {
    case BarKey::PlayOrPause:
        togglePlay();
        return;
    case BarKey::Back:
        goTo(position() - kStep);
        return;
    case BarKey::On:
        goTo(position() + kStep);
        return;
    case BarKey::FarBack:
        goTo(position() - kFarStep);
        return;
    case BarKey::FarOn:
        goTo(position() + kFarStep);
        return;
    case BarKey::FormerRecord:
    case BarKey::NextRecord:
        stepToRecord(key == BarKey::NextRecord);
        return;
    case BarKey::FormerEvent:
    case BarKey::NextEvent:
        stepToEvent(key == BarKey::NextEvent);
        return;
    case BarKey::Begin:
        goTo(m_bar->content().extent.from);
        return;
    case BarKey::End:
        goTo(m_bar->content().extent.to - 1);
        return;
    case BarKey::Slower:
    case BarKey::Faster:
        if (m_isShowing) {
            setSpeed(key == BarKey::Faster ? 1 : -1);
        }
        return;
    case BarKey::GoTo:
        askWhere();
        return;
    case BarKey::Live:
        live();
        return;
    }
}

void LookBack::askWhere()
{
    const TimeBarContent& content = m_bar->content();
    if (content.isEmpty()) {
        return;
    }
    auto* dialog = new GoToDialog(content.extent, position(), m_window);
    connect(dialog, &GoToDialog::chosen, this, &LookBack::goTo);
    dialog->open();
}

bool LookBack::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) {
        return false;
    }
    const auto* widget = static_cast<const QWidget*>(watched);
    const QWidget* focus = m_window->focusWidget();
    const bool isMeant = focus == nullptr ? widget == m_window : widget == focus;
    if (!isMeant || widget->window() != m_window || QApplication::activePopupWidget() != nullptr ||
        QApplication::activeModalWidget() != nullptr) {
        return false;
    }
    const auto* key = static_cast<const QKeyEvent*>(event);
    // A widget without keys of its own counts as the bar while the window looks back.
    const KeyPlace place = placeOf(widget);
    const bool isOnBar = widget == m_bar;
    const auto meaning = barKeyOf(key->key(), key->modifiers(), place, m_isShowing);
    if (!meaning || (!m_isShowing && !isOnBar && *meaning != BarKey::GoTo)) {
        return false;
    }
    press(*meaning);
    return true;
}

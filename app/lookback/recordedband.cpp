#include "app/lookback/recordedband.h"

#include "app/shared/colours.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPalette>
#include <QPushButton>
#include <QStyle>
#include <QThread>
#include <QToolButton>

#include <cstdlib>

namespace {

constexpr int kSideMargin = 8; // pixels
constexpr int kMargin = 2;

/// "UTC+01:00"
QString zoneOf(const QDateTime& time)
{
    constexpr int kSecondsPerMinute = 60;
    constexpr int kMinutesPerHour = 60;
    const int minutes = time.offsetFromUtc() / kSecondsPerMinute;
    return QStringLiteral("UTC%1%2:%3")
        .arg(minutes < 0 ? QLatin1Char('-') : QLatin1Char('+'))
        .arg(std::abs(minutes) / kMinutesPerHour, 2, 10, QLatin1Char('0'))
        .arg(std::abs(minutes) % kMinutesPerHour, 2, 10, QLatin1Char('0'));
}

QString situationOf(const Monitoring& monitoring)
{
    using State = Monitoring::State;
    switch (monitoring.state) {
    case State::NotRecorded:
        return RecordedBand::tr("nothing was recorded since %1")
            .arg(monitoring.clockText(monitoring.since.value_or(monitoring.now)));
    case State::Scanning:
        return RecordedBand::tr("the bus was being scanned");
    case State::NoAnswer:
        return RecordedBand::tr("no LDB answered");
    case State::Polling:
        return {};
    default:
        break;
    }
    return monitoring.since ? RecordedBand::tr("not monitored since %1")
                                  .arg(monitoring.clockText(*monitoring.since))
                            : RecordedBand::tr("not monitored yet");
}

} // namespace

RecordedBand::RecordedBand(QWidget* parent)
    : QFrame(parent)
    , m_text(new QLabel(this))
    , m_speed(new QLabel(this))
    , m_nowText(new QLabel(this))
    , m_play(new QToolButton(this))
    , m_live(new QPushButton(this))
{
    setObjectName(QStringLiteral("recordedBand"));
    m_text->setObjectName(QStringLiteral("recordedLabel"));
    m_nowText->setObjectName(QStringLiteral("recordedNowLabel"));
    m_play->setObjectName(QStringLiteral("playButton"));
    m_live->setObjectName(QStringLiteral("backToLiveButton"));
    QFont bold = m_text->font();
    bold.setBold(true);
    m_text->setFont(bold);
    m_text->setTextFormat(Qt::PlainText);
    m_nowText->setTextFormat(Qt::PlainText);
    // Where there is no room for all, the moment is shown first.
    m_nowText->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_nowText->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // Clicking the buttons takes the keyboard from nobody.
    m_play->setFocusPolicy(Qt::TabFocus);
    m_live->setFocusPolicy(Qt::TabFocus);
    m_nowText->setAutoFillBackground(true);
    QPalette colours;
    colours.setColor(QPalette::Window, QColor(colours::kRecorded));
    colours.setColor(QPalette::WindowText, Qt::black);
    setPalette(colours);
    m_play->setPalette(QPalette());
    m_live->setPalette(QPalette());
    setAutoFillBackground(true);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kSideMargin, kMargin, kMargin, kMargin);
    layout->addWidget(m_play);
    layout->addWidget(m_speed);
    layout->addWidget(m_text);
    layout->addWidget(m_nowText, 1);
    layout->addWidget(m_live);
    connect(m_play, &QAbstractButton::clicked, this, &RecordedBand::playWanted);
    connect(m_live, &QAbstractButton::clicked, this, &RecordedBand::liveWanted);
    refresh();
}

void RecordedBand::setShown(const Shown& shown)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_shown = shown;
    refresh();
}

void RecordedBand::setNow(const QString& text, bool isAlert)
{
    m_now = text;
    m_isAlert = isAlert;
    refresh();
}

QString RecordedBand::text(const Shown& shown)
{
    const QString moment =
        tr("Recorded: %1 %2 (%3)")
            .arg(QLocale().toString(shown.wall.date(), QStringLiteral("ddd d MMMM yyyy")),
                 shown.wall.time().toString(QStringLiteral("hh:mm:ss")), zoneOf(shown.wall));
    const QString situation = situationOf(shown.monitoring);
    return situation.isEmpty() ? moment : moment + QStringLiteral(" – ") + situation;
}

void RecordedBand::refresh()
{
    m_text->setText(text(m_shown));
    m_speed->setText(m_shown.isPlaying ? QStringLiteral("%1×").arg(m_shown.speed) : QString());
    m_play->setIcon(
        style()->standardIcon(m_shown.isPlaying ? QStyle::SP_MediaPause : QStyle::SP_MediaPlay));
    m_play->setToolTip(m_shown.isPlaying ? tr("Pause (Space)") : tr("Play (Space)"));
    m_play->setAccessibleName(m_shown.isPlaying ? tr("Pause") : tr("Play"));
    m_live->setText(tr("Back to Live"));
    m_live->setToolTip(tr("Show what is now (Esc)"));
    const QString now = m_now.isEmpty() ? QString() : tr("now: %1").arg(m_now);
    m_nowText->setText(m_isAlert ? tr("%1; back to live").arg(now) : now);
    m_nowText->setToolTip(now);
    QPalette colours = palette();
    colours.setColor(QPalette::Window,
                     QColor(m_isAlert ? colours::kRecordedNow : colours::kRecorded));
    if (m_nowText->palette() != colours) {
        m_nowText->setPalette(colours);
    }
}

void RecordedBand::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        refresh();
    }
}

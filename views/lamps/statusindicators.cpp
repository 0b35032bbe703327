#include "views/lamps/statusindicators.h"

#include "app/shared/colours.h"
#include "serial/ldb/generalinformation.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QThread>

#include <cmath>

namespace {

constexpr int kSlowBlinkPeriod = 500; // ms
constexpr int kFastBlinkPeriod = 125; // ms

// Smaller than the picture, so that neighbouring lamps do not touch.
constexpr QRect kEllipse(0, 0, 16, 16);

struct LampTexts
{
    const char* name;
    const char* off;
    const char* fast;
    const char* slow; ///< of the lamps that know it
};

// In the order of the lamps.
constexpr LampTexts kTexts[] = {
    {QT_TRANSLATE_NOOP("StatusIndicators", "SERVICE MODE"),
     QT_TRANSLATE_NOOP("StatusIndicators", "No LDB is in service mode."),
     QT_TRANSLATE_NOOP("StatusIndicators", "At least one LDB is in service mode."), nullptr},
    {QT_TRANSLATE_NOOP("StatusIndicators", "EARTH FAULT"),
     QT_TRANSLATE_NOOP("StatusIndicators", "No LDB reports an earth fault."),
     QT_TRANSLATE_NOOP("StatusIndicators", "At least one LDB has an earth fault now."),
     QT_TRANSLATE_NOOP("StatusIndicators",
                       "At least one LDB remembers an earth fault that has gone.")},
    {QT_TRANSLATE_NOOP("StatusIndicators", "OPEN/SHORT/LEAK"),
     QT_TRANSLATE_NOOP("StatusIndicators", "No LDB reports a fault of its loop or its amplifier."),
     QT_TRANSLATE_NOOP("StatusIndicators", "At least one LDB has an open, a short, DC leakage or a "
                                           "disconnected amplifier now."),
     QT_TRANSLATE_NOOP("StatusIndicators", "At least one LDB remembers a loop fault that has gone, "
                                           "or has its amplifier back.")},
    {QT_TRANSLATE_NOOP("StatusIndicators", "SETTINGS"),
     QT_TRANSLATE_NOOP("StatusIndicators", "No LDB asks for its settings to be checked."),
     QT_TRANSLATE_NOOP("StatusIndicators", "At least one LDB asks for its settings to be checked."),
     nullptr},
};

} // namespace

QPixmap lampimage::draw(const QString& colour)
{
    const double ratio = std::ceil(qGuiApp->devicePixelRatio());
    QPixmap pixmap(QSize(kSize, kSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(colour));
    painter.drawEllipse(kEllipse);
    return pixmap;
}

QPixmap lampimage::drawUnknown()
{
    QPixmap pixmap = draw(colours::kLampOff);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor line(colours::kLampUnknown);
    painter.setPen(line);
    painter.setBrush(QBrush(line, Qt::BDiagPattern));
    painter.drawEllipse(QRectF(kEllipse).adjusted(0.5, 0.5, -0.5, -0.5));
    return pixmap;
}

StatusIndicators::StatusIndicators(QLabel* lampA, QLabel* lampC, QLabel* lampB, QLabel* lampD,
                                   QObject* parent)
    : QObject(parent)
    , m_off(lampimage::draw(colours::kLampOff))
    , m_unknown(lampimage::drawUnknown())
{
    const QPixmap amber = lampimage::draw(colours::kAmber);
    indicator(Lamp::A) = {lampA, lampimage::draw(colours::kBlue)};
    indicator(Lamp::B) = {lampB, amber};
    indicator(Lamp::C) = {lampC, amber};
    indicator(Lamp::D) = {lampD, lampimage::draw(colours::kOrangered)};
    for (const Indicator& each : m_indicators) {
        // Without a fixed size, each blink would cause a new layout of the window.
        each.label->setFixedSize(lampimage::kSize, lampimage::kSize);
        each.label->setPixmap(m_unknown);
    }
    retranslate();

    connect(&m_slowTimer, &QTimer::timeout, this, &StatusIndicators::slowBlink);
    connect(&m_fastTimer, &QTimer::timeout, this, &StatusIndicators::fastBlink);
    m_slowTimer.start(kSlowBlinkPeriod);
    m_fastTimer.start(kFastBlinkPeriod);
}

void StatusIndicators::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_condition.add(hexId, dataList);
    m_recordTime = generalinformation::clockTime(dataList);
    show();
}

void StatusIndicators::beginRound()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_isRoundWhole = true;
}

void StatusIndicators::endRound()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_condition.endRound();
    if (m_isRoundWhole) {
        m_roundTime = m_recordTime;
    }
    show();
}

void StatusIndicators::setMonitoring(const Monitoring& monitoring)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const bool isWholeNew = monitoring.isWhole() != m_monitoring.isWhole();
    if (isWholeNew) {
        m_condition = BusCondition();
        m_recordTime.reset();
        m_roundTime.reset();
        // One that is on has begun with something else.
        m_isRoundWhole = false;
    }
    m_monitoring = monitoring;
    show();
    if (isWholeNew) {
        retranslate(); // the words say why a lamp is not known
    }
}

void StatusIndicators::keepOnly(const QStringList& hexIds)
{
    m_condition.keepOnly(hexIds);
}

void StatusIndicators::retranslate()
{
    for (const Lamp lamp : kLamps) {
        describe(lamp);
    }
}

void StatusIndicators::slowBlink()
{
    paint(Blink::Slow, m_slowPhase);
    m_slowPhase = !m_slowPhase;
}

void StatusIndicators::fastBlink()
{
    paint(Blink::Fast, m_fastPhase);
    m_fastPhase = !m_fastPhase;
}

/// Shows what is known now, where it differs from what is shown.
void StatusIndicators::show()
{
    for (const Lamp lamp : kLamps) {
        // The other two lamps have one pattern only.
        const bool knowsSlow = kTexts[static_cast<std::size_t>(lamp)].slow != nullptr;
        const FaultLevel level = m_condition.shown().of(lamp);
        const bool isSlow = level == FaultLevel::Minor && knowsSlow;
        Indicator& each = indicator(lamp);
        const Blink former = each.blink;
        const bool wasKnown = each.isKnown;
        each.blink = level == FaultLevel::None ? Blink::Off : isSlow ? Blink::Slow : Blink::Fast;
        each.isKnown = m_monitoring.isLive(each.blink == Blink::Off ? m_roundTime : m_recordTime);
        if (each.blink == former && each.isKnown == wasKnown) {
            continue;
        }
        if (!each.isKnown) {
            each.label->setPixmap(m_unknown);
        } else if (each.blink == Blink::Off) {
            each.label->setPixmap(m_off);
        } else if (former == Blink::Off || !wasKnown) {
            each.label->setPixmap(each.lit);
        }
        // The timers go on with it.
        describe(lamp);
    }
}

void StatusIndicators::paint(Blink blink, bool lit)
{
    for (const Indicator& each : m_indicators) {
        if (each.blink == blink && each.isKnown) {
            each.label->setPixmap(lit ? each.lit : m_off);
        }
    }
}

void StatusIndicators::describe(Lamp lamp)
{
    const Indicator& described = indicator(lamp);
    const LampTexts& texts = kTexts[static_cast<std::size_t>(lamp)];
    const QString name = tr(texts.name);
    QString state;
    QString meaning;
    switch (described.blink) {
    case Blink::Off:
        state = tr("%1: off").arg(name);
        meaning = tr(texts.off);
        break;
    case Blink::Slow:
        state = tr("%1: blinking slowly").arg(name);
        meaning = tr(texts.slow);
        break;
    case Blink::Fast:
        state = tr("%1: blinking fast").arg(name);
        meaning = tr(texts.fast);
        break;
    }
    if (!described.isKnown) {
        state = tr("%1: not known").arg(name);
        meaning = m_monitoring.isWhole() ? tr("No round over all LDBs has been completed yet.")
                                         : tr("Not all LDBs are monitored.");
    }
    described.label->setToolTip(state + QLatin1Char('\n') + meaning);
    described.label->setAccessibleName(state);
    described.label->setAccessibleDescription(meaning);
}

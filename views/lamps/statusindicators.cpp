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
    if (const std::optional<LampLevels> levels = m_condition.add(hexId, dataList)) {
        m_roundSeen = m_roundTime.has_value(); // the first record ends none over all LDBs
        m_roundTime = generalinformation::clockTime(dataList);
        show(*levels);
        updateLiveness();
    }
}

void StatusIndicators::setMonitoring(const Monitoring& monitoring)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (monitoring.isWhole() != m_monitoring.isWhole()) {
        beginAnew();
    }
    m_monitoring = monitoring;
    updateLiveness();
}

void StatusIndicators::keepOnly(const QStringList& hexIds)
{
    // Without the one that marks them, no round would ever end.
    if (m_condition.marker() && !hexIds.contains(*m_condition.marker())) {
        beginAnew();
        updateLiveness();
    }
}

void StatusIndicators::beginAnew()
{
    m_condition = BusCondition();
    m_roundTime.reset();
    m_roundSeen = false;
}

void StatusIndicators::updateLiveness()
{
    m_isLive = m_monitoring.isLive(m_roundTime);
    refresh();
}

bool StatusIndicators::isKnown(const Indicator& each) const
{
    return m_isLive && (m_roundSeen || each.blink != Blink::Off);
}

void StatusIndicators::refresh()
{
    for (const Lamp lamp : kLamps) {
        const Indicator& each = indicator(lamp);
        if (!isKnown(each)) {
            each.label->setPixmap(m_unknown);
        } else if (each.blink == Blink::Off) {
            each.label->setPixmap(m_off);
        }
        // The timers paint the others.
        describe(lamp);
    }
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

void StatusIndicators::show(const LampLevels& levels)
{
    for (const Lamp lamp : kLamps) {
        // The other two lamps have one pattern only.
        const bool knowsSlow = kTexts[static_cast<std::size_t>(lamp)].slow != nullptr;
        const FaultLevel level = levels.of(lamp);
        const bool isSlow = level == FaultLevel::Minor && knowsSlow;
        indicator(lamp).blink = level == FaultLevel::None ? Blink::Off
                                : isSlow                  ? Blink::Slow
                                                          : Blink::Fast;
    }
}

void StatusIndicators::paint(Blink blink, bool lit)
{
    for (const Indicator& each : m_indicators) {
        if (each.blink == blink && isKnown(each)) {
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
    if (!isKnown(described)) {
        state = tr("%1: not known").arg(name);
        meaning = m_monitoring.isWhole() ? tr("No round over all LDBs has been completed yet.")
                                         : tr("Not all LDBs are monitored.");
    }
    described.label->setToolTip(state + QLatin1Char('\n') + meaning);
    described.label->setAccessibleName(state);
    described.label->setAccessibleDescription(meaning);
}

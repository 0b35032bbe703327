#include "views/lamps/statusindicators.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QThread>

#include <cmath>

namespace {

constexpr int kSlowBlinkPeriod = 500; // ms
constexpr int kFastBlinkPeriod = 125; // ms

// The rest of the square stays free, so that neighbouring lamps do not touch.
constexpr QRect kEllipse(0, 0, 16, 16);

} // namespace

QPixmap lampimage::draw(QRgb colour)
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

StatusIndicators::StatusIndicators(QLabel* lampA, QLabel* lampC, QLabel* lampB, QLabel* lampD,
                                   QObject* parent)
    : QObject(parent)
    , m_off(lampimage::draw(lampimage::kOff))
{
    const QPixmap amber = lampimage::draw(lampimage::kAmber);
    indicator(Lamp::A) = {lampA, lampimage::draw(lampimage::kBlue)};
    indicator(Lamp::B) = {lampB, amber};
    indicator(Lamp::C) = {lampC, amber};
    indicator(Lamp::D) = {lampD, lampimage::draw(lampimage::kOrangered)};
    for (const Indicator& each : m_indicators) {
        // A label of free size would ask for a new layout of the window at every blink.
        each.label->setFixedSize(lampimage::kSize, lampimage::kSize);
        each.label->setPixmap(m_off);
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
        show(*levels);
    }
}

void StatusIndicators::resetIndicators()
{
    Q_ASSERT(QThread::currentThread() == thread());
    for (const Lamp lamp : kLamps) {
        setBlink(lamp, Blink::Off);
    }
    m_roundSeen = false;
    retranslate();
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
        // These two have one pattern only.
        const bool knowsSlow = lamp == Lamp::B || lamp == Lamp::C;
        switch (levels.of(lamp)) {
        case LampLevel::None:
            setBlink(lamp, Blink::Off);
            break;
        case LampLevel::Minor:
            setBlink(lamp, knowsSlow ? Blink::Slow : Blink::Fast);
            break;
        case LampLevel::Major:
            setBlink(lamp, Blink::Fast);
            break;
        }
    }
    if (!m_roundSeen) {
        m_roundSeen = true;
        retranslate();
    }
}

void StatusIndicators::setBlink(Lamp lamp, Blink blink)
{
    Indicator& changing = indicator(lamp);
    if (changing.blink == blink) {
        return;
    }
    changing.blink = blink;
    if (blink == Blink::Off) {
        // The timers pass unlit lamps by.
        changing.label->setPixmap(m_off);
    }
    describe(lamp);
}

void StatusIndicators::paint(Blink blink, bool lit)
{
    for (const Indicator& each : m_indicators) {
        if (each.blink == blink) {
            each.label->setPixmap(lit ? each.lit : m_off);
        }
    }
}

void StatusIndicators::describe(Lamp lamp)
{
    const Indicator& described = indicator(lamp);
    QString name;
    switch (lamp) {
    case Lamp::A:
        name = tr("SERVICE MODE");
        break;
    case Lamp::B:
        name = tr("EARTH FAULT");
        break;
    case Lamp::C:
        name = tr("OPEN/SHORT/LEAK");
        break;
    case Lamp::D:
        name = tr("SETTINGS");
        break;
    }
    QString state;
    switch (described.blink) {
    case Blink::Off:
        state = tr("%1: off").arg(name);
        break;
    case Blink::Slow:
        state = tr("%1: blinking slowly").arg(name);
        break;
    case Blink::Fast:
        state = tr("%1: blinking fast").arg(name);
        break;
    }
    const QString sense = meaning(lamp, described.blink);
    described.label->setToolTip(state + QLatin1Char('\n') + sense);
    described.label->setAccessibleName(state);
    described.label->setAccessibleDescription(sense);
}

QString StatusIndicators::meaning(Lamp lamp, Blink blink) const
{
    const bool isOff = blink == Blink::Off;
    const bool isFast = blink == Blink::Fast;
    if (isOff && !m_roundSeen) {
        return tr("No round over all LDBs has been completed yet.");
    }
    switch (lamp) {
    case Lamp::A:
        return isOff ? tr("No LDB is in service mode.")
                     : tr("At least one LDB is in service mode.");
    case Lamp::B:
        if (isOff) {
            return tr("No LDB reports an earth fault.");
        }
        return isFast ? tr("At least one LDB has an earth fault now.")
                      : tr("At least one LDB remembers an earth fault that has gone.");
    case Lamp::C:
        if (isOff) {
            return tr("No LDB reports a fault of its loop or its amplifier.");
        }
        return isFast ? tr("At least one LDB has an open, a short, DC leakage or a disconnected "
                           "amplifier now.")
                      : tr("At least one LDB remembers a loop fault that has gone, or has its "
                           "amplifier back.");
    case Lamp::D:
        return isOff ? tr("No LDB asks for its settings to be checked.")
                     : tr("At least one LDB asks for its settings to be checked.");
    }
    return {};
}

#include "views/quality/qualityreading.h"

#include "recording/recordingaccess.h"

#include <QThread>

#include <limits>
#include <utility>
#include <vector>

namespace {

constexpr int kRefreshInterval = 5000; // ms
constexpr int kPace = 300;             // ms between two moments that are read

using Flights = std::vector<std::pair<QString, int>>;

Flights flightsIn(RecordingReader& reader, TimeSpan span)
{
    Flights flights;
    for (const Exchange& exchange : reader.exchanges({}, span)) {
        if (exchange.outcome == ExchangeOutcome::Believed && exchange.flight >= 0 &&
            exchange.flight <= std::numeric_limits<int>::max()) {
            flights.emplace_back(exchange.hexId, static_cast<int>(exchange.flight));
        }
    }
    return flights;
}

} // namespace

QualityReading::QualityReading(Sources sources, QObject* parent)
    : QObject(parent)
    , m_sources(std::move(sources))
{
    m_refresh.setInterval(kRefreshInterval);
    connect(&m_refresh, &QTimer::timeout, this, &QualityReading::refresh);
    m_pace.setSingleShot(true);
    m_pace.setInterval(kPace);
    connect(&m_pace, &QTimer::timeout, this, [this] {
        if (std::exchange(m_isDue, false)) {
            refreshPaced();
        }
    });
    connect(m_sources.access, &RecordingAccess::pathChanged, this, &QualityReading::restart);
}

void QualityReading::setReach(QualityReach reach)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_reach = reach;
    restart();
}

void QualityReading::setShown(std::optional<qint64> at)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (at) {
        at = wholeMinutes(*at);
    }
    if (at == m_shown) {
        return;
    }
    m_shown = at;
    if (isOn()) {
        refreshPaced();
    }
}

void QualityReading::refreshPaced()
{
    m_isDue = m_pace.isActive();
    if (!m_isDue) {
        m_pace.start();
        // What has been asked for belongs to another moment, and would make this one wait.
        ++m_generation;
        m_isAsked = false;
        refresh();
    }
}

void QualityReading::setOn(bool isOn)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (isOn == this->isOn()) {
        return;
    }
    if (isOn) {
        m_refresh.start();
        restart();
    } else {
        m_refresh.stop();
        ++m_generation;
        m_isAsked = false;
    }
}

void QualityReading::restart()
{
    // What was asked for before is not shown any more.
    ++m_generation;
    m_isAsked = false;
    m_history.clear();
    if (isOn()) {
        refresh();
        emit changed();
    }
}

void QualityReading::refresh()
{
    if (!m_isAsked) {
        const bool isRecorded =
            !m_sources.access->path().isEmpty() && (m_shown || !m_sources.isUnrecorded());
        if (isRecorded != std::exchange(m_isRecorded, isRecorded)) {
            m_history.clear();
        }
        m_history.setEnd(m_reach, m_shown.value_or(m_sources.moment()));
        readNext();
    }
}

void QualityReading::readNext()
{
    while (const auto need = m_history.need()) {
        if (!m_isRecorded) {
            need->isFlights ? m_history.take(*need, Flights())
                            : m_history.take(*need, m_sources.live->minutes(need->span));
            continue;
        }
        m_isAsked = true;
        const auto answered = [this, need = *need, generation = m_generation](const auto& values) {
            if (generation == m_generation) {
                m_isAsked = false;
                m_history.take(need, values);
                readNext();
            }
        };
        if (need->isFlights) {
            m_sources.access->ask(
                this,
                [span = need->span](RecordingReader& reader) { return flightsIn(reader, span); },
                answered);
        } else {
            m_sources.access->ask(
                this,
                [need = *need](RecordingReader& reader) {
                    return reader.minutes({}, need.span, need.each);
                },
                answered);
        }
        break;
    }
    emit changed();
}

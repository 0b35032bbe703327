#include "importexport/settingsreader.h"

#include "serial/link/seriallink.h"

#include <QPointer>

#include <utility>

namespace {

// Enough that the processor never waits for this thread between two LDBs.
constexpr int kLdbsAhead = 8;

} // namespace

SettingsReader::SettingsReader(SerialLink* link, QStringList hexIds, Extent extent, Lost lost)
    : m_link(link)
    , m_extent(extent)
    , m_lost(lost)
    , m_left(hexIds.size())
{
    for (const QString& hexId : qAsConst(hexIds)) {
        m_readings.push_back({hexId, std::nullopt, QString()});
    }
    connect(link, &SerialLink::stopped, this, [this] { m_hasLinkEnded = true; });
}

void SettingsReader::start()
{
    if (m_readings.empty()) {
        m_hasEnded = true;
        QMetaObject::invokeMethod(this, &SettingsReader::finished, Qt::QueuedConnection);
    }
    for (int i = 0; i < kLdbsAhead; ++i) {
        askNext();
    }
}

void SettingsReader::stop()
{
    m_isStopping = true;
    const int unasked = static_cast<int>(m_readings.size() - m_nextToAsk);
    if (m_left == unasked && !std::exchange(m_hasEnded, true)) {
        emit finished();
    }
}

void SettingsReader::askNext()
{
    if (m_isStopping || m_nextToAsk == m_readings.size()) {
        return;
    }
    const std::size_t index = m_nextToAsk++;
    LdbReading& reading = m_readings[index];
    if (!isToBeAsked(reading)) {
        // From the event loop, as all others are told.
        QMetaObject::invokeMethod(
            this, [this, index] { processLdb(m_readings[index]); }, Qt::QueuedConnection);
        return;
    }
    reading.left = m_extent == Extent::Settings ? 1 : 2;
    ask(index, std::make_unique<RequestCommand>(reading.hexId, LdbParameter::Settings),
        [](LdbReading& asked, const Reply& reply) {
            asked.settings = decodeLdbSettings(reply.answer(), asked.hexId);
        });
    if (m_extent == Extent::SettingsAndFirmware) {
        ask(index, std::make_unique<ExecuteCommand>(reading.hexId, LdbAction::FirmwareId),
            [](LdbReading& asked, const Reply& reply) {
                asked.firmwareId = decodeFirmwareId(reply.answer()).value_or(QString());
            });
    }
}

bool SettingsReader::isToBeAsked(LdbReading& reading) const
{
    reading.isUnsent = m_hasLinkEnded;
    return !m_hasLinkEnded && (m_lost == Lost::Ask || m_link->isConnected(reading.hexId));
}

void SettingsReader::ask(std::size_t index, std::unique_ptr<ISerialCommand> command,
                         void (*take)(LdbReading& reading, const Reply& reply))
{
    m_link->ask(std::move(command), this, [this, index, take](const Reply& reply) {
        LdbReading& reading = m_readings[index];
        reading.isUnsent = reading.isUnsent || reply.kind() == Reply::Kind::Unsent;
        take(reading, reply);
        if (--reading.left == 0) {
            processLdb(reading);
        }
    });
}

void SettingsReader::processLdb(const LdbReading& reading)
{
    if (reading.settings) {
        m_records.emplace(reading.hexId, *reading.settings);
    }
    --m_left;
    const int left = m_left;
    const QPointer<SettingsReader> alive(this);
    emit ldbRead(reading);
    if (alive) {
        emit progressChanged(left, static_cast<int>(m_readings.size()));
    }
    if (!alive) {
        return;
    }
    askNext();
    const int unasked = m_isStopping ? static_cast<int>(m_readings.size() - m_nextToAsk) : 0;
    if (m_left == unasked && !std::exchange(m_hasEnded, true)) {
        emit finished();
    }
}

#include "importexport/settingsreader.h"

#include "serial/link/seriallink.h"

#include <QPointer>

#include <utility>

namespace {

// Enough that the processor never waits for this thread between two LDBs.
constexpr int kLdbsAhead = 8;

} // namespace

SettingsReader::SettingsReader(SerialLink* link, QStringList hexIds)
    : m_link(link)
    , m_hexIds(std::move(hexIds))
    , m_left(m_hexIds.size())
{
}

void SettingsReader::start()
{
    if (m_hexIds.isEmpty()) {
        QMetaObject::invokeMethod(this, &SettingsReader::finished, Qt::QueuedConnection);
    }
    for (int i = 0; i < kLdbsAhead; ++i) {
        askNext();
    }
}

void SettingsReader::askNext()
{
    if (m_nextToAsk == m_hexIds.size()) {
        return;
    }
    const QString hexId = m_hexIds.at(m_nextToAsk++);
    m_link->ask(std::make_unique<RequestCommand>(hexId, LdbParameter::Settings), this,
                [this, hexId](const Reply& reply) {
                    if (const auto record = decodeLdbSettings(reply.answer(), hexId)) {
                        m_records.emplace(hexId, *record);
                    }
                    --m_left;
                    const QPointer<SettingsReader> alive(this);
                    emit progressChanged(m_left, m_hexIds.size());
                    if (alive && m_left == 0) {
                        emit finished();
                    } else if (alive) {
                        askNext();
                    }
                });
}

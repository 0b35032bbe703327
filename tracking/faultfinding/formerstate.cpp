#include "tracking/faultfinding/formerstate.h"

#include "serial/ldb/generalinformation.h"
#include "tracking/faultfinding/trackedldb.h"

#include <QDebug>

#include <utility>

FormerState::FormerState(TrackedLdb* ldb, KeptLdbs kept, QObject* parent)
    : QObject(parent)
    , m_ldb(ldb)
    , m_kept(std::move(kept))
{
    connect(ldb, &TrackedLdb::generalInformationUpdated, this,
            [this](const QString& hexId, const QList<QStringList>& rows) {
                if (hexId == m_ldb->hexId()) {
                    m_name = generalinformation::text(rows, generalinformation::NameRow);
                }
            });
}

void FormerState::take()
{
    m_state = {};
    m_isOnDisk = false;
    m_ldb->readSettings(this,
                        [this, reading = ++m_reading](const std::optional<LdbSettings>& settings) {
                            if (reading == m_reading) {
                                process(settings);
                            }
                        });
}

void FormerState::withdraw()
{
    ++m_reading;
}

void FormerState::process(const std::optional<LdbSettings>& settings)
{
    m_state.hexId = m_ldb->hexId();
    m_state.name = settings ? settings->name : m_name;
    m_state.since = QDateTime::currentDateTimeUtc();
    m_state.audioMute = settings && settings->audioMute;
    m_state.settings = settings;
    m_earlier = m_kept.find(m_state.hexId, m_state.name);
    if (m_earlier) {
        m_state.since = m_earlier->since;
        m_state.audioMute = m_earlier->audioMute ? m_earlier->audioMute : m_state.audioMute;
        m_state.settings = m_earlier->settings ? m_earlier->settings : m_state.settings;
    }
    const QString reason = m_kept.keep(m_state);
    m_isOnDisk = reason.isEmpty();
    if (!m_isOnDisk) {
        emit incomplete(Lack::Unkept, reason);
    } else if (!m_state.settings) {
        emit incomplete(Lack::Unread, {});
    } else {
        emit kept();
    }
}

void FormerState::drop()
{
    if (std::exchange(m_isOnDisk, false)) {
        KeptLdb before = m_earlier.value_or(KeptLdb());
        before.hexId = m_state.hexId;
        before.name = m_state.name;
        const QString reason = m_kept.keep(before);
        if (!reason.isEmpty()) {
            qWarning() << "What is kept of LDB" << before.hexId << "stays:" << reason;
        }
    }
    m_state = {};
}

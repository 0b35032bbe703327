#include "app/actions/broadcastwatch.h"

#include "serial/ldb/generalinformation.h"
#include "serial/link/seriallink.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kRounds = 2;

int leastMs(LdbControl control)
{
    switch (control) {
    case LdbControl::LdbReset:
        return BroadcastWatch::kLdbResetMs;
    case LdbControl::FimReset:
        return BroadcastWatch::kFimResetMs;
    case LdbControl::FactoryReset:
    case LdbControl::ServiceMode:
        break;
    }
    return 0;
}

bool isFimReset(LdbState state)
{
    return state == LdbState::FimResetExecuting || state == LdbState::FimResetFailed ||
           state == LdbState::FimResetDone;
}

} // namespace

QStringList BroadcastSight::missing() const
{
    QStringList others;
    std::copy_if(ldbs.begin(), ldbs.end(), std::back_inserter(others),
                 [this](const QString& hexId) { return !seen.contains(hexId); });
    return others;
}

BroadcastWatch::BroadcastWatch(SerialLink* link, LdbControl control, QObject* parent)
    : QObject(parent)
    , m_link(link)
{
    m_sight.control = control;
    m_sight.ldbs = link->knownLdbs();
    // Every answer counts, also one that tells the state of before.
    connect(link, &SerialLink::generalInformationUpdated, this,
            [this](const QString& hexId, const QList<QStringList>& record) {
                using namespace generalinformation;
                take(hexId, static_cast<LdbState>(integer(record, ModeRow)));
            });
    connect(link, &SerialLink::roundEnded, this, [this] {
        ++m_rounds;
        finishIfSeen();
    });
    connect(link, &SerialLink::stopped, this, [this] {
        m_sight.isCut = true;
        finish();
    });
    m_atLeast.setSingleShot(true);
    connect(&m_atLeast, &QTimer::timeout, this, &BroadcastWatch::finishIfSeen);
    m_atLeast.start(leastMs(control));
}

void BroadcastWatch::take(const QString& hexId, LdbState state)
{
    if (!m_sight.ldbs.contains(hexId)) {
        return;
    }
    ++m_tellings[hexId];
    m_sight.states[hexId] = state;
    bool isSeen = m_sight.seen.contains(hexId);
    switch (m_sight.control) {
    case LdbControl::ServiceMode:
        isSeen = state == LdbState::ServiceMode;
        break;
    case LdbControl::LdbReset:
        isSeen = isSeen || state != LdbState::Disconnected;
        break;
    case LdbControl::FimReset:
    case LdbControl::FactoryReset:
        isSeen = isSeen || isFimReset(state);
        break;
    }
    m_sight.seen.removeAll(hexId);
    if (isSeen) {
        m_sight.seen.append(hexId);
    }
    finishIfSeen();
}

void BroadcastWatch::finishIfSeen()
{
    // Of a reset nothing more can be seen when all have been; the mode can be lost again.
    const bool isAllSeen =
        m_sight.control != LdbControl::ServiceMode && m_sight.seen.size() == m_sight.ldbs.size();
    if (isAllSeen || (!m_atLeast.isActive() && haveTwoRoundsPassed())) {
        finish();
    }
}

bool BroadcastWatch::haveTwoRoundsPassed() const
{
    const bool isEachThrough =
        std::all_of(m_sight.ldbs.begin(), m_sight.ldbs.end(), [this](const QString& hexId) {
            return m_tellings.value(hexId) >= kRounds || !m_link->isConnected(hexId);
        });
    // One that stays silent, though it is not lost yet, does not hold up the others for ever.
    return isEachThrough || m_rounds > 2 * kRounds;
}

void BroadcastWatch::finish()
{
    m_atLeast.stop();
    disconnect(m_link, nullptr, this, nullptr);
    for (const QString& hexId : m_sight.ldbs) {
        m_sight.names.insert(hexId, m_link->nameOf(hexId).simplified());
    }
    emit finished();
}

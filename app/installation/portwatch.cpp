#include "app/installation/portwatch.h"

#include <algorithm>
#include <utility>

namespace {

/// The pause between two tries of a port that is there and does not open, ms: a system takes a
/// moment to give users access to a new port.
constexpr qint64 kFirstPause = 1000;
constexpr qint64 kLongestPause = 8000;

QStringList namesLike(const PortIdentity& known, const std::vector<PortIdentity>& ports)
{
    QStringList names;
    for (const PortIdentity& port : ports) {
        if (isSamePort(known, port)) {
            names.append(port.name);
        }
    }
    return names;
}

} // namespace

PortWatch::PortWatch(PortIdentity lost, const std::vector<PortIdentity>& before, qint64 now)
    : m_lost(std::move(lost))
    , m_others(namesLike(m_lost, before))
    , m_since(now)
    , m_nextTry(now)
    , m_pause(kFirstPause)
{
    m_others.removeAll(m_lost.name);
}

PortWatch::Verdict PortWatch::look(const std::vector<PortIdentity>& ports, bool isThere, qint64 now)
{
    QStringList names = namesLike(m_lost, ports);
    if (!m_lost.isUsb()) {
        names = isThere ? QStringList{m_lost.name} : QStringList();
    }
    // A twin that was pulled out since then may be the one that has come back.
    m_others.erase(std::remove_if(m_others.begin(), m_others.end(),
                                  [&](const QString& other) { return !names.contains(other); }),
                   m_others.end());
    for (const QString& other : qAsConst(m_others)) {
        names.removeAll(other);
    }
    if (names.size() > 1) {
        const bool isNew = std::exchange(m_asked, names) != names;
        return isNew ? Verdict{Verdict::Kind::Ask, names} : Verdict();
    }
    m_asked.clear();
    // A clock that was set back must not make the pause longer.
    const bool isPause = now < m_nextTry && m_nextTry - now <= kLongestPause;
    return names.isEmpty() || isPause ? Verdict() : Verdict{Verdict::Kind::Try, names};
}

void PortWatch::processFailure(qint64 now)
{
    m_nextTry = now + m_pause;
    m_pause = std::min(2 * m_pause, kLongestPause);
}

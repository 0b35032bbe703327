#pragma once

#include "serial/link/portidentity.h"

#include <QStringList>
#include <QtGlobal>

#include <vector>

/// Decides when a port that died in a run is back, and under which name. Owns no port, clock or
/// timer: whoever waits asks it about once a second. A plain value.
class PortWatch
{
public:
    struct Verdict
    {
        enum class Kind
        {
            Wait, ///< it is not there, or was tried just now
            Try,  ///< it is there: `names` has its name
            Ask   ///< several may be it: `names` has them all
        };
        Kind kind = Kind::Wait;
        QStringList names = {};
    };

    /// After a cut of that length the LDBs are checked as at a start, ms.
    static constexpr qint64 kLongAway = 600000;

    PortWatch() = default;
    /// `lost` died at `now` (ms since 1970 UTC); `before`: the ports that were there while it
    /// lived.
    PortWatch(PortIdentity lost, const std::vector<PortIdentity>& before, qint64 now);

    /// What to do, given the ports that are there now. `isThere`: whether a port of the lost one's
    /// name is there, listed or not. Asks the same question only once.
    Verdict look(const std::vector<PortIdentity>& ports, bool isThere, qint64 now);
    /// The port that was to be tried did not open, or failed at once.
    void processFailure(qint64 now);

    const PortIdentity& lost() const { return m_lost; }
    bool isLongAway(qint64 now) const { return now - m_since > kLongAway; }

private:
    PortIdentity m_lost;
    /// Adapters of its kind that were there with it, and have been there ever since.
    QStringList m_others;
    QStringList m_asked;
    qint64 m_since = 0;
    qint64 m_nextTry = 0;
    qint64 m_pause = 0;
};

#pragma once

#include "serial/ldbstatus.h"

#include <QtGlobal>

#include <deque>

/// A second, plain reckoning of what a tracking run makes of a loop: the counting rules of the tool
/// with their periods and thresholds written out again, fed with samples instead of timers, so that
/// the simulated loop is held against the rules and not against the tool's own code.
class ReferenceCounter
{
public:
    enum Result
    {
        Connected = 0,
        Open = 1,
        Short = 2
    };

    explicit ReferenceCounter(bool tracksSecondary)
        : m_tracksSecondary(tracksSecondary)
    {
    }

    /// One status answer, `now` ms after any fixed moment.
    void sample(const LdbStatus& status, qint64 now);

    bool isFinished() const
    {
        return m_primary.finished && (m_secondary.finished || !m_tracksSecondary);
    }
    int primaryCount() const { return m_primary.count; }
    int secondaryCount() const { return m_secondary.count; }
    Result primaryResult() const { return m_primary.result; }
    Result secondaryResult() const { return m_secondary.result; }
    /// Where a leak that is seen now is said to be, counted from that side.
    int primaryPosition() const { return m_primary.count >= 1 ? m_primary.count + 1 : 0; }
    int secondaryPosition() const { return m_secondary.count >= 1 ? m_secondary.count + 1 : 0; }

private:
    struct Side
    {
        int count = 0;
        std::deque<double> history;
        bool pending = true;
        bool finished = false;
        bool shorted = false;
        bool closeStep = false;
        Result result = Connected;
        // Times at which the side's timers run out.
        qint64 spacing = 0;
        qint64 inhibit = 0;
        qint64 end = 0;
        qint64 firstFim = 0;
        qint64 shortReset = 0;

        double mean() const;
        bool steps(double current, qint64 now);
    };

    void expire(qint64 now);
    void count(double primary, double secondary, qint64 now);
    void judgeShort(double primary, double secondary, qint64 now);
    void judgeRing(qint64 now);
    void closePrimary();
    void closeSecondary(qint64 now);
    bool isConnected() const;

    bool m_tracksSecondary;
    Side m_primary;
    Side m_secondary;
    bool m_armed = false;
    bool m_primaryShortSeen = false;
    int m_firstShort = 0;
    int m_loop = 0;
    qint64 m_ringClosed = 0; ///< 0: not running
};

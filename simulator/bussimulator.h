#pragma once

#include "simulator/scenario.h"
#include "simulator/wirefaults.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <random>
#include <vector>

/// What became of the bytes of one frame from the master.
struct Hearing
{
    QString hexId;                    ///< who was asked; empty when the frame was not understood
    QString text;                     ///< the request for people, or why nobody understood it
    std::vector<Transmission> answer; ///< empty: silence
};

/// All boards of a bus and the wires between them and the master. A value without timers or
/// input: frames and commands come in together with the time (ms of one clock).
class BusSimulator
{
public:
    BusSimulator(const Scenario& scenario, quint32 seed, qint64 now);

    /// A frame, SOH to EOT, has arrived at every board. The boards whose address it carries obey
    /// unless they refuse; a frame with a broken check changes nothing.
    Hearing hear(const QByteArray& frame, qint64 now);

    /// Carries out a command that concerns boards or wires; others do nothing. Gives what is wrong
    /// with it, or nothing.
    QString execute(const SimulatorCommand& command, qint64 now);

    /// One line an LDB: what it is and does.
    QStringList describe(qint64 now);
    int ldbCount() const;

private:
    struct Member
    {
        SimulatedLdb ldb;
        WireFaults wire;
        bool isPresent = true;
        qint64 answersFrom = 0; ///< ms; its next answer does not leave before
    };

    void obeyBroadcast(const BusRequest& request, qint64 now);
    std::vector<Transmission> answer(Member& member, const BusRequest& request, qint64 now);
    static void keepOrder(Member& member, std::vector<Transmission>& pieces, qint64 now);
    QString apply(Member& member, const SimulatorCommand& command, qint64 now);
    QString applyLoopFault(Member& member, const SimulatorCommand& command, qint64 now);
    void appear(int address, qint64 now);
    QString describe(Member& member, qint64 now);

    quint32 m_seed;
    std::mt19937 m_random;
    LdbTiming m_timing;
    BadBus m_badBus;
    std::map<int, Member> m_members; ///< by bus address
};

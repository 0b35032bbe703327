#pragma once

#include "simulator/bus/scenario.h"
#include "simulator/bus/wirefaults.h"
#include "simulator/line/boards.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <random>

/// What became of the bytes of one frame from the master.
struct HeardRequest
{
    int address = 0;                    ///< who was asked; 0 when the frame was not understood
    QString hexId;                      ///< who was asked; empty when the frame was not understood
    QString text;                       ///< the request for people, or why nobody understood it
    std::optional<Transmission> answer; ///< nothing: silence
};

/// All boards of a bus and what is wrong with each one's own wire. A value without timers or
/// input: frames and commands come in together with the time (ms of one clock).
class BusSimulator
{
public:
    BusSimulator(const Scenario& scenario, quint32 seed, qint64 now);

    /// A frame, SOH to EOT, has arrived at every board. The boards whose address it carries obey
    /// unless they refuse or are absent; a frame with a broken check changes nothing.
    HeardRequest hear(const QByteArray& frame, qint64 now, const AbsentBoards& absent = {});
    /// What a frame asks for, whoever hears it.
    static HeardRequest read(const QByteArray& frame);

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
    };

    void obeyBroadcast(const BusRequest& request, qint64 now, const AbsentBoards& absent);
    std::optional<Transmission> answer(Member& member, const BusRequest& request, qint64 now);
    QString apply(Member& member, const SimulatorCommand& command, qint64 now);
    QString applyLoopFault(Member& member, const SimulatorCommand& command, qint64 now);
    void appear(int address, qint64 now);
    QString describe(Member& member, qint64 now);

    quint32 m_seed;
    std::mt19937 m_random;
    LdbTiming m_timing;
    std::map<int, Member> m_members; ///< by bus address
};

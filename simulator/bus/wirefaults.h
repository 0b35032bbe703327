#pragma once

#include "simulator/board/busrequest.h"
#include "simulator/bus/simulatorcommand.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <random>

/// An answer as it leaves its LDB.
struct Transmission
{
    QByteArray bytes;
    qint64 delay = 0; ///< ms beyond the turnaround
    int pieces = 1;   ///< sent in so many pieces ...
    qint64 pause = 0; ///< ... with so many ms between them
    QString note;     ///< for the journal
};

/// A fault that lasts until it is told otherwise, or for a number of answers.
class LimitedFault
{
public:
    void set(bool on, std::optional<int> times);
    bool isOn() const { return m_isOn; }
    /// Whether this answer has the fault; counts it.
    bool take();

private:
    bool m_isOn = false;
    std::optional<int> m_times;
};

/// What goes wrong between one LDB and the master.
class WireFaults
{
public:
    /// Takes a command of a verb that concerns the wire; others change nothing.
    void apply(const SimulatorCommand& command);

    /// Whether the LDB hears this request at all; counts it.
    bool takeSilence() { return m_silent.take(); }
    /// Whether it refuses this request; counts it.
    bool takeRefusal(const BusRequest& request);

    /// What becomes of an answer on its way.
    Transmission spoil(const QByteArray& answer, const QString& text, std::mt19937& random);

    /// Names of the faults in force.
    QStringList names() const;

private:
    bool refuses(const BusRequest& request) const;

    LimitedFault m_silent;
    LimitedFault m_badCheck;
    LimitedFault m_wrongLength;
    LimitedFault m_nak;
    LimitedFault m_late;
    LimitedFault m_noise;
    LimitedFault m_fragments;
    NakScope m_nakScope = NakScope::None;
    int m_nakIndex = 0;
    qint64 m_lateness = 0;
};

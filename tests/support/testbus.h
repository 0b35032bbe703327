#pragma once

#include "serial/link/portsource.h"
#include "simulator/bus/bussimulator.h"
#include "simulator/program/linehost.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

class SerialLink;

/// The bus of the tests: the simulator's boards on the simulator's line at its real pace, and a
/// script before them that can answer in their place. All that in virtual time, in which the half
/// minute of a scan takes milliseconds, unless it is given another clock. Outlives every link on
/// it.
///
/// A board is called "LDB <hex id>", has the firmware id "LDB 1.07" and 20 FIMs, the delay of 10,
/// general fault output and earth leakage detection on, and is quiescent unless something happens.
class TestBus : public Boards
{
public:
    /// Gets a request's body and gives the raw bytes to answer (empty: silence), or nothing to let
    /// the boards answer.
    using Script = std::function<std::optional<QByteArray>(const QByteArray& body)>;

    /// How long the boards take for a reset; on a loop of which nothing changes by itself.
    static LdbTiming usualTiming();

    /// `clock`: nothing for virtual time.
    explicit TestBus(const QStringList& presentHexIds, const LineOptions& options = {},
                     std::unique_ptr<SimulationClock> clock = nullptr,
                     const LdbTiming& timing = usualTiming());

    /// For links in virtual time. There is no port by another name than the one in force.
    PortSource ports();
    QString portName() const { return m_portName; }
    void setPortName(const QString& name);
    /// The port as the system lists it; without USB identifiers unless told otherwise. Its name
    /// becomes the one in force. Others that are listed beside it cannot be opened.
    void setPort(const PortIdentity& port, const std::vector<PortIdentity>& others = {});
    /// The line is gone, at the next event, with all that is on it, until it is restored.
    void cut();
    void restore();
    /// Sets the computer's clock on the wall, by so many ms.
    void shiftWall(qint64 milliseconds) { m_wallShift += milliseconds; }
    /// From now on what arrives is told only when it is looked for, as to a thread that is held up.
    void holdUp() { m_isHeldUp = true; }
    /// The line; and where a port in real time hands its bytes in and gets what arrives.
    LineHost& host() { return m_host; }

    /// Asked before the boards, for every request.
    void setScript(Script script) { m_script = std::move(script); }
    /// A script that answers so to whatever begins so and is asked of this LDB, except by the
    /// polling.
    void answerTo(const QString& hexId, const QByteArray& request, const QByteArray& answer);
    /// Those absent are silent. Their settings stay.
    void setPresent(const QStringList& hexIds);

    /// The settings record of an LDB.
    QByteArray settingsOf(const QString& hexId);
    /// Lets an LDB change a parameter without a request on the line.
    void change(const QString& hexId, const QByteArray& index, const QByteArray& value);

    /// Bodies of all requests that were heard so far, in order, repeats included.
    const QList<QByteArray>& requests() const { return m_requests; }
    /// Those that the polling did not send.
    const QList<QByteArray>& commands() const { return m_commands; }
    /// Those of the commands that change or store something.
    QList<QByteArray> writes() const;
    void clearRequests();

    /// Starts a link made with `ports()`, and lets it scan; whether it found those present.
    bool scan(SerialLink& link);

    /// `body` as a whole frame.
    static QByteArray framed(const QByteArray& body);
    /// A status body: the state given, 24.000 V at both ends, 12.34 and -1.00 mA, no fault.
    static QByteArray status(int state = 10);
    /// The settings record that the board has at first.
    static QByteArray record(const QString& hexId);

    std::vector<BoardAnswer> hear(const QByteArray& frame, qint64 at,
                                  const AbsentBoards& absent) override;

private:
    class Port;

    void note(const QByteArray& body);
    qint64 wallTime() const; ///< ms since 1970 UTC

    QString m_portName = QStringLiteral("test bus");
    PortIdentity m_identity{m_portName};
    std::vector<PortIdentity> m_others;
    std::unique_ptr<SimulationClock> m_clock;
    BusSimulator m_boards;
    AbsentBoards m_absent;
    LineHost m_host;
    Port* m_port = nullptr; ///< the one that is open
    bool m_isCut = false;
    qint64 m_wallShift = 0; ///< ms
    bool m_isHeldUp = false;
    bool m_isCommand = false;  ///< the last request
    QByteArray m_lastNoStatus; ///< the selected LDB's status may be asked between any two others
    Script m_script;
    QList<QByteArray> m_requests;
    QList<QByteArray> m_commands;
};

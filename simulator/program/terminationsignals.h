#pragma once

#include <QObject>

#include <array>

/// Turns the signals by which a process is asked to end (SIGINT, SIGTERM, SIGHUP) into a Qt signal,
/// so that the program can leave by its own door. A reader that closes its end of the output no
/// longer kills the program. One a process.
class TerminationSignals : public QObject
{
    Q_OBJECT
public:
    TerminationSignals();
    ~TerminationSignals() override;

signals:
    void received() const;

private:
    std::array<int, 2> m_pipe{-1, -1};
};

#include "simulator/program/terminationsignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

// A handler may do little more than write to a pipe.
volatile std::sig_atomic_t pipeEnd = -1;

void passOn(int signalNumber)
{
    const char byte = static_cast<char>(signalNumber);
    // A full pipe has told enough.
    [[maybe_unused]] const ssize_t count = write(static_cast<int>(pipeEnd), &byte, 1);
}

void handle(int signalNumber, void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signalNumber, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals()
{
    if (pipe2(m_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        qWarning("Signals end the program at once");
        return;
    }
    pipeEnd = m_pipe[1];
    auto* notifier = new QSocketNotifier(m_pipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        emit received();
    });
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        handle(number, passOn);
    }
    handle(SIGPIPE, SIG_IGN);
}

TerminationSignals::~TerminationSignals()
{
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        handle(number, SIG_DFL);
    }
    for (const int end : m_pipe) {
        if (end >= 0) {
            close(end);
        }
    }
}

#include "simulator/program/commandconsole.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <cstdio>
#include <unistd.h>

namespace {
constexpr std::size_t kReadSize = 1024;
constexpr int kMaxLine = 4096;
} // namespace

CommandConsole::CommandConsole(int descriptor, Simulation& simulation, QObject* parent)
    : QObject(parent)
    , m_descriptor(descriptor)
    , m_simulation(simulation)
    , m_notifier(new QSocketNotifier(descriptor, QSocketNotifier::Read, this))
{
    connect(m_notifier, &QSocketNotifier::activated, this, &CommandConsole::readAvailable);
}

void CommandConsole::print(const QString& line)
{
    std::fprintf(stdout, "%s\n", qPrintable(line));
    std::fflush(stdout);
}

void CommandConsole::readAvailable()
{
    std::array<char, kReadSize> buffer{};
    const ssize_t count = read(m_descriptor, buffer.data(), buffer.size());
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
        return;
    }
    if (count <= 0) {
        m_notifier->setEnabled(false);
        return;
    }
    m_collected.append(buffer.data(), static_cast<int>(count));
    for (int end = m_collected.indexOf('\n'); end >= 0; end = m_collected.indexOf('\n')) {
        const QByteArray line = m_collected.left(end);
        m_collected.remove(0, end + 1);
        run(line);
    }
    if (m_collected.size() > kMaxLine) {
        m_collected.clear();
    }
}

void CommandConsole::run(const QByteArray& line)
{
    const CommandParsing parsing = parseSimulatorCommand(QString::fromLocal8Bit(line));
    if (!parsing.command) {
        if (!parsing.error.isEmpty()) {
            print(parsing.error);
        }
        return;
    }
    const QStringList lines = m_simulation.execute(*parsing.command);
    for (const QString& text : lines) {
        print(text);
    }
}

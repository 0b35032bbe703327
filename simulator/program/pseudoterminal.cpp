#include "simulator/program/pseudoterminal.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr std::size_t kReadSize = 4096;

void makeRaw(int descriptor)
{
    termios settings{};
    if (tcgetattr(descriptor, &settings) == 0) {
        cfmakeraw(&settings);
        tcsetattr(descriptor, TCSANOW, &settings);
    }
}

} // namespace

PseudoTerminal::PseudoTerminal(QObject* parent)
    : QObject(parent)
{
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 128> path{};
    if (m_master < 0 || grantpt(m_master) != 0 || unlockpt(m_master) != 0 ||
        ptsname_r(m_master, path.data(), path.size()) != 0) {
        hangUp();
        return;
    }
    m_portName = QString::fromLocal8Bit(path.data());
    m_slave = open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    makeRaw(m_slave);
    m_notifier = new QSocketNotifier(m_master, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &PseudoTerminal::readAvailable);
}

PseudoTerminal::~PseudoTerminal()
{
    hangUp();
}

bool PseudoTerminal::write(const QByteArray& bytes)
{
    int written = 0;
    while (m_master >= 0 && written < bytes.size()) {
        const ssize_t count = ::write(m_master, bytes.constData() + written,
                                      static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return false;
        }
        written += static_cast<int>(count);
    }
    return written == bytes.size();
}

void PseudoTerminal::hangUp()
{
    delete m_notifier;
    m_notifier = nullptr;
    for (int* descriptor : {&m_slave, &m_master}) {
        if (*descriptor >= 0) {
            close(*descriptor);
            *descriptor = -1;
        }
    }
}

void PseudoTerminal::readAvailable()
{
    std::array<char, kReadSize> buffer{};
    const ssize_t count = ::read(m_master, buffer.data(), buffer.size());
    if (count > 0) {
        emit received(QByteArray(buffer.data(), static_cast<int>(count)));
    }
}

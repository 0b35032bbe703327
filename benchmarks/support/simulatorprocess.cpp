#include "benchmarks/support/simulatorprocess.h"

#include <sched.h>

namespace {

constexpr int kStartMs = 10000;
constexpr int kEndMs = 5000;
constexpr int kRealTimePriority = 10;

} // namespace

SimulatorProcess::SimulatorProcess(const QStringList& arguments)
{
    m_process.setProcessChannelMode(QProcess::MergedChannels);
    m_process.start(QStringLiteral(LDB_SIMULATOR), arguments);
    // Its first line says that the port is there.
    if (!m_process.waitForReadyRead(kStartMs)) {
        qFatal("%s does not start: %s", LDB_SIMULATOR, qPrintable(m_process.errorString()));
    }
    readOutput();
    QObject::connect(&m_process, &QProcess::readyRead, &m_process, [this] { readOutput(); });
    QObject::connect(&m_process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished),
                     &m_process, [this] {
                         if (!m_isEnding) {
                             qFatal("the simulator has ended");
                         }
                     });
}

SimulatorProcess::~SimulatorProcess()
{
    m_isEnding = true;
    command(QStringLiteral("quit"));
    if (!m_process.waitForFinished(kEndMs)) {
        m_process.kill();
        m_process.waitForFinished(kEndMs);
    }
}

void SimulatorProcess::command(const QString& line)
{
    m_process.write(line.toLocal8Bit() + '\n');
}

bool SimulatorProcess::makeRealTime()
{
    sched_param parameters{};
    parameters.sched_priority = kRealTimePriority;
    return sched_setscheduler(static_cast<pid_t>(m_process.processId()), SCHED_FIFO, &parameters) ==
           0;
}

void SimulatorProcess::readOutput()
{
    while (m_process.canReadLine()) {
        const QByteArray line = m_process.readLine().trimmed();
        if (!line.startsWith('/')) { // all that it says unasked is the path of its port
            qFatal("the simulator says: %s", line.constData());
        }
    }
}

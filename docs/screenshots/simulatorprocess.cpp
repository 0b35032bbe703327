#include "docs/screenshots/simulatorprocess.h"

SimulatorProcess::SimulatorProcess(const QString& program, const QString& scenarioFile,
                                   const QString& link)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(program,
                    {QStringLiteral("--scenario"), scenarioFile, QStringLiteral("--link"), link});
    // The first line is the port's path: from then on it answers.
    if (!m_process.waitForReadyRead()) {
        qFatal("%s does not start", qPrintable(program));
    }
}

SimulatorProcess::~SimulatorProcess()
{
    send(QStringLiteral("quit"));
    m_process.waitForFinished();
}

void SimulatorProcess::send(const QString& command)
{
    m_process.write(command.toUtf8() + '\n');
    m_process.waitForBytesWritten();
}

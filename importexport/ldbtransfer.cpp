#include "importexport/ldbtransfer.h"

#include "serial/link/seriallink.h"

LdbTransfer::LdbTransfer(SerialLink* link)
    : m_link(link)
{
    connect(link, &SerialLink::stopped, this, [this] { m_linkEnded = true; });
}

void LdbTransfer::stop()
{
    m_isStopping = true;
    proceed();
}

void LdbTransfer::end(Status status)
{
    if (m_isStopping) {
        emit stopped();
    } else {
        emit finished(status);
    }
}

void LdbTransfer::expectReplies(int commands)
{
    m_commands = m_repliesLeft = commands;
    tellProgress();
}

void LdbTransfer::tellProgress()
{
    emit progressChanged(m_repliesLeft, m_commands);
}

void LdbTransfer::fail(const char* text, const QString& reason)
{
    m_failures.emplace_back(
        [text, reason] { return reason.isEmpty() ? tr(text) : tr(text).arg(reason); });
}

void LdbTransfer::failLdb(const QString& hexId, const char* what)
{
    m_failures.emplace_back([hexId, what] {
        return tr("LDB %1 (address %2): %3")
            .arg(hexId, QString::number(busaddress::fromHexId(hexId)), tr(what));
    });
}

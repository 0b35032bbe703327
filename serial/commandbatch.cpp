#include "serial/commandbatch.h"

#include "serial/seriallink.h"

#include <QThread>
#include <QTimer>

#include <algorithm>
#include <utility>

CommandBatch::CommandBatch(SerialLink* link, int ldbsAhead, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_ldbsAhead(std::max(ldbsAhead, 1))
{
    connect(link, &SerialLink::stopped, this, &CommandBatch::abort);
    connect(link, &SerialLink::communicationFailed, this, &CommandBatch::abort);
    connect(link, &QObject::destroyed, this, &CommandBatch::abort);
}

CommandBatch::~CommandBatch() = default;

void CommandBatch::add(const QString& hexId, std::vector<std::unique_ptr<ISerialCommand>> commands)
{
    const auto count = static_cast<int>(commands.size());
    m_ldbs.push_back({hexId, std::move(commands), count});
    m_commandCount += count;
    m_commandsLeft += count;
}

void CommandBatch::start()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_running = true;
    if (!m_link || !m_link->isRunning()) {
        QTimer::singleShot(0, this, &CommandBatch::abort);
    } else if (m_ldbs.empty()) {
        QTimer::singleShot(0, this, &CommandBatch::finish);
    } else {
        fill();
    }
}

void CommandBatch::fill()
{
    SerialLink* const link = m_link;
    while (m_running && link != nullptr && m_waiting < m_ldbsAhead && m_next < m_ldbs.size()) {
        const std::size_t index = m_next++;
        ++m_waiting;
        if (link->isConnected(m_ldbs[index].hexId)) {
            post(index, *link);
        } else {
            answerWithNothing(index);
        }
    }
    if (m_waiting == 0) {
        finish();
    }
}

void CommandBatch::post(std::size_t index, SerialLink& link)
{
    auto commands = std::move(m_ldbs[index].commands);
    int number = 0;
    for (auto& command : commands) {
        link.ask(std::move(command), this, [this, index, number](const Reply& reply) {
            if (reply.kind() == Reply::Kind::Unsent) {
                abort();
            } else {
                processReply(index, number, reply);
            }
        });
        ++number;
    }
}

void CommandBatch::answerWithNothing(std::size_t index)
{
    // Told from the event loop like any other answer.
    for (int number = 0; number < m_ldbs[index].left; ++number) {
        QTimer::singleShot(
            0, this, [this, index, number] { processReply(index, number, Reply(QByteArray())); });
    }
}

void CommandBatch::processReply(std::size_t index, int command, const Reply& reply)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (!m_running) {
        return;
    }
    const QPointer<CommandBatch> alive(this);
    const QString hexId = m_ldbs[index].hexId;
    const bool isLast = --m_ldbs[index].left == 0;
    --m_commandsLeft;
    emit answered(hexId, command, reply);
    if (!alive || !isLast) {
        return;
    }
    --m_waiting;
    emit ldbDone(hexId);
    if (alive) {
        fill();
    }
}

void CommandBatch::finish()
{
    if (m_running) {
        m_running = false;
        emit finished();
    }
}

void CommandBatch::abort()
{
    if (m_running) {
        m_running = false;
        emit aborted();
    }
}

#include "serial/commandqueue.h"

void CommandQueue::append(std::unique_ptr<ISerialCommand> command)
{
    if (!command) {
        return;
    }
    if (command->isRead()) {
        for (auto waiting = m_commands.rbegin(); waiting != m_commands.rend(); ++waiting) {
            if (!(*waiting)->isRead()) {
                break;
            }
            if ((*waiting)->commandData() == command->commandData()) {
                (*waiting)->adoptObservers(*command);
                return;
            }
        }
    }
    m_commands.push_back(std::move(command));
}

void CommandQueue::finishFront(const QByteArray& answer)
{
    const std::unique_ptr<ISerialCommand> command = std::move(m_commands.front());
    m_commands.pop_front();
    command->notify(answer);
}

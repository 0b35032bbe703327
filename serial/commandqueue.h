#pragma once

#include "serial/serialcommand.h"

#include <deque>
#include <memory>

/// The commands waiting for their turn, first in first out. Owns them.
class CommandQueue
{
public:
    /// Queues behind those waiting. A read equal to one that already waits, with nothing but reads
    /// between them, is not sent twice: its observers join the waiting one. A write between them
    /// keeps them apart, for the later read is to see what was written.
    void append(std::unique_ptr<ISerialCommand> command);

    bool isEmpty() const { return m_commands.empty(); }
    int size() const { return static_cast<int>(m_commands.size()); }

    /// The command whose turn it is; only when not empty.
    ISerialCommand& front() { return *m_commands.front(); }

    /// Hands `answer` to the front command's observers and deletes the command.
    void finishFront(const QByteArray& answer);

    /// Deletes all, untold.
    void clear() { m_commands.clear(); }

private:
    std::deque<std::unique_ptr<ISerialCommand>> m_commands;
};

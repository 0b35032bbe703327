#pragma once

#include "serial/ldb/request.h"

#include <deque>
#include <vector>

/// The commands waiting for their turn, first in first out, each known to its owner by a number.
class CommandQueue
{
public:
    struct Entry
    {
        Request request;
        std::vector<quint64> numbers; ///< everybody who asked this
    };

    /// Queues after those waiting. A read equal to one that already waits, with nothing but reads
    /// between them, is not sent twice: it joins the waiting one. A write between them keeps them
    /// apart, for the later read is to see what was written.
    void append(const Request& request, quint64 number);

    bool isEmpty() const { return m_entries.empty(); }
    int size() const { return static_cast<int>(m_entries.size()); }

    /// The command whose turn it is; only when not empty.
    const Entry& front() const { return m_entries.front(); }
    /// Removes it.
    Entry takeFront();
    void clear() { m_entries.clear(); }

private:
    std::deque<Entry> m_entries;
};

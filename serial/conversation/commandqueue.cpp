#include "serial/conversation/commandqueue.h"

#include <utility>

void CommandQueue::append(const Request& request, quint64 number)
{
    if (request.isRead) {
        for (auto waiting = m_entries.rbegin(); waiting != m_entries.rend(); ++waiting) {
            if (!waiting->request.isRead) {
                break;
            }
            if (waiting->request.body == request.body) {
                waiting->numbers.push_back(number);
                return;
            }
        }
    }
    m_entries.push_back({request, {number}});
}

CommandQueue::Entry CommandQueue::takeFront()
{
    Entry entry = std::move(m_entries.front());
    m_entries.pop_front();
    return entry;
}

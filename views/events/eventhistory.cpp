#include "views/events/eventhistory.h"

#include "views/events/eventmodel.h"

#include <QPointer>
#include <QThread>

#include <limits>
#include <utility>

EventHistory::EventHistory(EventModel* model, QObject* parent)
    : QObject(parent)
    , m_model(model)
{
}

void EventHistory::read(Ask ask)
{
    Q_ASSERT(QThread::currentThread() == thread());
    ++m_number;
    m_ask = std::move(ask);
    m_isCut = false;
    m_isReading = static_cast<bool>(m_ask);
    m_model->clear();
    if (m_isReading) {
        readPage(std::numeric_limits<qint64>::max());
    }
    emit changed();
}

void EventHistory::readPage(qint64 to)
{
    m_ask({0, to}, kPage,
          [self = QPointer<EventHistory>(this), to,
           number = m_number](std::vector<RecordedEvent> page) {
              if (self != nullptr) {
                  self->take(std::move(page), to, number);
              }
          });
}

void EventHistory::take(std::vector<RecordedEvent> page, qint64 to, int number)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (number != m_number) {
        return; // of a former reading
    }
    const bool isFull = page.size() >= static_cast<std::size_t>(kPage);
    // A page may end among events of one moment, so the next page has that moment again.
    const qint64 next = page.empty() ? 0 : qMin(page.front().at + 1, to - 1);
    m_model->add(std::move(page));
    m_isCut = isFull && m_model->count() >= kMost;
    m_isReading = isFull && !m_isCut;
    if (m_isReading) {
        readPage(next);
    }
    emit changed();
}

#pragma once

#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"

#include <QObject>

#include <functional>
#include <vector>

class EventModel;

/// Fills a list with the recorded events, from the latest one back, a page at a time, so that
/// nobody waits for a month of events. GUI thread.
class EventHistory : public QObject
{
    Q_OBJECT
public:
    using Answer = std::function<void(std::vector<RecordedEvent>)>;
    /// Asks for the last events of a span, at most `limit`. The answer may come later, or never if
    /// another recording has come into force.
    using Ask = std::function<void(TimeSpan span, int limit, Answer answer)>;

    static constexpr int kPage = 500;
    /// The most events listed; older ones are left out.
    static constexpr int kMost = 50000;

    /// The model outlives this object.
    EventHistory(EventModel* model, QObject* parent);

    /// Begins anew with an empty list. Without a function the list stays empty.
    void read(Ask ask);
    bool isReading() const { return m_isReading; }
    /// Whether there are more than the list holds.
    bool isCut() const { return m_isCut; }

signals:
    void changed();

private:
    void readPage(qint64 to);
    void take(std::vector<RecordedEvent> page, qint64 to, int number);

    EventModel* m_model;
    Ask m_ask;
    int m_number = 0; ///< of the reading that is under way
    bool m_isReading = false;
    bool m_isCut = false;
};

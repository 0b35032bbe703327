#pragma once

#include "recording/recordedevent.h"
#include "recording/recordedvalues.h"

#include <QObject>

#include <functional>
#include <vector>

class EventModel;

/// Fills a list with what is recorded, from the latest event back, a page at a time, so that a
/// month of events holds nobody up. GUI thread.
class EventHistory : public QObject
{
    Q_OBJECT
public:
    using Answer = std::function<void(std::vector<RecordedEvent>)>;
    /// Asks for the last events of a span, at most so many. The answer may come later; it does not
    /// come when the recording has become another one.
    using Ask = std::function<void(TimeSpan span, int limit, Answer answer)>;

    static constexpr int kPage = 500;
    /// What is older is not listed.
    static constexpr int kMost = 50000;

    /// The model outlives this object.
    EventHistory(EventModel* model, QObject* parent);

    /// Begins anew with an empty list. A null function is a recording without anything in it.
    void read(Ask ask);
    bool isReading() const { return m_isReading; }
    /// There are more than the list holds.
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

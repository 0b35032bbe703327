#pragma once

#include "serial/ldbsettings.h"
#include "serial/reply.h"

#include <QObject>
#include <QString>

class SerialLink;

/// Sends actions to one LDB or to all, and tells what became of each. GUI thread.
class LdbActions : public QObject
{
    Q_OBJECT
public:
    /// `link` outlives this object.
    LdbActions(SerialLink* link, QObject* parent);

    /// Queues the action for one LDB; does nothing without one.
    void execute(LdbControl control, const QString& hexId);
    /// Queues the action for every LDB on the bus. None of them answers.
    void executeForAll(LdbControl control);

signals:
    /// What became of an action: accepted, refused, unanswered, or sent to all.
    void reported(const QString& text);

private:
    void processReply(LdbControl control, const QString& hexId, const Reply& reply);

    SerialLink* m_link;
};

#pragma once

#include "serial/serialcommand.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <vector>

class SerialLink;

/// Commands for a number of LDBs, sent LDB by LDB, with every answer told. Only a few LDBs'
/// commands wait at the processor at a time: other users of the bus get their turn between them,
/// and what is left can still be called off by destroying the batch. An LDB's commands are handed
/// over together, so a batch that dies leaves no LDB half written.
///
/// It ends exactly once, with `finished()` or `aborted()`, whatever the bus does. GUI thread only;
/// receivers may delete the batch from any of its signals.
class CommandBatch : public QObject
{
    Q_OBJECT
public:
    /// `link` need not outlive the batch.
    /// @param ldbsAhead how many LDBs' commands may wait at the processor, at least 1
    CommandBatch(SerialLink* link, int ldbsAhead, QObject* parent = nullptr);
    ~CommandBatch() override;

    /// Adds an LDB; each one once, and only before `start()`.
    void add(const QString& hexId, std::vector<std::unique_ptr<ISerialCommand>> commands);

    /// Begins; once. The signals come later, from the event loop.
    void start();

    int commandCount() const { return m_commandCount; }
    /// Commands whose answer is still to come.
    int commandsLeft() const { return m_commandsLeft; }

signals:
    /// One command's reply. An LDB that is lost when its turn comes is
    /// not asked; it is silent to everything. `command` counts from 0 in the LDB's own
    /// commands.
    void answered(const QString& hexId, int command, const Reply& reply);
    /// All of an LDB's commands have been answered.
    void ldbDone(const QString& hexId);
    /// The last answer has come.
    void finished();
    /// The link has stopped; the answers still open will not come.
    void aborted();

private:
    struct Ldb
    {
        QString hexId;
        std::vector<std::unique_ptr<ISerialCommand>> commands; ///< empty once posted
        int left = 0;
    };

    void fill();
    void post(std::size_t index, SerialLink& link);
    void answerWithNothing(std::size_t index);
    void processReply(std::size_t index, int command, const Reply& reply);
    void finish();
    void abort();

    QPointer<SerialLink> m_link;
    const int m_ldbsAhead;
    std::vector<Ldb> m_ldbs;
    std::size_t m_next = 0; ///< the LDB whose turn comes next
    int m_waiting = 0;      ///< LDBs posted and not yet done
    int m_commandCount = 0;
    int m_commandsLeft = 0;
    bool m_running = false;
};

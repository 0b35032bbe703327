#pragma once

#include <QByteArray>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <deque>

/// Holds a program's log, and what its overview showed, against the simulator's journal: every
/// line must be a status that this very LDB has sent, intact, no line may stand for an answer that
/// stands in the log already, and the answers of an LDB must come in the order sent. Takes both
/// files as they grow and keeps no more of them than is open.
class LogAudit
{
public:
    /// The figures so far.
    struct Findings
    {
        int exchanges = 0;   ///< polling requests on the wire, repeated ones included
        int sent = 0;        ///< intact status answers
        int garbled = 0;     ///< answers of any kind
        int late = 0;        ///< answers of any kind
        int unanswered = 0;  ///< polling requests without any answer
        int lines = 0;       ///< log lines, "Disconnected" ones included
        int lostLines = 0;   ///< "Disconnected" lines
        int shown = 0;       ///< rows of the overview that were looked at
        int wrong = 0;       ///< lines or shown rows that are not right
        int falseLosses = 0; ///< losses of LDBs that were on the bus all the time
        int losses = 0;
        int lateNotTaken = 0;   ///< late intact answers that are not in the log
        int surplus = 0;        ///< second ones to a repeated request, rightly not in the log
        int takenByCut = 0;     ///< what the hang-up took
        int promptNotTaken = 0; ///< all others that are not in the log
    };

    /// `names`: the name of each LDB of the installation by its id.
    explicit LogAudit(const QHash<QString, QString>& names);

    /// A line of the journal.
    void takeJournalLine(const QByteArray& line);
    /// A line of the log but the header, after all journal lines written before it. `shown`: the
    /// texts of the LDB's row in the overview while this was its last line; empty when nobody
    /// looked.
    void takeLogLine(const QByteArray& line, const QStringList& shown);

    /// An LDB is taken off the bus: its loss is no fault until the end of the run.
    void expectLoss(const QString& hexId) { m_absent.insert(hexId); }
    /// The line was cut; all lines of both files have been taken.
    void endRun();

    bool isShownLost(const QString& hexId) const { return m_lost.contains(hexId); }
    const Findings& findings() const { return m_findings; }

private:
    struct Status
    {
        double sentMs = 0; ///< journal time
        QByteArray time;   ///< local time, to the second
        QByteArray body;
        QByteArray fields; ///< as in the log
        bool isLate = false;
        bool isSecond = false; ///< its request had been repeated, and answered
    };

    void takeRequest(const QString& hexId, const QByteArray& frame);
    void takeAnswer(const QByteArrayList& columns);
    void checkLost(const QString& hexId, const QByteArray& fields);
    void checkName(const QString& hexId, const QString& name);
    void checkTime(const QString& hexId, const QByteArray& stamp);
    void checkShown(const QString& hexId, const Status& status, const QStringList& shown);
    void passOver(const Status& status);
    void complain(const QString& hexId, const QString& what);
    QString explain(const QString& hexId, const QByteArray& fields) const;

    const QHash<QString, QString> m_names;
    QHash<QString, std::deque<Status>> m_open; ///< sent, and not in the log yet
    std::deque<QString> m_recent;              ///< id and fields of what was sent lately
    QSet<QString> m_named;                     ///< whose name has been logged in this run
    QSet<QString> m_lost;
    QSet<QString> m_absent;
    QSet<QString> m_answered; ///< whose last status request, repeated or not, has an intact answer
    QByteArray m_request;     ///< the last one
    bool m_isWaiting = false; ///< a polling request has no answer yet
    double m_cutMs = 0;
    QByteArray m_lastStamp;
    Findings m_findings;
};

#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QStringList>

/// Where what is shown of the bus comes from: the link, or a recording that is looked at. Whoever
/// shows records takes them from here and does not know which it is. GUI thread.
class RecordSource : public QObject
{
    Q_OBJECT
public:
    explicit RecordSource(QObject* parent = nullptr);

    /// Every LDB of the list, in its order; lost ones included.
    virtual QStringList knownLdbs() const = 0;
    /// Whether an LDB is listed, and nothing has been heard of it.
    virtual bool isAwaited(const QString& hexId) const = 0;
    /// The name that the LDB told last, or is remembered with; empty where there is none.
    virtual QString nameOf(const QString& hexId) const = 0;

signals:
    /// Whatever was told before is of another moment. What is known of the LDBs of this one, which
    /// these are, follows at once.
    void replaced(const QStringList& hexIds);
    /// A round of all LDBs, or of the one polled alone, begins; its records carry this time. One
    /// that is broken off has no end.
    void roundBegun(const QDateTime& wall);
    void roundEnded();
    void generalInformationUpdated(QString hexId, QList<QStringList> dataList);
    /// A record that came between the turns of a long round, with its own time: for whoever shows
    /// what is now. The round has its own one of this LDB.
    void extraInformationUpdated(QString hexId, QList<QStringList> dataList);
    /// `isAwaited` of this LDB is another.
    void awaitedChanged(const QString& hexId);
    void ldbListChanged(const QStringList& hexIds);
};

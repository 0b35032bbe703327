#pragma once

#include "serial/ldb/recordsource.h"

#include <QDateTime>
#include <QHash>
#include <QPointer>

/// Tells the window what to show of the bus: what the link tells, or, while another source is set,
/// what that one tells. It keeps what the link tells meanwhile, so that the present is there at
/// once when it is shown again. GUI thread.
class ShownSource : public RecordSource
{
    Q_OBJECT
public:
    /// `live` outlives this object.
    explicit ShownSource(RecordSource* live, QObject* parent = nullptr);

    /// Changes over to that source, or to the present if it is null. The present is told at once; a
    /// source tells its own state. It must live as long as it is shown.
    void show(RecordSource* past);
    bool isLive() const { return m_past == nullptr; }

    /// Whether the whole bus is polled now. When that changes, earlier rounds no longer count.
    void setWhole(bool isWhole);
    /// Forgets the LDBs that the link no longer knows. Not to be called during a scan, when its
    /// list is not whole.
    void keepKnown();

    QStringList knownLdbs() const override { return shown().knownLdbs(); }
    bool isAwaited(const QString& hexId) const override { return shown().isAwaited(hexId); }
    QString nameOf(const QString& hexId) const override { return shown().nameOf(hexId); }

private:
    struct Record
    {
        QList<QStringList> rows;
        bool isExtra = false;
    };

    const RecordSource& shown() const { return m_past == nullptr ? *m_live : *m_past; }
    void followLive();
    void keep(const QString& hexId, const QList<QStringList>& rows, bool isExtra);
    void tellPresent();

    RecordSource* m_live;
    QPointer<RecordSource> m_past;
    QHash<QString, Record> m_latest; ///< of the link
    QDateTime m_round;               ///< the last one that began
    bool m_isRoundOn = false;
    bool m_hadRound = false; ///< one that was whole
};

#pragma once

#include "serial/ldb/recordsource.h"

#include <QDateTime>
#include <QHash>
#include <QPointer>

/// What the window shows of the bus: what the link tells now or, while another source is set, what
/// that one tells. It keeps what the link told meanwhile, so that the present is there at once when
/// it is shown again. GUI thread.
class ShownSource : public RecordSource
{
    Q_OBJECT
public:
    /// `live` outlives this object.
    explicit ShownSource(RecordSource* live, QObject* parent = nullptr);

    /// Shows what this one tells, which outlives its being shown; null for the present. The present
    /// is told at once, the other one by itself.
    void show(RecordSource* past);
    bool isLive() const { return m_past == nullptr; }

    /// Whether the whole bus is polled now; rounds of before it was count no more.
    void setWhole(bool isWhole);
    /// Forgets the LDBs that the link knows no more. During a scan its list is not whole.
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
    bool m_hadRound = false; ///< a whole one
};

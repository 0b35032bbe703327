#pragma once

#include "recording/recordedvalues.h"
#include "serial/ldb/exchange.h"

#include <QMap>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <vector>

/// Counts what the serial link tells, minute by minute, and keeps one hour; needs no recording. GUI
/// thread.
class LiveQuality : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    /// The minutes that overlap a span (UTC, µs since 1970), of all LDBs.
    std::vector<RecordedMinute> minutes(TimeSpan span) const;

public slots:
    void takeExchange(const Exchange& exchange);
    /// The LDBs of the list; probes of others do not count.
    void setList(const QStringList& hexIds);

private:
    QSet<QString> m_list;
    QMap<qint64, QMap<QString, RecordedMinute>> m_minutes; ///< by begin and LDB
};

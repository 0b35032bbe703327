#pragma once

#include "recording/recordedtables.h"
#include "serial/ldb/exchange.h"

#include <QSet>

#include <optional>
#include <vector>

/// One file of a recording with its exchanges, and the records that were made of them. Used in the
/// thread that made it.
class RecordingSource : public RecordedTables
{
public:
    using RecordedTables::RecordedTables;

    // Ascending. A limit leaves the last ones; -1 is none.
    std::vector<RecordedRecord> records(const QString& hexId, TimeSpan span, int limit);
    std::vector<Exchange> exchanges(const QString& hexId, TimeSpan span, int limit,
                                    std::optional<ExchangeKind> only = {});

    /// The last record up to `at` of each of these LDBs that has one; of all LDBs if none is named.
    std::vector<RecordedRecord> latest(qint64 at, const QSet<QString>& hexIds);
    /// The next record after `at`, or the last one before it.
    std::optional<qint64> neighbour(qint64 at, bool isAfter, const QString& hexId);

private:
    struct Round
    {
        qint64 wall = 0;
        int offset = 0;
    };
    struct Row;
    /// What the small tables say of the records of a span.
    struct Context;

    std::vector<Row> rows(const QString& condition, const QVariantList& values, bool isDescending,
                          int limit);
    std::optional<Row> lastOf(const QString& hexId, qint64 at);
    Context contextOf(TimeSpan span);
    std::optional<RecordedRecord> recordOf(const Row& row, const Context& context);
};

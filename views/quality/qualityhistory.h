#pragma once

#include "views/quality/qualityfindings.h"

#include <QMap>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

/// The end of the last minute that was over at a moment. A recording's minute under way is left
/// out: it also counts what comes after the moment.
constexpr qint64 wholeMinutes(qint64 at)
{
    return at - at % (60 * 1000000LL);
}

/// How far back the quality of the line is looked at.
enum class QualityReach : int
{
    Now, ///< the last five minutes
    Hour,
    Day,
    Week
};

/// One line of the table: an LDB, or the bus as a whole.
struct LineQuality
{
    QString hexId; ///< empty: the bus
    QualityCounts counts;
    std::optional<FlightTimes> flights;
    std::vector<QualityBar> bars; ///< as many in each line, the earliest first
};

/// The quality of the line over a time that ends at a moment: says what has to be read from a
/// recording, takes it, and gives the lines to be shown. When the moment moves on, little is read
/// anew. Counts are of whole minutes. Flight times are all those of five minutes, or a sample of a
/// longer reach, in evenly spread pieces. No clock; moments are UTC, µs since 1970.
class QualityHistory
{
public:
    /// What has to be read next, one at a time.
    struct Need
    {
        TimeSpan span;
        int each = 1;           ///< minutes in a bar
        bool isFlights = false; ///< the flight times of all good exchanges, instead of the minutes
    };

    /// Another reach, or an earlier moment, forgets what has been read.
    void setEnd(QualityReach reach, qint64 end);
    QualityReach reach() const { return m_reach; }
    /// From the begin of the first bar to the end.
    TimeSpan span() const;

    /// Nothing when everything has been read that can be by now.
    std::optional<Need> need() const;
    /// Takes what was read for a need; it replaces what was there of its span.
    void take(const Need& need, const std::vector<RecordedMinute>& minutes);
    void take(const Need& need, const std::vector<std::pair<QString, int>>& flights);
    void clear();

    /// The bus first, then the LDBs, worst first; those with too few exchanges last.
    std::vector<LineQuality> lines() const;
    CountsOfLdbs counts() const;
    /// Whether flight times come from a part of the exchanges.
    bool isSampled() const { return m_reach != QualityReach::Now; }

private:
    qint64 barLength() const;
    qint64 barBegin(qint64 at) const { return at - at % barLength(); }
    struct Slice
    {
        qint64 from = 0;
        qint64 to = 0;
    };
    std::optional<Slice> nextSlice() const;

    QualityReach m_reach = QualityReach::Now;
    qint64 m_end = 0;
    qint64 m_readUntil = 0;    ///< the minutes up to here are there; 0 for none
    qint64 m_settledUntil = 0; ///< those up to here do not change any more
    QMap<QString, QMap<qint64, QualityCounts>> m_bars;            ///< by LDB and begin
    QMap<qint64, std::vector<std::pair<QString, int>>> m_flights; ///< by the piece's begin
    QMap<qint64, qint64> m_flightsUntil;                          ///< how far each piece was read
};

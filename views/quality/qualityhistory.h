#pragma once

#include "views/quality/qualityfindings.h"

#include <QMap>
#include <QString>

#include <optional>
#include <utility>
#include <vector>

/// The last whole minute that was over at a moment: what a recording has counted up to then. The
/// minute under way counts what comes later, too.
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

/// One line of what is shown: an LDB, or the bus as a whole.
struct LineQuality
{
    QString hexId; ///< empty: the bus
    QualityCounts counts;
    std::optional<FlightTimes> flights;
    std::vector<QualityBar> bars; ///< as many in each line, the earliest first
};

/// The quality of the line over a time that ends at a moment: says what of a recording is to be
/// read for it, takes that, and gives the lines to be shown. When the moment moves on, little is
/// read anew. Counts are of whole minutes. Flight times of five minutes are all, those of longer
/// reaches a sample: evenly spread pieces of it. No clock; moments are UTC, µs since 1970.
class QualityHistory
{
public:
    /// What is to be read next, one at a time.
    struct Need
    {
        TimeSpan span;
        int each = 1;           ///< minutes in a bar
        bool isFlights = false; ///< the flight times of all good exchanges, and not the minutes
    };

    /// Another reach or a moment that lies back forgets what there is.
    void setEnd(QualityReach reach, qint64 end);
    QualityReach reach() const { return m_reach; }
    /// From the begin of the first bar to the end.
    TimeSpan span() const;

    /// Nothing when all is there that can be by now.
    std::optional<Need> need() const;
    /// Takes what was read for a need, in place of what there was of its span.
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
    qint64 m_settledUntil = 0; ///< and nothing more comes to those up to here
    QMap<QString, QMap<qint64, QualityCounts>> m_bars;            ///< by LDB and begin
    QMap<qint64, std::vector<std::pair<QString, int>>> m_flights; ///< by the piece's begin
    QMap<qint64, qint64> m_flightsUntil;                          ///< how far each piece was read
};

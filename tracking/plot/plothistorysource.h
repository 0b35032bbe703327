#pragma once

#include <QStringList>
#include <QtGlobal>

#include <array>
#include <functional>
#include <limits>
#include <vector>

/// The values of one LDB at a moment. Without any of them it is a gap: no line goes over it.
struct PlotSample
{
    enum Value : std::size_t
    {
        PrimaryVoltage, ///< V
        SecondaryVoltage,
        PrimaryCurrent, ///< mA
        SecondaryCurrent,
        ValueCount
    };
    static constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

    double time = 0.0; ///< ms since 1970 UTC
    /// Not a number where nothing was measured.
    std::array<double, ValueCount> values{kNone, kNone, kNone, kNone};

    static PlotSample gap(double time)
    {
        PlotSample sample;
        sample.time = time;
        return sample;
    }
    bool isGap() const;
    /// What a record says (`generalinformation`), at that time; a gap where its LDB is lost.
    static PlotSample ofRecord(const QList<QStringList>& record, double time);
    /// Rising samples with a gap wherever two are further apart than `longestLine` ms.
    static std::vector<PlotSample> withGaps(const std::vector<PlotSample>& samples,
                                            double longestLine);
};

/// Where a plot gets values from that this run has not told it. GUI thread.
class PlotHistorySource
{
public:
    using Answer = std::function<void(const std::vector<PlotSample>& samples)>;

    virtual ~PlotHistorySource() = default;

    /// Asks for what is known of an LDB from `from` on and before `to`, ms since 1970 UTC.
    ///
    /// `answer` is called once, in the GUI thread, now or later, and holds by itself what it needs:
    /// who asked may be gone by then. The samples rise in time. After the last record before the
    /// LDB was lost, a run ended or nothing was recorded stands a gap, so that no line goes over
    /// it. They are empty where nothing is known, and where it cannot be read: whoever reads tells
    /// the user of that.
    virtual void ask(const QString& hexId, qint64 from, qint64 to, const Answer& answer) = 0;
};

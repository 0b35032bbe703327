#pragma once

#include "serial/ldb/generalinformation.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <vector>

/// Numbers that are appended at the end and dropped at the front, both in constant time on average,
/// and that lie in one piece of memory, so that a scan over them is as fast as over an array. What
/// is dropped is given back in portions, so the memory stays near what the content needs.
class SlidingVector
{
public:
    int size() const { return static_cast<int>(m_store.size() - m_first); }
    const double* data() const { return m_store.data() + m_first; }
    double at(int index) const { return m_store[m_first + offset(index)]; }
    void set(int index, double value) { m_store[m_first + offset(index)] = value; }

    /// Puts a value before the one at `index`, or at the end; costs what moving the later ones
    /// costs.
    void insert(int index, double value) { m_store.insert(position(index), value); }
    /// Puts values before all others.
    void insertFront(const double* values, int count)
    {
        m_store.erase(m_store.begin(), position(0));
        m_first = 0;
        m_store.insert(m_store.begin(), values, values + count);
    }
    /// Drops all from `newSize` on.
    void truncate(int newSize) { m_store.erase(position(newSize), m_store.end()); }
    void assign(int count, double value)
    {
        m_store.assign(offset(count), value);
        m_first = 0;
    }
    void dropFront(int count)
    {
        m_first += offset(count);
        if (m_first > kMinimumPortion && m_first > m_store.size() / kPortionDivisor) {
            m_store.erase(m_store.begin(), position(0));
            m_first = 0;
        }
    }

private:
    static constexpr std::size_t kMinimumPortion = 256;
    static constexpr std::size_t kPortionDivisor = 8;

    static std::size_t offset(int index) { return static_cast<std::size_t>(index); }
    std::vector<double>::iterator position(int index)
    {
        return m_store.begin() + static_cast<std::ptrdiff_t>(m_first + offset(index));
    }

    std::vector<double> m_store;
    std::size_t m_first = 0;
};

/// What a plot has been given: one list of time stamps (ms since the epoch, rising) and beside it,
/// for every curve, one value a time stamp. A plain value without a widget; one thread at a time.
class PlotHistory
{
public:
    static constexpr int kDefaultLimit = 30000;

    /// Number of time stamps.
    int size() const { return m_times.size(); }
    bool isEmpty() const { return size() == 0; }
    /// Time stamps and a curve's values, oldest first, `size()` each; valid until the next change.
    /// The curve must exist. Where a curve got no value there is one that `isDrawable()` denies.
    const double* times() const { return m_times.data(); }
    const double* values(int curve) const { return m_curves.at(curve).values.data(); }
    /// The ends of the history, which must not be empty.
    double oldestTime() const { return m_times.at(0); }
    double newestTime() const { return m_times.at(size() - 1); }

    /// Index of the first time stamp not before `time`, or after it; `size()` where there is none.
    int firstNotBefore(double time) const;
    int firstAfter(double time) const;

    std::vector<int> curves() const;
    /// Whether a curve has a drawable value at that index; without one it is a gap.
    bool isRecord(int index) const;

    bool hasCurve(int curve) const { return m_curves.count(curve) > 0; }
    /// Starts a curve without values; one of that number that is there loses its values.
    void addCurve(int curve);
    void removeCurve(int curve) { m_curves.erase(curve); }

    /// Stores a value of an existing curve. A time stamp that is held is shared, a new one gets an
    /// entry in its place in time. A curve that comes with a new time stamp before its latest one
    /// tells that the clock was set back: then all entries later than `time` are dropped, so that
    /// time always rises along the history and the chart goes on at once instead of waiting until
    /// the clock has caught up.
    /// Returns the number of entries dropped for that reason.
    int add(int curve, double value, double time);

    /// Puts rising time stamps before all that are held, with the values of each curve; a curve
    /// that `values` lacks has none. Of those that are not earlier than the oldest one held, or too
    /// many for the limit, nothing is taken. All lists of `values` are as long as `times`.
    void prepend(const std::vector<double>& times,
                 const std::map<int, std::vector<double>>& values);

    /// A new time stamp first drops the oldest ones while more than `samples` (at least 0) are
    /// held.
    void setLimit(int samples);

    /// Drops all entries; the curves stay.
    void clear();

    /// Whether a value is a measurement that can be drawn: finite, and not the marker of a
    /// measurement that the device could not make.
    static bool isDrawable(double value)
    {
        return std::isfinite(value) && value != generalinformation::kMissingMeasurement;
    }

private:
    struct Curve
    {
        SlidingVector values;
        /// No value of the curve is later.
        double latestTime = std::numeric_limits<double>::lowest();
    };

    bool holds(double time) const;
    int dropLaterThan(double time);
    void dropOldest();
    void insertStamp(int index, double time);

    SlidingVector m_times;
    std::map<int, Curve> m_curves;
    int m_limit = kDefaultLimit;
};

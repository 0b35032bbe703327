#include "views/quality/linequality.h"

#include "recording/lineshares.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

// With fewer, one more or less would change a share too much for it to mean anything.
constexpr int kEnoughExchanges = 20;
// With fewer there is no median and no slowest twentieth worth telling.
constexpr std::size_t kEnoughFlights = 20;
constexpr double kMicrosecondsPerMillisecond = 1000.0;
constexpr qint64 kSomeOneIn = 20; // up to one bad exchange in so many, a bar has a few

} // namespace

void QualityCounts::add(const QualityCounts& other)
{
    asked += other.asked;
    good += other.good;
    damaged += other.damaged;
    silent += other.silent;
}

void QualityCounts::add(const RecordedMinute& minute)
{
    add(QualityCounts{minute.asked, minute.good, minute.damaged, minute.silent});
}

bool QualityCounts::isEnough() const
{
    return asked >= kEnoughExchanges;
}

bool QualityCounts::isGood() const
{
    return lineshares::isGood(bad(), asked);
}

std::optional<FlightTimes> flightTimesOf(std::vector<int> flights)
{
    if (flights.size() < kEnoughFlights) {
        return std::nullopt;
    }
    const auto atRank = [&flights](std::size_t rank) {
        const auto place = flights.begin() + static_cast<std::ptrdiff_t>(rank);
        std::nth_element(flights.begin(), place, flights.end());
        return qint64{*place};
    };
    // The smallest value that this share of them does not exceed.
    const std::size_t median = (flights.size() + 1) / 2 - 1;
    const std::size_t part95 = (flights.size() * 95 + 99) / 100 - 1;
    return FlightTimes{atRank(median), atRank(part95)};
}

QualityBar::Level QualityBar::level() const
{
    if (counts.asked == 0) {
        return Level::Nothing;
    }
    if (counts.bad() == 0) {
        return Level::Good;
    }
    // A single bad one never makes a bar bad, however few exchanges it has.
    return counts.bad() == 1 || counts.bad() * kSomeOneIn <= counts.asked ? Level::Some
                                                                          : Level::Bad;
}

QString linequality::flightText(qint64 microseconds)
{
    return QStringLiteral("%1 ms").arg(
        static_cast<double>(microseconds) / kMicrosecondsPerMillisecond, 0, 'f', 1);
}

QString linequality::sharesText(const QualityCounts& counts)
{
    return QCoreApplication::translate(
               "LineQuality", "%1 exchanges: %2 good, %3 damaged, %4 silent, %5 not believed")
        .arg(QString::number(counts.asked), lineshares::text(counts.good, counts.asked),
             lineshares::text(counts.damaged, counts.asked),
             lineshares::text(counts.silent, counts.asked),
             lineshares::text(counts.unbelieved(), counts.asked));
}

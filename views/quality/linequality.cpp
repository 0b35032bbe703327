#include "views/quality/linequality.h"

#include "serial/ldb/generalinformation.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

// Of fewer, one more or less would change a share by more than it says.
constexpr int kEnoughExchanges = 20;
constexpr qint64 kGoodOneIn = 1000; // of a good line no more are bad
// Fewer have no middle, and no slowest twentieth.
constexpr std::size_t kEnoughFlights = 20;
constexpr double kMicrosecondsPerMillisecond = 1000.0;
constexpr double kHundredth = 0.01; // of a per cent: what is shown
constexpr qint64 kSomeOneIn = 20;   // in a bar with no more bad ones they are a few

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
    return bad() * kGoodOneIn <= asked;
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
    // The least that so many do not exceed.
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
    // A single one in a bar of few is no more than a few.
    return counts.bad() == 1 || counts.bad() * kSomeOneIn <= counts.asked ? Level::Some
                                                                          : Level::Bad;
}

QString linequality::shareText(qint64 part, qint64 whole)
{
    if (whole <= 0) {
        return generalinformation::kNoValue;
    }
    if (part <= 0) {
        return QStringLiteral("0 %");
    }
    if (part >= whole) {
        return QStringLiteral("100 %");
    }
    const double percent = 100.0 * static_cast<double>(part) / static_cast<double>(whole);
    if (percent < kHundredth) {
        return QStringLiteral("< 0.01 %");
    }
    if (percent > 100 - kHundredth) {
        return QStringLiteral("> 99.99 %");
    }
    return QStringLiteral("%1 %").arg(percent, 0, 'f', 2);
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
        .arg(QString::number(counts.asked), shareText(counts.good, counts.asked),
             shareText(counts.damaged, counts.asked), shareText(counts.silent, counts.asked),
             shareText(counts.unbelieved(), counts.asked));
}

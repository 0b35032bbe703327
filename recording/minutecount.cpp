#include "recording/minutecount.h"

#include <algorithm>

/// Nobody answers a broadcast, and a scan's probes of addresses at which nothing stands say nothing
/// about the line.
bool minutecount::counts(const Exchange& exchange, bool isListed)
{
    return exchange.kind != ExchangeKind::Broadcast &&
           (exchange.kind != ExchangeKind::Probe || isListed);
}

void minutecount::add(RecordedMinute& minute, const Exchange& exchange)
{
    ++minute.asked;
    switch (exchange.outcome) {
    case ExchangeOutcome::Believed: {
        const qint64 flight = std::max<qint64>(exchange.flight, 0);
        minute.leastFlight = minute.good == 0 ? flight : std::min(minute.leastFlight, flight);
        minute.mostFlight = std::max(minute.mostFlight, flight);
        minute.sumOfFlights += flight;
        ++minute.good;
        break;
    }
    case ExchangeOutcome::Damaged:
        ++minute.damaged;
        break;
    case ExchangeOutcome::Silent:
        ++minute.silent;
        break;
    case ExchangeOutcome::Unbelieved:
    case ExchangeOutcome::Late:
        break;
    }
}

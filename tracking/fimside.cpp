#include "tracking/fimside.h"

#include "tracking/siderules.h"

#include <limits>
#include <numeric>

FimSide::FimSide(int port)
    : ldbPort(port)
{
    for (QTimer* timer : {&stepSpacingTimer, &measurementTimer, &consecutiveCountTimer,
                          &firstFimTimer, &shortResetTimer}) {
        timer->setSingleShot(true);
        timer->setTimerType(Qt::PreciseTimer);
    }
    stepSpacingTimer.setInterval(siderules::kStepSpacing[port]);
    measurementTimer.setInterval(siderules::kMeasurement[port]);
    consecutiveCountTimer.setInterval(siderules::kConsecutiveCount[port]);
    firstFimTimer.setInterval(siderules::kFirstFim[port]);
    shortResetTimer.setInterval(siderules::kShortReset[port]);
}

void FimSide::reset()
{
    stopTimers();
    fimCount = 0;
    initialTimerPending = true;
    sideFinished = false;
    shortDetected = false;
    hardShort = false;
    countInWindow = false;
    sideResult = SideEnd::Connected;
}

void FimSide::stopTimers()
{
    stepSpacingTimer.stop();
    measurementTimer.stop();
    consecutiveCountTimer.stop();
    firstFimTimer.stop();
    shortResetTimer.stop();
}

double FimSide::meanCurrent() const
{
    if (currentHistory.isEmpty()) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    return std::accumulate(currentHistory.cbegin(), currentHistory.cend(), 0.0) /
           currentHistory.size();
}

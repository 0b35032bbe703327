#include "recording/lineshares.h"

#include "serial/ldb/generalinformation.h"

bool lineshares::isGood(qint64 bad, qint64 all)
{
    constexpr qint64 kOneIn = 1000;
    return bad * kOneIn <= all;
}

QString lineshares::text(qint64 part, qint64 all)
{
    constexpr double kHundredth = 0.01; // per cent: the last digit shown
    if (all <= 0) {
        return generalinformation::kNoValue;
    }
    if (part <= 0) {
        return QStringLiteral("0 %");
    }
    if (part >= all) {
        return QStringLiteral("100 %");
    }
    const double percent = 100.0 * static_cast<double>(part) / static_cast<double>(all);
    if (percent < kHundredth) {
        return QStringLiteral("< 0.01 %");
    }
    if (percent > 100 - kHundredth) {
        return QStringLiteral("> 99.99 %");
    }
    return QStringLiteral("%1 %").arg(percent, 0, 'f', 2);
}

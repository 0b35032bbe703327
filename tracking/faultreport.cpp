#include "tracking/faultreport.h"

#include <QCoreApplication>

namespace faultreport {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FimTracking)
};

constexpr int flag(LdbLoopState state)
{
    return static_cast<int>(state);
}

} // namespace

bool isEarthLeakage(LdbEarthState state)
{
    constexpr int kFirst = static_cast<int>(LdbEarthState::Leakage);
    constexpr int kLast = static_cast<int>(LdbEarthState::LeakageMemory) - 1;
    const int code = static_cast<int>(state);
    return code >= kFirst && code <= kLast;
}

bool isLoopDcLeakage(LdbLoopState state)
{
    constexpr int kLeakage = flag(LdbLoopState::DcLeakage);
    const int withoutShortMemory = flag(state) & ~flag(LdbLoopState::ShortMemory);
    const int withoutOpenMemory = flag(state) & ~flag(LdbLoopState::OpenMemory);
    return (withoutShortMemory >= kLeakage &&
            withoutShortMemory <= kLeakage + flag(LdbLoopState::OpenMemory)) ||
           withoutOpenMemory == kLeakage + flag(LdbLoopState::Short);
}

QString message(const FaultReport& report)
{
    QString text = report.kind == FaultReport::Kind::EarthLeakage
                       ? Texts::tr("Earth Leakage Detected!\n")
                       : Texts::tr("Loop DC Leakage Detected!\n");
    const QString line = QStringLiteral("\n %1");
    if (report.positions.primary) {
        text += line.arg(
            Texts::tr("Primary Side approximately at FIM: %1").arg(*report.positions.primary));
    }
    if (report.positions.secondary) {
        text += line.arg(
            Texts::tr("Secondary Side approximately at FIM: %1").arg(*report.positions.secondary));
    }
    return text;
}

QString sideText(FaultReport::Kind kind, int position)
{
    const QString text = kind == FaultReport::Kind::EarthLeakage
                             ? Texts::tr("Earth Leakage Detected: approximately at FIM: %1")
                             : Texts::tr("Loop DC Leakage Detected: approximately at FIM: %1");
    return text.arg(position);
}

} // namespace faultreport

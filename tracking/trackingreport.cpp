#include "tracking/trackingreport.h"

#include "tracking/fimcounter.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(FimTracking)
};

QString sideLine(const QString& title, const TrackingReport::Side& side)
{
    QStringList parts{Texts::tr("FIM count %1").arg(side.fimCount)};
    if (!side.isTracked) {
        parts.append(Texts::tr("not tracked"));
    }
    if (side.isFinished) {
        parts.append(trackingresult::sideEndText(side.end));
    }
    return title + parts.join(QStringLiteral(", "));
}

} // namespace

TrackingReport::Side TrackingReport::sideOf(const FimCounter& counter, int ldbPort)
{
    return {counter.fimCount(ldbPort), counter.isSideTracked(ldbPort),
            counter.isSideFinished(ldbPort), counter.sideResult(ldbPort)};
}

QString TrackingReport::toText() const
{
    QStringList lines{
        Texts::tr("FIM tracking report"),
        Texts::tr("LDB: %1").arg(hexId),
        Texts::tr("Name: %1").arg(name),
        Texts::tr("Tracking mode: %1").arg(trackingresult::modeText(mode)),
        Texts::tr("Time: %1").arg(finishedAt.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"))),
        sideLine(Texts::tr("Primary side: "), sides.primary),
        sideLine(Texts::tr("Secondary side: "), sides.secondary),
        Texts::tr("Result: %1").arg(summary),
    };
    for (const FaultReport& fault : faults) {
        lines.append(
            faultreport::message(fault).replace(QStringLiteral("\n\n"), QStringLiteral("\n")));
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

#pragma once

#include "tracking/faultreport.h"
#include "tracking/ldbport.h"
#include "tracking/trackingresult.h"

#include <QDateTime>
#include <QList>
#include <QString>

class FimCounter;

/// A finished run, to be kept by the user as text.
struct TrackingReport
{
    struct Side
    {
        int fimCount = 0;
        bool isTracked = true;
        bool isFinished = false;
        SideEnd end = SideEnd::Connected;
    };

    QString hexId;
    QString name;
    TrackingMode mode = TrackingMode::Commissioning;
    QDateTime finishedAt;
    BySide<Side> sides;
    QString summary; ///< total and loop result, as on the screen
    QList<FaultReport> faults;

    /// What the counter says of a side.
    static Side sideOf(const FimCounter& counter, int ldbPort);

    /// Lines of text in the language in force.
    QString toText() const;
};

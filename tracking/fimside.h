#pragma once

#include "tracking/trackingresult.h"

#include <QList>
#include <QTimer>

/// What the tracking knows of one side of the loop. State only: the rules are `FimCounter`'s.
struct FimSide
{
    explicit FimSide(int port);

    /// Back to the state before the first sample. The history stays: it is the mean current that
    /// the next step is measured against.
    void reset();
    void stopTimers();
    /// Mean of the history, not a number while there is none.
    double meanCurrent() const;

    const int ldbPort;
    int fimCount = 0;
    QList<double> currentHistory; ///< 0.01 mA, oldest first
    bool initialTimerPending = true;
    bool sideFinished = false;
    bool shortDetected = false; ///< a surge less than `siderules::kShortReset` ago
    bool hardShort = false;     ///< ended by the marker of a shorted port
    bool countInWindow = false; ///< the last step followed its predecessor closely
    SideEnd sideResult = SideEnd::Connected;

    QTimer stepSpacingTimer;
    QTimer measurementTimer;
    QTimer consecutiveCountTimer;
    QTimer firstFimTimer;
    QTimer shortResetTimer;
};

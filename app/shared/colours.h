#pragma once

#include <QString>

/// The named colours of the program, as QColor and style sheets read them.
namespace colours {

// Lamps.
inline const QString kLampOff = QStringLiteral("#f0f0f0");
inline const QString kLampUnknown = QStringLiteral("#5a5a5a"); // its hatching
inline const QString kAmber = QStringLiteral("#fbbf00");
inline const QString kBlue = QStringLiteral("#42b5e1");
inline const QString kOrangered = QStringLiteral("orangered");

// Results of a fault finding, dark enough to be read on white.
inline const QString kConnected = QStringLiteral("#1b6e36");
inline const QString kOpen = QStringLiteral("#a04000");
inline const QString kShort = QStringLiteral("#b3261e");
inline const QString kTrackingButton = QStringLiteral("#dfe6ee");
inline const QString kTrackingGround = QStringLiteral("#f1f5f9");

// What the window says of the monitoring stands on these, dark on light.
inline const QString kMonitored = QStringLiteral("#d6ecd6");
inline const QString kPartlyMonitored = QStringLiteral("#ffeca0");
inline const QString kNotMonitored = QStringLiteral("#ffcd78");

// Events, in their list and on the time bar.
inline const QString kEventFault = QStringLiteral("#d07000");
inline const QString kEventLoss = QStringLiteral("#b3261e");
inline const QString kEventGood = QStringLiteral("#1b6e36");
inline const QString kEventMark = QStringLiteral("#7a1fa2");
inline const QString kEventWork = QStringLiteral("#1c5fa8");
inline const QString kEventOther = QStringLiteral("#6e727a");
// Looking back: a band of its own, and the bar of the recorded time.
inline const QString kRecorded = QStringLiteral("#d8c8f4");
inline const QString kRecordedText = QStringLiteral("#3b1a78");
inline const QString kRecordedNow = QStringLiteral("#ffb0a0"); // something happens now
inline const QString kBarGround = QStringLiteral("#e4e6ea");
inline const QString kBarRun = QStringLiteral("#b9d3ea");
inline const QString kBarText = QStringLiteral("#3a3f47");
// How well exchanges went, on the ground of a table.
inline const QString kQualityGood = QStringLiteral("#5aa469");
inline const QString kQualitySome = QStringLiteral("#e0a100");
inline const QString kQualityBad = QStringLiteral("#c62828");

// Plots. The canvas is dark in every palette: the bright named colours of the curves are told apart
// on it; on white, lime and orange are not.
inline const QString kPlotCanvas = QStringLiteral("#181a1e");
inline const QString kPlotGrid = QStringLiteral("#3e424a");
inline const QString kPlotCurve = QStringLiteral("#dcdcdc"); // of no known name
inline const QString kPlotText = QStringLiteral("#ebebeb");
inline const QString kPlotTextHidden = QStringLiteral("#82868e");
inline const QString kPlotPast = QStringLiteral("#70747c");
inline const QString kPlotPastText = QStringLiteral("#ffcd78");
inline const QString kPlotFrameLight = QStringLiteral("#6e727a");
inline const QString kPlotFrameDark = QStringLiteral("#08090a");

} // namespace colours

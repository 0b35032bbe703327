#pragma once

#include <QColor>
#include <QPixmap>

/// The pictures of a front-panel lamp.
namespace lampimage {

/// Width and height of a lamp, logical pixels.
constexpr int kSize = 18;

// The lamps' colours, here for the whole program.
constexpr QRgb kOff = qRgb(240, 240, 240);
constexpr QRgb kAmber = qRgb(251, 191, 0);
constexpr QRgb kBlue = qRgb(66, 181, 225);
constexpr QRgb kOrangered = qRgb(255, 69, 0); // the named colour

/// A round lamp on a transparent ground, drawn for the sharpest screen there is. Needs the
/// application object; GUI thread only.
QPixmap draw(QRgb colour);

} // namespace lampimage

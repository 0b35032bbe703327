#pragma once

#include <QImage>
#include <QVector>

/// The program's icon in the desktop's menu and task bar: the mark of the logo on a blue tile.
namespace appicon {

/// The sides, in pixels, in which a desktop asks for it.
QVector<int> sides();

/// Drawn `scale` times a side. The small ones show fewer and thicker modules, so that they stay
/// apart.
QImage draw(int side, int scale);

} // namespace appicon

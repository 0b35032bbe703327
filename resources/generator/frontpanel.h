#pragma once

#include <QImage>

/// The front panel of a loop drive board, with an arrow to the connector of the secondary port.
namespace frontpanel {

/// Drawn `scale` times its kept size.
QImage draw(int scale);

} // namespace frontpanel

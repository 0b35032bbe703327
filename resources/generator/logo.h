#pragma once

#include <QImage>
#include <QString>

/// The logo mark: a loop with its modules, and the product family's name, on a soft shadow.
namespace logo {

/// `name`: capitals out of A, N, O, R, T, V, the letters drawn here, so that the picture does not
/// depend on the fonts of the machine it is made on. Drawn `scale` times its kept size.
QImage draw(const QString& name, int scale);

} // namespace logo

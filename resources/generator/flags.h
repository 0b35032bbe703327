#pragma once

#include <QImage>

/// The flags that stand for the languages, 3:2, each drawn `scale` times its kept size.
namespace flags {

QImage dutch(int scale);
QImage french(int scale);
QImage british(int scale);

} // namespace flags

#pragma once

#include <QImage>

/// Single-colour icons that read on light and on dark backgrounds, drawn `scale` times their kept
/// size.
namespace icons {

/// Any language.
QImage globe(int scale);
/// The settings button.
QImage gear(int scale);

} // namespace icons

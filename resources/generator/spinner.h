#pragma once

#include <QImage>
#include <QVector>

/// The loading animation: dots in a ring, one of them bright, going round.
namespace spinner {

constexpr int kFrameMilliseconds = 80;

/// One turn. Indexed images of one colour table, whose first entry is transparent.
QVector<QImage> frames();

} // namespace spinner

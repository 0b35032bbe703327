#pragma once

#include <QByteArray>
#include <QImage>
#include <QVector>

/// An endless GIF animation out of indexed images of one size and one colour table of at most 128
/// entries, whose entry 0 is transparent. Qt reads this format but does not write it.
QByteArray gifAnimation(const QVector<QImage>& frames, int frameMilliseconds);

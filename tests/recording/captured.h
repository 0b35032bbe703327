#pragma once

#include "recording/recordingexport.h"
#include "recording/recordingreader.h"
#include "recording/recordwriter.h"
#include "tests/recording/recordedbus.h"
#include "tests/support/sandbox.h"

#include <QBuffer>

#include <limits>

/// When what is captured begins.
const QDateTime kNoon(QDate(2026, 3, 4), QTime(12, 0), Qt::UTC);

/// The capture of a recording of what `fill` lets a bus do; empty when it could not be made.
template <typename Fill>
QByteArray captureOf(const Fill& fill)
{
    const Sandbox sandbox;
    RecordWriter writer(optionsFor(sandbox.path("recordings")));
    RecordedBus bus(kNoon);
    bus.inputs.push_back(input::RunBegun{bus.now, "COM7"});
    fill(bus);
    writer.take(bus.take());
    RecordingReader reader(sandbox.path("recordings"));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};
    const QString reason = recordingexport::writeCapture(reader, kAll, buffer);
    return reason.isEmpty() ? buffer.data() : QByteArray();
}

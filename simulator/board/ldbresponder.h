#pragma once

#include "simulator/board/busrequest.h"
#include "simulator/board/simulatedldb.h"

#include <QByteArray>

/// Lets a board obey a request, and gives the raw bytes of its answer: a frame, ACK, or NAK when it
/// refuses. A refused request changes nothing.
QByteArray respond(SimulatedLdb& ldb, const BusRequest& request, qint64 now);

/// Whether the request would change something in a board.
bool isChanging(const BusRequest& request);

/// Raw answer bytes for people: "ACK", a status in words, ...
QString describeAnswer(const BusRequest& request, const QByteArray& answer);

#pragma once

#include <QByteArray>

/// What an answer to a request looks like. An answer carries no requester, so its shape is one of
/// the two means (beside the count of answers still owed) to tell whose it can be.
enum class AnswerShape
{
    Any,         ///< whatever the device says (a probe)
    Acknowledge, ///< a bare ACK or NAK
    Status,      ///< 50 characters
    Name,        ///< 32 hexadecimal digits
    Firmware,    ///< more than 10 hexadecimal digits without a zero byte
    Settings     ///< 56 characters
};

/// Whether `answer` (a body, or a single ACK or NAK byte) can be an answer of that shape. A NAK
/// refuses a request of any kind, so it fits every shape.
bool hasShape(const QByteArray& answer, AnswerShape shape);

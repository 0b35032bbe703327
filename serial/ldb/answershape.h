#pragma once

#include <QByteArray>

/// What an answer to a request looks like. An answer names neither its LDB nor its question, so
/// its shape is one of the few means to tell what it can be an answer to.
enum class AnswerShape
{
    Any,         ///< a poll's: whatever the device says
    Acknowledge, ///< a bare ACK or NAK
    Status,      ///< 50 upper-case hexadecimal digits that decode
    Name,        ///< 32 upper-case hexadecimal digits
    Firmware,    ///< more than 10 hexadecimal digits without a zero byte
    Settings,    ///< 56 digits that decode
    Count        ///< how many there are, and none itself
};
constexpr int kAnswerShapes = static_cast<int>(AnswerShape::Count);

/// Whether the body of a frame can be an answer of that shape. No frame is an acknowledgement.
bool hasShape(const QByteArray& body, AnswerShape shape);

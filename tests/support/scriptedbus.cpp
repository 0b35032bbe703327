#include "tests/support/scriptedbus.h"

#include "serial/framecodec.h"

namespace {

constexpr char kSoh = '\x01';
constexpr char kEot = '\x04';
const QByteArray kAck("\x06");
const QByteArray kNak("\x15");

constexpr int kTargetPosition = 2;
constexpr int kCodePosition = 4;

QByteArray padded(const QByteArray& text, int bytes)
{
    return text.leftJustified(bytes, '\0', true).toHex().toUpper();
}

} // namespace

ScriptedBus::ScriptedBus(const QStringList& presentHexIds, QObject* parent)
    : QObject(parent)
    , m_present(presentHexIds)
{
    connect(&m_terminal, &PseudoTerminal::received, this, &ScriptedBus::processBytes);
}

QByteArray ScriptedBus::framed(const QByteArray& body)
{
    return framecodec::createCommand(body);
}

QByteArray ScriptedBus::status(int state)
{
    // 24000 mV and 12.34 mA primary, 24000 mV and -1.00 mA secondary, low byte first.
    return "0000000000" + QByteArray::number(state, 16).toUpper().rightJustified(2, '0') +
           "00000000000000C05D0000C05D0000D2049CFF";
}

QByteArray ScriptedBus::name(const QString& hexId)
{
    constexpr int kNameBytes = 16;
    return padded("LDB " + hexId.toLatin1(), kNameBytes);
}

QByteArray ScriptedBus::firmware()
{
    return QByteArray("LDB 1.07").toHex().toUpper();
}

QByteArray ScriptedBus::healthyAnswer(const QByteArray& body) const
{
    const QString target = QString::fromLatin1(body.mid(kTargetPosition, 2));
    const QByteArray request = body.mid(kCodePosition);
    const bool isPresent = m_present.contains(target);
    if (request == "70") {
        return isPresent ? kAck : kNak;
    }
    if (!isPresent) {
        return {};
    }
    if (request == "737803") {
        return framed(status());
    }
    if (request == "737202") {
        return framed(name(target));
    }
    if (request == "737804") {
        return framed(firmware());
    }
    return kAck;
}

void ScriptedBus::processBytes(const QByteArray& bytes)
{
    m_collected += bytes;
    for (int end = m_collected.indexOf(kEot); end >= 0; end = m_collected.indexOf(kEot)) {
        QByteArray frame = m_collected.left(end + 1);
        m_collected.remove(0, end + 1);
        frame.remove(0, frame.lastIndexOf(kSoh));
        if (framecodec::responseValidation(frame)) {
            processRequest(frame);
        }
    }
}

void ScriptedBus::processRequest(const QByteArray& body)
{
    m_requests.append(body);
    const std::optional<QByteArray> scripted = m_script ? m_script(body) : std::nullopt;
    const QByteArray answer = scripted.value_or(healthyAnswer(body));
    if (!answer.isEmpty()) {
        m_terminal.write(answer);
    }
}

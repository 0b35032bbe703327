#include "simulator/bus/wirefaults.h"

#include "serial/wire/framecodec.h"
#include "simulator/board/ldbresponder.h"

namespace {

constexpr int kCheckDigits = 2;
constexpr int kFragments = 3;
constexpr qint64 kFragmentPause = 25; // ms
constexpr int kMaxNoiseBytes = 6;
constexpr int kShortenedBy = 2; // digits: one byte

/// A whole number in [lowest, highest].
int between(int lowest, int highest, std::mt19937& random)
{
    const auto span = static_cast<quint32>(highest - lowest) + 1;
    return lowest + static_cast<int>(random() % span);
}

bool isFramed(const QByteArray& answer)
{
    return answer.startsWith(framecodec::kSoh);
}

QByteArray withWrongCheck(QByteArray frame)
{
    char* digit = frame.data() + frame.size() - 2;
    *digit = *digit == '0' ? '1' : '0';
    return frame;
}

QByteArray shortened(const QByteArray& frame)
{
    const int bodyLength = frame.size() - 2 - kCheckDigits;
    return framecodec::createCommand(frame.mid(1, bodyLength - kShortenedBy));
}

/// Bytes that no line code uses, so that noise alone never looks like an answer.
QByteArray noise(std::mt19937& random)
{
    QByteArray bytes;
    for (int count = between(1, kMaxNoiseBytes, random); count > 0; --count) {
        bytes.append(static_cast<char>(between(0x80, 0xFF, random)));
    }
    return bytes;
}

} // namespace

void LimitedFault::set(bool on, std::optional<int> times)
{
    m_isOn = on;
    m_times = times;
}

bool LimitedFault::take()
{
    const bool hits = m_isOn;
    if (hits && m_times && --*m_times == 0) {
        m_isOn = false;
    }
    return hits;
}

void WireFaults::apply(const SimulatorCommand& command)
{
    switch (command.verb) {
    case CommandVerb::Silent:
        m_silent.set(command.on, command.times);
        break;
    case CommandVerb::BadCheck:
        m_badCheck.set(command.on, command.times);
        break;
    case CommandVerb::WrongLength:
        m_wrongLength.set(command.on, command.times);
        break;
    case CommandVerb::Nak:
        m_nak.set(command.nakScope != NakScope::None, command.times);
        m_nakScope = command.nakScope;
        m_nakIndex = command.index;
        break;
    case CommandVerb::Late:
        m_late.set(command.on, command.times);
        m_lateness = command.milliseconds;
        break;
    case CommandVerb::Noise:
        m_noise.set(command.on, command.times);
        break;
    case CommandVerb::Fragments:
        m_fragments.set(command.on, command.times);
        break;
    default:
        break;
    }
}

bool WireFaults::takeRefusal(const BusRequest& request)
{
    return refuses(request) && m_nak.take();
}

bool WireFaults::refuses(const BusRequest& request) const
{
    switch (m_nakScope) {
    case NakScope::All:
        return true;
    case NakScope::Changes:
        return isChanging(request);
    case NakScope::Index:
        return request.kind == BusRequest::Kind::Change && request.index == m_nakIndex;
    case NakScope::None:
        break;
    }
    return false;
}

Transmission WireFaults::spoil(const QByteArray& answer, const QString& text, std::mt19937& random)
{
    Transmission result;
    result.bytes = answer;
    result.note = text;
    if (isFramed(result.bytes) && m_wrongLength.take()) {
        result.bytes = shortened(result.bytes);
        result.note += QStringLiteral(" [wrong length]");
    }
    if (isFramed(result.bytes) && m_badCheck.take()) {
        result.bytes = withWrongCheck(result.bytes);
        result.note += QStringLiteral(" [bad check]");
    }
    if (m_noise.take()) {
        result.bytes.prepend(noise(random));
        result.note += QStringLiteral(" [noise]");
    }
    result.delay = m_late.take() ? m_lateness : 0;
    if (result.bytes.size() >= kFragments && m_fragments.take()) {
        result.pieces = kFragments;
        result.pause = kFragmentPause;
        result.note += QStringLiteral(" [fragments]");
    }
    return result;
}

QStringList WireFaults::names() const
{
    const std::pair<const LimitedFault&, const char*> faults[] = {{m_silent, "silent"},
                                                                  {m_badCheck, "bad-check"},
                                                                  {m_wrongLength, "wrong-length"},
                                                                  {m_nak, "nak"},
                                                                  {m_late, "late"},
                                                                  {m_noise, "noise"},
                                                                  {m_fragments, "fragments"}};
    QStringList result;
    for (const auto& [fault, name] : faults) {
        if (fault.isOn()) {
            result.append(QLatin1String(name));
        }
    }
    return result;
}

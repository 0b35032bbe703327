#include "tests/support/settingsbus.h"

#include "serial/seriallink.h"
#include "tests/support/testcase.h"

#include <QSignalSpy>

namespace {

constexpr int kScanLimitMs = 10000;
constexpr int kScans = 5;
constexpr int kNameDigits = 32;

/// Whether the cyclic polling sent the last of `requests`; it asks for the firmware id right after
/// the name.
bool isPolling(const QList<QByteArray>& requests)
{
    const QByteArray request = requests.constLast().mid(4);
    return request == "70" || request == "737803" || request == "737202" ||
           (request == "737804" && requests.size() > 1 &&
            requests.at(requests.size() - 2).mid(4) == "737202");
}

} // namespace

SettingsBus::SettingsBus(const QStringList& presentHexIds, QObject* parent)
    : QObject(parent)
    , m_bus(presentHexIds)
{
    for (const QString& hexId : presentHexIds) {
        m_records.insert(hexId, {});
    }
    reset();
    m_bus.setScript([this](const QByteArray& body) { return answer(body); });
}

void SettingsBus::reset()
{
    m_script = nullptr;
    m_requests.clear();
    for (auto it = m_records.begin(); it != m_records.end(); ++it) {
        it.value() = record(it.key());
    }
}

QByteArray SettingsBus::record(const QString& hexId)
{
    const QByteArray name = "LDB " + hexId.toLatin1();
    return hexId.toLatin1() + "112233" + "03" + "5A" + "00" + "0A00" +
           name.toHex().toUpper().leftJustified(kNameDigits, '0') + "44" + "1400";
}

QList<QByteArray> SettingsBus::writes() const
{
    QList<QByteArray> result;
    for (const QByteArray& request : m_requests) {
        if (request.mid(4, 4) == "7363" || request.mid(4) == "737806") {
            result.append(request);
        }
    }
    return result;
}

bool SettingsBus::connectLink(SerialLink& link)
{
    QSignalSpy scanned(&link, &SerialLink::ldbListInitializationStateChange);
    const QStringList all = m_records.keys();
    // A probe that a stalling machine answers too late makes another scan necessary.
    for (int scan = 0; scan < kScans && link.connectedLdbs() != all; ++scan) {
        link.stop();
        link.setPortName(m_bus.portName());
        scanned.clear();
        link.start();
        const bool isOver = waitUntil(
            [&scanned] { return !scanned.isEmpty() && !scanned.constLast().constFirst().toBool(); },
            kScanLimitMs);
        if (!isOver) {
            return false;
        }
    }
    return link.connectedLdbs() == all;
}

void SettingsBus::answerTo(const QString& hexId, const QByteArray& request,
                           const QByteArray& answer)
{
    const QByteArray start = "FE" + hexId.toLatin1() + request;
    setScript([=](const QByteArray& body) {
        return body.startsWith(start) ? std::make_optional(answer) : std::nullopt;
    });
}

std::optional<QByteArray> SettingsBus::answer(const QByteArray& body)
{
    const QString hexId = QString::fromLatin1(body.mid(2, 2));
    const QByteArray request = body.mid(4);
    if (isPolling(m_bus.requests()) || !m_records.contains(hexId)) {
        return std::nullopt;
    }
    m_requests.append(body);
    if (m_script) {
        if (auto scripted = m_script(body)) {
            return scripted;
        }
    }
    if (request == "737201") {
        return ScriptedBus::framed(m_records[hexId]);
    }
    if (request.startsWith("7363")) {
        return takeChange(hexId, request.mid(4, 2), request.mid(6)) ? QByteArray("\x06")
                                                                    : QByteArray("\x15");
    }
    return std::nullopt;
}

bool SettingsBus::takeChange(const QString& hexId, const QByteArray& parameter,
                             const QByteArray& value)
{
    struct Field
    {
        int position;
        int length;
    };
    static const QMap<QByteArray, Field> kFields = {{"02", {18, kNameDigits}},
                                                    {"14", {8, 2}},
                                                    {"17", {14, 4}},
                                                    {"16", {12, 2}},
                                                    {"03", {52, 4}}};
    const auto field = kFields.constFind(parameter);
    const bool isName = parameter == "02";
    if (field == kFields.constEnd() ||
        (isName ? value.size() > field->length : value.size() != field->length)) {
        return false;
    }
    m_records[hexId].replace(field->position, field->length,
                             value.leftJustified(field->length, '0'));
    return true;
}

#include "tests/support/testbus.h"

#include "serial/ldb/busaddress.h"
#include "serial/link/busport.h"
#include "serial/link/seriallink.h"
#include "serial/wire/framecodec.h"
#include "tests/support/testcase.h"
#include "tests/support/virtualclock.h"

#include <QSerialPort>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 kMicrosecondsPerMillisecond = 1000;
constexpr int kTargetPosition = 2;
constexpr int kCodePosition = 4;
constexpr int kNameDigits = 32;
constexpr qint64 kDay = 86400000; // ms
constexpr int kFims = 20;

Scenario installation(const LdbTiming& timing)
{
    Scenario scenario;
    scenario.timing = timing;
    for (int address = busaddress::kFirst; address <= busaddress::kLast; ++address) {
        ScenarioLdb ldb;
        ldb.spec.address = address;
        ldb.spec.firmware = "LDB 1.07";
        ldb.spec.fims = kFims;
        ldb.spec.settings.name = "LDB " + busaddress::toHexId(address).toLatin1();
        ldb.spec.settings.flags = GeneralFaultOutputFlag | EarthLeakageDetectionFlag;
        ldb.spec.settings.numberOfFims = kFims;
        scenario.ldbs.push_back(ldb);
    }
    return scenario;
}

QByteArray bodyOf(QByteArray frame)
{
    return framecodec::responseValidation(frame) ? frame : QByteArray();
}

/// Whether the polling sends this after `previous`, the last but for statuses; it asks for the
/// firmware id behind the name.
bool isPolling(const QByteArray& body, const QByteArray& previous)
{
    const QByteArray request = body.mid(kCodePosition);
    return request == "70" || request == "737803" || request == "737202" ||
           (request == "737804" && previous.mid(kCodePosition) == "737202");
}

} // namespace

/// A port on the bus in virtual time, to the microsecond of its line.
class TestBus::Port final : public BusPort
{
public:
    Port(TestBus* bus, const QString& name)
        : m_bus(bus)
        , m_isThere(name == bus->m_portName && !bus->m_isCut)
    {
    }
    ~Port() override { close(); }

    bool open() override
    {
        m_isOpen = m_isThere && !m_bus->m_port;
        if (m_isOpen) {
            m_bus->m_port = this;
        }
        return m_isOpen;
    }
    void close() override
    {
        if (m_isOpen) {
            m_bus->m_port = nullptr;
        }
        m_isOpen = false;
    }
    bool isOpen() const override { return m_isOpen; }

    void write(const QByteArray& bytes) override { m_bus->m_host.receive(bytes); }
    QByteArray readAll() override { return std::exchange(m_received, {}); }
    void fetch() override
    {
        if (m_bus->m_isHeldUp && !m_received.isEmpty()) {
            emit readyRead();
        }
    }

    qint64 now() const override { return m_bus->m_clock->microseconds(); }
    qint64 wallTime() const override { return m_bus->wallTime(); }
    int error() const override
    {
        return m_isThere ? QSerialPort::ResourceError : QSerialPort::DeviceNotFoundError;
    }
    QString errorText() const override
    {
        return m_isThere ? QStringLiteral("The line is cut") : QStringLiteral("There is no port");
    }

    void take(const QByteArray& bytes)
    {
        m_received += bytes;
        if (!m_bus->m_isHeldUp) {
            emit readyRead();
        }
    }
    void breakDown()
    {
        if (m_isOpen) {
            emit broken();
        }
    }

private:
    TestBus* m_bus;
    bool m_isThere;
    bool m_isOpen = false;
    QByteArray m_received;
};

LdbTiming TestBus::usualTiming()
{
    LdbTiming timing;
    timing.measuring = 1;
    timing.quiescent = kDay;
    return timing;
}

TestBus::TestBus(const QStringList& presentHexIds, const LineOptions& options,
                 std::unique_ptr<SimulationClock> clock, const LdbTiming& timing)
    : m_clock(clock ? std::move(clock) : std::make_unique<VirtualClock>())
    , m_boards(installation(timing), 1, m_clock->milliseconds())
    , m_host(Line(options, {}, *this), *m_clock)
{
    setPresent(presentHexIds);
    QObject::connect(&m_host, &LineHost::arrived, &m_host, [this](const QByteArray& bytes) {
        if (m_port && !m_isCut) {
            m_port->take(bytes);
        }
    });
}

qint64 TestBus::wallTime() const
{
    return VirtualTime::kWallStart + m_wallShift + m_clock->milliseconds();
}

PortSource TestBus::ports()
{
    PortSource source;
    source.make = [this](const QString& name) {
        return std::make_unique<Port>(this, name);
    };
    source.thread = PortSource::Thread::OfLink;
    source.wallTime = [this] {
        return wallTime();
    };
    source.list = [this] {
        std::vector<PortIdentity> ports = m_others;
        if (!m_isCut) {
            ports.push_back(m_identity);
        }
        return ports;
    };
    source.isThere = [this](const QString& name) {
        return name == m_portName && !m_isCut;
    };
    return source;
}

void TestBus::setPortName(const QString& name)
{
    m_portName = name;
    m_identity.name = name;
}

void TestBus::setPort(const PortIdentity& port, const std::vector<PortIdentity>& others)
{
    m_portName = port.name;
    m_identity = port;
    m_others = others;
}

void TestBus::cut()
{
    m_isCut = true;
    if (m_port) {
        // Not at once: it may be the line that is telling of a request.
        QMetaObject::invokeMethod(
            m_port, [port = m_port] { port->breakDown(); }, Qt::QueuedConnection);
    }
}

void TestBus::restore()
{
    m_isCut = false;
    m_host.line().reset();
}

void TestBus::answerTo(const QString& hexId, const QByteArray& request, const QByteArray& answer)
{
    const QByteArray start = "FE" + hexId.toLatin1() + request;
    setScript([=](const QByteArray& body) -> std::optional<QByteArray> {
        const bool isMeant = m_isCommand && body.startsWith(start);
        return isMeant ? std::make_optional(answer) : std::nullopt;
    });
}

void TestBus::setPresent(const QStringList& hexIds)
{
    m_absent.set();
    for (const QString& hexId : hexIds) {
        m_absent.reset(static_cast<std::size_t>(hexId.toInt(nullptr, 16)));
    }
}

QByteArray TestBus::settingsOf(const QString& hexId)
{
    const QByteArray request = framed("FE" + hexId.toLatin1() + "737201");
    return bodyOf(m_boards.hear(request, m_clock->milliseconds()).answer->bytes);
}

void TestBus::change(const QString& hexId, const QByteArray& index, const QByteArray& value)
{
    m_boards.hear(framed("FE" + hexId.toLatin1() + "7363" + index + value),
                  m_clock->milliseconds());
}

QList<QByteArray> TestBus::writes() const
{
    QList<QByteArray> result;
    for (const QByteArray& body : m_commands) {
        const QByteArray request = body.mid(kCodePosition);
        if (request.startsWith("7363") || request == "737806") {
            result.append(body);
        }
    }
    return result;
}

void TestBus::clearRequests()
{
    m_requests.clear();
    m_commands.clear();
}

bool TestBus::scan(SerialLink& link)
{
    bool hasEnded = false;
    QObject context;
    QObject::connect(&link, &SerialLink::ldbListInitializationStateChange, &context,
                     [&hasEnded](bool isRunning) { hasEnded = !isRunning; });
    link.setPortName(m_portName);
    link.start();
    const auto isPresent = [this](const QString& hexId) {
        return !m_absent.test(static_cast<std::size_t>(hexId.toInt(nullptr, 16)));
    };
    const QStringList& found = link.knownLdbs();
    return waitUntil([&hasEnded] { return hasEnded; }) &&
           m_absent.size() - m_absent.count() ==
               static_cast<std::size_t>(link.knownLdbs().size()) &&
           std::all_of(found.begin(), found.end(), isPresent);
}

QByteArray TestBus::framed(const QByteArray& body)
{
    return framecodec::createCommand(body);
}

QByteArray TestBus::status(int state)
{
    // Low byte first.
    return "0000000000" + QByteArray::number(state, 16).toUpper().rightJustified(2, '0') +
           "00000000000000C05D0000C05D0000D2049CFF";
}

QByteArray TestBus::record(const QString& hexId)
{
    const QByteArray name = "LDB " + hexId.toLatin1();
    return hexId.toLatin1() + "000000" + "03" + "00" + "00" + "0A00" +
           name.toHex().toUpper().leftJustified(kNameDigits, '0') + "00" + "1400";
}

std::vector<BoardAnswer> TestBus::hear(const QByteArray& frame, qint64 at,
                                       const AbsentBoards& absent)
{
    const QByteArray body = bodyOf(frame);
    note(body);
    BoardAnswer answer;
    answer.board = body.mid(kTargetPosition, 2).toInt(nullptr, 16);
    if (const auto scripted = m_script ? m_script(body) : std::nullopt) {
        answer.bytes = *scripted;
        return answer.bytes.isEmpty() ? std::vector<BoardAnswer>() : std::vector{answer};
    }
    const auto heard =
        m_boards.hear(frame, at / kMicrosecondsPerMillisecond, absent | m_absent).answer;
    if (!heard) {
        return {};
    }
    answer.bytes = heard->bytes;
    return {answer};
}

void TestBus::note(const QByteArray& body)
{
    m_isCommand = !isPolling(body, m_lastNoStatus);
    m_requests.append(body);
    if (!body.endsWith("737803")) {
        m_lastNoStatus = body;
    }
    if (m_isCommand) {
        m_commands.append(body);
    }
}

#include "serial/link/seriallink.h"
#include "serial/link/serialprocessor.h"
#include "simulator/program/pseudoterminal.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testprogram.h"

#include <QSignalSpy>

namespace {

const QByteArray kNak("\x15");
const QByteArray kSilence;

// The cyclic requests, and what this test uses as commands.
const QByteArray kStatus("737803");
const QByteArray kFirmware("737804");
const QByteArray kProbe("70");
const QByteArray kReset("73780001");

QByteArray ask(const QString& hexId, const QByteArray& request)
{
    return "FE" + hexId.toLatin1() + request;
}

/// The bus on a port of the system, in real time. Nothing takes time on its line, and absent LDBs
/// refuse their probes, so that a scan is over at once.
class TerminalBus : public TestBus
{
public:
    explicit TerminalBus(const QStringList& presentHexIds)
        : TestBus(presentHexIds, withoutTime(), std::make_unique<SimulationClock>())
        , m_present(presentHexIds)
    {
        setScript([](const QByteArray&) { return std::nullopt; });
        QObject::connect(&m_terminal, &PseudoTerminal::received, &host(), &LineHost::receive);
        QObject::connect(&host(), &LineHost::arrived, &m_terminal,
                         [this](const QByteArray& bytes) { m_terminal.write(bytes); });
    }
    QString portName() const { return m_terminal.portName(); }
    void hangUp() { m_terminal.hangUp(); }
    void setScript(const Script& script)
    {
        TestBus::setScript([this, script](const QByteArray& body) {
            const bool isRefused =
                body.endsWith(kProbe) && !m_present.contains(QString::fromLatin1(body.mid(2, 2)));
            const auto scripted = script(body);
            return scripted || !isRefused ? scripted : std::make_optional(kNak);
        });
    }

private:
    static LineOptions withoutTime()
    {
        LineOptions options;
        options.byteTime = 0;
        options.leastTurnaround = 0;
        options.mostTurnaround = 0;
        return options;
    }

    QStringList m_present;
    PseudoTerminal m_terminal;
};

/// A processor on a real port, in the thread of its bus, with what it has said.
struct Bench
{
    explicit Bench(const QStringList& present)
        : bus(present)
    {
        processor.setPortName(bus.portName());
    }

    void queueReset()
    {
        auto command = std::make_unique<ExecuteCommand>(QString("03"), LdbControl::LdbReset);
        command->addObserver(std::make_unique<ISerialCommand::ReplyObserver>(
            &processor, [this](const Reply& reply) { replies.append(reply.kind()); }));
        processor.appendCommand(std::move(command));
    }

    using P = SerialProcessor;
    Sandbox sandbox;
    TerminalBus bus;
    SerialProcessor processor;
    QSignalSpy failed{&processor, &P::communicationFailed};
    QSignalSpy portFailed{&processor, &P::portFailed};
    QSignalSpy stopped{&processor, &P::stopped};
    QList<Reply::Kind> replies;
};

} // namespace

/// The host on a real port, and its thread: all that needs real time. What the conversation decides
/// is tested without a port, and the link in virtual time.
class TestSerialProcessor : public TestCase
{
    Q_OBJECT
private slots:
    void endsWhateverIsUnderWay_data()
    {
        // "request": at which it ends; what decides is the same in every state of the conversation
        // "isCut": the line; otherwise the processor is stopped
        const Table<QByteArray, bool> row("request", "isCut");
        row("line cut in the scan", ask("04", kProbe), true);
        row("line cut at a status", ask("03", kStatus), true);
        row("line cut at a command", ask("03", kReset), true);
        row("stopped in the scan", ask("04", kProbe), false);
        row("stopped at a status", ask("03", kStatus), false);
        row("stopped at a command", ask("03", kReset), false);
        row("port that does not open", {}, true);
    }

    void endsWhateverIsUnderWay()
    {
        QFETCH(QByteArray, request);
        QFETCH(bool, isCut);

        std::optional<ExpectWarning> error;
        if (isCut) {
            error.emplace("Port .*: ");
        }
        Bench bench({"03"});
        bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
            if (body != request) {
                return std::nullopt;
            }
            if (isCut) {
                bench.bus.hangUp();
            } else {
                QMetaObject::invokeMethod(&bench.processor, &SerialProcessor::stop,
                                          Qt::QueuedConnection);
            }
            return kSilence;
        });
        const QString port = request.isEmpty() ? "/nowhere/tty" : bench.bus.portName();
        bench.processor.setPortName(port);
        QVERIFY(bench.processor.start());
        bench.queueReset();
        bench.queueReset();
        if (isCut) {
            WAIT_COMPARE(bench.failed.size(), 1);
            QCOMPARE(bench.portFailed.size(), 1);
            QCOMPARE(bench.portFailed.first().at(0).toString(), port);
            bench.processor.stop();
        }
        WAIT_COMPARE(bench.stopped.size(), 1);
        // Nothing spins and nothing is said again; the processor starts as ever, and what was
        // queued before, or while stopped, is never sent.
        bench.queueReset();
        QCoreApplication::processEvents();
        bench.replies.clear();
        TerminalBus other({"03"});
        bench.processor.setPortName(other.portName());
        bench.processor.start();
        WAIT_VERIFY(other.requests().count(ask("03", kFirmware)) == 2);
        QVERIFY(!other.requests().contains(ask("03", kReset)));
        QVERIFY(!bench.replies.contains(Reply::Kind::Accepted));
        QCOMPARE(bench.failed.size(), isCut ? 1 : 0);
    }

    void worksInAThreadOfItsOwn()
    {
        TerminalBus bus({"03", "0A"});
        SerialLink link;
        link.setPortName(bus.portName());
        QSignalSpy rows(&link, &SerialLink::generalInformationUpdated);
        for (int run = 0; run < 2; ++run) {
            rows.clear();
            link.start();
            WAIT_VERIFY(rows.size() > 4);
            QVERIFY(!bus.requests().contains(ask("03", "73780000")));
            QCOMPARE(link.connectedLdbs(), (QStringList{"03", "0A"}));
            std::optional<Reply::Kind> reply;
            link.ask(std::make_unique<ExecuteCommand>(QString("03"), LdbControl::LdbReset), &link,
                     [&](const Reply& told) {
                         QCOMPARE(QThread::currentThread(), link.thread());
                         reply = told.kind();
                     });
            WAIT_VERIFY(reply.has_value());
            QCOMPARE(*reply, Reply::Kind::Accepted);
            link.stop();
            QVERIFY(!link.isRunning());
            bus.clearRequests();
            // Ends before it gets its turn, and is not sent in the next run.
            link.start();
            link.post(std::make_unique<ExecuteCommand>(QString("03"), LdbControl::FimReset));
            link.stop();
        }
    }

    void threadEndsInTheMiddleOfACommand_data()
    {
        const Table<QString> row("end");
        for (const char* end : {"stop", "cut", "delete"}) {
            row(end, end);
        }
    }

    void threadEndsInTheMiddleOfACommand()
    {
        QFETCH(QString, end);
        const ExpectWarning gone("Port .*: ", ExpectWarning::Need::MayCome);
        TerminalBus bus({"03"});
        bus.setScript([](const QByteArray& body) {
            return body == ask("03", kReset) ? std::optional(kSilence) : std::nullopt;
        });
        auto link = std::make_unique<SerialLink>();
        link->setPortName(bus.portName());
        link->start();
        QObject context;
        QList<Reply::Kind> replies;
        for (int i = 0; i < 20; ++i) {
            link->ask(std::make_unique<ExecuteCommand>(QString("03"), LdbControl::LdbReset),
                      &context, [&replies](const Reply& reply) { replies.append(reply.kind()); });
        }
        WAIT_VERIFY(bus.requests().contains(ask("03", kReset)));
        if (end == QLatin1String("stop")) {
            link->stop();
        } else if (end == QLatin1String("cut")) {
            bus.hangUp();
        } else {
            link.reset();
        }
        WAIT_COMPARE(replies.size(), 20);
        QCOMPARE(replies.count(Reply::Kind::Silent), 1);
        QCOMPARE(replies.count(Reply::Kind::Unsent), 19);
        link.reset();
        QCoreApplication::processEvents();
        QCOMPARE(replies.size(), 20); // each once
    }
};

REGISTER_TEST(TestSerialProcessor, QCoreApplication)
#include "tst_serialprocessor.moc"

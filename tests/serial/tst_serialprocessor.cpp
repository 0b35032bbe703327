#include "serial/generalinformation.h"
#include "serial/serialprocessor.h"
#include "tests/support/sandbox.h"
#include "tests/support/scriptedbus.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QSignalSpy>

namespace {

const QByteArray kAck("\x06");
const QByteArray kSilence;

// The cyclic requests, and what this test uses as commands.
const QByteArray kStatus("737803");
const QByteArray kName("737202");
const QByteArray kFirmware("737804");
const QByteArray kProbe("70");
const QByteArray kReset("73780001");

QByteArray ask(const QString& hexId, const QByteArray& request)
{
    return "FE" + hexId.toLatin1() + request;
}

/// All that is asked of an LDB in a round.
QList<QByteArray> turnOf(const char* hexId)
{
    return {ask(hexId, kStatus), ask(hexId, kName), ask(hexId, kFirmware)};
}

/// A processor on a scripted bus, both in this thread, with what it has said.
struct Bench
{
    explicit Bench(const QStringList& present)
        : bus(present)
    {
        processor.setPortName(bus.portName());
    }

    /// The requests after the scan, once there are `count` of them.
    QList<QByteArray> cycle(int count)
    {
        waitUntil([&] { return bus.requests().size() >= kScanRequests + count; });
        return bus.requests().mid(kScanRequests, count);
    }

    /// Queues a command that records its answers.
    template <typename Command, typename... Arguments>
    void queue(Arguments&&... arguments)
    {
        auto command = std::make_unique<Command>(std::forward<Arguments>(arguments)...);
        command->addObserver(
            std::make_unique<ISerialCommand::ReplyObserver>(&processor, [this](const Reply& reply) {
                if (reply.kind() != Reply::Kind::Unsent) {
                    answers.append(reply.answer());
                }
            }));
        processor.appendCommand(std::move(command));
    }
    void queueReset() { queue<ExecuteCommand>(QString("03"), LdbControl::LdbReset); }

    /// The records shown, one after another.
    QString idOf(int record) const { return rows.at(record).at(0).toString(); }
    QList<QStringList> rowsOf(int record) const
    {
        return rows.at(record).at(1).value<QList<QStringList>>();
    }
    QString text(int record, generalinformation::Row row) const
    {
        return generalinformation::text(rowsOf(record), row);
    }

    using P = SerialProcessor;
    static constexpr int kScanRequests = 253;
    Sandbox sandbox;
    ScriptedBus bus;
    SerialProcessor processor;
    QSignalSpy rows{&processor, &P::generalInformationUpdated};
    QSignalSpy states{&processor, &P::ldbStateUpdated};
    QSignalSpy scan{&processor, &P::ldbListInitializationStateChange};
    QSignalSpy progress{&processor, &P::ldbListInitializationProgress};
    QSignalSpy queueLength{&processor, &P::externalCommandsInQueueUpdated};
    QSignalSpy lost{&processor, &P::ldbDisconnected};
    QSignalSpy failed{&processor, &P::communicationFailed};
    QSignalSpy portFailed{&processor, &P::portFailed};
    QSignalSpy stopped{&processor, &P::stopped};
    QList<QByteArray> answers;
};

/// Answers `request` with each of `answers` in turn, then as the healthy bus does.
ScriptedBus::Script inTurn(const QByteArray& request, QList<QByteArray> answers)
{
    return [request, answers](const QByteArray& body) mutable -> std::optional<QByteArray> {
        if (body != request || answers.isEmpty()) {
            return std::nullopt;
        }
        return answers.takeFirst();
    };
}

} // namespace

using namespace generalinformation;

/// The host on a real port. What the conversation decides is tested without one.
class TestSerialProcessor : public TestCase
{
    Q_OBJECT
private slots:
    void cyclesOverTheFound();
    void commandsWaitForTheCycle();
    void stateIsToldWhenItChanges();
    void endsInEveryState_data();
    void endsInEveryState();
};

void TestSerialProcessor::cyclesOverTheFound()
{
    Bench bench({"03", "FA"});
    bench.processor.start();
    const QList<QByteArray> round = turnOf("03") + turnOf("FA");
    QCOMPARE(bench.cycle(12), round + round);
    WAIT_VERIFY(bench.rows.size() >= 4);
    QCOMPARE(bench.idOf(0), "03");
    QCOMPARE(bench.text(0, NameRow), QString());
    QCOMPARE(bench.text(2, NameRow), "LDB 03");
    QCOMPARE(bench.text(3, NameRow), "LDB FA");
    QCOMPARE(bench.text(3, PrimaryCurrentRow), "12.3 mA");
    // All of one round carry one timestamp.
    QCOMPARE(bench.rowsOf(0).last(), bench.rowsOf(1).last());
    QVERIFY(timestamp(bench.rowsOf(0)).isValid());
    QVERIFY(timestamp(bench.rowsOf(2)) >= timestamp(bench.rowsOf(0)));
}

void TestSerialProcessor::commandsWaitForTheCycle()
{
    Bench bench({"03", "0A"});
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (body == ask("03", kStatus) && bench.bus.requests().size() == Bench::kScanRequests + 1) {
            bench.queueReset();
            bench.queue<ChangeCommand>(QString("0A"), LdbParameter::AudioMute, QByteArray("01"));
        }
        return std::nullopt;
    });
    bench.processor.start();
    QCOMPARE(bench.cycle(9), (turnOf("03") + QList<QByteArray>{ask("03", kReset)} + turnOf("0A") +
                              QList<QByteArray>{"FE0A73631601", ask("03", kStatus)}));
    QCOMPARE(bench.answers, (QList<QByteArray>{kAck, kAck}));
    QList<int> lengths;
    for (const auto& entry : qAsConst(bench.queueLength)) {
        lengths.append(entry.at(0).toInt());
    }
    QCOMPARE(lengths, (QList<int>{1, 2, 1, 0}));
}

void TestSerialProcessor::stateIsToldWhenItChanges()
{
    Bench bench({"03"});
    QList<QByteArray> reported;
    for (const int state : {10, 10, 20, 20, 10, 30, 30}) {
        reported.append(ScriptedBus::framed(ScriptedBus::status(state)));
    }
    bench.bus.setScript(inTurn(ask("03", kStatus), reported));
    bench.processor.start();
    WAIT_VERIFY(bench.rows.size() >= reported.size());
    QList<int> told;
    for (const auto& entry : qAsConst(bench.states)) {
        told.append(static_cast<int>(entry.at(1).value<LdbState>()));
    }
    QCOMPARE(told.mid(0, 4), (QList<int>{10, 20, 10, 30}));
}

void TestSerialProcessor::endsInEveryState_data()
{
    QTest::addColumn<QByteArray>("request"); ///< at which it ends
    QTest::addColumn<bool>("isCut");         ///< the line; otherwise the processor is stopped

    for (const bool isCut : {false, true}) {
        const char* how = isCut ? "line cut" : "stopped";
        QTest::addRow("%s in the scan", how) << ask("04", kProbe) << isCut;
        QTest::addRow("%s at a status", how) << ask("03", kStatus) << isCut;
        QTest::addRow("%s at a name", how) << ask("03", kName) << isCut;
        QTest::addRow("%s at a firmware", how) << ask("03", kFirmware) << isCut;
        QTest::addRow("%s at a command", how) << ask("03", kReset) << isCut;
    }
    QTest::newRow("port that does not open") << QByteArray() << true;
}

void TestSerialProcessor::endsInEveryState()
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
    // Nothing spins and nothing is said again; the processor starts as ever, and what was queued
    // before, or while stopped, is never sent.
    bench.queueReset();
    QCoreApplication::processEvents();
    bench.answers.clear();
    ScriptedBus other({"03"});
    bench.processor.setPortName(other.portName());
    bench.processor.start();
    WAIT_VERIFY(other.requests().count(ask("03", kFirmware)) == 2);
    QVERIFY(!other.requests().contains(ask("03", kReset)));
    QVERIFY(bench.answers.isEmpty());
    QCOMPARE(bench.failed.size(), isCut ? 1 : 0);
}

REGISTER_TEST(TestSerialProcessor, QCoreApplication)
#include "tst_serialprocessor.moc"

#include "serial/commandqueue.h"
#include "serial/serialcommand.h"
#include "tests/support/testcase.h"

#include <QThread>

namespace {

// The form of an observer is fixed: it takes the answer by value.
// NOLINTBEGIN(performance-unnecessary-value-param)
int functionCalls = 0;
void countCall(QByteArray answer)
{
    functionCalls += answer.size();
}

class Receiver : public QObject
{
    Q_OBJECT
public:
    void take(QByteArray answer)
    {
        answers.append(answer);
        thread = QThread::currentThread();
    }
    QList<QByteArray> answers;
    QThread* thread = nullptr;
};
// NOLINTEND(performance-unnecessary-value-param)

using CommandPtr = std::shared_ptr<ISerialCommand>;

QList<QByteArray> queued(CommandQueue& queue)
{
    QList<QByteArray> bodies;
    while (!queue.isEmpty()) {
        bodies.append(queue.front().commandData());
        queue.finishFront({});
    }
    return bodies;
}

} // namespace

Q_DECLARE_METATYPE(CommandPtr)

class TestSerialCommand : public TestCase
{
    Q_OBJECT
private slots:
    void bodies_data();
    void bodies();
    void observersGetTheAnswer();
    void answerFromAnotherThreadArrivesInTheReceiversThread();
    void deadReceiverGetsNothing();
    void equalReadsInARowBecomeOne();
    void aWriteKeepsReadsApart();
};

void TestSerialCommand::bodies_data()
{
    QTest::addColumn<CommandPtr>("command");
    QTest::addColumn<QByteArray>("body");

    const QString ten = QStringLiteral("0A");
    auto row = [](const char* name, ISerialCommand* command, const char* body) {
        QTest::newRow(name) << CommandPtr(command) << QByteArray(body);
    };
    row("poll", new PollCommand(QStringLiteral("01")), "FE0170");
    row("status", new ExecuteCommand(ten, LdbAction::Status), "FE0A737803");
    row("FIM reset", new ExecuteCommand(ten, LdbControl::FimReset), "FE0A73780000");
    row("LDB reset of all", new ExecuteCommand(busaddress::kBroadcast, LdbControl::LdbReset),
        "FEFF73780001");
    row("service mode", new ExecuteCommand(ten, LdbControl::ServiceMode), "FE0A73780003");
    row("settings request", new RequestCommand(ten, LdbParameter::Settings), "FE0A737201");
    row("index 10", new RequestCommand(ten, 10), "FE0A73720A");
    row("index 255 with data", new ExecuteCommand(ten, 255, "01"), "FE0A7378FF01");
    row("flags are parameter 20", new ChangeCommand(ten, 20, "13"), "FE0A73631413");
    row("mute is parameter 22", new ChangeCommand(ten, LdbParameter::AudioMute, "01"),
        "FE0A73631601");
    row("delay is parameter 23", new ChangeCommand(ten, LdbParameter::OpenDetectionDelay, "0500"),
        "FE0A7363170500");
}

void TestSerialCommand::bodies()
{
    QFETCH(CommandPtr, command);
    QFETCH(QByteArray, body);

    QCOMPARE(command->commandData(), body);
    command->notify("nobody wants it");
}

void TestSerialCommand::observersGetTheAnswer()
{
    Receiver receiver;
    functionCalls = 0;
    PollCommand command(QStringLiteral("01"));
    command.addObserver(std::make_unique<ISerialCommand::ObserverFunc>(countCall));
    command.addObserver(
        std::make_unique<ISerialCommand::ObserverMember<Receiver>>(&receiver, &Receiver::take));
    QByteArray taken;
    command.addObserver(std::make_unique<ISerialCommand::ObserverCallable>(
        &receiver, [&taken](const QByteArray& answer) { taken = answer; }));
    command.notify("\x06");
    QCOMPARE(functionCalls, 1);
    QCOMPARE(receiver.answers, QList<QByteArray>{"\x06"});
    QCOMPARE(taken, QByteArray("\x06"));
}

void TestSerialCommand::answerFromAnotherThreadArrivesInTheReceiversThread()
{
    Receiver receiver;
    auto command = std::make_unique<PollCommand>(QStringLiteral("01"));
    command->addObserver(
        std::make_unique<ISerialCommand::ObserverMember<Receiver>>(&receiver, &Receiver::take));
    std::unique_ptr<QThread> worker(QThread::create([&command] {
        command->notify("answer");
        command.reset();
    }));
    worker->start();
    QVERIFY(worker->wait());
    QVERIFY(receiver.answers.isEmpty());
    WAIT_COMPARE(receiver.answers.size(), 1);
    QCOMPARE(receiver.thread, QThread::currentThread());
}

void TestSerialCommand::deadReceiverGetsNothing()
{
    auto receiver = std::make_unique<Receiver>();
    PollCommand command(QStringLiteral("01"));
    bool called = false;
    command.addObserver(std::make_unique<ISerialCommand::ObserverCallable>(
        receiver.get(), [&called](const QByteArray&) { called = true; }));
    std::unique_ptr<QThread> worker(QThread::create([&command] { command.notify("one"); }));
    worker->start();
    QVERIFY(worker->wait());
    receiver.reset(); // with the answer on its way
    QCoreApplication::processEvents();
    command.notify("two");
    QVERIFY(!called);
}

void TestSerialCommand::equalReadsInARowBecomeOne()
{
    Receiver receiver;
    CommandQueue queue;
    for (int i = 0; i < 2; ++i) {
        auto settings =
            std::make_unique<RequestCommand>(QStringLiteral("0A"), LdbParameter::Settings);
        settings->addObserver(
            std::make_unique<ISerialCommand::ObserverMember<Receiver>>(&receiver, &Receiver::take));
        queue.append(std::move(settings));
        queue.append(std::make_unique<ExecuteCommand>(QStringLiteral("0A"), LdbAction::FirmwareId));
        queue.append(
            std::make_unique<RequestCommand>(QStringLiteral("0B"), LdbParameter::Settings));
    }
    QCOMPARE(queue.size(), 3);
    queue.finishFront("record");
    QCOMPARE(receiver.answers, (QList<QByteArray>{"record", "record"}));
    QCOMPARE(queued(queue), (QList<QByteArray>{"FE0A737804", "FE0B737201"}));
}

void TestSerialCommand::aWriteKeepsReadsApart()
{
    CommandQueue queue;
    queue.append(std::make_unique<RequestCommand>(QStringLiteral("0A"), LdbParameter::Settings));
    queue.append(std::make_unique<ExecuteCommand>(QStringLiteral("0A"), LdbControl::LdbReset));
    queue.append(std::make_unique<RequestCommand>(QStringLiteral("0A"), LdbParameter::Settings));
    queue.append(std::make_unique<ExecuteCommand>(QStringLiteral("0A"), LdbControl::LdbReset));
    QCOMPARE(queued(queue),
             (QList<QByteArray>{"FE0A737201", "FE0A73780001", "FE0A737201", "FE0A73780001"}));
}

QTEST_GUILESS_MAIN(TestSerialCommand)
#include "tst_serialcommand.moc"

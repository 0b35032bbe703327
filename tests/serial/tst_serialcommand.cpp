#include "serial/commandqueue.h"
#include "serial/serialcommand.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

namespace {

const QString kTen = QStringLiteral("0A");

// The form of an observer is fixed: it takes the answer by value.
// NOLINTBEGIN(performance-unnecessary-value-param)
QByteArray givenToFunction;
void takeAnswer(QByteArray answer)
{
    givenToFunction += answer;
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

std::unique_ptr<RequestCommand> settingsRequest(const QString& hexId)
{
    return std::make_unique<RequestCommand>(hexId, LdbParameter::Settings);
}

QList<QByteArray> queued(CommandQueue& queue)
{
    QList<QByteArray> bodies;
    while (!queue.isEmpty()) {
        bodies.append(queue.front().commandData());
        queue.finishFront({});
    }
    return bodies;
}

/// Answers `command` in a thread of its own.
void notifyFromAnotherThread(ISerialCommand& command, const QByteArray& answer)
{
    const std::unique_ptr<QThread> worker(
        QThread::create([&command, answer] { command.notify(answer); }));
    worker->start();
    QVERIFY(worker->wait());
}

} // namespace

class TestSerialCommand : public TestCase
{
    Q_OBJECT
private slots:
    void bodies();
    void observersGetTheAnswerInTheirThread();
    void deadReceiverGetsNothing();
    void equalReadsInARowBecomeOne();
    void aWriteKeepsReadsApart();
};

void TestSerialCommand::bodies()
{
    // Those that the tests of the conversation and of the settings do not see on the bus.
    QCOMPARE(ExecuteCommand(kTen, LdbControl::FimReset).commandData(), "FE0A73780000");
    QCOMPARE(ExecuteCommand(kTen, LdbControl::ServiceMode).commandData(), "FE0A73780003");
    QCOMPARE(ExecuteCommand(busaddress::kBroadcast, LdbControl::LdbReset).commandData(),
             "FEFF73780001");
    QCOMPARE(RequestCommand(kTen, 10).commandData(), "FE0A73720A");
    QCOMPARE(ExecuteCommand(kTen, 255, "01").commandData(), "FE0A7378FF01");
}

void TestSerialCommand::observersGetTheAnswerInTheirThread()
{
    Receiver receiver;
    QByteArray taken;
    givenToFunction.clear();
    auto command = std::make_unique<PollCommand>(QStringLiteral("01"));
    command->addObserver(std::make_unique<ISerialCommand::ObserverFunc>(takeAnswer));
    command->addObserver(
        std::make_unique<ISerialCommand::ObserverMember<Receiver>>(&receiver, &Receiver::take));
    command->addObserver(std::make_unique<ISerialCommand::ObserverCallable>(
        &receiver, [&taken](const QByteArray& answer) { taken = answer; }));
    notifyFromAnotherThread(*command, "answer");
    command.reset();
    QCOMPARE(givenToFunction, QByteArray("answer"));
    QVERIFY(receiver.answers.isEmpty() && taken.isEmpty());
    WAIT_COMPARE(receiver.answers, QList<QByteArray>{"answer"});
    QCOMPARE(taken, QByteArray("answer"));
    QCOMPARE(receiver.thread, QThread::currentThread());
}

void TestSerialCommand::deadReceiverGetsNothing()
{
    auto receiver = std::make_unique<Receiver>();
    PollCommand command(QStringLiteral("01"));
    bool called = false;
    command.addObserver(std::make_unique<ISerialCommand::ObserverCallable>(
        receiver.get(), [&called](const QByteArray&) { called = true; }));
    notifyFromAnotherThread(command, "one");
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
        auto settings = settingsRequest(kTen);
        settings->addObserver(
            std::make_unique<ISerialCommand::ObserverMember<Receiver>>(&receiver, &Receiver::take));
        queue.append(std::move(settings));
        queue.append(std::make_unique<ExecuteCommand>(kTen, LdbAction::FirmwareId));
        queue.append(settingsRequest(QStringLiteral("0B")));
    }
    QCOMPARE(queue.size(), 3);
    queue.finishFront("record");
    QCOMPARE(receiver.answers, (QList<QByteArray>{"record", "record"}));
    QCOMPARE(queued(queue), (QList<QByteArray>{"FE0A737804", "FE0B737201"}));
}

void TestSerialCommand::aWriteKeepsReadsApart()
{
    CommandQueue queue;
    for (int i = 0; i < 2; ++i) {
        queue.append(settingsRequest(kTen));
        queue.append(std::make_unique<ExecuteCommand>(kTen, LdbControl::LdbReset));
    }
    QCOMPARE(queued(queue),
             (QList<QByteArray>{"FE0A737201", "FE0A73780001", "FE0A737201", "FE0A73780001"}));
}

REGISTER_TEST(TestSerialCommand, QCoreApplication)
#include "tst_serialcommand.moc"

#include "serial/ldb/serialcommand.h"
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
    void bodies()
    {
        // Those that the tests of the conversation and of the settings do not see on the bus.
        QCOMPARE(ExecuteCommand(kTen, LdbControl::FimReset).commandData(), "FE0A73780000");
        QCOMPARE(ExecuteCommand(kTen, LdbControl::ServiceMode).commandData(), "FE0A73780003");
        QCOMPARE(ExecuteCommand(busaddress::kBroadcast, LdbControl::LdbReset).commandData(),
                 "FEFF73780001");
        QCOMPARE(RequestCommand(kTen, 10).commandData(), "FE0A73720A");
        QCOMPARE(ExecuteCommand(kTen, 255, "01").commandData(), "FE0A7378FF01");
    }

    void observersGetTheAnswerInTheirThread()
    {
        Receiver receiver;
        QList<Reply::Kind> replies;
        const auto take = [&replies](const Reply& reply) {
            replies.append(reply.kind());
        };
        givenToFunction.clear();
        auto command = std::make_unique<PollCommand>(QStringLiteral("01"));
        command->addObserver(std::make_unique<ISerialCommand::ObserverFunc>(takeAnswer));
        command->addObserver(
            std::make_unique<ISerialCommand::ObserverMember<Receiver>>(&receiver, &Receiver::take));
        command->addObserver(std::make_unique<ISerialCommand::ReplyObserver>(&receiver, take));
        notifyFromAnotherThread(*command, "answer");
        command = std::make_unique<PollCommand>(QStringLiteral("01"));
        command->addObserver(
            std::make_unique<ISerialCommand::ObserverMember<Receiver>>(&receiver, &Receiver::take));
        command->addObserver(std::make_unique<ISerialCommand::ReplyObserver>(&receiver, take));
        command.reset(); // unsent: the member has no form for it
        QCOMPARE(givenToFunction, QByteArray("answer"));
        QVERIFY(receiver.answers.isEmpty() && replies.isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(receiver.answers, QList<QByteArray>{"answer"});
        QCOMPARE(replies, (QList<Reply::Kind>{Reply::Kind::Answered, Reply::Kind::Unsent}));
        QCOMPARE(receiver.thread, QThread::currentThread());
    }

    void deadReceiverGetsNothing()
    {
        auto receiver = std::make_unique<Receiver>();
        PollCommand command(QStringLiteral("01"));
        bool called = false;
        command.addObserver(std::make_unique<ISerialCommand::ReplyObserver>(
            receiver.get(), [&called](const Reply&) { called = true; }));
        notifyFromAnotherThread(command, "one");
        receiver.reset(); // with the answer on its way
        QCoreApplication::processEvents();
        command.notify("two");
        QCoreApplication::processEvents();
        QVERIFY(!called);
    }
};

REGISTER_TEST(TestSerialCommand, QCoreApplication)
#include "tst_serialcommand.moc"

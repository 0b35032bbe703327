#include "serial/generalinformation.h"
#include "serial/serialprocessor.h"
#include "tests/support/sandbox.h"
#include "tests/support/scriptedbus.h"
#include "tests/support/testcase.h"

#include <QSignalSpy>

namespace {

const QByteArray kAck("\x06");
const QByteArray kNak("\x15");
const QByteArray kSilence;

// The three cyclic requests, and what this test uses as commands.
QByteArray statusOf(const char* hexId)
{
    return QByteArray("FE") + hexId + "737803";
}
QByteArray nameOf(const char* hexId)
{
    return QByteArray("FE") + hexId + "737202";
}
QByteArray firmwareOf(const char* hexId)
{
    return QByteArray("FE") + hexId + "737804";
}
QByteArray probeOf(const char* hexId)
{
    return QByteArray("FE") + hexId + "70";
}
QByteArray settingsOf(const char* hexId)
{
    return QByteArray("FE") + hexId + "737201";
}
const QByteArray kReset = "FE0373780001";

QByteArray badCheck(const QByteArray& body)
{
    QByteArray frame = ScriptedBus::framed(body);
    frame[frame.size() - 2] = frame.at(frame.size() - 2) == '0' ? '1' : '0';
    return frame;
}

/// A processor on a scripted bus, both in this thread, with what it has said.
struct Bench
{
    explicit Bench(const QStringList& present, int answerWaitTime = 1500, int disconnectedCount = 3)
        : bus(present)
    {
        sandbox.writeTuning(
            "[SerialSettings]\nDISCONNECTED_COUNT=" + QByteArray::number(disconnectedCount) +
            "\nBYTES_RECEIVED_WAIT_TIME=" + QByteArray::number(answerWaitTime) + "\n");
        processor = std::make_unique<SerialProcessor>();
        processor->setPortName(bus.portName());
        using P = SerialProcessor;
        rows = std::make_unique<QSignalSpy>(processor.get(), &P::generalInformationUpdated);
        states = std::make_unique<QSignalSpy>(processor.get(), &P::ldbStateUpdated);
        scan = std::make_unique<QSignalSpy>(processor.get(), &P::ldbListInitializationStateChange);
        progress = std::make_unique<QSignalSpy>(processor.get(), &P::ldbListInitializationProgress);
        queueLength =
            std::make_unique<QSignalSpy>(processor.get(), &P::externalCommandsInQueueUpdated);
        lost = std::make_unique<QSignalSpy>(processor.get(), &P::ldbDisconnected);
        failed = std::make_unique<QSignalSpy>(processor.get(), &P::communicationFailed);
        portFailed = std::make_unique<QSignalSpy>(processor.get(), &P::portFailed);
        stopped = std::make_unique<QSignalSpy>(processor.get(), &P::stopped);
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
        command->addObserver(std::make_unique<ISerialCommand::ObserverCallable>(
            processor.get(), [this](const QByteArray& answer) { answers.append(answer); }));
        processor->appendCommand(std::move(command));
    }

    static constexpr int kScanRequests = 253;
    Sandbox sandbox;
    ScriptedBus bus;
    std::unique_ptr<SerialProcessor> processor;
    std::unique_ptr<QSignalSpy> rows, states, scan, progress, queueLength, lost, failed, portFailed,
        stopped;
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

class TestSerialProcessor : public TestCase
{
    Q_OBJECT
private slots:
    void emptyBusIsScannedOnce();
    void scanGoesOnWhateverComes();
    void cyclesOverTheFound();
    void repeatsAPollOnce();
    void invalidStatusIsAMissAndNotShown_data();
    void invalidStatusIsAMissAndNotShown();
    void missesAreCountedInARow_data();
    void missesAreCountedInARow();
    void lostLdbIsProbedAndReturns();
    void allLostAreProbedOn();
    void commandsWaitForTheCycle();
    void commandAnswers_data();
    void commandAnswers();
    void lateAnswersAreNobodyElses();
    void burstAfterSilenceIsNobodys_data();
    void burstAfterSilenceIsNobodys();
    void lateWritesAreAcknowledgedOnce();
    void rescansAtTheNextDispatch();
    void pollsOneAlone();
    void stateIsToldWhenItChanges();
    void portThatDoesNotOpen();
    void lineCutInEveryState_data();
    void lineCutInEveryState();
    void stopInEveryState_data();
    void stopInEveryState();
};

void TestSerialProcessor::emptyBusIsScannedOnce()
{
    Bench bench({});
    bench.processor->start();
    WAIT_COMPARE(bench.stopped->size(), 1);
    QList<QByteArray> probes;
    for (int address = 1; address <= 253; ++address) {
        probes.append("FE" + QByteArray::number(address, 16).toUpper().rightJustified(2, '0') +
                      "70");
    }
    QCOMPARE(bench.bus.requests(), probes);
    QCOMPARE(bench.progress->size(), 253);
    QCOMPARE(bench.progress->first(), (QList<QVariant>{1, 0}));
    QCOMPARE(bench.progress->last(), (QList<QVariant>{253, 0}));
    QCOMPARE(bench.scan->size(), 2);
    QCOMPARE(bench.scan->at(0).at(0).toBool(), true);
    QCOMPARE(bench.scan->at(1).at(0).toBool(), false);
}

void TestSerialProcessor::scanGoesOnWhateverComes()
{
    Bench bench({"05"});
    bench.bus.setScript([](const QByteArray& body) -> std::optional<QByteArray> {
        if (body == probeOf("01") || body == probeOf("02")) {
            return kSilence;
        }
        if (body == probeOf("03")) {
            return badCheck("AB");
        }
        if (body == probeOf("04")) {
            return ScriptedBus::framed("AB");
        }
        return std::nullopt;
    });
    bench.processor->start();
    bench.cycle(4);
    QCOMPARE(bench.bus.requests().mid(0, 5),
             (QList<QByteArray>{"FE0170", "FE0270", "FE0370", "FE0470", "FE0570"}));
    QCOMPARE(bench.progress->last(), (QList<QVariant>{253, 2}));
    QCOMPARE(bench.bus.requests().at(253), statusOf("04"));
}

void TestSerialProcessor::cyclesOverTheFound()
{
    Bench bench({"03", "FA"});
    bench.processor->start();
    const QList<QByteArray> round{statusOf("03"), nameOf("03"), firmwareOf("03"),
                                  statusOf("FA"), nameOf("FA"), firmwareOf("FA")};
    QCOMPARE(bench.cycle(12), round + round);
    WAIT_VERIFY(bench.rows->size() >= 4);
    using namespace generalinformation;
    const auto record = [&](int i) {
        return bench.rows->at(i).at(1).value<QList<QStringList>>();
    };
    QCOMPARE(bench.rows->at(0).at(0).toString(), "03");
    QCOMPARE(text(record(0), NameRow), QString());
    QCOMPARE(text(record(2), NameRow), "LDB 03");
    QCOMPARE(text(record(3), NameRow), "LDB FA");
    QCOMPARE(text(record(3), PrimaryCurrentRow), "12.3 mA");
    // All of one round carry one timestamp.
    QCOMPARE(record(0).last(), record(1).last());
    QVERIFY(timestamp(record(0)).isValid());
    QVERIFY(timestamp(record(2)) >= timestamp(record(0)));
}

void TestSerialProcessor::repeatsAPollOnce()
{
    Bench bench({"03"}, 100);
    bench.bus.setScript(inTurn(statusOf("03"), {kSilence}));
    bench.processor->start();
    QCOMPARE(bench.cycle(4),
             (QList<QByteArray>{statusOf("03"), statusOf("03"), nameOf("03"), firmwareOf("03")}));
    WAIT_VERIFY(!bench.rows->isEmpty());
    QVERIFY(bench.lost->isEmpty());
}

void TestSerialProcessor::invalidStatusIsAMissAndNotShown_data()
{
    QTest::addColumn<QByteArray>("answer");

    QTest::newRow("acknowledge") << kAck;
    QTest::newRow("refusal") << kNak;
    QTest::newRow("49 characters") << ScriptedBus::framed(QByteArray(49, '0'));
    QTest::newRow("51 characters") << ScriptedBus::framed(QByteArray(51, '0'));
    QTest::newRow("no number") << ScriptedBus::framed(QByteArray(50, 'X'));
    QTest::newRow("wrong check") << badCheck(ScriptedBus::status());
}

void TestSerialProcessor::invalidStatusIsAMissAndNotShown()
{
    QFETCH(QByteArray, answer);

    // One miss is one too many here; the retry of a window that runs out must not be needed.
    Bench bench({"03"}, 200, 0);
    const ExpectWarning rejected(
        "(Invalid answer|Refusal|Answer of another kind|Unreadable status) to");
    bench.bus.setScript(inTurn(statusOf("03"), {answer, answer, answer}));
    bench.processor->start();
    WAIT_COMPARE(bench.lost->size(), 1);
    WAIT_COMPARE(bench.rows->size(), 1);
    using namespace generalinformation;
    QCOMPARE(text(bench.rows->at(0).at(1).value<QList<QStringList>>(), ModeRow), "Disconnected");
}

void TestSerialProcessor::missesAreCountedInARow_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("silences"); ///< transmissions that stay unanswered after the scan
    QTest::addColumn<bool>("isLost");

    QTest::newRow("limit 0, one retry helps") << 0 << 1 << false;
    QTest::newRow("limit 0, first miss") << 0 << 2 << true;
    QTest::newRow("limit 1, first miss") << 1 << 2 << false;
    QTest::newRow("limit 1, second miss") << 1 << 4 << true;
    QTest::newRow("limit 3, three misses") << 3 << 7 << false;
    QTest::newRow("limit 3, four misses") << 3 << 8 << true;
}

void TestSerialProcessor::missesAreCountedInARow()
{
    QFETCH(int, limit);
    QFETCH(int, silences);
    QFETCH(bool, isLost);

    Bench bench({"03"}, 40, limit);
    int left = silences;
    bench.bus.setScript([&left](const QByteArray& body) -> std::optional<QByteArray> {
        if (body == probeOf("03") || !body.startsWith("FE03") || left == 0) {
            return std::nullopt;
        }
        --left;
        return kSilence;
    });
    bench.processor->start();
    bench.cycle(silences + 4);
    WAIT_VERIFY(!bench.rows->isEmpty());
    QCOMPARE(bench.lost->size(), isLost ? 1 : 0);
    const auto first = bench.rows->at(0).at(1).value<QList<QStringList>>();
    QCOMPARE(generalinformation::text(first, generalinformation::ModeRow),
             isLost ? "Disconnected" : "Quiescent");
}

void TestSerialProcessor::lostLdbIsProbedAndReturns()
{
    Bench bench({"03", "0A"}, 40, 0);
    bool away = true;
    int probes = 0;
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (bench.bus.requests().size() <= Bench::kScanRequests || !away ||
            !body.startsWith("FE03")) {
            return std::nullopt;
        }
        // Silent three times, then it answers the probe.
        if (body == probeOf("03") && ++probes == 3) {
            away = false;
            return kAck;
        }
        return kSilence;
    });
    bench.processor->start();
    const QList<QByteArray> other{statusOf("0A"), nameOf("0A"), firmwareOf("0A")};
    const QList<QByteArray> probedRound = other + QList<QByteArray>{probeOf("03")};
    const QList<QByteArray> expected = QList<QByteArray>{statusOf("03"), statusOf("03")} +
                                       probedRound + probedRound + probedRound +
                                       QList<QByteArray>{statusOf("03"), nameOf("03")};
    QCOMPARE(bench.cycle(expected.size()), expected);
    QCOMPARE(bench.lost->size(), 1);
    // Shown as lost at the loss and at each silent probe, and live again at the end.
    WAIT_COMPARE(bench.states->last().at(1).value<LdbState>(), LdbState::Quiescent);
    int lostRecords = 0;
    for (const auto& record : qAsConst(*bench.rows)) {
        const auto rows = record.at(1).value<QList<QStringList>>();
        if (generalinformation::text(rows, generalinformation::NameRow) == "Disconnected") {
            QCOMPARE(record.at(0).toString(), "03");
            ++lostRecords;
        }
    }
    QCOMPARE(lostRecords, 3);
}

void TestSerialProcessor::allLostAreProbedOn()
{
    Bench bench({"03", "0A"}, 30, 0);
    bench.bus.setScript([&](const QByteArray&) -> std::optional<QByteArray> {
        return bench.bus.requests().size() > Bench::kScanRequests ? std::optional(kSilence)
                                                                  : std::nullopt;
    });
    bench.processor->start();
    QCOMPARE(bench.cycle(8).mid(4),
             (QList<QByteArray>{probeOf("03"), probeOf("0A"), probeOf("03"), probeOf("0A")}));
    QCOMPARE(bench.lost->size(), 2);
    QVERIFY(bench.stopped->isEmpty());
}

void TestSerialProcessor::commandsWaitForTheCycle()
{
    Bench bench({"03", "0A"});
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (body == statusOf("03") && bench.bus.requests().size() == Bench::kScanRequests + 1) {
            bench.queue<ExecuteCommand>(QString("03"), LdbControl::LdbReset);
            bench.queue<ChangeCommand>(QString("0A"), LdbParameter::AudioMute, QByteArray("01"));
        }
        return std::nullopt;
    });
    bench.processor->start();
    QCOMPARE(bench.cycle(9), (QList<QByteArray>{statusOf("03"), nameOf("03"), firmwareOf("03"),
                                                kReset, statusOf("0A"), nameOf("0A"),
                                                firmwareOf("0A"), "FE0A73631601", statusOf("03")}));
    QCOMPARE(bench.answers, (QList<QByteArray>{kAck, kAck}));
    QList<int> lengths;
    for (const auto& entry : qAsConst(*bench.queueLength)) {
        lengths.append(entry.at(0).toInt());
    }
    QCOMPARE(lengths, (QList<int>{1, 2, 1, 0}));
}

void TestSerialProcessor::commandAnswers_data()
{
    QTest::addColumn<QList<QByteArray>>("script");
    QTest::addColumn<int>("transmissions");
    QTest::addColumn<QByteArray>("delivered");

    using Script = QList<QByteArray>;
    QTest::newRow("acknowledged") << Script{kAck} << 1 << kAck;
    QTest::newRow("refused, no retry") << Script{kNak} << 1 << kNak;
    QTest::newRow("second transmission") << Script{kSilence, kAck} << 2 << kAck;
    QTest::newRow("third transmission") << Script{kSilence, kSilence, kAck} << 3 << kAck;
    QTest::newRow("given up") << Script{kSilence, kSilence, kSilence} << 3 << QByteArray();
    QTest::newRow("wrong check is a window that ran out")
        << Script{badCheck("AB"), kAck} << 2 << kAck;
}

void TestSerialProcessor::commandAnswers()
{
    QFETCH(QList<QByteArray>, script);
    QFETCH(int, transmissions);
    QFETCH(QByteArray, delivered);

    Bench bench({"03"});
    std::optional<ExpectWarning> invalid;
    if (script.first().size() > 1) {
        invalid.emplace("Invalid answer");
    }
    bench.bus.setScript(inTurn(kReset, script));
    bench.processor->start();
    bench.cycle(1);
    bench.queue<ExecuteCommand>(QString("03"), LdbControl::LdbReset);
    WAIT_COMPARE(bench.answers, QList<QByteArray>{delivered});
    QCOMPARE(bench.bus.requests().count(kReset), transmissions);
    QCOMPARE(bench.queueLength->last().at(0).toInt(), 0);
}

void TestSerialProcessor::lateAnswersAreNobodyElses()
{
    // Every answer to a command comes only when the next frame has been sent, as from an LDB that
    // is slower than the window.
    Bench bench({"03", "0A"});
    QByteArray record = QByteArray("03").leftJustified(56, '0');
    QByteArray owed;
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        QByteArray answer = owed;
        owed.clear();
        if (body == settingsOf("03")) {
            owed = ScriptedBus::framed(record);
            return answer;
        }
        // The late one first, the real one behind it in a batch of its own.
        bench.bus.write(answer);
        return answer.isEmpty() ? std::nullopt : std::optional(kSilence);
    });
    bench.processor->start();
    bench.cycle(1);
    bench.queue<RequestCommand>(QString("03"), LdbParameter::Settings);
    WAIT_COMPARE(bench.answers, QList<QByteArray>{record});
    const int before = bench.rows->size();
    WAIT_VERIFY(bench.rows->size() > before + 4);
    for (const auto& entry : qAsConst(*bench.rows)) {
        const auto rows = entry.at(1).value<QList<QStringList>>();
        const QString name = generalinformation::text(rows, generalinformation::NameRow);
        QVERIFY(name.isEmpty() || name == "LDB " + entry.at(0).toString());
        QCOMPARE(generalinformation::text(rows, generalinformation::PrimaryCurrentRow), "12.3 mA");
    }
    QVERIFY(bench.lost->isEmpty());
}

void TestSerialProcessor::burstAfterSilenceIsNobodys_data()
{
    QTest::addColumn<int>("piece");
    QTest::newRow("answer by answer") << 1;
    QTest::newRow("two at a time") << 2;
    QTest::newRow("all at once") << 100;
}

void TestSerialProcessor::burstAfterSilenceIsNobodys()
{
    // The adapter stalls while two LDBs are asked, each request twice, and then hands over what
    // they have answered, last of all a status that is older than any lateness.
    QFETCH(int, piece);
    const QMap<QString, int> states{{"03", 10}, {"0A", 20}, {"0B", 0}};
    Bench bench(states.keys(), 50);
    QList<QByteArray> owed;
    const auto handOver = [&] {
        QByteArray bytes;
        for (int i = 0; i < piece && !owed.isEmpty(); ++i) {
            bytes += owed.takeFirst();
        }
        bench.bus.write(bytes);
    };
    QTimer adapter;
    connect(&adapter, &QTimer::timeout, handOver);
    bool isStalled = false;
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        const QString hexId = QString::fromLatin1(body.mid(2, 2));
        QByteArray answer = bench.bus.healthyAnswer(body);
        if (body == statusOf(qPrintable(hexId))) {
            answer = ScriptedBus::framed(ScriptedBus::status(states.value(hexId)));
        }
        if (isStalled && body == statusOf("0B")) {
            isStalled = false;
            owed.append(ScriptedBus::framed(ScriptedBus::status(states.value("03"))));
            adapter.start(1);
        }
        if (isStalled || !owed.isEmpty()) {
            owed.append(answer);
            return kSilence;
        }
        return answer;
    });
    bench.processor->start();
    bench.cycle(9);
    isStalled = true;
    WAIT_VERIFY(!isStalled && owed.isEmpty());
    const int before = bench.rows->size();
    WAIT_VERIFY(bench.rows->size() > before + 6);
    for (const auto& entry : qAsConst(*bench.rows)) {
        const auto rows = entry.at(1).value<QList<QStringList>>();
        QCOMPARE(generalinformation::integer(rows, generalinformation::ModeRow),
                 states.value(entry.at(0).toString()));
        const QString name = generalinformation::text(rows, generalinformation::NameRow);
        QVERIFY(name.isEmpty() || name == "LDB " + entry.at(0).toString());
    }
    QVERIFY(bench.lost->isEmpty());
}

void TestSerialProcessor::lateWritesAreAcknowledgedOnce()
{
    // The first write is answered twice; its second ACK must not stand for the refused second
    // write.
    Bench bench({"03"});
    const QByteArray mute = "FE0373631601";
    const QByteArray flags = "FE0373631413";
    QList<QByteArray> muteAnswers{kSilence, kAck};
    bool surplusSent = false;
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (body == mute && !muteAnswers.isEmpty()) {
            return muteAnswers.takeFirst();
        }
        if (body == statusOf("03") && muteAnswers.isEmpty() && !surplusSent) {
            surplusSent = true;
            return kAck; // the surplus one; the status is answered when it is asked again
        }
        return body == flags ? std::optional(kNak) : std::nullopt;
    });
    bench.processor->start();
    bench.cycle(1);
    bench.queue<ChangeCommand>(QString("03"), LdbParameter::AudioMute, QByteArray("01"));
    bench.queue<ChangeCommand>(QString("03"), LdbParameter::Flags, QByteArray("13"));
    WAIT_COMPARE(bench.answers, (QList<QByteArray>{kAck, kNak}));
    QVERIFY(surplusSent);
    QCOMPARE(bench.bus.requests().count(flags), 1);
}

void TestSerialProcessor::rescansAtTheNextDispatch()
{
    Bench bench({"03"});
    bench.processor->start();
    bench.cycle(3);
    bench.bus.setPresent({"0A"});
    bench.bus.clearRequests();
    bench.processor->requestRescan();
    WAIT_VERIFY(bench.scan->size() == 4);
    WAIT_VERIFY(bench.bus.requests().contains(firmwareOf("0A")));
    const int firstProbe = bench.bus.requests().indexOf("FE0170");
    QVERIFY(firstProbe <= 3);
    QCOMPARE(bench.bus.requests().count("FE0170"), 1);
    QVERIFY(!bench.bus.requests().mid(firstProbe).contains(statusOf("03")));
}

void TestSerialProcessor::pollsOneAlone()
{
    Bench bench({"03", "0A"});
    bench.processor->start();
    bench.cycle(1);
    bench.processor->pollOnly("77");
    bench.processor->pollOnly("0A");
    bench.bus.clearRequests();
    WAIT_VERIFY(bench.bus.requests().size() > 12);
    QVERIFY(!bench.bus.requests().mid(3).contains(statusOf("03")));
    bench.processor->pollOnly(QString());
    WAIT_VERIFY(bench.bus.requests().mid(9).contains(statusOf("03")));
}

void TestSerialProcessor::stateIsToldWhenItChanges()
{
    Bench bench({"03"});
    const QList<int> reported{10, 10, 20, 20, 10, 30, 30};
    int next = 0;
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (body != statusOf("03") || next == reported.size()) {
            return std::nullopt;
        }
        return ScriptedBus::framed(ScriptedBus::status(reported.at(next++)));
    });
    bench.processor->start();
    WAIT_VERIFY(bench.rows->size() >= reported.size());
    QList<int> told;
    for (const auto& entry : qAsConst(*bench.states)) {
        told.append(static_cast<int>(entry.at(1).value<LdbState>()));
    }
    QCOMPARE(told.mid(0, 4), (QList<int>{10, 20, 10, 30}));
}

void TestSerialProcessor::portThatDoesNotOpen()
{
    const ExpectWarning error("Port /nowhere/tty: ");
    Bench bench({});
    bench.processor->setPortName("/nowhere/tty");
    QVERIFY(bench.processor->start());
    QCOMPARE(bench.failed->size(), 1);
    QCOMPARE(bench.portFailed->size(), 1);
    QCOMPARE(bench.portFailed->first().at(0).toString(), "/nowhere/tty");
    QVERIFY(bench.scan->isEmpty());
    bench.processor->stop();
    QCOMPARE(bench.stopped->size(), 1);
}

void TestSerialProcessor::lineCutInEveryState_data()
{
    QTest::addColumn<QByteArray>("request");

    QTest::newRow("scan") << probeOf("04");
    QTest::newRow("status") << statusOf("03");
    QTest::newRow("name") << nameOf("03");
    QTest::newRow("firmware") << firmwareOf("03");
    QTest::newRow("command") << kReset;
}

void TestSerialProcessor::lineCutInEveryState()
{
    QFETCH(QByteArray, request);

    const ExpectWarning error("Port .*: ");
    Bench bench({"03"});
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (body == request) {
            bench.bus.hangUp();
            return kSilence;
        }
        return std::nullopt;
    });
    bench.processor->start();
    bench.queue<ExecuteCommand>(QString("03"), LdbControl::LdbReset);
    WAIT_COMPARE(bench.failed->size(), 1);
    QCOMPARE(bench.portFailed->size(), 1);
    // Nothing spins and nothing is said again; the processor stops and starts as ever.
    bench.processor->stop();
    QCOMPARE(bench.stopped->size(), 1);
    QCOMPARE(bench.failed->size(), 1);
    ScriptedBus other({"0A"});
    bench.processor->setPortName(other.portName());
    bench.processor->start();
    WAIT_VERIFY(other.requests().contains(firmwareOf("0A")));
    QCOMPARE(bench.failed->size(), 1);
}

void TestSerialProcessor::stopInEveryState_data()
{
    lineCutInEveryState_data();
}

void TestSerialProcessor::stopInEveryState()
{
    QFETCH(QByteArray, request);

    Bench bench({"03"});
    bool isStopping = false;
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (isStopping || body != request) {
            return std::nullopt;
        }
        isStopping = true;
        QMetaObject::invokeMethod(bench.processor.get(), &SerialProcessor::stop,
                                  Qt::QueuedConnection);
        return kSilence;
    });
    bench.processor->start();
    bench.queue<ExecuteCommand>(QString("03"), LdbControl::LdbReset);
    bench.queue<ExecuteCommand>(QString("03"), LdbControl::LdbReset);
    WAIT_COMPARE(bench.stopped->size(), 1);
    bench.bus.clearRequests();
    bench.queue<ExecuteCommand>(QString("03"), LdbControl::LdbReset);
    bench.answers.clear();
    bench.processor->start();
    bench.cycle(6);
    // What was queued before, or while stopped, is never sent.
    QVERIFY(!bench.bus.requests().contains(kReset));
    QVERIFY(bench.answers.isEmpty());
    QVERIFY(bench.failed->isEmpty());
}

QTEST_GUILESS_MAIN(TestSerialProcessor)
#include "tst_serialprocessor.moc"

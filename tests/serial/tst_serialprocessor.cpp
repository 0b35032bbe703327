#include "serial/generalinformation.h"
#include "serial/serialprocessor.h"
#include "tests/support/sandbox.h"
#include "tests/support/scriptedbus.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QSignalSpy>

namespace {

const QByteArray kAck("\x06");
const QByteArray kNak("\x15");
const QByteArray kSilence;

// The cyclic requests, and what this test uses as commands.
const QByteArray kStatus("737803");
const QByteArray kName("737202");
const QByteArray kFirmware("737804");
const QByteArray kProbe("70");
const QByteArray kSettings("737201");
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
        , processor((writeTuning(answerWaitTime, disconnectedCount), nullptr))
    {
        processor.setPortName(bus.portName());
    }
    void writeTuning(int answerWaitTime, int disconnectedCount) const
    {
        sandbox.writeTuning(
            "[SerialSettings]\nDISCONNECTED_COUNT=" + QByteArray::number(disconnectedCount) +
            "\nBYTES_RECEIVED_WAIT_TIME=" + QByteArray::number(answerWaitTime) + "\n");
    }

    /// The requests after the scan, once there are `count` of them.
    QList<QByteArray> cycle(int count)
    {
        waitUntil([&] { return bus.requests().size() >= kScanRequests + count; });
        return bus.requests().mid(kScanRequests, count);
    }
    bool isScanning() const { return bus.requests().size() <= kScanRequests; }

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
    /// Whether no record carries the name of another LDB.
    bool namesAreTheirOwn() const
    {
        for (int i = 0; i < rows.size(); ++i) {
            const QString name = text(i, generalinformation::NameRow);
            if (!name.isEmpty() && name != "LDB " + idOf(i)) {
                return false;
            }
        }
        return true;
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

class TestSerialProcessor : public TestCase
{
    Q_OBJECT
private slots:
    void scanGoesOnWhateverComes();
    void cyclesOverTheFound();
    void invalidStatusIsAMissAndNotShown_data();
    void invalidStatusIsAMissAndNotShown();
    void missesAreCountedInARow_data();
    void missesAreCountedInARow();
    void lostLdbIsProbedAndReturns();
    void commandsWaitForTheCycle();
    void commandAnswers_data();
    void commandAnswers();
    void lateAnswersAreNobodyElses();
    void burstAfterSilenceIsNobodys_data();
    void burstAfterSilenceIsNobodys();
    void stateIsToldWhenItChanges();
    void endsInEveryState_data();
    void endsInEveryState();
};

void TestSerialProcessor::scanGoesOnWhateverComes()
{
    Bench bench({"05"});
    bench.bus.setScript([](const QByteArray& body) -> std::optional<QByteArray> {
        if (body == ask("01", kProbe) || body == ask("02", kProbe)) {
            return kSilence;
        }
        if (body == ask("03", kProbe)) {
            return badCheck("AB");
        }
        if (body == ask("04", kProbe)) {
            return ScriptedBus::framed("AB");
        }
        return std::nullopt;
    });
    bench.processor.start();
    QCOMPARE(bench.cycle(4).first(), ask("04", kStatus));
    QList<QByteArray> probes;
    for (int address = 1; address <= 253; ++address) {
        probes.append("FE" + QByteArray::number(address, 16).toUpper().rightJustified(2, '0') +
                      "70");
    }
    QCOMPARE(bench.bus.requests().mid(0, Bench::kScanRequests), probes);
    QCOMPARE(bench.progress.size(), 253);
    QCOMPARE(bench.progress.first(), (QList<QVariant>{1, 0}));
    QCOMPARE(bench.progress.last(), (QList<QVariant>{253, 2}));
    QCOMPARE(bench.scan.size(), 2);
    QCOMPARE(bench.scan.at(0).at(0).toBool(), true);
    QCOMPARE(bench.scan.at(1).at(0).toBool(), false);
}

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

void TestSerialProcessor::invalidStatusIsAMissAndNotShown_data()
{
    QTest::addColumn<QByteArray>("answer");

    QTest::newRow("refusal") << kNak;
    QTest::newRow("another kind") << ScriptedBus::framed(QByteArray(49, '0'));
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
    bench.bus.setScript(inTurn(ask("03", kStatus), {answer, answer, answer}));
    bench.processor.start();
    WAIT_COMPARE(bench.lost.size(), 1);
    WAIT_COMPARE(bench.rows.size(), 1);
    QCOMPARE(bench.text(0, ModeRow), "Disconnected");
}

void TestSerialProcessor::missesAreCountedInARow_data()
{
    QTest::addColumn<int>("limit");
    QTest::addColumn<QByteArray>("answered"); ///< "-" for each silence after the scan
    QTest::addColumn<bool>("isLost");

    QTest::newRow("limit 0, one retry helps") << 0 << QByteArray("-") << false;
    QTest::newRow("limit 0, first miss") << 0 << QByteArray("--") << true;
    QTest::newRow("limit 1, two misses") << 1 << QByteArray("----") << true;
    QTest::newRow("limit 1, an answer between them") << 1 << QByteArray("--+--") << false;
    QTest::newRow("limit 3, three misses") << 3 << QByteArray("-------") << false;
    QTest::newRow("limit 3, four misses") << 3 << QByteArray("--------") << true;
}

void TestSerialProcessor::missesAreCountedInARow()
{
    QFETCH(int, limit);
    QFETCH(QByteArray, answered);
    QFETCH(bool, isLost);

    Bench bench({"03"}, 40, limit);
    int next = 0;
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (body == ask("03", kProbe) || !body.startsWith("FE03") || next == answered.size()) {
            return std::nullopt;
        }
        return answered.at(next++) == '-' ? std::optional(kSilence) : std::nullopt;
    });
    bench.processor.start();
    bench.cycle(answered.size() + 4);
    WAIT_VERIFY(!bench.rows.isEmpty());
    QCOMPARE(bench.lost.size(), isLost ? 1 : 0);
    QCOMPARE(bench.text(0, ModeRow), isLost ? "Disconnected" : "Quiescent");
}

void TestSerialProcessor::lostLdbIsProbedAndReturns()
{
    Bench bench({"03", "0A"}, 40, 0);
    bool away = true;
    int probes = 0;
    bench.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
        if (bench.isScanning() || !away || !body.startsWith("FE03")) {
            return std::nullopt;
        }
        // Silent three times, then it answers the probe.
        if (body == ask("03", kProbe) && ++probes == 3) {
            away = false;
            return kAck;
        }
        return kSilence;
    });
    bench.processor.start();
    const QList<QByteArray> probedRound = turnOf("0A") + QList<QByteArray>{ask("03", kProbe)};
    const QList<QByteArray> expected = QList<QByteArray>{ask("03", kStatus), ask("03", kStatus)} +
                                       probedRound + probedRound + probedRound + turnOf("03");
    QCOMPARE(bench.cycle(expected.size()), expected);
    QCOMPARE(bench.lost.size(), 1);
    // Shown as lost at the loss and at each silent probe, and live again at the end.
    WAIT_COMPARE(bench.states.last().at(1).value<LdbState>(), LdbState::Quiescent);
    QStringList lostRecords;
    for (int i = 0; i < bench.rows.size(); ++i) {
        if (bench.text(i, NameRow) == "Disconnected") {
            lostRecords << bench.idOf(i);
        }
    }
    QCOMPARE(lostRecords, (QStringList{"03", "03", "03"}));
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

void TestSerialProcessor::commandAnswers_data()
{
    QTest::addColumn<QList<QByteArray>>("script");
    QTest::addColumn<int>("transmissions");
    QTest::addColumn<QByteArray>("delivered");

    using Script = QList<QByteArray>;
    QTest::newRow("acknowledged") << Script{kAck} << 1 << kAck;
    QTest::newRow("refused, no retry") << Script{kNak} << 1 << kNak;
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
    bench.bus.setScript(inTurn(ask("03", kReset), script));
    bench.processor.start();
    bench.cycle(1);
    bench.queueReset();
    WAIT_COMPARE(bench.answers, QList<QByteArray>{delivered});
    QCOMPARE(bench.bus.requests().count(ask("03", kReset)), transmissions);
    QCOMPARE(bench.queueLength.last().at(0).toInt(), 0);
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
        if (body == ask("03", kSettings)) {
            owed = ScriptedBus::framed(record);
            return answer;
        }
        // The late one first, the real one behind it in a batch of its own.
        bench.bus.write(answer);
        return answer.isEmpty() ? std::nullopt : std::optional(kSilence);
    });
    bench.processor.start();
    bench.cycle(1);
    bench.queue<RequestCommand>(QString("03"), LdbParameter::Settings);
    WAIT_COMPARE(bench.answers, QList<QByteArray>{record});
    const int before = bench.rows.size();
    WAIT_VERIFY(bench.rows.size() > before + 4);
    for (int i = 0; i < bench.rows.size(); ++i) {
        QCOMPARE(bench.text(i, PrimaryCurrentRow), "12.3 mA");
    }
    QVERIFY(bench.namesAreTheirOwn());
    QVERIFY(bench.lost.isEmpty());
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
        if (body == ask(hexId, kStatus)) {
            answer = ScriptedBus::framed(ScriptedBus::status(states.value(hexId)));
        }
        if (isStalled && body == ask("0B", kStatus)) {
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
    bench.processor.start();
    bench.cycle(9);
    isStalled = true;
    WAIT_VERIFY(!isStalled && owed.isEmpty());
    const int before = bench.rows.size();
    WAIT_VERIFY(bench.rows.size() > before + 6);
    for (int i = 0; i < bench.rows.size(); ++i) {
        QCOMPARE(integer(bench.rowsOf(i), ModeRow), states.value(bench.idOf(i)));
    }
    QVERIFY(bench.namesAreTheirOwn());
    QVERIFY(bench.lost.isEmpty());
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

#include "tests/serial/scriptedtalk.h"
#include "tests/support/badlines.h"
#include "tests/support/testprogram.h"

using namespace scriptedtalk;

Q_DECLARE_METATYPE(Adversaries)

namespace {

using Outcome = ExchangeOutcome;

constexpr qint64 kMinute = 60000000;
constexpr double kMicrosecondsPerMillisecond = 1000;

/// For people and for comparing: letter of the outcome, flight in ms, what came.
QString shortOf(const Exchange& exchange)
{
    static const char* const kOutcomes[] = {"believed", "unbelieved", "damaged", "silent", "late"};
    const QString flight = exchange.flight < 0
                               ? QString("-")
                               : QString::number(qRound64(static_cast<double>(exchange.flight) /
                                                          kMicrosecondsPerMillisecond));
    return QString("%1 %2 %3")
        .arg(kOutcomes[static_cast<int>(exchange.outcome)], flight,
             QString::number(exchange.answer.size()));
}

} // namespace

/// What is told of each transmission: what became of it, when, and every byte.
class TestExchanges : public TestCase
{
    Q_OBJECT
private slots:
    void saysWhatBecameOfIt_data()
    {
        // The answers to one request from its first transmission on; "told": of each transmission
        // outcome, ms to the answer, bytes that came
        const Table<QByteArray, QList<QList<Said>>, QStringList> row("body", "answers", "told");
        const QByteArray status = ask("03", kStatus);
        const Said usual = ScriptedTalk::usual(status);
        const double request = 14 * ScriptedTalk::kByte;
        QByteArray wrong = usual.bytes;
        wrong[7] = wrong.at(7) == '0' ? '1' : '0';
        const auto usualMs = qRound64(request + usual.after);
        const auto told = [](const char* outcome, qint64 flight, int bytes) {
            return QString("%1 %2 %3").arg(outcome).arg(flight).arg(bytes);
        };
        row("believed", status, {{usual}}, {told("believed", usualMs, 54)});
        row("damaged", status, {{{usual.after, wrong}}}, {told("damaged", usualMs, 54)});
        row("among stray bytes", status, {{{10, "\x55"}, usual}},
            {told("unbelieved", usualMs, 55)});
        row("of another kind", status, {{{usual.after, ScriptedTalk::name("no status")}}},
            {told("unbelieved", usualMs, 36)});
        row("silent", status, {kSilence, kSilence}, {"silent - 0", "silent - 0"});
        row("only stray bytes", status, {{{8, "\x01\x04"}}, {usual}},
            {"silent - 2", told("believed", usualMs, 54)});
        row("the repeat is answered", status, {kSilence, {usual}},
            {"silent - 0", told("believed", usualMs, 54)});
        // Sooner than this LDB ever answers: an earlier question's.
        const double soon = usual.after - 7;
        row("too soon, then its own", status,
            {{{soon, usual.bytes}, {usual.after + 60, usual.bytes}}},
            {told("unbelieved", usualMs + 60, 108)});
        row("too soon, then nothing", status, {{{soon, usual.bytes}}, {usual}},
            {told("late", usualMs - 7, 54), told("believed", usualMs, 54)});
        const QByteArray write = ask("03", "73631205");
        const auto acked = qRound64(16 * ScriptedTalk::kByte + 8);
        row("a write", write, {{{8, kAck}}}, {told("believed", acked, 1)});
        row("a write that is refused", write, {{{8, kNak}}}, {told("believed", acked, 1)});
        row("a write, answered at last", write, {kSilence, kSilence, {{8, kAck}}},
            {"silent - 0", "silent - 0", told("believed", acked, 1)});
        const QByteArray settings = ask("03", kSettings);
        const Said record = ScriptedTalk::usual(settings);
        row("another LDB's settings", settings,
            {{{record.after, ScriptedTalk::settings("0A")}}, {record}},
            {told("late", qRound64(request + record.after), 60),
             told("believed", qRound64(request + record.after), 60)});
    }

    void saysWhatBecameOfIt()
    {
        QFETCH(QByteArray, body);
        QFETCH(QList<QList<Said>>, answers);
        QFETCH(QStringList, told);
        ScriptedTalk talk({"03", "0A"});
        talk.settle("03", 20);
        talk.setScript(first(body, answers));
        if (body.endsWith(kSettings)) {
            talk.queue(requests::read("03", 1));
        } else if (body.contains("7363")) {
            talk.queue(requests::change("03", 0x12, "05"));
        }
        talk.run(10000);
        QStringList found;
        qint64 last = 0;
        for (const Exchange& exchange : talk.told<Exchange>()) {
            QVERIFY(exchange.sentAt > last);
            last = exchange.sentAt;
            if (exchange.request == ScriptedTalk::frame(body) && found.size() < told.size()) {
                QCOMPARE(exchange.hexId, QString("03"));
                found.append(shortOf(exchange));
            }
        }
        QCOMPARE(found, told);
    }

    void kinds()
    {
        ScriptedTalk talk({"03"});
        talk.settle("03", 2);
        talk.queue(requests::read("03", 1));
        talk.queue(requests::change("03", 0x12, "05"));
        talk.queue(requests::execute("03", 0));
        talk.queue(requests::execute(busaddress::kBroadcast, 0));
        talk.run(8000);
        QHash<QByteArray, QList<ExchangeKind>> kinds;
        for (const Exchange& exchange : talk.told<Exchange>()) {
            auto& known = kinds[exchange.request.mid(5, exchange.request.size() - 8)];
            if (!known.contains(exchange.kind)) {
                known.append(exchange.kind);
            }
        }
        using Kind = ExchangeKind;
        const QHash<QByteArray, QList<Kind>> expected{
            {kStatus, {Kind::Status}}, {kName, {Kind::Name}},       {kFirmware, {Kind::Firmware}},
            {kSettings, {Kind::Read}}, {"73631205", {Kind::Write}}, {"737800", {Kind::Broadcast}}};
        QCOMPARE(kinds.value("737800").size(), 2);
        kinds["737800"].removeAll(Kind::Action);
        QCOMPARE(kinds, expected);
    }

    /// On every kind of bad line, held against what the line itself did.
    void agreesWithTheLine_data()
    {
        addColumns<Adversaries>("adversaries");
        const auto row = [](const char* tag, auto change) {
            Adversaries adversaries;
            change(adversaries);
            QTest::newRow(tag) << adversaries;
        };
        row("clean", [](auto&) {});
        row("flips", [](auto& a) { a.flippedAnswers = 10; });
        row("losses", [](auto& a) { a.lostAnswers = a.lostRequests = 10; });
        row("late", [](auto& a) { a.lateAnswers = 10; });
        row("stray", [](auto& a) { a.strayEvery = 1; });
        row("everything", [](auto& a) {
            a.flippedAnswers = a.lostAnswers = a.lostRequests = a.lateAnswers = 3;
            a.strayEvery = 2;
        });
    }

    void agreesWithTheLine()
    {
        QFETCH(Adversaries, adversaries);
        LineRig rig({});
        QList<Exchange> told;
        rig.listen([&told](const Event& event) {
            if (const auto* exchange = std::get_if<Exchange>(&event)) {
                told.append(*exchange);
            }
        });
        rig.scan();
        rig.run(kMinute);
        rig.line().setAdversaries(adversaries, rig.now());
        rig.run(2 * kMinute);
        // The last one is on its way still.
        const auto& book = rig.line().book().exchanges();
        QCOMPARE(static_cast<int>(book.size()), told.size() + 1);
        int harmed = 0;
        for (int i = 0; i < told.size(); ++i) {
            const LineExchange& real = book[static_cast<std::size_t>(i)];
            const Exchange& exchange = told.at(i);
            const QByteArray bytes = (real.describe() + " | " + shortOf(exchange)).toUtf8();
            const char* const text = bytes.constData();
            QVERIFY2(exchange.request == real.request, text);
            QCOMPARE(exchange.sentAt, LineRig::kWallStart * 1000 + real.handedAt);
            QCOMPARE(exchange.answer, rig.heardSince(i));
            const bool isQuiet = real.intrusions == Intrusions();
            const bool isAnswered = real.answers.size() == 1;
            const Harms harms = isAnswered ? real.answers.front().harms : Harms();
            if (isQuiet && isAnswered && harms == Harms()) {
                // Alone and in order; but behind a silence a late one is doubted.
                QVERIFY2(exchange.outcome == Outcome::Believed ||
                             exchange.outcome == Outcome::Unbelieved,
                         text);
                QVERIFY2(exchange.answer == real.answers.front().sent, text);
                QVERIFY2(exchange.flight == real.answers.front().arrivedAt - real.handedAt, text);
            } else if (isQuiet && (!isAnswered || harms == Harms(Harm::Loss))) {
                QVERIFY2(exchange.outcome == Outcome::Silent && exchange.flight == -1 &&
                             exchange.answer.isEmpty(),
                         text);
                harmed += real.harms == Harms() && !isAnswered ? 0 : 1;
            } else if (isQuiet && harms == Harms(Harm::Flip) &&
                       exchange.kind != ExchangeKind::Probe) {
                QVERIFY2(exchange.outcome == Outcome::Damaged ||
                             exchange.outcome == Outcome::Silent,
                         text);
                ++harmed;
            } else if (isQuiet && harms == Harms(Harm::Late) &&
                       exchange.outcome == Outcome::Believed) {
                QVERIFY2(exchange.answer == real.answers.front().sent, text);
                QVERIFY2(exchange.flight == real.answers.front().arrivedAt - real.handedAt, text);
                ++harmed;
            } else if (exchange.outcome == Outcome::Late) {
                QVERIFY2(real.intrusions & Intrusion::OtherAnswer, text);
                ++harmed;
            } else if (exchange.outcome == Outcome::Unbelieved) {
                QVERIFY2(!isQuiet || harms != Harms(), text);
                ++harmed;
            }
        }
        QVERIFY(harmed > 10 || qstrcmp(QTest::currentDataTag(), "clean") == 0);
    }
};

REGISTER_TEST(TestExchanges, QCoreApplication)
#include "tst_exchanges.moc"

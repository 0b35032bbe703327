#include "tests/app/tablerig.h"
#include "tests/support/testprogram.h"

#include <array>
#include <random>

namespace {

constexpr int kSeeds = 200;
constexpr double kPercent = 2;
const QStringList kLdbs{"01", "0A", "10", "5B", "A4", "FD"};
const QString kRefuser = "0A"; // refuses the flags
const QString kLiar = "5B";    // stores another delay than it is told

/// Draws values for some fields of each LDB.
void editByChance(TableRig& rig, std::mt19937& chance)
{
    const auto draw = [&chance](int limit) {
        return static_cast<int>(chance() % static_cast<unsigned>(limit));
    };
    for (const QString& hexId : kLdbs) {
        for (const LdbField field : kLdbFields) {
            if (draw(2) == 0) {
                continue;
            }
            LdbSettings values;
            values.name = QString("Room %1").arg(draw(100));
            values.numberOfFims = static_cast<quint16>(draw(200));
            values.openDetectionDelay = static_cast<quint16>(draw(200));
            values.generalFaultOutput = values.earthLeakageDetection = draw(2) == 0;
            values.earthWireOpenDetection = values.startInServiceMode = draw(2) == 0;
            values.amplifierDetection = values.audioMute = draw(2) == 0;
            rig.model.edit({{hexId, field, values}}, "edit");
        }
    }
}

/// What the table says that is not so: of each cell a sentence.
QStringList untruths(TableRig& rig)
{
    QStringList found;
    for (const TableRow& row : rig.model.rows()) {
        const LdbSettings board = rig.boards(row.hexId);
        for (const LdbField field : kLdbFields) {
            const auto outcome = row.outcomes.find(field);
            const bool isKnown = row.read && row.doubtful.count(field) == 0;
            const bool isSaidWritten =
                outcome != row.outcomes.end() && outcome->second == FieldOutcome::Written;
            const bool isTrue = !isKnown || isSameField(field, *row.read, board);
            const bool isWritten = !isSaidWritten || !row.isEdited(field);
            // What is not told of must not be open: each cell has its end.
            const bool isToldOf = !row.isEdited(field) || outcome != row.outcomes.end();
            if (!isTrue || !isWritten || !isToldOf) {
                found.append(QString("LDB %1 %2: the table says %3, the board has %4")
                                 .arg(row.hexId, fieldName(field), rig.shown(row.hexId, field),
                                      fieldValue(field, board)));
            }
        }
    }
    return found;
}

QStringList firstLdbs(int count)
{
    QStringList hexIds;
    for (int address = busaddress::kFirst; address <= count; ++address) {
        hexIds.append(busaddress::toHexId(address));
    }
    return hexIds;
}

constexpr double kTolerance = 0.2; // of the remaining time

/// What a reading says of its remaining time, behind the first tenth.
class Estimates
{
public:
    explicit Estimates(TableRig& rig)
    {
        QObject::connect(&rig.reading, &TableReading::progressChanged, &rig.reading,
                         [this](int left, int total, qint64 remaining) {
                             if (left <= total * 9 / 10 && left > 0) {
                                 m_told.push_back({VirtualTime::current()->now(), remaining});
                             }
                         });
    }
    /// By which share it was off at the most.
    double worst(qint64 end) const
    {
        double worst = 0;
        for (const auto& [at, remaining] : m_told) {
            const auto truth = static_cast<double>(end - at);
            worst = std::max(worst, std::abs(static_cast<double>(remaining) - truth) / truth);
        }
        return worst;
    }

private:
    std::vector<std::pair<qint64, qint64>> m_told;
};

struct Tally
{
    std::array<int, 6> outcomes{};
    int doubtful = 0;
    int cut = 0;
};

} // namespace

/// The table of settings against lines and boards that do what they can to make it say something
/// that is not so.
class TestTableAdversaries : public TestCase
{
    Q_OBJECT
private slots:
    void saysOfEachCellWhatTheBoardHas();
    void readsAtThePaceOfTheWire();
    void tellsTheRemainingTimeRightBehindAScan_data();
    void tellsTheRemainingTimeRightBehindAScan();
};

void TestTableAdversaries::saysOfEachCellWhatTheBoardHas()
{
    Tally tally;
    const ExpectWarning warning(".", ExpectWarning::Need::MayCome); // of the port and the line
    for (int seed = 1; seed <= kSeeds; ++seed) {
        std::mt19937 chance(static_cast<unsigned>(seed));
        LineOptions options;
        options.seed = static_cast<quint64>(seed);
        TableRig rig(kLdbs, options);
        QVERIFY(rig.bus.scan(rig.link));
        QVERIFY(rig.readAll());
        editByChance(rig, chance);
        Adversaries adversaries;
        adversaries.flippedRequests = adversaries.flippedAnswers = kPercent;
        adversaries.lostRequests = adversaries.lostAnswers = kPercent;
        rig.bus.host().line().setAdversaries(adversaries, 0);
        int untilCut = seed % 2 == 0 ? static_cast<int>(chance() % 60) : -1;
        rig.bus.setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
            if (untilCut >= 0 && untilCut-- == 0) {
                rig.bus.cut();
            }
            if (body.startsWith("FE" + kRefuser.toLatin1() + "736314")) {
                return "\x15";
            }
            if (body.startsWith("FE" + kLiar.toLatin1() + "736317")) {
                rig.bus.change(kLiar, "17", "6300");
                return "\x06";
            }
            return std::nullopt;
        });
        QVERIFY(rig.write(rig.model.changes()));
        if (!rig.writing.open().empty()) {
            ++tally.cut;
            rig.link.stop();
            rig.bus.restore();
            rig.bus.scan(rig.link); // which may miss one, on this line
            const auto open = rig.writing.open();
            QVERIFY(open.empty() || rig.write(open));
        }
        const QStringList found = untruths(rig);
        QVERIFY2(found.isEmpty(),
                 qPrintable(QString("seed %1: %2").arg(seed).arg(found.join('\n'))));
        for (const TableRow& row : rig.model.rows()) {
            for (const auto& [field, outcome] : row.outcomes) {
                ++tally.outcomes[static_cast<std::size_t>(outcome)];
            }
            tally.doubtful += static_cast<int>(row.doubtful.size());
        }
    }
    qInfo("%d seeds, %d cut: cells written %d, refused %d, not answered %d, differs %d, "
          "left alone %d, not sent %d; not known %d",
          kSeeds, tally.cut, tally.outcomes[0], tally.outcomes[1], tally.outcomes[2],
          tally.outcomes[3], tally.outcomes[4], tally.outcomes[5], tally.doubtful);
    // The adversaries were there.
    QVERIFY(tally.cut > kSeeds / 4);
    for (const FieldOutcome outcome :
         {FieldOutcome::Written, FieldOutcome::Refused, FieldOutcome::Differs}) {
        QVERIFY(tally.outcomes[static_cast<std::size_t>(outcome)] > kSeeds / 4);
    }
}

void TestTableAdversaries::readsAtThePaceOfTheWire()
{
    constexpr double kLimit = 1.1;
    constexpr int kQuestions = 2 * busaddress::kLast;
    // Between two commands is one turn: a status and, in one of ten, name and firmware.
    constexpr double kPollsATurn = 1.2;
    const QStringList all = firstLdbs(busaddress::kLast);
    TableRig rig(all);
    QVERIFY(rig.bus.scan(rig.link));
    VirtualTime* time = VirtualTime::current();
    const auto elapsed = [time](const std::function<bool()>& done) {
        const qint64 begun = time->now();
        return time->advanceUntil(done, TableRig::kLong) ? time->now() - begun : -1;
    };
    // Long rounds ask one LDB in ten for name and firmware id: behind eleven of them each is known
    // for sure, and no answer has to be confirmed by a second one.
    int rounds = 0;
    connect(&rig.link, &SerialLink::roundEnded, this, [&rounds] { ++rounds; });
    QVERIFY(elapsed([&rounds] { return rounds == 12; }) > 0);

    Estimates estimates(rig);
    // What the wire itself takes: from each question's first byte to its answer's last one. Its own
    // questions, and those of the polling that has its turn between any two of them.
    int own = 0;
    int polls = 0;
    qint64 flights = 0;
    const auto counting =
        connect(&rig.link, &SerialLink::exchanged, this, [&](const Exchange& exchange) {
            ++(exchange.kind == ExchangeKind::Read ? own : polls);
            flights += exchange.flight;
        });
    const qint64 begun = time->now();
    rig.reading.read(all);
    const qint64 taken = elapsed([&] { return !rig.reading.isOn(); });
    disconnect(counting);
    const double worst = estimates.worst(begun + taken);
    const double busy = static_cast<double>(flights) / 1000;
    qInfo("253 LDBs: %.1f s; the wire was busy for %.1f s (%.3f) with %d questions of its own and "
          "%d of the polling; the remaining time was off by %.1f %%",
          static_cast<double>(taken) / 1000, busy / 1000, static_cast<double>(taken) / busy, own,
          polls, 100 * worst);
    QVERIFY(own >= kQuestions - 1 && own <= kQuestions); // none is asked twice
    QVERIFY(polls <= own * kPollsATurn + 2);
    QVERIFY(static_cast<double>(taken) <= kLimit * busy);
    QVERIFY(worst <= kTolerance);
    const auto& rows = rig.model.rows();
    QVERIFY(std::all_of(rows.begin(), rows.end(), [](const TableRow& row) {
        return row.reading == TableRow::Reading::Read && row.firmwareId == "LDB 1.07";
    }));
}

void TestTableAdversaries::tellsTheRemainingTimeRightBehindAScan_data()
{
    QTest::addColumn<int>("ldbs");
    for (const int ldbs : {20, 32, 100, int{busaddress::kLast}}) {
        QTest::addRow("%d LDBs", ldbs) << ldbs;
    }
}

/// In the first round the polling asks for what it leaves out later.
void TestTableAdversaries::tellsTheRemainingTimeRightBehindAScan()
{
    QFETCH(int, ldbs);
    TableRig rig(firstLdbs(ldbs));
    QVERIFY(rig.bus.scan(rig.link));
    const Estimates estimates(rig);
    QVERIFY(rig.readAll());
    const double worst = estimates.worst(VirtualTime::current()->now());
    qInfo("%d LDBs: the remaining time was off by %.1f %%", ldbs, 100 * worst);
    QVERIFY(worst > 0);
    QVERIFY(worst <= kTolerance);
}

REGISTER_TEST(TestTableAdversaries, InVirtualTime<QGuiApplication>)
#include "tst_tableadversaries.moc"

#include "tests/support/badlines.h"
#include "tests/support/testprogram.h"

#include <QMap>

namespace {

constexpr qint64 kMillisecond = 1000;
constexpr qint64 kSecond = 1000000;
constexpr qint64 kMinute = 60 * kSecond;
constexpr int kAll = 253;

LineRig::Setup site(int ldbs, const TurnPlan::Options& turns = {})
{
    LineRig::Setup setup;
    setup.turns = turns;
    setup.addresses.clear();
    for (int address = 1; address <= ldbs; ++address) {
        setup.addresses.push_back(address);
    }
    return setup;
}

/// What a rig tells while it is listened to. Times in µs.
class Watch
{
public:
    explicit Watch(LineRig& rig)
        : m_rig(rig)
    {
        rig.listen([this](const Event& event) {
            std::visit([this](const auto& what) { take(what); }, event);
        });
    }
    ~Watch() { m_rig.listen({}); }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;

    /// Of the complete rounds.
    double meanRound() const
    {
        return static_cast<double>(m_ends.last() - m_ends.first()) /
               static_cast<double>(m_ends.size() - 1);
    }
    int rounds() const { return m_ends.size() - 1; }

    QList<Exchange> exchanges;
    QMap<QString, QList<qint64>> records; ///< when each LDB's came, extra ones too
    QMap<QString, int> ofRound;           ///< records of the round that is on
    QStringList doubles;                  ///< a second record in one round
    QStringList missing;                  ///< none in a round
    int extras = 0;
    bool isExtraTimeRight = true;
    qint64 lossAt = 0;

private:
    void take(const event::Record& record)
    {
        records[record.hexId].append(m_rig.now());
        if (record.isExtra) {
            ++extras;
            isExtraTimeRight =
                isExtraTimeRight && record.time == LineRig::kWallStart + m_rig.now() / kMillisecond;
        } else if (record.status.state != LdbState::Disconnected && ++ofRound[record.hexId] > 1) {
            doubles.append(record.hexId);
        }
    }
    void take(const event::RoundBegun&)
    {
        ofRound.clear();
        m_isWhole = true;
    }
    void take(const event::RoundEnded&)
    {
        m_ends.append(m_rig.now());
        for (const QString& hexId : m_rig.found()) {
            if (m_isWhole && !ofRound.contains(hexId)) {
                missing.append(hexId);
            }
        }
    }
    void take(const event::Loss&) { lossAt = m_rig.now(); }
    void take(const Exchange& exchange) { exchanges.append(exchange); }
    template <typename Other>
    void take(const Other&)
    {
    }

    LineRig& m_rig;
    bool m_isWhole = false;
    QList<qint64> m_ends;
};

qint64 longestGap(const QList<qint64>& times)
{
    qint64 longest = 0;
    for (int i = 1; i < times.size(); ++i) {
        longest = std::max(longest, times.at(i) - times.at(i - 1));
    }
    return longest;
}

QString text(LineRig& rig)
{
    return rig.complaints().join('\n') + "\n" + rig.conversation().describe();
}

} // namespace

/// Rounds that take long, in virtual time at the wire's pace.
class TestLargeSite : public TestCase
{
    Q_OBJECT
private slots:
    void aLongRoundTakesHalfTheTime()
    {
        double means[2] = {};
        for (const int every : {1, 0}) {
            LineRig rig(site(kAll, {every, 2000}));
            rig.scan();
            rig.run(3 * kMinute);
            rig.conversation().select("55");
            Watch watch(rig);
            rig.run(6 * kMinute);
            means[every] = watch.meanRound();
            QCOMPARE(rig.tally().wrong, 0);
            QCOMPARE(watch.doubles, QStringList());
            QCOMPARE(watch.missing, QStringList());
            QVERIFY(watch.extras > 150 && watch.isExtraTimeRight);
            const auto gap = longestGap(watch.records.value("55"));
            QVERIFY2(gap <= 2 * kSecond, qPrintable(QString::number(gap)));
            if (every == 0) {
                // In ten rounds each has given name and firmware once.
                QMap<QString, int> asked;
                for (const Exchange& exchange : watch.exchanges) {
                    asked[exchange.hexId] += exchange.kind == ExchangeKind::Name ? 1 : 0;
                }
                for (const int times : asked) {
                    QVERIFY(times >= watch.rounds() / 10 && times <= watch.rounds() / 10 + 2);
                }
            }
        }
        QVERIFY2(means[0] <= 0.55 * means[1],
                 qPrintable(QString("%1 of %2").arg(means[0]).arg(means[1])));
        qInfo("rounds of %.2f and %.2f s: %.3f", means[0] / kSecond, means[1] / kSecond,
              means[0] / means[1]);
    }

    void tellsALossSoon()
    {
        LineRig rig(site(kAll));
        rig.scan();
        rig.run(2 * kMinute);
        rig.conversation().select("10");
        qint64 longest = 0;
        for (const int address : {1, 0x10, 0x80, 0xF8, 0xFD}) {
            rig.run(17 * kSecond);
            Watch watch(rig);
            rig.boards().setPresent(address, false);
            const QString hexId = busaddress::toHexId(address);
            QVERIFY(rig.runUntil([&] { return rig.lost().contains(hexId); }, kMinute));
            qint64 first = 0;
            for (const Exchange& exchange : watch.exchanges) {
                if (first == 0 && exchange.hexId == hexId &&
                    exchange.outcome == ExchangeOutcome::Silent) {
                    first = exchange.sentAt - LineRig::kWallStart * kMillisecond;
                }
            }
            longest = std::max(longest, watch.lossAt - first);
            // Beside the one that is gone, the selected one is never forgotten.
            const auto gap = longestGap(watch.records.value("10"));
            QVERIFY2(gap <= 2 * kSecond + 3120 * kMillisecond, qPrintable(QString::number(gap)));
            rig.boards().setPresent(address, true);
            QVERIFY(rig.runUntil([&] { return rig.lost().isEmpty(); }, kMinute));
        }
        QCOMPARE(rig.tally().losses, 5);
        QCOMPARE(rig.tally().falseLosses, 0);
        QVERIFY2(longest <= 16 * kSecond, qPrintable(QString::number(longest)));
        qInfo("a loss is told after %.2f s", static_cast<double>(longest) / kSecond);
    }

    void whoMissedIsAskedAgainSoon()
    {
        // One record an LDB and round, however bad the line is; and what is asked again does not
        // keep the others waiting.
        for (quint64 seed = 1; seed <= 3; ++seed) {
            LineRig::Setup setup = site(64);
            setup.seed = seed;
            LineRig rig(setup);
            rig.scan();
            rig.run(kMinute);
            Adversaries losses;
            losses.lostRequests = losses.lostAnswers = 5;
            losses.flippedAnswers = 5;
            rig.line().setAdversaries(losses, rig.now());
            Watch watch(rig);
            rig.run(20 * kMinute);
            QVERIFY2(rig.tally().wrong == 0 && rig.tally().falseLosses == 0, qPrintable(text(rig)));
            QCOMPARE(watch.doubles, QStringList());
            // A round has an answer of each, but for those who missed several times in a row.
            QVERIFY2(watch.missing.size() < watch.rounds() * 64 / 50,
                     qPrintable(QString("%1 in %2").arg(watch.missing.size()).arg(watch.rounds())));
            int others = 0;
            QHash<QString, int> missedAt;
            for (const Exchange& exchange : watch.exchanges) {
                if (exchange.kind != ExchangeKind::Status) {
                    continue;
                }
                const int since = ++others - missedAt.value(exchange.hexId, others);
                QVERIFY2(since <= 2 * 9 * 8, qPrintable(QString::number(since)));
                missedAt.remove(exchange.hexId);
                if (exchange.outcome == ExchangeOutcome::Damaged) {
                    missedAt.insert(exchange.hexId, others);
                }
            }
        }
    }

    void aLineThatDiesMakesNoStorm()
    {
        // All are silent: as many requests as a silence leaves room for, and none alone.
        LineRig rig(site(64));
        rig.scan();
        rig.run(kMinute);
        for (int address = 1; address <= 64; ++address) {
            rig.boards().setPresent(address, false);
        }
        Watch watch(rig);
        QVERIFY(rig.runUntil([&] { return rig.lost().size() == 64; }, 20 * kMinute));
        QVERIFY2(watch.exchanges.size() <= 64 * 8 + 20,
                 qPrintable(QString::number(watch.exchanges.size())));
        QVERIFY2(rig.tally().falseLosses == 0, qPrintable(text(rig)));
    }
};

REGISTER_TEST(TestLargeSite, QCoreApplication)
#include "tst_largesite.moc"

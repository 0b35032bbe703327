#include "tests/support/badlines.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(LineKind)

namespace {

constexpr qint64 kMillisecond = 1000;
constexpr qint64 kSecond = 1000000;
constexpr qint64 kMinute = 60 * kSecond;

QString text(LineRig& rig)
{
    return rig.complaints().join('\n') + "\n" + rig.conversation().describe();
}

int recordsIn(LineRig& rig, qint64 time)
{
    const int before = rig.tally().records;
    rig.run(time);
    return rig.tally().records - before;
}

} // namespace

/// The conversation on a simulated line at the wire's pace, held against the line's book.
class TestBadLine : public TestCase
{
    Q_OBJECT
private slots:
    void showsNothingWrong_data()
    {
        addColumns<int, LineKind, quint64>("line", "kind", "seed");
        for (std::size_t i = 0; i < badLines().size(); ++i) {
            for (const auto& kind : kLineKinds) {
                QTest::addRow("%s, %s", badLines()[i].name, kind.name)
                    << static_cast<int>(i) << kind.kind << quint64(1 + i);
            }
        }
    }

    void showsNothingWrong()
    {
        QFETCH(int, line);
        QFETCH(LineKind, kind);
        QFETCH(quint64, seed);
        const BadLine& bad = badLines()[static_cast<std::size_t>(line)];
        LineRig rig(bad.setup(kind, seed));
        rig.scan();
        QCOMPARE(rig.found().size(), bad.ldbs);
        rig.run(kMinute);
        const double clean = recordsIn(rig, kMinute);
        bad.begin(rig);
        rig.queueByChance(20 * kSecond);
        rig.run(trials(3, 10) * kMinute);
        QVERIFY2(rig.tally().wrong == 0, qPrintable(text(rig)));
        QVERIFY2(rig.tally().falseLosses == 0, qPrintable(text(rig)));

        // When the line is good again it is as if nothing had been.
        rig.queueByChance(0);
        rig.line().setAdversaries({}, rig.now());
        rig.run(10 * kSecond);
        const double after = recordsIn(rig, kMinute);
        const double gone = bad.absent == 0 ? 0.03 : 0.06;
        QVERIFY2(after >= (1 - gone) * clean,
                 qPrintable(QString("%1 of %2 records\n").arg(after).arg(clean) + text(rig)));
        QCOMPARE(rig.lost().size(), bad.absent);
    }

    void saysToEightLdbsWhatItAlwaysSaid_data()
    {
        // "digest": of every transmission and its moment, as they were when each LDB was asked for
        // its identity in each round, however long that was
        const Table<LineKind, int, QByteArray> row("kind", "line", "digest");
        const int worst = static_cast<int>(badLines().size()) - 1;
        row("clean", LineKind::FullDuplex, -1, "4e412d08194d8bc50912c264bafd4d0805c5b1bc");
        row("bad, half duplex", LineKind::HalfDuplex, worst,
            "afc5b78121dabd0f1acf1c268639298be6984680");
        if (trials(0, 1) == 0) {
            return;
        }
        row("bad, full duplex", LineKind::FullDuplex, worst,
            "37ccce4321b1c2e432ccde88e90d3e4619159c8d");
        row("bad, queue", LineKind::QueuingConverter, worst,
            "da5c90d40bd9b2022b71645bab963806b702cf3e");
        row("late", LineKind::FullDuplex, 5, "09ce311b4495a5aeb242246b9df7cd7e1d22dba5");
        row("lossy", LineKind::FullDuplex, 2, "a73e70aa48df9f3fcce7484cc5923cff7e53af30");
    }

    void saysToEightLdbsWhatItAlwaysSaid()
    {
        QFETCH(LineKind, kind);
        QFETCH(int, line);
        LineRig::Setup setup;
        setup.kind = kind;
        LineRig rig(setup);
        rig.scan();
        if (line >= 0) {
            badLines()[static_cast<std::size_t>(line)].begin(rig);
        }
        rig.queueByChance(20 * kSecond);
        rig.run(60 * kMinute);
        QTEST(rig.wireDigest().toHex(), "digest");
    }

    void scansOnALineThatLoses()
    {
        Adversaries losses;
        losses.lostRequests = losses.lostAnswers = 2;
        int missing = 0;
        for (quint64 seed = 1; seed <= 12; ++seed) {
            LineRig::Setup setup;
            setup.seed = seed;
            LineRig rig(setup);
            rig.line().setAdversaries(losses, 0);
            rig.scan();
            rig.run(3 * kMinute);
            missing += static_cast<int>(setup.addresses.size()) - rig.found().size();
            QVERIFY2(rig.tally().wrong == 0, qPrintable(text(rig)));
            QCOMPARE(rig.tally().losses, 0);
        }
        // One probe an address finds 92 of these 96.
        QVERIFY2(missing <= 1, qPrintable(QString::number(missing)));
    }

    void tellsALossInTime()
    {
        LineRig rig({});
        rig.scan();
        rig.run(kMinute);
        const qint64 gone = rig.now();
        rig.boards().setPresent(0x2B, false);
        QVERIFY(rig.runUntil([&] { return rig.lost().contains("2B"); }, 20 * kSecond));
        // Four questions, each sent twice, and the round between the second and the third.
        QVERIFY2(rig.now() - gone <= 8 * 1560000 + 2 * 1600000,
                 qPrintable(QString::number(rig.now() - gone)));
        rig.run(20 * kSecond);
        const qint64 back = rig.now();
        rig.boards().setPresent(0x2B, true);
        QVERIFY(rig.runUntil([&] { return !rig.lost().contains("2B"); }, 20 * kSecond));
        QVERIFY2(rig.now() - back <= 1600000 + 240000,
                 qPrintable(QString::number(rig.now() - back)));
        QCOMPARE(rig.tally().losses, 1);
        QCOMPARE(rig.tally().falseLosses, 0);
    }

    void overlooksNothingThatTheHostHandsOverLate()
    {
        // Adapters that collect bytes, and a host that is held up.
        for (const int together : {8, 16, 64}) {
            LineRig::Setup setup;
            setup.together = together;
            LineRig rig(setup);
            rig.scan();
            badLines().back().begin(rig);
            rig.run(10 * kMinute);
            QVERIFY2(rig.tally().wrong == 0 && rig.tally().falseLosses == 0, qPrintable(text(rig)));
            QVERIFY(rig.tally().records > 300);
        }
    }

    void learnsTheStepsOfAnAdapterThatTicks()
    {
        for (const int tick : {4, 16}) {
            LineRig::Setup setup;
            setup.adapterTick = tick * kMillisecond;
            LineRig rig(setup);
            rig.keepEvents();
            rig.scan();
            const int atFirst = recordsIn(rig, 10 * kMinute);
            rig.run(10 * kMinute);
            rig.takeEvents();
            const int then = recordsIn(rig, 10 * kMinute);
            for (const Event& told : rig.takeEvents()) {
                const auto* line = std::get_if<event::Diagnostic>(&told);
                QVERIFY2(!line, line ? qPrintable(line->text + "\n" + text(rig)) : "");
            }
            QVERIFY2(atFirst > 0.9 * then, qPrintable(QString("%1 of %2").arg(atFirst).arg(then)));
        }
    }
};

REGISTER_TEST(TestBadLine, QCoreApplication)
#include "tst_badline.moc"

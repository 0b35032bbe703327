#include "tests/support/testprogram.h"
#include "tracking/plot/plothistory.h"
#include "tracking/plot/recentsamples.h"

namespace {

/// As text, "-" where there is no value.
QString joined(const double* values, int count)
{
    QStringList texts;
    for (int i = 0; i < count; ++i) {
        texts << (std::isnan(values[i]) ? "-" : QString::number(values[i]));
    }
    return texts.join(' ');
}

QString valuesOf(const PlotHistory& history, int curve)
{
    return joined(history.values(curve), history.size());
}

QString timesOf(const PlotHistory& history)
{
    return joined(history.times(), history.size());
}

PlotSample sample(double time, double value)
{
    PlotSample made = PlotSample::gap(time);
    made.values[PlotSample::PrimaryVoltage] = value;
    return made;
}

/// The times, a "-" before each gap.
QString textOf(const std::vector<PlotSample>& samples)
{
    QStringList texts;
    for (const PlotSample& one : samples) {
        texts << (one.isGap() ? "-" : "") + QString::number(one.time);
    }
    return texts.join(' ');
}

struct Added
{
    int curve;
    double value;
    double time;
};

} // namespace

Q_DECLARE_METATYPE(QVector<Added>)
Q_DECLARE_METATYPE(std::vector<double>)

class TestPlotHistory : public TestCase
{
    Q_OBJECT
private slots:
    void keepsCurvesBesideOneTimeAxis_data()
    {
        const Table<QVector<Added>, int, QString, QString, QString> row("added", "dropped", "times",
                                                                        "first", "second");
        row("values of one stamp share it", {{0, 1, 10}, {1, 2, 10}, {0, 3, 20}, {1, 4, 20}}, 0,
            "10 20", "1 3", "2 4");
        row("a curve left out has a gap",
            {{0, 1, 10}, {1, 2, 10}, {0, 3, 20}, {0, 5, 30}, {1, 6, 30}}, 0, "10 20 30", "1 3 5",
            "2 - 6");
        row("a second value replaces the first", {{0, 1, 10}, {0, 2, 10}}, 0, "10", "2", "-");
        row("one curve after the other",
            {{0, 1, 10}, {0, 2, 20}, {0, 3, 30}, {1, 7, 10}, {1, 8, 30}}, 0, "10 20 30", "1 2 3",
            "7 - 8");
        row("a late curve with stamps of its own", {{0, 1, 10}, {0, 3, 30}, {1, 7, 5}, {1, 8, 20}},
            0, "5 10 20 30", "- 1 - 3", "7 - 8 -");
        row("clock set back between stamps",
            {{0, 1, 10}, {1, 2, 10}, {0, 3, 20}, {1, 4, 20}, {0, 5, 30}, {0, 6, 15}, {1, 7, 15}}, 2,
            "10 15", "1 6", "2 7");
        row("clock set back, by chance to a known stamp first",
            {{0, 1, 10}, {0, 2, 20}, {0, 3, 30}, {0, 9, 20}, {0, 8, 21}}, 1, "10 20 21", "1 9 8",
            "- - -");
        row("clock set back before all", {{0, 1, 10}, {0, 2, 20}, {0, 9, 5}, {0, 8, 6}}, 2, "5 6",
            "9 8", "- -");
    }

    void keepsCurvesBesideOneTimeAxis()
    {
        QFETCH(QVector<Added>, added);
        PlotHistory history;
        history.addCurve(0);
        history.addCurve(1);
        int dropped = 0;
        for (const Added& one : added) {
            dropped += history.add(one.curve, one.value, one.time);
        }
        QTEST(dropped, "dropped");
        QTEST(timesOf(history), "times");
        QTEST(valuesOf(history, 0), "first");
        QTEST(valuesOf(history, 1), "second");
    }

    void putsThePastBefore_data()
    {
        const Table<int, QVector<double>, std::vector<double>, QString, QString> row(
            "limit", "held", "past", "times", "values");
        row("into an empty history", 9, {}, {1, 2, 3}, "1 2 3", "10 20 30");
        row("before what is held", 9, {3, 4}, {1, 2}, "1 2 3 4", "10 20 0 0");
        row("what is held already is not taken twice", 9, {3, 4}, {1, 2, 3, 4, 5}, "1 2 3 4",
            "10 20 0 0");
        row("the newest of what there is room for", 4, {3, 4}, {-1, 0, 1, 2}, "1 2 3 4",
            "10 20 0 0");
        row("no room", 2, {3, 4, 5}, {1, 2}, "3 4 5", "0 0 0");
        row("nothing", 9, {3}, {}, "3", "0");
    }

    void putsThePastBefore()
    {
        QFETCH(int, limit);
        QFETCH(QVector<double>, held);
        QFETCH(std::vector<double>, past);
        PlotHistory history;
        history.setLimit(limit);
        history.addCurve(0);
        history.addCurve(1);
        for (const double time : held) {
            history.add(0, 0.0, time);
        }
        std::vector<double> values;
        values.reserve(past.size());
        for (const double time : past) {
            values.push_back(10.0 * time);
        }
        history.prepend(past, {{0, values}});
        QTEST(timesOf(history), "times");
        QTEST(valuesOf(history, 0), "values");
        QVERIFY(!valuesOf(history, 1).contains(QRegularExpression("[0-9]")));
        // It goes on as if all had been told one by one.
        const double next = history.newestTime() + 1.0;
        QCOMPARE(history.add(0, 7.0, next), 0);
        QCOMPARE(history.newestTime(), next);
    }

    void keepsWhatARunTold()
    {
        RecentSamples recent(5);
        QVERIFY(!recent.latest("0A"));
        recent.add("0A", sample(10, 1));
        recent.add("0B", sample(10, 2));
        recent.add("0A", sample(20, 3));
        QCOMPARE(textOf(recent.of("0A")), "10 20");
        QCOMPARE(recent.of("0B").front().values[PlotSample::PrimaryVoltage], 2.0);
        QVERIFY(recent.of("0a").empty());
        // The clock was set back.
        recent.add("0A", sample(15, 4));
        QCOMPARE(textOf(recent.of("0A")), "10 15");
        QCOMPARE(*recent.latest("0A"), 15.0);
        // The oldest goes first, of whichever LDB.
        recent.add("0B", sample(20, 5));
        recent.add("0B", sample(30, 6));
        QCOMPARE(textOf(recent.of("0A")), "15");
        recent.clear();
        QVERIFY(recent.of("0B").empty());
    }

    void partsWhatIsTooFarApart()
    {
        const std::vector<PlotSample> samples = {sample(10, 1), sample(20, 1), sample(40, 1),
                                                 PlotSample::gap(41), sample(99, 1)};
        QCOMPARE(textOf(PlotSample::withGaps(samples, 15)), "10 20 -21 40 -41 -42 99");
    }

    void staysWithinTheLimit()
    {
        // Enough for the memory behind the history to be given back several times.
        constexpr int kLimit = 1000;
        constexpr int kStamps = 5003;
        PlotHistory history;
        history.setLimit(kLimit);
        history.addCurve(0);
        history.addCurve(1);
        for (int i = 1; i <= kStamps; ++i) {
            history.add(0, i, i);
            history.add(1, -i, i);
            // The oldest goes when more than the limit are held: one more than the limit stays.
            QCOMPARE(history.size(), qMin(i, kLimit + 1));
        }
        QCOMPARE(history.newestTime(), double(kStamps));
        for (int i = 0; i < history.size(); ++i) {
            const double time = kStamps - kLimit + i;
            QCOMPARE(history.times()[i], time);
            QCOMPARE(history.values(0)[i], time);
            QCOMPARE(history.values(1)[i], -time);
        }
    }
};

REGISTER_TEST(TestPlotHistory, QCoreApplication)
#include "tst_plothistory.moc"

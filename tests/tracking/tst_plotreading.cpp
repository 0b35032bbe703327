#include "tests/support/testprogram.h"
#include "tracking/plot/plotreading.h"

namespace {

/// From text: "time:value" of curve 0, "time:-" for a gap; curve 1 has ten times the value.
PlotHistory historyOf(const QString& text)
{
    PlotHistory history;
    history.addCurve(0);
    history.addCurve(1);
    for (const QString& word : text.split(' ')) {
        const QStringList parts = word.split(':');
        const double time = parts.at(0).toDouble();
        const double value = parts.at(1) == "-" ? qQNaN() : parts.at(1).toDouble();
        history.add(0, value, time);
        history.add(1, 10.0 * value, time);
    }
    return history;
}

/// As "time: first curve's range, nearest; second curve's nearest".
QString textOf(const PlotReading& reading)
{
    if (reading.values.empty()) {
        return QString("%1: nothing").arg(reading.time);
    }
    return QString("%1: %2, %3; %4")
        .arg(reading.time)
        .arg(plotreading::text(reading.values.at(0)))
        .arg(reading.nearest.at(0))
        .arg(reading.nearest.at(1));
}

} // namespace

class TestPlotReading : public TestCase
{
    Q_OBJECT
private slots:
    void readsWhatLiesThere_data()
    {
        const QString history = "100:1 200:3 201:- 900:5 910:9 920:6 1000:7";
        const Table<QString, double, double, QString> row("history", "time", "reach", "reading");
        row("at a record", history, 100, 0, "100: 1.0, 1; 10");
        row("on the line, nearer to the first", history, 149, 5, "100: 1.0, 1; 10");
        row("on the line, nearer to the second", history, 151, 5, "200: 3.0, 3; 30");
        row("in a gap", history, 500, 5, "500: nothing");
        row("in a gap, beside its end", history, 899, 5, "900: 5.0, 5; 50");
        row("in a gap, beside its begin", history, 203, 5, "200: 3.0, 3; 30");
        row("many together: the spike is read", history, 908, 20, "910: 5.0 to 9.0, 9; 90");
        row("before all", history, 50, 5, "50: nothing");
        row("after all", history, 2000, 5, "2000: nothing");
    }

    void readsWhatLiesThere()
    {
        QFETCH(QString, history);
        QFETCH(double, time);
        QFETCH(double, reach);
        QTEST(textOf(plotreading::at(historyOf(history), time, reach)), "reading");
    }

    void stepsFromRecordToRecord()
    {
        const PlotHistory history = historyOf("100:1 200:3 201:- 900:5");
        QCOMPARE(plotreading::next(history, 100), 200.0);
        QCOMPARE(plotreading::next(history, 200), 900.0); // a gap is none
        QCOMPARE(plotreading::next(history, 900), 900.0);
        QCOMPARE(plotreading::previous(history, 900), 200.0);
        QCOMPARE(plotreading::previous(history, 100), 100.0);
    }

    void writesValuesAndDifferences_data()
    {
        const Table<double, QString, QString> row("value", "text", "difference");
        row("one decimal", 24.5, "24.5", "+24.5");
        row("two", 12.34, "12.34", "+12.34");
        row("whole", 3, "3.0", "+3.0");
        row("negative", -0.25, "-0.25", "-0.25");
        row("none", 0, "0.0", "0.0");
        row("rounds to none", -0.001, "0.0", "0.0");
    }

    void writesValuesAndDifferences()
    {
        QFETCH(double, value);
        QTEST(plotreading::text(value), "text");
        QTEST(plotreading::differenceText(value), "difference");
    }

    void writesDurations()
    {
        QCOMPARE(plotreading::durationText(83400), "+0:01:23.400");
        QCOMPARE(plotreading::durationText(-90061001), "-25:01:01.001");
    }
};

REGISTER_TEST(TestPlotReading, QCoreApplication)
#include "tst_plotreading.moc"

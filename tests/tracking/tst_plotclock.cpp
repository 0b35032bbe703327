#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tracking/plot/clockscale.h"

namespace {

// 2024-05-06 14:03:20.5 UTC.
constexpr double kNoon = 1715004200500.0;
constexpr double kMinute = 60000.0;

QStringList labelsOf(double from, double to, double step, int utcOffset)
{
    ClockScaleEngine engine;
    engine.setUtcOffset(utcOffset);
    ClockScaleDraw draw;
    draw.setUtcOffset(utcOffset);
    draw.setScaleDiv(engine.divideScale(from, to, 6, 5, step));
    QStringList labels;
    for (const double tick : draw.scaleDiv().ticks(QwtScaleDiv::MajorTick)) {
        labels << draw.label(tick).text();
    }
    return labels;
}

} // namespace

class TestPlotClock : public TestCase
{
    Q_OBJECT
private slots:
    void dividesAtWholeSteps_data()
    {
        const Table<double, double, int, QString> row("window", "step", "utcOffset", "labels");
        row("minutes", 4 * kMinute, kMinute, 0, "14:00 14:01 14:02 14:03");
        row("east", 4 * kMinute, kMinute, 7200, "16:00 16:01 16:02 16:03");
        row("half an hour off", 50 * kMinute, 30 * kMinute, 19800, "19:00 19:30");
        row("hours on a half-hour clock", 120 * kMinute, 60 * kMinute, 19800, "18:00 19:00");
        row("seconds", 60000.0, 30000.0, 0, "14:02:30 14:03:00");
        // Without a step the axis finds its own, as when it is zoomed.
        row("own step: milliseconds", 300.0, 0.0, 0,
            "14:03:20.200 14:03:20.250 14:03:20.300 14:03:20.350 14:03:20.400 14:03:20.450 "
            "14:03:20.500");
        row("own step: seconds", 30000.0, 0.0, 0, "14:03:00 14:03:10 14:03:20");
        row("own step: hours", 600 * kMinute, 0.0, 3600, "06:00 08:00 10:00 12:00 14:00");
        row("own step: days", 20000 * kMinute, 0.0, 3600,
            "2024-04-23 2024-04-26 2024-04-29 2024-05-02 2024-05-05");
    }

    void dividesAtWholeSteps()
    {
        QFETCH(double, window);
        QFETCH(double, step);
        QFETCH(int, utcOffset);
        QTEST(labelsOf(kNoon - window, kNoon, step, utcOffset).join(' '), "labels");
    }

    void keepsLabelsApart()
    {
        QCOMPARE(ClockScaleDraw::stepsPerLabel(48.0, 40.0), 1);
        QCOMPARE(ClockScaleDraw::stepsPerLabel(47.9, 40.0), 2);
        QCOMPARE(ClockScaleDraw::stepsPerLabel(10.0, 40.0), 5);
        QCOMPARE(ClockScaleDraw::stepsPerLabel(0.1, 40.0), 30); // no room at all
    }
};

REGISTER_TEST(TestPlotClock, QApplication)
#include "tst_plotclock.moc"

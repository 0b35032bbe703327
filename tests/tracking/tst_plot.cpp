#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tests/tracking/plotinspection.h"
#include "tracking/plot/plot.h"

#include <QtTest>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_draw.h>

#include <cmath>

using namespace plotinspection;

namespace {

constexpr double kStart = 1.7e12; // ms since the epoch
constexpr double kSecond = 1000.0;
constexpr double kWindow = 600000.0;
constexpr double kMarker = -40000.0;

QwtInterval shown(const Plot& plot, int axis = QwtPlot::xBottom)
{
    QCoreApplication::processEvents();
    return chartOf(plot)->axisInterval(axis);
}

/// A plot on the screen with one red curve, "c", on its left axis.
class ShownPlot : public Plot
{
public:
    ShownPlot()
    {
        addCurve(QStringLiteral("c"), QStringLiteral("red"), QwtPlot::yLeft);
        plotinspection::show(*this);
    }
};

/// One value a second from `kStart` on.
void addSeconds(Plot& plot, int curve, int count, double value = 50.0, int from = 0)
{
    for (int i = from; i < from + count; ++i) {
        QVERIFY(plot.addData(curve, value, kStart + i * kSecond));
    }
}

} // namespace

class TestPlot : public TestCase
{
    Q_OBJECT
private slots:
    void initTestCase();
    void numbersItsCurves();
    void refusesWhatItCannotPlace();
    void skipsTheStart();
    void rollsWithTheNewestTime();
    void followsAClockSetBack();
    void labelsShowTheLocalClock();
    void scalesTheYAxes();
    void autoScaleSeesTheShownMeasurementsOnly();
    void zoomHoldsTheView();
    void zoomStaysWithinLimits();
    void anEmptyChartHoldsNothing();
    void legendTogglesCurves();
    void repaintsOnceARecord();
    void drawsCurvesWithGaps();
};

void TestPlot::initTestCase()
{
    // A zone with summer time, off UTC in both halves of the year.
    qputenv("TZ", "Europe/Brussels");
}

void TestPlot::numbersItsCurves()
{
    Plot plot;
    for (int i = 0; i < 10; ++i) {
        QCOMPARE(plot.addCurve(QString::number(i), QStringLiteral("red"), QwtPlot::yLeft), i);
    }
    const auto add = [&plot](const char* name) {
        return plot.addCurve(QString::fromLatin1(name), QStringLiteral("lime"), QwtPlot::yRight);
    };
    QCOMPARE(add("eleventh"), -1);
    QCOMPARE(add("4"), 4);
    QVERIFY(plot.removeCurve(7));
    QVERIFY(plot.removeCurve(2));
    QVERIFY(!plot.removeCurve(2));
    QCOMPARE(add("7"), 2);
    QCOMPARE(add("2"), 7);
    QCOMPARE(curveOf(plot, "2")->yAxis(), int(QwtPlot::yRight));
    QCOMPARE(curveOf(plot, "2")->pen().color(), QColor(Qt::green));

    QVERIFY(plot.removeCurve(0));
    const ExpectWarning warning("unknown colour nosuch");
    QCOMPARE(plot.addCurve(QStringLiteral("x"), QStringLiteral("nosuch"), QwtPlot::yLeft), 0);
}

void TestPlot::refusesWhatItCannotPlace()
{
    ShownPlot plot;
    const QwtInterval before = shown(plot);
    // Times beyond the calendar's both ends, and no numbers.
    for (const double time : {0.0, 1.0, -kStart, qQNaN(), qInf(), 1e300}) {
        QVERIFY2(!plot.addData(0, 1.0, time), qPrintable(QString::number(time)));
    }
    for (const int unknownCurve : {1, -1}) {
        QVERIFY(!plot.addData(unknownCurve, 1.0, kStart));
    }
    QCOMPARE(curveOf(plot, "c")->dataSize(), size_t(0));
    QCOMPARE(shown(plot), before);
    QVERIFY(plot.addData(0, 1.0, 1.5));
}

void TestPlot::skipsTheStart()
{
    ShownPlot plot;
    const QwtPlotCurve* const curve = curveOf(plot, "c");
    plot.setSkipData(5000.0);
    QCOMPARE(curve->dataSize(), size_t(0));
    addSeconds(plot, 0, 10);
    // What is strictly later than the rounded time is shown, and the newest always.
    const std::pair<double, int> firstShown[] = {{0.0, 1}, {2999.6, 4}, {3000.0, 4}, {9000.0, 9}};
    for (const auto& [skip, first] : firstShown) {
        plot.setSkipData(skip);
        QCOMPARE(curve->dataSize(), size_t(10 - first));
        QCOMPARE(curve->sample(0).x(), kStart + first * kSecond);
    }
}

void TestPlot::rollsWithTheNewestTime()
{
    ShownPlot plot;
    QVERIFY(plot.addData(0, 1.0, kStart));
    QCOMPARE(shown(plot), QwtInterval(kStart - kWindow, kStart));
    QCOMPARE(chartOf(plot)->axisStepSize(QwtPlot::xBottom), 60000.0);
    QVERIFY(plot.addData(0, 1.0, kStart + kSecond));
    QCOMPARE(shown(plot), QwtInterval(kStart + kSecond - kWindow, kStart + kSecond));

    plot.setMaxWindowTime(20000);
    plot.setWindowIntervalTime(5000);
    QCOMPARE(shown(plot), QwtInterval(kStart + kSecond - 20000.0, kStart + kSecond));
    const QList<double> ticks =
        chartOf(plot)->axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick);
    QCOMPARE(ticks.size(), 4);
    QCOMPARE(ticks.at(1) - ticks.at(0), 5000.0);

    addSeconds(plot, 0, 50, 1.0, 2);
    plot.setMaxNumberOfSamples(10);
    addSeconds(plot, 0, 1, 1.0, 52);
    QCoreApplication::processEvents();
    // Eleven are held, and the start of them is not shown.
    QCOMPARE(curveOf(plot, "c")->dataSize(), size_t(10));
}

void TestPlot::followsAClockSetBack()
{
    ShownPlot plot;
    addSeconds(plot, 0, 100);
    const ExpectWarning warning("clock was set back, 40 later samples");
    QVERIFY(plot.addData(0, 1.0, kStart + 59.5 * kSecond));
    QCOMPARE(shown(plot).maxValue(), kStart + 59.5 * kSecond);
}

void TestPlot::labelsShowTheLocalClock()
{
    ShownPlot plot;
    // Summer and winter, as the two differ where clocks are changed.
    for (const QDate& date : {QDate(2024, 7, 1), QDate(2024, 12, 1)}) {
        const QDateTime time(date, QTime(14, 3));
        QVERIFY(plot.addData(0, 1.0, static_cast<double>(time.toMSecsSinceEpoch())));
        QCoreApplication::processEvents();
        QCOMPARE(chartOf(plot)
                     ->axisScaleDraw(QwtPlot::xBottom)
                     ->label(static_cast<double>(time.toMSecsSinceEpoch()))
                     .text(),
                 QStringLiteral("14:03"));
    }
}

void TestPlot::scalesTheYAxes()
{
    Plot plot;
    plot.addCurve(QStringLiteral("c"), QStringLiteral("red"), QwtPlot::yRight);
    show(plot);
    plot.setAxisScale(QwtPlot::yRight, -30.0, 140.0, 30.0);
    QCOMPARE(shown(plot, QwtPlot::yRight), QwtInterval(-30.0, 140.0));
    plot.setAxisScale(QwtPlot::yRight, true);
    QCOMPARE(shown(plot, QwtPlot::yRight), QwtInterval(-30.0, 140.0)); // nothing to scale by yet
    addSeconds(plot, 0, 2, 1000.0);
    QVERIFY(shown(plot, QwtPlot::yRight).contains(1000.0));
    plot.clear();
    QCOMPARE(shown(plot, QwtPlot::yRight), QwtInterval(-30.0, 140.0));
    addSeconds(plot, 0, 2, 1000.0);
    plot.setAxisScale(QwtPlot::yRight, false);
    QCOMPARE(shown(plot, QwtPlot::yRight), QwtInterval(-30.0, 140.0));
    plot.setAxisScale(QwtPlot::yLeft, false);
    QCOMPARE(shown(plot, QwtPlot::yLeft), QwtInterval(0.0, 100.0));
    const ExpectWarning warning("only the Y axes");
    plot.setAxisScale(QwtPlot::xBottom, 0.0, 1.0, 1.0);
    QCOMPARE(shown(plot).maxValue(), kStart + kSecond);

    plot.setAxisTitleVisible(QwtPlot::yLeft, false);
    plot.setAxisTitle(QwtPlot::yLeft, QStringLiteral("Volt"));
    QCOMPARE(chartOf(plot)->axisTitle(QwtPlot::yLeft).text(), QString());
    plot.setAxisTitleVisible(QwtPlot::yLeft, true);
    QCOMPARE(chartOf(plot)->axisTitle(QwtPlot::yLeft).text(), QStringLiteral("Volt"));
}

void TestPlot::autoScaleSeesTheShownMeasurementsOnly()
{
    Plot plot;
    plot.addCurve(QStringLiteral("a"), QStringLiteral("red"), QwtPlot::yLeft);
    plot.addCurve(QStringLiteral("b"), QStringLiteral("lime"), QwtPlot::yLeft);
    plot.setLegendVisible(true);
    show(plot);
    // Rolled out of the view.
    QVERIFY(plot.addData(0, 9000.0, kStart - 3 * kWindow));
    QVERIFY(plot.addData(0, 9000.0, kStart - 2 * kWindow));
    addSeconds(plot, 0, 10, 20.0);
    addSeconds(plot, 1, 10, 300.0);
    QVERIFY(plot.addData(0, kMarker, kStart + 4 * kSecond));
    QVERIFY(plot.addData(1, qQNaN(), kStart + 10 * kSecond));
    const QwtInterval both = shown(plot, QwtPlot::yLeft);
    QVERIFY(both.minValue() >= 0.0 && both.minValue() <= 20.0);
    QVERIFY(both.maxValue() >= 300.0 && both.maxValue() <= 400.0);
    // The marker is kept all the same.
    QCOMPARE(curveOf(plot, "a")->sample(5), QPointF(kStart + 4 * kSecond, kMarker));

    QTest::mouseClick(legendItemOf(plot, "b"), Qt::LeftButton);
    QVERIFY(shown(plot, QwtPlot::yLeft).maxValue() < 100.0);
}

void TestPlot::zoomHoldsTheView()
{
    ShownPlot plot;
    addSeconds(plot, 0, 100);
    const QwtInterval rolling = shown(plot);
    turnWheel(plot, 3);
    drag(plot, {100, 0});
    QCOMPARE(shown(plot), rolling);
    const QwtInterval autoScaled = shown(plot, QwtPlot::yLeft);
    plot.setZoom(true);
    // Held from the switch on: neither time nor an automatic scale moves.
    addSeconds(plot, 0, 50, 9000.0, 100);
    QCOMPARE(shown(plot), rolling);
    QCOMPARE(shown(plot, QwtPlot::yLeft), autoScaled);

    turnWheel(plot, 3);
    const QwtInterval zoomed = shown(plot);
    QVERIFY(zoomed.width() < 0.8 * rolling.width());
    QVERIFY(shown(plot, QwtPlot::yLeft).width() < 0.8 * autoScaled.width());
    drag(plot, {100, 0});
    const QwtInterval dragged = shown(plot);
    QVERIFY(dragged.maxValue() < zoomed.maxValue());
    QVERIFY(std::abs(dragged.width() - zoomed.width()) < 1.0);

    addSeconds(plot, 0, 50, 9000.0, 150);
    QCOMPARE(shown(plot), dragged);
    QCOMPARE(curveOf(plot, "c")->maxXValue(), kStart + 199 * kSecond);

    plot.setZoom(false);
    const double newest = kStart + 199 * kSecond;
    turnWheel(plot, 3);
    QCOMPARE(shown(plot), QwtInterval(newest - kWindow, newest));
    QVERIFY(shown(plot, QwtPlot::yLeft).contains(9000.0));
}

void TestPlot::zoomStaysWithinLimits()
{
    ShownPlot plot;
    plot.setAxisScale(QwtPlot::yLeft, 0.0, 32.0, 10.0);
    addSeconds(plot, 0, 100);
    plot.setZoom(true);
    turnWheel(plot, 300);
    QVERIFY(std::abs(shown(plot).width() - kWindow / 1000.0) < 1.0);
    QVERIFY(std::abs(shown(plot, QwtPlot::yLeft).width() - 0.032) < 1e-6);
    turnWheel(plot, -300);
    QVERIFY(std::abs(shown(plot).width() - kWindow * 1000.0) < 1.0);
    QVERIFY(std::abs(shown(plot, QwtPlot::yLeft).width() - 32000.0) < 1e-3);
}

void TestPlot::anEmptyChartHoldsNothing()
{
    ShownPlot plot;
    plot.setAxisScale(QwtPlot::yLeft, 0.0, 32.0, 10.0);
    addSeconds(plot, 0, 10);
    plot.setZoom(true);
    turnWheel(plot, 5);
    plot.clear();
    QCOMPARE(shown(plot, QwtPlot::yLeft), QwtInterval(0.0, 32.0));
    // The new samples come far outside the former view; they are seen, until the user zooms.
    addSeconds(plot, 0, 1, 1.0, 100000);
    QCOMPARE(shown(plot).maxValue(), kStart + 100000 * kSecond);
    turnWheel(plot, 1);
    const QwtInterval zoomed = shown(plot);
    addSeconds(plot, 0, 1, 1.0, 100001);
    QCOMPARE(shown(plot), zoomed);
}

void TestPlot::legendTogglesCurves()
{
    Plot plot;
    plot.addCurve(QStringLiteral("a"), QStringLiteral("red"), QwtPlot::yLeft);
    plot.setLegendVisible(true);
    plot.addCurve(QStringLiteral("b"), QStringLiteral("red"), QwtPlot::yLeft);
    show(plot);
    QVERIFY(legendItemOf(plot, "a")->isChecked());

    QTest::mouseClick(legendItemOf(plot, "b"), Qt::LeftButton);
    QVERIFY(!curveOf(plot, "b")->isVisible());
    QVERIFY(curveOf(plot, "a")->isVisible());
    QVERIFY(!legendItemOf(plot, "b")->isChecked());

    // A new legend shows what is hidden, and can bring it back.
    plot.setLegendVisible(false);
    QVERIFY(legendItemOf(plot, "b") == nullptr);
    plot.setLegendVisible(true);
    QVERIFY(!legendItemOf(plot, "b")->isChecked());
    QVERIFY(legendItemOf(plot, "a")->isChecked());
    QCoreApplication::processEvents();
    QTest::mouseClick(legendItemOf(plot, "b"), Qt::LeftButton);
    QVERIFY(curveOf(plot, "b")->isVisible());
}

void TestPlot::repaintsOnceARecord()
{
    Plot plot;
    for (const char* name : {"a", "b", "c", "d"}) {
        plot.addCurve(QString::fromLatin1(name), QStringLiteral("red"), QwtPlot::yLeft);
    }
    show(plot);
    EventCounter paints(chartOf(plot)->canvas(), QEvent::Paint);
    EventCounter redraws(&plot, QEvent::MetaCall);
    const auto addRecord = [&plot](int second) {
        for (int curve = 0; curve < 4; ++curve) {
            addSeconds(plot, curve, 1, 50.0, second);
        }
    };
    addRecord(0);
    paints.taken(); // the axes find their room with the first record
    redraws.taken();
    addRecord(1);
    QCOMPARE(paints.taken(), 1);
    QCOMPARE(redraws.taken(), 1);
    QCOMPARE(paints.taken(), 0);

    const QwtInterval before = shown(plot);
    plot.hide();
    paints.taken();
    addRecord(2);
    QCOMPARE(paints.taken(), 0);
    QCOMPARE(shown(plot), before);
    plot.show();
    QVERIFY(paints.taken() > 0);
    QCOMPARE(shown(plot).maxValue(), kStart + 2 * kSecond);
}

void TestPlot::drawsCurvesWithGaps()
{
    Plot plot;
    plot.addCurve(QStringLiteral("a"), QStringLiteral("red"), QwtPlot::yLeft);
    plot.addCurve(QStringLiteral("b"), QStringLiteral("lime"), QwtPlot::yLeft);
    plot.setAxisScale(QwtPlot::yLeft, 0.0, 100.0, 20.0);
    show(plot);
    // The red curve misses the middle third by the marker, the lime one by having no values.
    for (int i = 0; i <= 600; ++i) {
        const bool isMiddle = i > 200 && i < 400;
        QVERIFY(plot.addData(0, isMiddle ? kMarker : 60.0, kStart + i * kSecond));
        if (!isMiddle) {
            QVERIFY(plot.addData(1, 30.0, kStart + i * kSecond));
        }
    }
    QCoreApplication::processEvents();
    const int width = chartOf(plot)->canvas()->width();
    for (const QColor& color : {QColor(Qt::red), QColor(Qt::green)}) {
        QVERIFY(columnShows(plot, width / 6, color));
        QVERIFY(!columnShows(plot, width / 2, color));
        QVERIFY(columnShows(plot, width * 5 / 6, color));
    }
    // A value alone between gaps is seen, too.
    QVERIFY(plot.addData(1, 30.0, kStart + 600 * kSecond + kWindow / 2.0));
    QVERIFY(plot.addData(0, 60.0, kStart + 600 * kSecond + kWindow));
    QCoreApplication::processEvents();
    QVERIFY(!columnShows(plot, width / 2, Qt::red));
    QVERIFY(columnShows(plot, width - 1, Qt::red));
}

REGISTER_TEST(TestPlot, QApplication)

#include "tst_plot.moc"

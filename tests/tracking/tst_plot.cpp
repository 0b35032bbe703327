#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tests/tracking/plotinspection.h"
#include "tracking/plot/plot.h"

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
        addCurve("c", "red", QwtPlot::yLeft);
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
    void initTestCase()
    {
        // A zone with summer time, off UTC in both halves of the year.
        qputenv("TZ", "Europe/Brussels");
    }

    void skipsTheStart()
    {
        ShownPlot plot;
        const QwtPlotCurve* const curve = curveOf(plot, "c");
        plot.setSkipData(5000.0);
        QCOMPARE(curve->dataSize(), size_t(0));
        addSeconds(plot, 0, 10);
        // What is strictly later than the rounded time is shown, and the newest always.
        const std::pair<double, int> firstShown[] = {
            {0.0, 1}, {2999.6, 4}, {3000.0, 4}, {9000.0, 9}};
        for (const auto& [skip, first] : firstShown) {
            plot.setSkipData(skip);
            QCOMPARE(curve->dataSize(), size_t(10 - first));
            QCOMPARE(curve->sample(0).x(), kStart + first * kSecond);
        }
    }

    void rollsWithTheNewestTime()
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

    void labelsShowTheLocalClock()
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
                     "14:03");
        }
    }

    void scalesTheYAxes()
    {
        Plot plot;
        plot.addCurve("c", "red", QwtPlot::yRight);
        show(plot);
        plot.setAxisScale(QwtPlot::yRight, -30.0, 140.0, 30.0);
        QCOMPARE(shown(plot, QwtPlot::yRight), QwtInterval(-30.0, 140.0));
        plot.setAxisScale(QwtPlot::yRight, true);
        QCOMPARE(shown(plot, QwtPlot::yRight),
                 QwtInterval(-30.0, 140.0)); // nothing to scale by yet
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
        plot.setAxisTitle(QwtPlot::yLeft, "Volt");
        QCOMPARE(chartOf(plot)->axisTitle(QwtPlot::yLeft).text(), QString());
        plot.setAxisTitleVisible(QwtPlot::yLeft, true);
        QCOMPARE(chartOf(plot)->axisTitle(QwtPlot::yLeft).text(), "Volt");
    }

    void autoScaleSeesTheShownMeasurementsOnly()
    {
        Plot plot;
        plot.addCurve("a", "red", QwtPlot::yLeft);
        plot.addCurve("b", "lime", QwtPlot::yLeft);
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

    void zoomHoldsTheView()
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

    void legendTogglesCurves()
    {
        Plot plot;
        plot.addCurve("a", "red", QwtPlot::yLeft);
        plot.setLegendVisible(true);
        plot.addCurve("b", "red", QwtPlot::yLeft);
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
};

REGISTER_TEST(TestPlot, QApplication)

#include "tst_plot.moc"

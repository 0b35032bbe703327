#include "serial/ldb/generalinformation.h"
#include "tests/support/bracketingtranslator.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tests/tracking/plotinspection.h"
#include "tracking/plot/mainwindowplot.h"

#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>

using namespace plotinspection;

namespace {

const QDateTime kTime(QDate(2024, 5, 6), QTime(14, 3, 20, 123));

QList<QStringList> recordAt(const QDateTime& time, quint8 primaryShort = 0)
{
    LdbStatus status;
    status.primaryVoltage = 24500;
    status.primaryCurrent = 1234;
    status.secondaryVoltage = 22000;
    status.secondaryCurrent = static_cast<quint16>(qint16(-100));
    status.primaryPortShort = primaryShort;
    return generalinformation::buildRows("0A", "LDB", status,
                                         time.toString(generalinformation::kSecondsFormat),
                                         time.toString(generalinformation::kMillisecondsFormat));
}

/// The plot in its place, with the LDB 0A selected.
struct Bench
{
    Bench()
    {
        show(container);
        plot.setSelectedDevice("0A");
    }
    void add(const char* hexId, const QList<QStringList>& record = recordAt(kTime))
    {
        plot.processData(hexId, record);
    }
    int samples() const
    {
        QCoreApplication::processEvents();
        return static_cast<int>(curveOf(container, "VPri")->dataSize());
    }

    QWidget container;
    MainWindowPlot plot{&container, nullptr};
};

} // namespace

class TestPlotMainWindow : public TestCase
{
    Q_OBJECT
private slots:
    void curvesShowWhatTheirNamesSay_data()
    {
        // "values": VPri, VSec, IPri, ISec
        const Table<QByteArray, QList<QStringList>, QList<double>> row("tuning", "record",
                                                                       "values");
        row("measurements", {}, recordAt(kTime), {24.5, 22.0, 12.34, -1.0});
        row("rows in their order", "[MainWindowPlot]\nROWS_IN_ORDER=1\n", recordAt(kTime),
            {24.5, 12.34, 22.0, -1.0});
        row("primary port shorted", {}, recordAt(kTime, 1), {-40000.0, 22.0, -40000.0, -1.0});
        QList<QStringList> broken = recordAt(kTime);
        broken[4][1] = "n/a";
        broken[7] = QStringList{"only text"};
        row("no numbers", {}, broken, {0.0, 22.0, 12.34, 0.0});
    }

    void curvesShowWhatTheirNamesSay()
    {
        QFETCH(QByteArray, tuning);
        QFETCH(QList<QStringList>, record);
        QFETCH(QList<double>, values);
        const Sandbox sandbox;
        sandbox.writeTuning(tuning);
        Bench bench;
        bench.add("0A", record);
        QCOMPARE(bench.samples(), 1);
        const char* const names[] = {"VPri", "VSec", "IPri", "ISec"};
        for (int i = 0; i < values.size(); ++i) {
            const QwtPlotCurve* const curve = curveOf(bench.container, names[i]);
            QCOMPARE(curve->sample(0), QPointF(double(kTime.toMSecsSinceEpoch()), values.at(i)));
            QCOMPARE(curve->yAxis(), int(i < 2 ? QwtPlot::yLeft : QwtPlot::yRight));
        }
    }

    void startsAfreshForAnotherDevice()
    {
        Bench bench;
        bench.add("0A");
        bench.plot.setSelectedDevice("0A");
        QCOMPARE(bench.samples(), 1);
        bench.plot.setSelectedDevice("0B");
        QCOMPARE(bench.samples(), 0);
        bench.add("0B");
        bench.plot.clearPlot();
        QCOMPARE(bench.samples(), 0);
        bench.add("0B");
        QCOMPARE(bench.samples(), 1);
    }

    void zoomOutlivesTheDevice()
    {
        Bench bench;
        MainWindowPlot& plot = bench.plot;
        const QSignalSpy changes(&plot, &MainWindowPlot::zoomEnabledChanged);
        const auto axis = [&bench](QwtPlot::Axis which = QwtPlot::yLeft) {
            QCoreApplication::processEvents();
            return chartOf(bench.container)->axisInterval(which);
        };
        const QwtInterval voltages(0.0, 32.0);
        QCOMPARE(axis(), voltages);
        QCOMPARE(axis(QwtPlot::yRight), QwtInterval(-30.0, 140.0));
        plot.setZoomEnabled(true);
        turnWheel(bench.container, 3);
        QVERIFY(axis().width() < 32.0);
        plot.setSelectedDevice("0B");
        QCOMPARE(axis(), voltages);
        QVERIFY(plot.isZoomEnabled());
        turnWheel(bench.container, 3);
        QVERIFY(axis().width() < 32.0);
        plot.setZoomEnabled(false);
        QCOMPARE(axis(), voltages);
        plot.setZoomEnabled(true);
        plot.clearPlot();
        QVERIFY(!plot.isZoomEnabled());
        turnWheel(bench.container, 3);
        QCOMPARE(axis(), voltages);
        QCOMPARE(changes.size(), 4);
        QCOMPARE(changes.last().first().toBool(), false);
    }
};

REGISTER_TEST(TestPlotMainWindow, QApplication)
#include "tst_plotmainwindow.moc"

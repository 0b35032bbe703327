#include "serial/generalinformation.h"
#include "tests/support/testcase.h"
#include "tests/tracking/plotinspection.h"
#include "tracking/mainwindowplot.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QSignalSpy>
#include <QTranslator>
#include <QtTest>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>

using namespace plotinspection;

namespace {

const QDateTime kTime(QDate(2024, 5, 6), QTime(14, 3, 20, 123));
const char* const kCurveNames[] = {"VPri", "VSec", "IPri", "ISec"};

QList<QStringList> recordAt(const QDateTime& time, quint8 primaryShort = 0)
{
    LdbStatus status;
    status.primaryVoltage = 24500;
    status.primaryCurrent = 1234;
    status.secondaryVoltage = 22000;
    status.secondaryCurrent = static_cast<quint16>(qint16(-100));
    status.primaryPortShort = primaryShort;
    return generalinformation::buildRows(QStringLiteral("0A"), QStringLiteral("LDB"), status,
                                         time.toString(generalinformation::kSecondsFormat),
                                         time.toString(generalinformation::kMillisecondsFormat));
}

/// The newest value of each curve.
QList<double> newestValues(const QWidget& container)
{
    QCoreApplication::processEvents();
    QList<double> values;
    for (const char* name : kCurveNames) {
        const QwtPlotCurve* const curve = curveOf(container, name);
        values << (curve->dataSize() == 0
                       ? qQNaN()
                       : curve->sample(static_cast<int>(curve->dataSize()) - 1).y());
    }
    return values;
}

int samplesOf(const QWidget& container)
{
    QCoreApplication::processEvents();
    return static_cast<int>(curveOf(container, "VPri")->dataSize());
}

/// Translates every text to itself in brackets.
class BracketTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* /*context*/, const char* text, const char* /*disambiguation*/,
                      int /*n*/) const override
    {
        return QStringLiteral("[%1]").arg(QLatin1String(text));
    }
};

} // namespace

class TestPlotMainWindow : public TestCase
{
    Q_OBJECT
private slots:
    void showsFourCurvesOnTwoAxes();
    void plotsTheRowsInTheirOrder_data();
    void plotsTheRowsInTheirOrder();
    void ignoresOtherDevices();
    void startsAfreshForAnotherDevice();
    void zoomOutlivesTheDevice();
    void retranslatesWithoutLosingAnything();
};

void TestPlotMainWindow::showsFourCurvesOnTwoAxes()
{
    QWidget container;
    auto* const ownLayout = new QHBoxLayout(&container);
    MainWindowPlot plot(&container, nullptr);
    plot.init();
    QCOMPARE(container.findChildren<Plot*>().size(), 1);
    QCOMPARE(ownLayout->count(), 1);
    show(container);

    const int axes[] = {QwtPlot::yLeft, QwtPlot::yLeft, QwtPlot::yRight, QwtPlot::yRight};
    const char* const colors[] = {"red", "orange", "magenta", "lime"};
    for (int i = 0; i < 4; ++i) {
        const QwtPlotCurve* const curve = curveOf(container, kCurveNames[i]);
        QVERIFY(curve != nullptr);
        QCOMPARE(curve->yAxis(), axes[i]);
        QCOMPARE(curve->pen().color(), QColor(QLatin1String(colors[i])));
        QVERIFY(legendItemOf(container, kCurveNames[i]) != nullptr);
    }
    QwtPlot* const chart = chartOf(container);
    QCOMPARE(chart->axisInterval(QwtPlot::yLeft), QwtInterval(0.0, 32.0));
    QCOMPARE(chart->axisInterval(QwtPlot::yRight), QwtInterval(-30.0, 140.0));
    QCOMPARE(chart->axisStepSize(QwtPlot::yLeft), 10.0);
    QCOMPARE(chart->axisStepSize(QwtPlot::yRight), 30.0);
    QCOMPARE(chart->axisTitle(QwtPlot::yLeft).text(), QStringLiteral("V"));
    QCOMPARE(chart->axisTitle(QwtPlot::yRight).text(), QStringLiteral("mA"));
}

void TestPlotMainWindow::plotsTheRowsInTheirOrder_data()
{
    QTest::addColumn<QList<QStringList>>("record");
    QTest::addColumn<QList<double>>("values");

    QTest::newRow("measurements") << recordAt(kTime) << QList<double>{24.5, 12.34, 22.0, -1.0};
    QTest::newRow("primary port shorted")
        << recordAt(kTime, 1) << QList<double>{-40000.0, -40000.0, 22.0, -1.0};
    QList<QStringList> broken = recordAt(kTime);
    broken[4][1] = QStringLiteral("n/a");
    broken[7] = QStringList{QStringLiteral("only text")};
    QTest::newRow("no numbers") << broken << QList<double>{0.0, 12.34, 22.0, 0.0};
}

void TestPlotMainWindow::plotsTheRowsInTheirOrder()
{
    QFETCH(QList<QStringList>, record);
    QWidget container;
    MainWindowPlot plot(&container, nullptr);
    show(container);
    plot.setSelectedDevice(QStringLiteral("0A"));
    plot.processData(QStringLiteral("0A"), record);
    QTEST(newestValues(container), "values");
    QCOMPARE(samplesOf(container), 1);
    QCOMPARE(curveOf(container, "ISec")->sample(0).x(), double(kTime.toMSecsSinceEpoch()));
}

void TestPlotMainWindow::ignoresOtherDevices()
{
    QWidget container;
    MainWindowPlot plot(&container, nullptr);
    show(container);
    plot.processData(QStringLiteral("0A"), recordAt(kTime));
    plot.setSelectedDevice(QStringLiteral("0A"));
    plot.processData(QStringLiteral("0B"), recordAt(kTime));
    plot.processData(QStringLiteral("0a"), recordAt(kTime));
    QCOMPARE(samplesOf(container), 0);

    const ExpectWarning warning("LDB 0A has no readable time");
    plot.processData(QStringLiteral("0A"), recordAt(QDateTime()));
    plot.processData(QStringLiteral("0A"), {});
    QCOMPARE(samplesOf(container), 0);
}

void TestPlotMainWindow::startsAfreshForAnotherDevice()
{
    QWidget container;
    MainWindowPlot plot(&container, nullptr);
    show(container);
    plot.setSelectedDevice(QStringLiteral("0A"));
    plot.processData(QStringLiteral("0A"), recordAt(kTime));
    plot.setSelectedDevice(QStringLiteral("0A"));
    QCOMPARE(samplesOf(container), 1);
    plot.setSelectedDevice(QStringLiteral("0B"));
    QCOMPARE(samplesOf(container), 0);
    plot.processData(QStringLiteral("0B"), recordAt(kTime));
    plot.clearPlot();
    QCOMPARE(samplesOf(container), 0);
    plot.processData(QStringLiteral("0B"), recordAt(kTime));
    QCOMPARE(samplesOf(container), 1);
}

void TestPlotMainWindow::zoomOutlivesTheDevice()
{
    QWidget container;
    MainWindowPlot plot(&container, nullptr);
    show(container);
    const QSignalSpy changes(&plot, &MainWindowPlot::zoomEnabledChanged);
    const auto voltages = [&container] {
        QCoreApplication::processEvents();
        return chartOf(container)->axisInterval(QwtPlot::yLeft);
    };
    plot.setZoomEnabled(true);
    turnWheel(container, 3);
    QVERIFY(voltages().width() < 32.0);
    plot.setSelectedDevice(QStringLiteral("0B"));
    QCOMPARE(voltages(), QwtInterval(0.0, 32.0));
    QVERIFY(plot.isZoomEnabled());
    turnWheel(container, 3);
    QVERIFY(voltages().width() < 32.0);
    plot.setZoomEnabled(false);
    QCOMPARE(voltages(), QwtInterval(0.0, 32.0));
    plot.setZoomEnabled(true);
    plot.clearPlot();
    QVERIFY(!plot.isZoomEnabled());
    turnWheel(container, 3);
    QCOMPARE(voltages(), QwtInterval(0.0, 32.0));
    QCOMPARE(changes.size(), 4);
    QCOMPARE(changes.last().first().toBool(), false);
}

void TestPlotMainWindow::retranslatesWithoutLosingAnything()
{
    QWidget container;
    MainWindowPlot plot(&container, nullptr);
    show(container);
    plot.setSelectedDevice(QStringLiteral("0A"));
    plot.processData(QStringLiteral("0A"), recordAt(kTime));
    QTest::mouseClick(legendItemOf(container, "IPri"), Qt::LeftButton);

    BracketTranslator translator;
    QCoreApplication::installTranslator(&translator);
    plot.retranslate();
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(chartOf(container)->axisTitle(QwtPlot::yLeft).text(), QStringLiteral("[V]"));
    QCOMPARE(chartOf(container)->axisTitle(QwtPlot::yRight).text(), QStringLiteral("[mA]"));
    QCOMPARE(samplesOf(container), 1);
    QVERIFY(!curveOf(container, "IPri")->isVisible());
    QVERIFY(!legendItemOf(container, "IPri")->isChecked());
    QVERIFY(legendItemOf(container, "ISec")->isChecked());
}

QTEST_MAIN(TestPlotMainWindow)
#include "tst_plotmainwindow.moc"

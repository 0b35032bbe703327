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

/// A source that answers when the test says so; it knows what the test has put into it.
class FakeSource : public PlotHistorySource
{
public:
    void ask(const QString& hexId, qint64 from, qint64 to, const Answer& answer) override
    {
        questions << QString("%1 %2..%3").arg(hexId, secondsText(from), secondsText(to));
        answers.append([this, from, to, answer] {
            std::vector<PlotSample> found;
            for (const PlotSample& sample : samples) {
                if (sample.time >= double(from) && sample.time < double(to)) {
                    found.push_back(sample);
                }
            }
            answer(found);
        });
    }
    void answerNext() { answers.takeFirst()(); }
    void know(int second, double volts)
    {
        PlotSample sample = PlotSample::gap(timeOf(second));
        sample.values[PlotSample::PrimaryVoltage] = volts;
        samples.push_back(sample);
    }
    static double timeOf(int second) { return double(kTime.toMSecsSinceEpoch()) + 1000.0 * second; }
    static QString secondsText(qint64 time)
    {
        return QString::number((time - kTime.toMSecsSinceEpoch()) / 1000);
    }

    std::vector<PlotSample> samples;
    QStringList questions;
    QList<std::function<void()>> answers;
};

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
    /// What the clock says in monitoring, seconds after the records' time; all is polled.
    void setNow(int second, Monitoring::State state = Monitoring::State::Polling)
    {
        Monitoring monitoring;
        monitoring.state = state;
        monitoring.now = generalinformation::clockTime(kTime.toMSecsSinceEpoch()) + 1000LL * second;
        monitoring.lifetime = 15000;
        plot.setMonitoring(monitoring);
    }
    /// The seconds of what is held, "-" for a gap.
    QString shown() const
    {
        QCoreApplication::processEvents();
        const PlotHistory& history = container.findChild<Plot*>()->history();
        QStringList texts;
        for (int i = 0; i < history.size(); ++i) {
            texts << (history.isRecord(i) ? FakeSource::secondsText(qint64(history.times()[i]))
                                          : "-");
        }
        return texts.join(' ');
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
        m_sandbox->writeTuning(tuning);
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

    void beginsWithWhatTheRunHasTold()
    {
        Bench bench;
        bench.setNow(0);
        for (int second = 0; second < 4; ++second) {
            bench.add("0A", recordAt(kTime.addSecs(second)));
            bench.add("0B", recordAt(kTime.addSecs(2LL * second)));
        }
        QCOMPARE(bench.shown(), "0 1 2 3");
        bench.plot.setSelectedDevice("0B");
        QCOMPARE(bench.shown(), "0 2 4 6");
        bench.plot.setSelectedDevice("0A");
        QCOMPARE(bench.shown(), "0 1 2 3");
        // While 0B is not shown it is silent for longer than a value lives.
        bench.setNow(60);
        bench.add("0B", recordAt(kTime.addSecs(60)));
        bench.plot.setSelectedDevice("0B");
        QCOMPARE(bench.shown(), "0 2 4 6 - 60");
        // One asked in between has its own time, one of a round that of its begin.
        bench.plot.processExtra("0B", recordAt(kTime.addSecs(66)));
        bench.add("0B", recordAt(kTime.addSecs(63)));
        QCOMPARE(bench.shown(), "0 2 4 6 - 60 66 66");
        // A fresh run knows nothing of the former one.
        bench.plot.clearPlot();
        QCOMPARE(bench.shown(), QString());
        bench.plot.setSelectedDevice("0A");
        QCOMPARE(bench.shown(), QString());
    }

    void beginsWithWhatIsKnownOfThePast()
    {
        FakeSource source;
        for (const int second : {-700, -500, -300, -10, 0, 1}) {
            source.know(second, 20.0);
        }
        Bench bench;
        bench.plot.setHistorySource(&source);
        bench.setNow(10);
        bench.add("0B", recordAt(kTime));
        bench.plot.setSelectedDevice("0B");
        QCOMPARE(source.questions, QStringList{"0B -590..0"});
        bench.add("0B", recordAt(kTime.addSecs(1)));
        QCOMPARE(bench.shown(), "0 1"); // nothing waits for the answer
        source.answerNext();
        // No value lives for three minutes; 10 s before the first one of the run it may.
        QCOMPARE(bench.shown(), "-500 - -300 - -10 0 1");

        // The answer for another LDB comes too late.
        bench.plot.setSelectedDevice("0C");
        bench.plot.setSelectedDevice("0D");
        source.answerNext();
        QCOMPARE(bench.shown(), QString());
        source.answerNext();
        QCOMPARE(bench.shown(), "-500 - -300 - -10 0 1");
        // What comes now is not connected with what was long ago.
        bench.setNow(100);
        bench.add("0D", recordAt(kTime.addSecs(100)));
        QCOMPARE(bench.shown(), "-500 - -300 - -10 0 1 - 100");
    }

    void fetchesWhatTheUserLooksBackTo()
    {
        FakeSource source;
        for (int second = -90000; second <= -600; second += 100) {
            source.know(second, 20.0);
        }
        Bench bench;
        bench.plot.setHistorySource(&source);
        bench.setNow(0);
        bench.plot.setSelectedDevice("0B");
        bench.add("0B", recordAt(kTime));
        source.answerNext();
        bench.plot.setZoomEnabled(true);
        pressKey(bench.container, Qt::Key_PageUp);
        pressKey(bench.container, Qt::Key_PageUp);
        pressKey(bench.container, Qt::Key_PageUp);
        // In the first step more than is shown; nothing else while that is under way.
        QCOMPARE(source.questions.mid(1), QStringList{"0B -1500..-600"});
        source.answerNext();
        QVERIFY(bench.shown().startsWith("-1500 -1400"));
        // What the user has moved to meanwhile was among it.
        QCOMPARE(source.questions.size(), 2);
        // A day, and not more.
        turnWheel(bench.container, -80);
        source.answerNext();
        while (!source.answers.isEmpty()) {
            source.answerNext();
        }
        QVERIFY(source.questions.last().startsWith("0B -86400.."));
        QVERIFY(bench.shown().startsWith("-86400 -86300"));
        turnWheel(bench.container, -5);
        QVERIFY(source.answers.isEmpty());
        // A source that answers after the plot is gone does no harm.
        bench.plot.setSelectedDevice("0C");
        QCOMPARE(source.answers.size(), 1);
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

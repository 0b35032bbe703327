#include "app/notices/messagebox.h"
#include "tests/support/testprogram.h"
#include "tests/tracking/plotinspection.h"
#include "tracking/plot/plotexport.h"
#include "tracking/plot/plotinspector.h"

#include <QtWidgets>

using namespace plotinspection;

namespace {

constexpr double kSecond = 1000.0;
constexpr double kMinute = 60.0 * kSecond;
constexpr int kDay = 86400; // s
const QColor kRed("red");

/// On a day without a change of the clock, 14:00 of the local time.
double start()
{
    static const double time =
        static_cast<double>(QDateTime(QDate(2024, 5, 6), QTime(14, 0)).toMSecsSinceEpoch());
    return time;
}

/// A plot on the screen with a red curve in V and a lime one in mA.
struct Bench
{
    Bench()
    {
        plot.addCurve("VPri", "red", QwtPlot::yLeft);
        plot.addCurve("IPri", "lime", QwtPlot::yRight);
        plot.setAxisTitle(QwtPlot::yLeft, "V");
        plot.setAxisTitle(QwtPlot::yRight, "mA");
        plot.setAxisScale(QwtPlot::yLeft, 0.0, 32.0, 10.0);
        plot.setAxisScale(QwtPlot::yRight, -30.0, 140.0, 30.0);
        plot.setCaption("LDB 0A");
        plotinspection::show(plot);
    }
    void add(double second, double volts, double milliamperes)
    {
        plot.addData(0, volts, start() + second * kSecond);
        plot.addData(1, milliamperes, start() + second * kSecond);
    }
    /// Ten minutes with a record each ten seconds; the volts tell the place.
    void fill()
    {
        for (int i = 0; i <= 60; ++i) {
            add(10 * i, 0.5 * i, 100.0);
        }
        QCoreApplication::processEvents();
    }
    int columnOf(double second) const
    {
        return plotinspection::columnOf(plot, start() + second * kSecond);
    }
    QwtInterval shown() const
    {
        QCoreApplication::processEvents();
        return plot.view().shownTime();
    }
    QString marks() const { return plot.inspector()->marks().box().text(); }
    bool isFollowOffered() const
    {
        return plot.findChild<QPushButton*>("followButton")->isVisible();
    }

    Plot plot;
};

} // namespace

class TestPlotUse : public TestCase
{
    Q_OBJECT
private slots:
    void initTestCase() { qputenv("TZ", "Europe/Brussels"); }

    void cursorTellsTheValues()
    {
        Bench bench;
        moveMouse(bench.plot, 100);
        QCOMPARE(cursorText(bench.plot), QString()); // of nothing
        bench.fill();
        bench.add(601, qQNaN(), qQNaN());
        bench.add(1000, 3.0, 7.25);
        QCoreApplication::processEvents();
        moveMouse(bench.plot, bench.columnOf(500));
        QCOMPARE(cursorText(bench.plot), "14:08:20.000, VPri 25.0 V, IPri 100.0 mA");
        moveMouse(bench.plot, bench.columnOf(504)); // on the line
        QCOMPARE(cursorText(bench.plot), "14:08:20.000, VPri 25.0 V, IPri 100.0 mA");
        moveMouse(bench.plot, bench.columnOf(800)); // in the gap
        QVERIFY(cursorText(bench.plot)
                    .endsWith(QString("VPri %1, IPri %1").arg(generalinformation::kNoValue)));
        takeMouseOff(bench.plot);
        QCOMPARE(cursorText(bench.plot), QString());
    }

    void keysGoFromRecordToRecord()
    {
        Bench bench;
        bench.fill();
        const auto isAt = [&bench](const char* time) {
            return cursorText(bench.plot).startsWith(QLatin1String(time));
        };
        pressKey(bench.plot, Qt::Key_Left);
        QVERIFY(isAt("14:10:00"));
        pressKey(bench.plot, Qt::Key_Left);
        QVERIFY(isAt("14:09:50"));
        pressKey(bench.plot, Qt::Key_Left, Qt::ShiftModifier);
        QVERIFY(isAt("14:08:10"));
        pressKey(bench.plot, Qt::Key_Right);
        QVERIFY(isAt("14:08:20"));
        // A view that is held goes along.
        bench.plot.setZoom(true);
        turnWheel(bench.plot, 20);
        pressKey(bench.plot, Qt::Key_Left);
        pressKey(bench.plot, Qt::Key_Left, Qt::ShiftModifier);
        QVERIFY(bench.shown().contains(start() + 390 * kSecond));
        QVERIFY(isAt("14:06:30"));
    }

    void marksTellTheDifferences()
    {
        Bench bench;
        bench.fill();
        QVERIFY(!chooseInMenu(bench.plot, 0, "removeMarks"));
        QVERIFY(chooseInMenu(bench.plot, bench.columnOf(200), "markA"));
        QCOMPARE(bench.marks(), QString());
        moveMouse(bench.plot, bench.columnOf(50));
        pressKey(bench.plot, Qt::Key_B);
        QCOMPARE(bench.marks(), "B - A: -0:02:30.000, VPri -7.5 V, IPri 0.0 mA");
        // They keep their values when the records are gone.
        bench.plot.setMaxNumberOfSamples(1);
        bench.add(700, 1.0, 1.0);
        moveMouse(bench.plot, bench.columnOf(700));
        pressKey(bench.plot, Qt::Key_B);
        QCOMPARE(bench.marks(), "B - A: +0:08:20.000, VPri -9.0 V, IPri -99.0 mA");
        pressKey(bench.plot, Qt::Key_Delete);
        QCOMPARE(bench.marks(), QString());
        pressKey(bench.plot, Qt::Key_A);
        bench.plot.clear();
        QVERIFY(!bench.plot.inspector()->marks().isAny());
    }

    void viewStaysUntilTheUserFollows()
    {
        Bench bench;
        bench.fill();
        QVERIFY(!bench.isFollowOffered());
        pressKey(bench.plot, Qt::Key_Minus);
        pressKey(bench.plot, Qt::Key_PageUp);
        QVERIFY(!bench.isFollowOffered()); // zoom is off
        bench.plot.setZoom(true);
        const QwtInterval rolling = bench.shown();
        pressKey(bench.plot, Qt::Key_PageUp);
        const QwtInterval back(rolling.minValue() - 5 * kMinute, rolling.maxValue() - 5 * kMinute);
        QCOMPARE(bench.shown(), back);
        bench.add(610, 1.0, 1.0);
        QCOMPARE(bench.shown(), back);
        QVERIFY(bench.isFollowOffered());
        turnWheel(bench.plot, 1, Qt::ShiftModifier);
        QCOMPARE(bench.shown().maxValue(), back.maxValue() - kMinute);

        QTest::mouseClick(bench.plot.findChild<QPushButton*>("followButton"), Qt::LeftButton);
        QCOMPARE(bench.shown().maxValue(), start() + 610 * kSecond);
        QVERIFY(!bench.isFollowOffered());
        bench.add(620, 1.0, 1.0);
        QCOMPARE(bench.shown().maxValue(), start() + 620 * kSecond);
        pressKey(bench.plot, Qt::Key_Plus); // zoom is still on
        QVERIFY(bench.shown().width() < rolling.width());
        QVERIFY(bench.isFollowOffered());
        pressKey(bench.plot, Qt::Key_F);
        QVERIFY(!bench.isFollowOffered());
    }

    void wheelZoomsAboutTheMouse()
    {
        Bench bench;
        bench.fill();
        bench.plot.setZoom(true);
        const auto values = [&bench] {
            return chartOf(bench.plot)->axisInterval(QwtPlot::yLeft);
        };
        const QwtInterval all = values();
        const double middle = chartOf(bench.plot)
                                  ->canvasMap(QwtPlot::xBottom)
                                  .invTransform(chartOf(bench.plot)->canvas()->rect().center().x());
        turnWheel(bench.plot, 5, Qt::ControlModifier);
        QCOMPARE(values(), all);
        const QwtInterval shown = bench.shown();
        QVERIFY(std::abs((shown.minValue() + shown.maxValue()) / 2.0 - middle) < kSecond);
        turnWheel(bench.plot, 3);
        QVERIFY(values().width() < all.width());
        // Out to a day: the values are where they were, and not a flat line.
        turnWheel(bench.plot, -70);
        QVERIFY(bench.shown().width() > kDay * kSecond);
        QCOMPARE(values(), all);
        turnWheel(bench.plot, 5);
        QCOMPARE(values(), all);
    }

    void daysWidthShowsOneRecord_data()
    {
        const Table<double, double, bool> row("usual", "spike", "alone");
        row("up", 4.0, 28.0, false);
        row("down", 28.0, 0.5, false);
        row("between gaps", 4.0, 28.0, true);
        row("low", 4.0, 5.0, false);
    }

    void daysWidthShowsOneRecord()
    {
        QFETCH(double, usual);
        QFETCH(double, spike);
        QFETCH(bool, alone);
        constexpr std::size_t kSpike = 40123;
        Bench bench;
        std::vector<double> times;
        times.reserve(kDay);
        std::vector<double> values(kDay, usual);
        for (int i = 0; i < kDay; ++i) {
            times.push_back(start() + i * kSecond);
        }
        values[kSpike] = spike;
        if (alone) {
            values[kSpike - 1] = values[kSpike + 1] = qQNaN();
        }
        bench.plot.setMaxNumberOfSamples(kDay);
        bench.plot.setMaxWindowTime(static_cast<int>(kDay * kSecond));
        bench.plot.prependData(times, {{0, values}});
        QCoreApplication::processEvents();
        QVERIFY(showsAt(bench.plot, times[kSpike], spike, kRed));
        QVERIFY(!showsAt(bench.plot, times[kSpike + 4000], spike, kRed));
        moveMouse(bench.plot, plotinspection::columnOf(bench.plot, times[kSpike]));
        QVERIFY(cursorText(bench.plot)
                    .contains(QString("%1 to %2 V")
                                  .arg(plotreading::text(qMin(usual, spike)),
                                       plotreading::text(qMax(usual, spike)))));
    }

    void noLineGoesOverAGap()
    {
        Bench bench;
        bench.fill();
        bench.add(601, qQNaN(), qQNaN());
        bench.add(900, 16.0, 100.0);
        QCoreApplication::processEvents();
        QVERIFY(columnShows(bench.plot, bench.columnOf(595), kRed));
        for (int second = 605; second < 895; second += 10) {
            QVERIFY(!columnShows(bench.plot, bench.columnOf(second), kRed));
        }
    }

    void savesWhatIsShown()
    {
        Bench bench;
        bench.add(-1000, 9.0, 9.0); // rolled out of the view
        bench.add(0, 24.5, 12.34);
        bench.add(1.5, generalinformation::kMissingMeasurement, -1.0);
        bench.add(2, qQNaN(), qQNaN());
        bench.add(3, 24.0, 0.0);
        QCoreApplication::processEvents();
        QCOMPARE(plotexport::values(bench.plot), "Time;UTC offset;VPri (V);IPri (mA)\n"
                                                 "2024-05-06 14:00:00.000;+02:00;24.5;12.34\n"
                                                 "2024-05-06 14:00:01.500;+02:00;;-1\n"
                                                 "2024-05-06 14:00:02.000;+02:00;;\n"
                                                 "2024-05-06 14:00:03.000;+02:00;24;0\n");
        QCOMPARE(plotexport::fileName(bench.plot, plotexport::Kind::Svg),
                 "LDB 0A 2024-05-06 1400.svg");

        const QByteArray svg = plotexport::content(bench.plot, plotexport::Kind::Svg);
        QVERIFY(svg.contains("LDB 0A, 2024-05-06 13:50:03.000 to 14:00:03.000"));
        QVERIFY(svg.contains("#ff0000") && svg.contains("polyline"));
        const QImage png =
            QImage::fromData(plotexport::content(bench.plot, plotexport::Kind::Png), "PNG");
        QCOMPARE(png.size(), chartOf(bench.plot)->size() * 2);
        QVERIFY(chartOf(bench.plot)->title().isEmpty());
    }

    void picturesShowCurvesAndMarks()
    {
        Bench bench;
        bench.fill();
        const auto redPixels = [&bench] {
            const QImage png =
                QImage::fromData(plotexport::content(bench.plot, plotexport::Kind::Png), "PNG");
            int count = 0;
            for (int y = 0; y < png.height(); ++y) {
                for (int x = 0; x < png.width(); ++x) {
                    count += png.pixelColor(x, y) == kRed ? 1 : 0;
                }
            }
            return count;
        };
        const int shown = redPixels();
        QVERIFY(shown > 100);
        chooseInMenu(bench.plot, bench.columnOf(100), "markA");
        chooseInMenu(bench.plot, bench.columnOf(300), "markB");
        QVERIFY(plotexport::content(bench.plot, plotexport::Kind::Svg).contains("B - A: +0:03:20"));
        bench.plot.clear();
        QVERIFY(redPixels() < shown);
    }

    void saysWhyAFileCannotBeWritten()
    {
        Bench bench;
        QVERIFY(!chooseInMenu(bench.plot, 10, "saveValues")); // nothing to save yet
        bench.fill();
        const QTemporaryDir folder;
        const auto saveTo = [&](const char* entry, const QString& path) {
            QVERIFY(chooseInMenu(bench.plot, 10, entry));
            auto* const dialog = bench.plot.findChild<QFileDialog*>();
            QVERIFY(dialog != nullptr);
            emit dialog->fileSelected(path);
            delete dialog;
        };
        saveTo("saveValues", folder.filePath("values.csv"));
        QFile written(folder.filePath("values.csv"));
        QVERIFY(written.open(QIODevice::ReadOnly));
        QCOMPARE(written.readAll(), plotexport::values(bench.plot));
        QVERIFY(bench.plot.findChild<MessageBox*>() == nullptr);

        const QString nowhere = folder.filePath("none/plot.png");
        saveTo("savePng", nowhere);
        auto* const box = bench.plot.findChild<MessageBox*>();
        QVERIFY(box != nullptr && box->text().startsWith(nowhere + " cannot be written: "));
        delete box;
    }
};

REGISTER_TEST(TestPlotUse, QApplication)
#include "tst_plotuse.moc"

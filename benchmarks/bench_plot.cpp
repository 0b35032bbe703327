// What the live chart costs: four curves with a full history, all of it in the visible window, one
// record appended and painted at a time. Prints CPU times, which other load on the machine hardly
// touches, for an early and a late hour of a week of records, and the memory at both. With --short
// the week is a day. Then what a whole day of one LDB costs that the user looks at at once: to put
// it before what is shown, to paint it after each notch of the wheel, to move the cursor over it,
// and to save it.
#include "benchmarks/support/report.h"
#include "tracking/plot/plot.h"
#include "tracking/plot/plotexport.h"
#include "tracking/plot/plotinspector.h"

#include <QApplication>
#include <QFile>
#include <QMouseEvent>
#include <QTextStream>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <map>
#include <random>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kCurves = 4;
constexpr int kSamples = 30000;
constexpr double kRecordPeriodMs = 1000.0;
constexpr int kWindowMs = static_cast<int>(kSamples * kRecordPeriodMs);
constexpr int kWindowIntervalMs = kWindowMs / 10;
constexpr int kRecordsPerHour = 3600;
constexpr int kRecordsPerDay = 24 * kRecordsPerHour;
constexpr int kRecordsPerWeek = 7 * kRecordsPerDay;
constexpr int kMeasuredRecords = 200;
constexpr double kStart = 1.7e12;
constexpr int kWidth = 1200;
constexpr int kHeight = 500;
constexpr double kAcceptedMs = 4.0;
constexpr double kAcceptedDayMs = 16.0; // a turn of the screen
constexpr double kAcceptedStepMs = 4.0;
constexpr double kDayMs = 86400000.0;

double cpuMs()
{
    timespec time = {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Resident memory in KiB.
double memoryKiB()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0.0;
    }
    constexpr double kKiB = 1024.0;
    const QList<QByteArray> fields = file.readAll().split(' ');
    return fields.value(1).toDouble() * static_cast<double>(sysconf(_SC_PAGESIZE)) / kKiB;
}

class Bench
{
public:
    /// `noise` is the share of the axis that the values jump over from one record to the next.
    explicit Bench(double noise)
        : m_noise(noise)
    {
        m_plot.setLegendVisible(true);
        m_plot.setAxisScale(QwtPlot::yLeft, 0.0, 32.0, 10.0);
        m_plot.setAxisScale(QwtPlot::yRight, 0.0, 32.0, 10.0);
        m_plot.setMaxNumberOfSamples(kSamples);
        m_plot.setMaxWindowTime(kWindowMs);
        m_plot.setWindowIntervalTime(kWindowIntervalMs);
        const char* const colors[kCurves] = {"red", "orange", "magenta", "lime"};
        for (int i = 0; i < kCurves; ++i) {
            m_plot.addCurve(QStringLiteral("Curve %1").arg(i), QString::fromLatin1(colors[i]),
                            i % 2 == 0 ? QwtPlot::yLeft : QwtPlot::yRight);
        }
        m_plot.resize(kWidth, kHeight);
        m_plot.show();
        QApplication::processEvents();
    }

    void append(int records)
    {
        for (int i = 0; i < records; ++i) {
            const double time = kStart + kRecordPeriodMs * m_records++;
            for (int curve = 0; curve < kCurves; ++curve) {
                const double base = 4.0 + 7.0 * curve + 2.0 * std::sin(m_records / 600.0 + curve);
                m_plot.addData(curve, base + m_noise * 32.0 * (m_random(m_engine) - 0.5), time);
            }
        }
    }

    /// Median CPU time in ms of appending one record and painting it.
    double medianMs()
    {
        std::vector<double> times;
        for (int i = 0; i < kMeasuredRecords; ++i) {
            const double before = cpuMs();
            append(1);
            QApplication::processEvents();
            times.push_back(cpuMs() - before);
        }
        const auto middle = times.begin() + kMeasuredRecords / 2;
        std::nth_element(times.begin(), middle, times.end());
        return *middle;
    }

    int records() const { return m_records; }

private:
    Plot m_plot;
    double m_noise;
    int m_records = 0;
    std::mt19937 m_engine{1};
    std::uniform_real_distribution<double> m_random{0.0, 1.0};
};

template <typename Step>
double medianOf(int steps, const Step& step)
{
    std::vector<double> times;
    for (int i = 0; i < steps; ++i) {
        const double before = cpuMs();
        step(i);
        QApplication::processEvents();
        times.push_back(cpuMs() - before);
    }
    const auto middle = times.begin() + steps / 2;
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

/// A day of one LDB, a record a second, all of it shown. False where it takes longer than accepted.
bool measureDay(double noise, QTextStream& out)
{
    constexpr int kSteps = 20;
    Plot plot;
    plot.setLegendVisible(true);
    plot.setAxisScale(QwtPlot::yLeft, 0.0, 32.0, 10.0);
    plot.setMaxNumberOfSamples(kRecordsPerDay + kRecordsPerHour);
    std::mt19937 engine{1};
    std::uniform_real_distribution<double> random{-0.5, 0.5};
    std::vector<double> times(kRecordsPerDay);
    std::map<int, std::vector<double>> values;
    for (int curve = 0; curve < kCurves; ++curve) {
        values[plot.addCurve(QStringLiteral("Curve %1").arg(curve), QStringLiteral("red"),
                             QwtPlot::yLeft)]
            .resize(kRecordsPerDay);
    }
    for (std::size_t i = 0; i < times.size(); ++i) {
        times[i] = kStart + kRecordPeriodMs * static_cast<double>(i);
        for (auto& [curve, list] : values) {
            list[i] = 4.0 + 7.0 * curve + noise * 32.0 * random(engine);
        }
    }
    plot.resize(kWidth, kHeight);
    plot.show();
    QApplication::processEvents();
    const double prepended = medianOf(1, [&](int) { plot.prependData(times, values); });
    plot.setZoom(true);
    plot.setMaxWindowTime(static_cast<int>(kDayMs));
    plot.restoreAxisScale();
    const double zoomed = medianOf(kSteps, [&](int i) { plot.view().zoom(i % 2 == 0 ? 1 : -1); });

    QWidget* const canvas = plot.chart()->canvas();
    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(canvas, &enter);
    const double moved = medianOf(kSteps, [&](int i) {
        QMouseEvent move(QEvent::MouseMove, QPointF(100 + 20 * i, 100), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(canvas, &move);
    });
    const double png = medianOf(1, [&](int) { plotexport::content(plot, plotexport::Kind::Png); });
    const double csv = medianOf(1, [&](int) { plotexport::values(plot); });
    out << QStringLiteral("a day, noise %1: put before %2 ms, a notch %3 ms, the cursor %4 ms, "
                          "PNG %5 ms, CSV %6 ms\n")
               .arg(noise, 4, 'f', 2)
               .arg(prepended, 0, 'f', 1)
               .arg(zoomed, 0, 'f', 1)
               .arg(moved, 0, 'f', 2)
               .arg(png, 0, 'f', 0)
               .arg(csv, 0, 'f', 0);
    return zoomed <= kAcceptedDayMs && moved <= kAcceptedStepMs;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    takeShortForm(argc, argv);
    const QApplication application(argc, argv);
    QTextStream out(stdout);
    bool accepted = true;

    const std::vector<double> noises =
        isShortForm() ? std::vector<double>{0.1} : std::vector<double>{0.0, 0.02, 0.1, 1.0};
    const int lateRecords = isShortForm() ? kRecordsPerDay : kRecordsPerWeek;
    for (const double noise : noises) {
        Bench bench(noise);
        bench.append(kSamples + kRecordsPerHour);
        const double earlyMs = bench.medianMs();
        const double earlyKiB = memoryKiB();
        bench.append(lateRecords - bench.records());
        const double lateMs = bench.medianMs();
        const double lateKiB = memoryKiB();
        out << QStringLiteral("noise %1 of the axis: record and repaint %2 ms in the first hour "
                              "at the limit, %3 ms at the end (ratio %4); "
                              "memory %5 KiB, %6 KiB (ratio %7)\n")
                   .arg(noise, 4, 'f', 2)
                   .arg(earlyMs, 0, 'f', 2)
                   .arg(lateMs, 0, 'f', 2)
                   .arg(lateMs / earlyMs, 0, 'f', 2)
                   .arg(earlyKiB, 0, 'f', 0)
                   .arg(lateKiB, 0, 'f', 0)
                   .arg(lateKiB / earlyKiB, 0, 'f', 3);
        out.flush();
        accepted = accepted && std::max(earlyMs, lateMs) <= kAcceptedMs;
    }
    for (const double noise : noises) {
        accepted = measureDay(noise, out) && accepted;
    }
    return accepted || isShortForm() ? 0 : 1;
}

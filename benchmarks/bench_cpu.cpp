// What the whole program costs while it watches an installation: the main window on eight simulated
// LDBs at 9600 baud, with a plot that is full of samples. The simulator is a process of its own.
//   cpu       share of one core that the program takes, in percent
// Ends with status 1 when the figure is out of its bounds. On the display where there is one, else
// offscreen.
#include "app/shared/usersettings.h"
#include "app/window/mainwindow.h"
#include "benchmarks/support/report.h"
#include "benchmarks/support/simulatorprocess.h"
#include "serial/ldb/generalinformation.h"
#include "tracking/plot/mainwindowplot.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QEventLoop>
#include <QHeaderView>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <ctime>

namespace {

constexpr double kCpuLimitPercent = 3;
constexpr int kLdbs = 8;
constexpr int kSamples = 30000;
constexpr int kSampleMs = 2200; // about the time between two records of an LDB
constexpr int kRunMs = 60000;
constexpr double kNanosecondsPerMillisecond = 1e6;

double processCpuMs()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1000.0 +
           static_cast<double>(now.tv_nsec) / kNanosecondsPerMillisecond;
}

void spin(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

template <typename T>
T* child(const QWidget& window, const char* name = nullptr)
{
    T* found = window.findChild<T*>(QLatin1String(name));
    if (found == nullptr) {
        qFatal("the window has no %s", T::staticMetaObject.className());
    }
    return found;
}

/// Hours of records that have come before.
void fillPlot(MainWindowPlot& plot, const QString& hexId)
{
    QDateTime time = QDateTime::currentDateTime().addMSecs(-qint64{kSamples} * kSampleMs);
    LdbStatus status;
    for (int i = 0; i < kSamples; ++i) {
        constexpr int kNoise = 97; // prime, so that the curves do not repeat each other
        status.primaryVoltage = static_cast<quint16>(26500 + i * 7 % kNoise);
        status.secondaryVoltage = static_cast<quint16>(26400 + i * 11 % kNoise);
        status.primaryCurrent = static_cast<quint16>(240 + i * 13 % kNoise);
        status.secondaryCurrent = static_cast<quint16>(280 + i * 17 % kNoise);
        time = time.addMSecs(kSampleMs);
        plot.processData(hexId, generalinformation::buildRows(
                                    hexId, QString(), status,
                                    time.toString(generalinformation::kSecondsFormat),
                                    time.toString(generalinformation::kMillisecondsFormat)));
    }
}

bool benchCpu()
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    const QString port = folder.filePath(QStringLiteral("bus"));
    const SimulatorProcess simulator({QStringLiteral("--link"), port});
    userSettings().setValue(constants::kComPortKey, port);

    MainWindow window;
    window.show();
    child<QAbstractButton>(window, "startButton")->click();
    auto* overview = child<QTableView>(window, "deviceOverviewTableView");
    while (overview->model()->rowCount() < kLdbs) {
        spin(100);
    }
    // The top row's LDB becomes the plotted one.
    const int idColumn = overview->horizontalHeader()->logicalIndexAt(1);
    const QModelIndex first = overview->model()->index(0, idColumn);
    QTest::mouseClick(overview->viewport(), Qt::LeftButton, Qt::NoModifier,
                      overview->visualRect(first).center());
    fillPlot(*child<MainWindowPlot>(window), first.data().toString());
    spin(2 * kSampleMs);

    const double before = processCpuMs();
    spin(kRunMs);
    return report("cpu", (processCpuMs() - before) / kRunMs * 100, kCpuLimitPercent, Bound::AtMost);
}

} // namespace

int main(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && !qEnvironmentVariableIsSet("DISPLAY")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    QDir::setCurrent(QStringLiteral(PROJECT_FOLDER));
    return benchCpu() ? 0 : 1;
}

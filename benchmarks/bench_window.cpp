// The main window on 253 simulated LDBs that answer as fast as they can:
//   records   status answers on the wire that the window has not taken, at the end
//   queue     how much later a posted event arrives at the end of the run than at its begin, in ms
//   block     the longest time that the GUI thread computes for one event, in ms, while somebody
//             types into the overview's filter
//   restart   the same while the run is stopped, values get old, and the known site is started
//   again filter    computing from a letter until the rows that are left are painted, in ms export
//   the same as block while the settings of all LDBs are exported
// Ends with status 1 when a figure is out of its bounds.
#include "app/shared/usersettings.h"
#include "app/transfer/settingstransfer.h"
#include "app/window/mainwindow.h"
#include "benchmarks/support/report.h"
#include "benchmarks/support/simulatedsite.h"
#include "benchmarks/support/timedapplication.h"
#include "serial/ldb/serialcommand.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTableView>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

namespace {

// The hang-up at the end may take the answer that is just on its way.
constexpr double kMissingLimit = 1;
constexpr double kQueueGrowthLimitMs = 5;
constexpr double kBlockLimitMs = 50;
constexpr double kFrameMs = 16.7;

constexpr int kRunMs = 20000;
constexpr int kShortRunMs = 2000; // with --short
constexpr int kAgeingMs = 3000;
constexpr unsigned long kPingEveryMs = 5;
constexpr double kNanosecondsPerMillisecond = 1e6;

TimedApplication& application()
{
    return *static_cast<TimedApplication*>(QCoreApplication::instance());
}

/// Posts an event to the thread that made it every few milliseconds and notes how long it queues,
/// behind everything that the serial worker has posted before.
class QueueProbe
{
public:
    QueueProbe()
        : m_thread(QThread::create([this] { postPings(); }))
    {
        m_clock.start();
        m_thread->start();
    }
    ~QueueProbe()
    {
        m_ended = true;
        m_thread->wait();
    }
    QueueProbe(const QueueProbe&) = delete;
    QueueProbe& operator=(const QueueProbe&) = delete;

    /// Median wait of one third of the run, 0 to 2.
    double medianMs(std::size_t third) const
    {
        const std::size_t size = m_waitsMs.size() / 3;
        const auto begin = m_waitsMs.begin() + static_cast<std::ptrdiff_t>(third * size);
        std::vector<double> waits(begin, begin + static_cast<std::ptrdiff_t>(size));
        if (waits.empty()) {
            qFatal("no ping has arrived");
        }
        const auto middle = waits.begin() + static_cast<std::ptrdiff_t>(size / 2);
        std::nth_element(waits.begin(), middle, waits.end());
        return *middle;
    }

private:
    double nowMs() const
    {
        return static_cast<double>(m_clock.nsecsElapsed()) / kNanosecondsPerMillisecond;
    }
    void postPings()
    {
        while (!m_ended) {
            const double posted = nowMs();
            QMetaObject::invokeMethod(
                &m_receiver, [this, posted] { m_waitsMs.push_back(nowMs() - posted); },
                Qt::QueuedConnection);
            QThread::msleep(kPingEveryMs);
        }
    }

    QElapsedTimer m_clock; ///< only read once the thread runs
    std::vector<double> m_waitsMs;
    std::atomic<bool> m_ended{false};
    QObject m_receiver;
    std::unique_ptr<QThread> m_thread;
};

/// The LDBs in the order of their records in the log.
QStringList loggedLdbs(const QString& path)
{
    QFile log(path);
    if (!log.open(QIODevice::ReadOnly)) {
        qFatal("no log");
    }
    log.readLine(); // the header
    QStringList hexIds;
    while (!log.atEnd()) {
        hexIds.append(QString::fromUtf8(log.readLine().split(';').first()));
    }
    return hexIds;
}

/// The LDBs in the order of their status answers on the wire.
QStringList answeredLdbs(const QString& path)
{
    QFile journal(path);
    if (!journal.open(QIODevice::ReadOnly)) {
        qFatal("no journal");
    }
    enum Field
    {
        Direction = 2,
        HexId = 3,
        Bytes = 4
    };
    QStringList hexIds;
    bool isStatus = false;
    while (!journal.atEnd()) {
        const QList<QByteArray> fields = journal.readLine().split('\t');
        if (fields.value(Direction) == ">") {
            isStatus = QByteArray::fromHex(fields.value(Bytes)).contains("737803");
        } else if (fields.value(Direction) == "<" && isStatus) {
            hexIds.append(QString::fromLatin1(fields.value(HexId)));
        }
    }
    return hexIds;
}

template <typename T>
T* child(const QWidget& window, const char* name)
{
    T* found = window.findChild<T*>(QLatin1String(name));
    if (found == nullptr) {
        qFatal("the window has no %s", name);
    }
    return found;
}

/// Lets the window log every record.
void startLogging(const QWidget& window, const QString& path)
{
    child<QLineEdit>(window, "logFilePathText")->setText(path);
    child<QSpinBox>(window, "logSpeedSpinBox")->setValue(0);
    child<QPushButton>(window, "logStartStopButton")->click();
}

void spin(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Hangs the line up and waits until the window has noticed: that is told behind the last record.
void hangUp(std::unique_ptr<SimulatedSite>& installation, const QPushButton& startButton)
{
    QEventLoop loop;
    QObject::connect(&startButton, &QAbstractButton::toggled, &loop, &QEventLoop::quit);
    installation.reset();
    if (startButton.isChecked()) {
        loop.exec();
    }
}

/// Types into the overview's filter, and clears it, several times a second.
class Typist
{
public:
    Typist(QLineEdit* field, QTableView* overview)
        : m_field(field)
    {
        QObject::connect(&m_timer, &QTimer::timeout, field, [this, overview] {
            static const QString text = QStringLiteral("ldb 9");
            const double before = threadCpuMs();
            m_field->setText(text.left(m_letters++ % (text.size() + 1)));
            overview->viewport()->repaint(); // with what has to be laid out for it
            m_longestMs = std::max(m_longestMs, threadCpuMs() - before);
        });
        m_timer.start(kLetterMs);
    }
    ~Typist() { m_field->clear(); }
    Typist(const Typist&) = delete;
    Typist& operator=(const Typist&) = delete;

    /// From a letter until the rows that are left are painted.
    double longestMs() const { return m_longestMs; }

private:
    static constexpr int kLetterMs = 150;

    QLineEdit* m_field;
    QTimer m_timer;
    int m_letters = 0;
    double m_longestMs = 0;
};

/// The longest event while the window exports all settings.
double exportBlockMs(const QWidget& window, const QString& path)
{
    auto* transfer = window.findChild<SettingsTransfer*>();
    QEventLoop loop;
    QObject::connect(transfer, &SettingsTransfer::statusChanged, &loop,
                     [&loop](SettingsTransfer::Status status) {
                         if (status == SettingsTransfer::Status::ExportFinished) {
                             loop.quit();
                         } else if (status != SettingsTransfer::Status::ExportStarted) {
                             qFatal("the export has failed");
                         }
                     });
    transfer->exportTo(path);
    loop.exec();
    return application().takeLongestMs("export");
}

/// A window that scans the bus; until all rows are there.
void openOn(MainWindow& window)
{
    window.show();
    auto* startButton = child<QPushButton>(window, "startButton");
    const auto* overview = child<QTableView>(window, "deviceOverviewTableView");
    startButton->click();
    while (overview->model()->rowCount() < busaddress::kLast) {
        if (!startButton->isChecked()) {
            qFatal("the scan has failed");
        }
        spin(1);
    }
}

/// A run is stopped, its values get old, and the site, which is known then, is started again.
bool benchRestart()
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    const SimulatedSite installation(fullScenario(), Simulation::Pace::Unpaced);
    userSettings().setValue(constants::kComPortKey, installation.portName());
    MainWindow window;
    openOn(window);
    spin(kAgeingMs); // their names
    application().takeLongestMs("opened");
    auto* startButton = child<QPushButton>(window, "startButton");
    startButton->click();
    spin(kAgeingMs);
    const double stoppedMs = application().takeLongestMs("stopped");
    startButton->click();
    spin(kAgeingMs);
    const double restartMs = std::max(stoppedMs, application().takeLongestMs("started"));
    return report("restart", restartMs, kBlockLimitMs, Bound::AtMost);
}

bool benchWindow()
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    const QString journalPath = folder.filePath(QStringLiteral("journal"));
    const QString logPath = folder.filePath(QStringLiteral("log.csv"));
    auto installation =
        std::make_unique<SimulatedSite>(fullScenario(), Simulation::Pace::Unpaced, journalPath);
    userSettings().setValue(constants::kComPortKey, installation->portName());

    MainWindow window;
    window.show();
    spin(500);
    startLogging(window, logPath);
    auto* startButton = child<QPushButton>(window, "startButton");
    auto* overview = child<QTableView>(window, "deviceOverviewTableView");

    application().takeLongestMs("opened"); // start-up has its own benchmark
    startButton->click();
    while (overview->model()->rowCount() == 0) {
        if (!startButton->isChecked()) {
            qFatal("the scan has failed");
        }
        spin(1);
    }
    double firstMs = 0;
    double lastMs = 0;
    double blockMs = 0;
    double filterMs = 0;
    {
        const QueueProbe queue;
        const Typist typist(child<QLineEdit>(window, "overviewFilterEdit"), overview);
        const double cpuBefore = threadCpuMs();
        const int runMs = isShortForm() ? kShortRunMs : kRunMs;
        spin(runMs);
        firstMs = queue.medianMs(0);
        lastMs = queue.medianMs(2);
        filterMs = typist.longestMs();
        std::printf("           GUI thread: %.0f %% of a core\n",
                    (threadCpuMs() - cpuBefore) / runMs * 100);
        blockMs = application().takeLongestMs("polling");
    }
    const double exportMs = exportBlockMs(window, folder.filePath(QStringLiteral("export.csv")));
    hangUp(installation, *startButton);

    const QStringList answered = answeredLdbs(journalPath);
    const QStringList logged = loggedLdbs(logPath);
    const bool isInOrder = answered.mid(0, logged.size()) == logged;
    std::printf("           %d status answers, %d records taken, %s; %d rows\n", answered.size(),
                logged.size(), isInOrder ? "the same LDBs in the same order" : "NOT THE SAME LDBS",
                overview->model()->rowCount());
    std::printf("           an event queues %.2f ms at first, %.2f ms at last\n", firstMs, lastMs);
    bool good = isInOrder && overview->model()->rowCount() == busaddress::kLast;
    good = report("records", answered.size() - logged.size(), kMissingLimit, Bound::AtMost) && good;
    good = report("queue", lastMs - firstMs, kQueueGrowthLimitMs, Bound::AtMost) && good;
    good = report("block", blockMs, kBlockLimitMs, Bound::AtMost) && good;
    good = report("filter", filterMs, kFrameMs, Bound::AtMost) && good;
    good = report("export", exportMs, kBlockLimitMs, Bound::AtMost) && good;
    return good;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir data; // what is remembered of a site is not the user's own
    qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
    takeShortForm(argc, argv);
    const TimedApplication timed(argc, argv);
    QDir::setCurrent(QStringLiteral(PROJECT_FOLDER));
    const bool isGood = benchWindow();
    return benchRestart() && isGood ? 0 : 1;
}

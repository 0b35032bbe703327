// From the start of the process to the first painted window: the main window beside an empty
// QMainWindow, in processes of this program by turns. Ends with status 1 when the ratio of the
// medians is out of bounds. The empty window is one as Qt makes it; a second one has the program's
// platform attributes, which let it come up faster, and is told for comparison only.
// QT_QPA_PLATFORM chooses the platform; the display where there is one when it is not set. --short
// measures once.
#include "app/startup.h"
#include "app/window/mainwindow.h"
#include "benchmarks/support/report.h"

#include <QApplication>
#include <QPaintEvent>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <ctime>
#include <vector>

namespace {

constexpr double kLimit = 1.5;
constexpr int kStarts = 11;
constexpr int kChildMs = 30000;
constexpr qint64 kNanosecondsPerSecond = 1000000000;
constexpr double kNanosecondsPerMillisecond = 1e6;

const QString kProgramWindow = QStringLiteral("program");
const QString kEmptyWindow = QStringLiteral("empty");
const QString kLikeEmptyWindow = QStringLiteral("empty, like the program's");

// The arguments of a child.
enum Argument
{
    WindowArgument = 1,
    SettingsArgument,
    StartArgument,
    ArgumentCount
};

/// A clock that all processes share.
qint64 nowNanoseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<qint64>(now.tv_sec) * kNanosecondsPerSecond + now.tv_nsec;
}

/// Ends the program once the window has been painted, its children included.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(QWidget* window) { window->installEventFilter(this); }

    qint64 at() const { return m_at; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_seen) {
            m_seen = true;
            // Window and children are painted in one go.
            QTimer::singleShot(0, this, [this] {
                m_at = nowNanoseconds();
                QCoreApplication::quit();
            });
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool m_seen = false;
    qint64 m_at = 0;
};

template <typename Window>
int show(qint64 startedAt)
{
    Window window;
    window.resize(1280, 800);
    const FirstPaint paint(&window);
    window.show();
    QApplication::exec();
    std::printf("%lld\n", static_cast<long long>(paint.at() - startedAt));
    std::fflush(stdout);
    return 0;
}

int runChild(const QStringList& arguments)
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                       arguments.at(SettingsArgument));
    const qint64 startedAt = arguments.at(StartArgument).toLongLong();
    return arguments.at(WindowArgument) == kProgramWindow ? show<MainWindow>(startedAt)
                                                          : show<QMainWindow>(startedAt);
}

double startMs(const QString& window, const QString& settingsFolder)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {window, settingsFolder, QString::number(nowNanoseconds())});
    if (!process.waitForFinished(kChildMs) || process.exitCode() != 0) {
        qFatal("the %s window does not come up", qPrintable(window));
    }
    return process.readAllStandardOutput().trimmed().toDouble() / kNanosecondsPerMillisecond;
}

bool benchStartup()
{
    const QTemporaryDir settings;
    // The first ones bring the files into memory.
    startMs(kEmptyWindow, settings.path());
    startMs(kProgramWindow, settings.path());
    std::vector<double> empty;
    std::vector<double> likeEmpty;
    std::vector<double> program;
    for (int i = 0; i < (isShortForm() ? 1 : kStarts); ++i) {
        empty.push_back(startMs(kEmptyWindow, settings.path()));
        likeEmpty.push_back(startMs(kLikeEmptyWindow, settings.path()));
        program.push_back(startMs(kProgramWindow, settings.path()));
    }
    std::printf("           %.1f ms to the first paint, an empty window %.1f ms (%s)\n",
                median(program), median(empty), qgetenv("QT_QPA_PLATFORM").constData());
    std::printf("           an empty window with the program's attributes %.1f ms, ratio %.3f\n",
                median(likeEmpty), median(program) / median(likeEmpty));
    return report("startup", median(program) / median(empty), kLimit, Bound::AtMost);
}

} // namespace

int main(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        // On a real display where there is one: what a user waits for holds the way there too.
        qputenv("QT_QPA_PLATFORM", qEnvironmentVariableIsSet("DISPLAY") ? "xcb" : "offscreen");
    }
    takeShortForm(argc, argv);
    if (argc < ArgumentCount) {
        const QCoreApplication application(argc, argv);
        return benchStartup() ? 0 : 1;
    }
    if (QLatin1String(argv[WindowArgument]) != kEmptyWindow) {
        setPlatformAttributes();
    }
    const QApplication application(argc, argv);
    return runChild(QCoreApplication::arguments());
}

// The window looking back at a recorded week of 32 LDBs, 19 exchanges a second:
//   open   from the wish to see it until the window shows its last moment
//   jump   from the wish to see any moment until tables, plot and lamps are painted
//   drag   the longest time that the GUI thread computes for one event while somebody drags the
//   time
//          bar for ten seconds
// Ends with status 1 when a figure misses its limit. One day is recorded, the others are that day
// again. The short form looks back at an hour, for a shorter time.
#include "app/lookback/lookback.h"
#include "app/lookback/timebar.h"
#include "app/window/mainwindow.h"
#include "benchmarks/support/recordedsite.h"
#include "benchmarks/support/report.h"
#include "benchmarks/support/timedapplication.h"
#include "recording/recordingfolder.h"
#include "recording/recordwriter.h"

#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QMouseEvent>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTableView>
#include <QTemporaryDir>
#include <QTimer>
#include <QVariant>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double kOpenLimitMs = 500;
constexpr double kJumpLimitMs = 100;
constexpr double kBlockLimitMs = 50;
constexpr int kDays = 7;
constexpr int kPiecesOfADay = 144;
constexpr int kPiecesOfAnHour = 6;
constexpr qint64 kDay = 86400LL * 1000000;
constexpr int kJumps = 100;
constexpr int kShortJumps = 10;
constexpr int kDragMs = 10000;
constexpr int kShortDragMs = 1000;
constexpr int kDragStepMs = 16;
/// When nothing has been painted for so long, all has been.
constexpr int kQuietMs = 60;
constexpr int kLongestWaitMs = 20000;
constexpr double kNanosecondsPerMs = 1e6;

void record(const QString& folder, int pieces)
{
    const RecorderInputs piece = recordedsite::makePiece();
    RecordWriter writer({folder, QStringLiteral("2.2"), {}, false});
    for (int number = 0; number < pieces; ++number) {
        RecorderInputs inputs;
        inputs.reserve(piece.size());
        for (const RecorderInput& input : piece) {
            if (number == 0 || !std::holds_alternative<input::RunBegun>(input)) {
                inputs.push_back(recordedsite::later(input, number * recordedsite::kPiece));
            }
        }
        writer.take(inputs);
    }
    writer.finish();
}

void execute(QSqlQuery& query, const QString& statement)
{
    if (!query.exec(statement)) {
        qFatal("%s: %s", qPrintable(statement), qPrintable(query.lastError().text()));
    }
}

/// Writes a file anew with everything in it so much later.
void copyLater(const QString& from, const QString& to, qint64 by)
{
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("copy"));
        database.setDatabaseName(to);
        if (!database.open()) {
            qFatal("%s cannot be written", qPrintable(to));
        }
        QSqlQuery query(database);
        execute(query, QStringLiteral("PRAGMA journal_mode=OFF"));
        execute(query, QStringLiteral("PRAGMA synchronous=OFF"));
        execute(query, QStringLiteral("ATTACH '%1' AS source").arg(from));
        for (const char* name : {"application_id", "user_version"}) {
            execute(query, QStringLiteral("PRAGMA source.%1").arg(QLatin1String(name)));
            query.next();
            const int value = query.value(0).toInt();
            execute(query, QStringLiteral("PRAGMA main.%1=%2").arg(QLatin1String(name)).arg(value));
        }
        QStringList tables;
        execute(query, QStringLiteral("SELECT sql FROM source.sqlite_master WHERE type='table'"));
        while (query.next()) {
            tables.append(query.value(0).toString());
        }
        for (const QString& table : qAsConst(tables)) {
            execute(query, table);
        }
        execute(query, QStringLiteral("BEGIN"));
        for (const char* copy :
             {"exchanges SELECT at+%1,ldb,kind,outcome,flight,request,answer FROM source.exchanges"
              " ORDER BY at",
              "rounds SELECT at+%1,wall+%1/1000,offset,single FROM source.rounds ORDER BY at",
              "minutes SELECT minute+%1/60000000,ldb,asked,good,damaged,silent,told,least,sum,most"
              " FROM source.minutes ORDER BY minute,ldb",
              "events SELECT id,at+%1,kind,ldb,place,iif(since=0,0,since+%1),count,still,before,"
              "after,text FROM source.events",
              "runs SELECT begun+%1,until+%1,ended,continued,port,found,names FROM source.runs",
              "about SELECT key,value FROM source.about"}) {
            execute(query, QStringLiteral("INSERT INTO ") +
                               QString::fromLatin1(copy).replace("%1", QString::number(by)));
        }
        execute(query, QStringLiteral("COMMIT"));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("copy"));
}

void makeWeek(const QString& folder)
{
    record(folder, kPiecesOfADay);
    const auto files = recordingfolder::filesOf(folder);
    for (int day = 1; day < kDays; ++day) {
        for (const auto& file : files) {
            copyLater(file.path, recordingfolder::pathOf(folder, file.day.addDays(day), day + 1),
                      day * kDay);
        }
    }
}

double milliseconds(const QElapsedTimer& timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / kNanosecondsPerMs;
}

/// Notes when something was painted that shows the bus.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(const QElapsedTimer& timer)
        : m_timer(timer)
    {
        qApp->installEventFilter(this);
    }
    double last() const { return m_last; }
    void forget() { m_last = 0; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isView = watched->inherits("QwtPlotCanvas") || watched->inherits("QTableView") ||
                            watched->parent() == nullptr ||
                            watched->parent()->inherits("QTableView");
        if (event->type() == QEvent::Paint && isView) {
            // Behind the painting itself.
            QTimer::singleShot(0, this, [this] { m_last = milliseconds(m_timer); });
        }
        return false;
    }

private:
    const QElapsedTimer& m_timer;
    double m_last = 0;
};

void spin(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Until a moment that is wanted has been painted, ms.
template <typename Want>
double untilPainted(const LookBack& lookBack, const Want& want)
{
    QElapsedTimer timer;
    timer.start();
    PaintWatch paints(timer);
    QEventLoop loop;
    QObject::connect(&lookBack, &LookBack::shownChanged, &loop, &QEventLoop::quit);
    QTimer::singleShot(kLongestWaitMs, &loop, [] { qFatal("the window shows nothing"); });
    want();
    loop.exec();
    double painted = milliseconds(timer);
    do {
        painted = std::max(painted, paints.last());
        spin(kQuietMs);
    } while (paints.last() > painted);
    return painted;
}

void drag(TimeBar* bar, int ms)
{
    std::mt19937 chance(2);
    const auto send = [bar](QEvent::Type type, int x, Qt::MouseButtons buttons) {
        QMouseEvent event(type, QPointF(x, bar->height() / 2.0), Qt::LeftButton, buttons, {});
        QCoreApplication::sendEvent(bar, &event);
    };
    int x = bar->liveLeft() / 2;
    send(QEvent::MouseButtonPress, x, Qt::LeftButton);
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < ms) {
        x = std::clamp(x + static_cast<int>(chance() % 41) - 20, 0, bar->liveLeft() - 1);
        send(QEvent::MouseMove, x, Qt::LeftButton);
        spin(kDragStepMs);
    }
    send(QEvent::MouseButtonRelease, x, Qt::NoButton);
}

} // namespace

int main(int argc, char* argv[])
{
    const bool isShort = takeShortForm(argc, argv);
    TimedApplication application(argc, argv);
    const QTemporaryDir home;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
    const QTemporaryDir recordings;
    if (isShort) {
        record(recordings.path(), kPiecesOfAnHour);
    } else {
        makeWeek(recordings.path());
    }
    double bytes = 0;
    for (const auto& file : recordingfolder::filesOf(recordings.path())) {
        bytes += static_cast<double>(file.bytes);
    }
    std::printf("%.0f MB\n", bytes / 1e6);

    MainWindow window;
    window.resize(1280, 660);
    window.show();
    spin(1000);
    auto* lookBack = window.findChild<LookBack*>();
    bool isGood = report("open, ms",
                         untilPainted(*lookBack, [&] { window.openRecording(recordings.path()); }),
                         kOpenLimitMs, Bound::AtMost);
    if (window.findChild<QTableView*>(QStringLiteral("deviceOverviewTableView"))
            ->model()
            ->rowCount() != recordedsite::kLdbs) {
        qFatal("not all LDBs are shown");
    }
    spin(1000); // the bar
    const TimeSpan all = lookBack->bar()->content().extent;
    std::mt19937 chance(1);
    std::vector<double> jumps;
    const int count = isShort ? kShortJumps : kJumps;
    jumps.reserve(static_cast<std::size_t>(count));
    for (int jump = 0; jump < count; ++jump) {
        const double share = static_cast<double>(chance()) / static_cast<double>(chance.max());
        const qint64 at =
            all.from + static_cast<qint64>(share * static_cast<double>(all.to - all.from));
        jumps.push_back(untilPainted(*lookBack, [&] { lookBack->goTo(at); }));
    }
    std::printf("jump, the middle one: %.0f ms\n", median(jumps));
    isGood &= report("jump, the slowest, ms", *std::max_element(jumps.begin(), jumps.end()),
                     kJumpLimitMs, Bound::AtMost);
    application.takeLongestMs("jumps");
    drag(lookBack->bar(), isShort ? kShortDragMs : kDragMs);
    isGood &= report("drag, ms", application.takeLongestMs("drag"), kBlockLimitMs, Bound::AtMost);
    return isGood ? 0 : 1;
}

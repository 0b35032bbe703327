// The list of events with 10,000 of them, each step with the painting behind it, in CPU time of the
// GUI thread:
//   fill      the longest turn of the event loop while all come, a page at a time, in % of 50 ms
//   scroll    the slowest step of the scroll bar from end to end, in % of a frame of 16 ms
//   filter    the slowest step of filtering: a letter typed, another LDB, all again, in % of 50 ms
//   add       a new event while all are listed, in % of a frame
// Ends with status 1 when a figure is out of its bounds.
#include "benchmarks/support/report.h"
#include "views/events/eventhistory.h"
#include "views/events/eventlist.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>

#include <algorithm>
#include <ctime>
#include <functional>
#include <utility>
#include <vector>

namespace {

constexpr int kEvents = 10000;
constexpr int kShortEvents = 1000;
constexpr int kSteps = 400;
constexpr int kTurns = 20; // more than any change needs
constexpr double kFrameMs = 16;
constexpr double kBlockMs = 50;
constexpr double kLimitPercent = 100;
constexpr qint64 kSecond = 1000000;
constexpr qint64 kNoon = 1772625600 * kSecond;
constexpr QSize kSize(914, 290); // as in the window on a small laptop

double threadCpuMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// The longest turn of the event loop of an action and of all that it leads to.
double longestTurn(const std::function<void()>& action)
{
    double longest = 0;
    for (int turn = 0; turn < kTurns; ++turn) {
        const double before = threadCpuMs();
        if (turn == 0) {
            action();
        }
        QCoreApplication::processEvents();
        longest = std::max(longest, threadCpuMs() - before);
    }
    return longest;
}

RecordedEvent eventOf(int number)
{
    RecordedEvent event;
    event.at = kNoon + number * kSecond;
    event.hexId = QStringLiteral("%1").arg(number % 32 + 1, 2, 16, QLatin1Char('0')).toUpper();
    event.place = FaultPlace::LoopOpen;
    switch (number % 3) {
    case 0:
        event.kind = EventKind::FaultBegun;
        break;
    case 1:
        event.kind = EventKind::FaultEnded;
        event.since = event.at - kSecond;
        break;
    default:
        event.kind = EventKind::Mark;
        event.text = QStringLiteral("plug pulled at FIM %1").arg(number % 20);
        break;
    }
    return event;
}

bool measure(int count)
{
    std::vector<RecordedEvent> all;
    all.reserve(static_cast<std::size_t>(count));
    for (int number = 0; number < count; ++number) {
        all.push_back(eventOf(number));
    }
    EventList list([] { return (kNoon + kEvents * kSecond) / 1000; });
    list.resize(kSize);
    list.show();
    longestTurn([] {});

    // Answers as the recording does: a page each, later.
    std::function<void()> answer;
    list.read([&all, &answer](TimeSpan span, int limit, EventHistory::Answer take) {
        const auto to =
            std::partition_point(all.begin(), all.end(), [&span](const RecordedEvent& event) {
                return event.at < span.to;
            });
        const auto from = to - std::min<std::ptrdiff_t>(limit, to - all.begin());
        answer = [page = std::vector<RecordedEvent>(from, to), take = std::move(take)] {
            take(page);
        };
    });
    double fill = 0;
    while (answer) {
        fill = std::max(fill, longestTurn(std::exchange(answer, nullptr)));
    }
    auto* table = list.findChild<QTableView*>();
    if (table->model()->rowCount() != count) {
        return false;
    }

    double scroll = 0;
    QScrollBar* bar = table->verticalScrollBar();
    for (int step = 0; step <= kSteps; ++step) {
        scroll = std::max(
            scroll, longestTurn([bar, step] { bar->setValue(bar->maximum() * step / kSteps); }));
    }
    double filter = 0;
    auto* text = list.findChild<QLineEdit*>(QStringLiteral("eventTextEdit"));
    for (const char* typed : {"p", "pl", "plug", ""}) {
        filter =
            std::max(filter, longestTurn([text, typed] { text->setText(QLatin1String(typed)); }));
    }
    auto* ldb = list.findChild<QComboBox*>(QStringLiteral("eventLdbBox"));
    for (const int index : {1, 0}) {
        filter = std::max(filter, longestTurn([ldb, index] { ldb->setCurrentIndex(index); }));
    }
    const double add = longestTurn([&list, count] { list.add(eventOf(count)); });

    bool isGood = report("fill, % of 50 ms", 100 * fill / kBlockMs, kLimitPercent, Bound::AtMost);
    isGood &= report("scroll, % of a frame", 100 * scroll / kFrameMs, kLimitPercent, Bound::AtMost);
    isGood &= report("filter, % of 50 ms", 100 * filter / kBlockMs, kLimitPercent, Bound::AtMost);
    isGood &= report("add, % of a frame", 100 * add / kFrameMs, kLimitPercent, Bound::AtMost);
    return isGood;
}

} // namespace

int main(int argc, char* argv[])
{
    const bool isShort = takeShortForm(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    return measure(isShort ? kShortEvents : kEvents) ? 0 : 1;
}

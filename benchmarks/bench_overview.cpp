// The overview with 253 rows, each step with the painting behind it, in CPU time of the GUI thread:
//   growth    a record's time among 253 rows over its time among 8, without painting
//   hidden    the time of the first records of 253 LDBs that a filter hides over that of as many
//             that are shown
//   filter    the slowest step of filtering: a letter typed, all shown again, only faults, faults
//             first, in % of a frame of 16 ms
//   block     the longest turn of the event loop when all rows change at once: the first records,
//             the end of the monitoring, each second behind it, other widths, other records, the
//             loss of all, in % of 50 ms
// Ends with status 1 when a figure is out of its bounds.
#include "benchmarks/support/report.h"
#include "serial/ldb/busaddress.h"
#include "serial/ldb/generalinformation.h"
#include "views/tables/deviceoverviewtable.h"
#include "views/tables/overviewbar.h"

#include <QApplication>
#include <QCheckBox>
#include <QDateTime>
#include <QDir>
#include <QHeaderView>
#include <QLineEdit>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QThread>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <utility>
#include <vector>

namespace {

constexpr double kGrowthLimit = 2.5;
constexpr double kHiddenLimit = 1.2;
constexpr double kLimitPercent = 100;
constexpr double kFrameMs = 16;
constexpr double kBlockMs = 50;
constexpr int kFewLdbs = 8;
constexpr int kRepeats = 5;
constexpr int kTurns = 200;               // more than any change needs
constexpr unsigned long kDragEndMs = 110; // costs no CPU time
constexpr QSize kSize(914, 290);          // as in the window on a small laptop

double threadCpuMs()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double timeOf(const std::function<void()>& action)
{
    const double before = threadCpuMs();
    action();
    return threadCpuMs() - before;
}

/// An LDB's status; other values with each `turn`.
LdbStatus statusOf(int address, int turn)
{
    LdbStatus status;
    status.state = (address + turn) % 3 == 0 ? LdbState::Measuring : LdbState::Quiescent;
    status.primaryVoltage = static_cast<quint16>(26000 + (address * 37 + turn * 130) % 1500);
    status.secondaryVoltage = static_cast<quint16>(25500 + (address * 53 + turn * 110) % 1500);
    status.primaryCurrent = static_cast<quint16>(280 + turn % 7);
    status.secondaryCurrent = static_cast<quint16>(320 + turn % 5);
    status.earthByte1 = address % 20 == 0 ? 1 : 0;
    return status;
}

const QString kSeconds0 = QStringLiteral("2026-03-04: 10:00:00");
const QString kMilliseconds0 = QStringLiteral("2026-03-04: 10:00:00:000");

QList<QStringList> recordOf(int address, const LdbStatus& status)
{
    return generalinformation::buildRows(busaddress::toHexId(address),
                                         QStringLiteral("Quay %1").arg(address), status, kSeconds0,
                                         kMilliseconds0);
}

/// The overview with its bar, shown.
class Overview
{
public:
    Overview()
    {
        auto* layout = new QVBoxLayout(&m_window);
        layout->addWidget(m_bar);
        layout->addWidget(m_view);
        m_bar->setView(m_view);
        m_window.resize(kSize);
        m_window.show();
        setMonitored(true, 0);
        settle();
    }

    void poll(int ldbs, const std::function<LdbStatus(int address)>& status)
    {
        for (int address = 1; address <= ldbs; ++address) {
            m_table.processData(busaddress::toHexId(address), recordOf(address, status(address)));
        }
    }
    void setMonitored(bool isOn, int seconds)
    {
        Monitoring monitoring;
        monitoring.state = isOn ? Monitoring::State::Polling : Monitoring::State::Stopped;
        monitoring.now =
            *generalinformation::clockTime(recordOf(1, LdbStatus())) + seconds * 1000LL;
        m_table.setMonitoring(monitoring);
    }
    /// The longest turn of the event loop while a record comes in each, and of all behind them.
    double longestTurnOfRound(const std::function<LdbStatus(int address)>& status)
    {
        double longest = 0;
        for (int address = 1; address <= busaddress::kLast; ++address) {
            longest = std::max(longest, timeOf([&] {
                                   m_table.processData(busaddress::toHexId(address),
                                                       recordOf(address, status(address)));
                                   QCoreApplication::processEvents();
                               }));
        }
        return std::max(longest, longestTurn([] {}));
    }
    /// The longest turn of the event loop of an action and of all that it leads to.
    double longestTurn(const std::function<void()>& action)
    {
        double longest = timeOf([&action] {
            action();
            QCoreApplication::processEvents();
        });
        for (int turn = 0; turn < kTurns; ++turn) {
            longest = std::max(longest, timeOf([] { QCoreApplication::processEvents(); }));
        }
        return longest;
    }
    void settle()
    {
        longestTurn([] {});
    }

    QLineEdit* text() const { return m_bar->findChild<QLineEdit*>(); }
    QCheckBox* box(const char* name) const
    {
        return m_bar->findChild<QCheckBox*>(QLatin1String(name));
    }
    QTableView* view() const { return m_view; }

private:
    QWidget m_window;
    OverviewBar* m_bar = new OverviewBar(&m_window);
    QTableView* m_view = new QTableView(&m_window);
    DeviceOverviewTable m_table{m_view};
};

/// One record's time among so many rows, ms.
double recordMs(int ldbs)
{
    Overview overview;
    overview.poll(ldbs, [](int address) { return statusOf(address, 0); });
    overview.settle();
    std::vector<double> times;
    for (int turn = 1; turn <= 5 * kRepeats; ++turn) {
        times.push_back(timeOf([&] {
                            overview.poll(ldbs,
                                          [turn](int address) { return statusOf(address, turn); });
                        }) /
                        ldbs);
        overview.settle();
    }
    return median(times);
}

/// The time of 253 first records, ms.
double firstRecordsMs(const QString& filter)
{
    std::vector<double> times;
    for (int repeat = 0; repeat < kRepeats; ++repeat) {
        Overview overview;
        overview.text()->setText(filter);
        overview.settle();
        times.push_back(timeOf([&] {
            overview.poll(busaddress::kLast, [](int address) { return statusOf(address, 0); });
        }));
    }
    return median(times);
}

/// Gives its longest turn of the event loop.
using Step = std::pair<const char*, std::function<double()>>;

/// The slowest of the steps, each the median of some repeats of all of them in turn.
double slowest(const std::vector<Step>& steps)
{
    std::vector<std::vector<double>> times(steps.size());
    for (int repeat = 0; repeat < (isShortForm() ? 1 : kRepeats); ++repeat) {
        for (std::size_t step = 0; step < steps.size(); ++step) {
            times[step].push_back(steps[step].second());
        }
    }
    double longest = 0;
    for (std::size_t step = 0; step < steps.size(); ++step) {
        const double ms = median(times[step]);
        std::printf("           %-30s %6.2f ms\n", steps[step].first, ms);
        longest = std::max(longest, ms);
    }
    return longest;
}

bool benchOverview()
{
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder.path());
    const int all = busaddress::kLast;
    const double growth = recordMs(all) / recordMs(kFewLdbs);
    const double shownMs = firstRecordsMs(QString());
    const double hiddenMs = firstRecordsMs(QStringLiteral("none such"));
    std::printf("           first records: %.1f ms shown, %.1f ms hidden\n", shownMs, hiddenMs);

    Overview overview;
    const double firstMs =
        overview.longestTurnOfRound([](int address) { return statusOf(address, 0); });
    std::printf("           %-30s %6.2f ms\n", "the first records", firstMs);
    QLineEdit* text = overview.text();
    QCheckBox* onlyFaults = overview.box("overviewOnlyFaultsBox");
    QCheckBox* faultsFirst = overview.box("overviewFaultsFirstBox");
    const auto click = [&overview](QCheckBox* box) {
        return [&overview, box] {
            return overview.longestTurn([box] { box->click(); });
        };
    };
    const auto type = [&overview, text](const char* letters) {
        return [&overview, text, letters] {
            return overview.longestTurn([=] { text->setText(QLatin1String(letters)); });
        };
    };
    const double filterMs = slowest({{"q", type("q")},
                                     {"quay", type("quay")},
                                     {"9", type("9")},
                                     {"quay 9", type("quay 9")},
                                     {"all again", type("")},
                                     {"none such", type("none such")},
                                     {"all again", type("")},
                                     {"only faults", click(onlyFaults)},
                                     {"all again", click(onlyFaults)},
                                     {"faults first", click(faultsFirst)},
                                     {"in their order again", click(faultsFirst)}});
    int turn = 0;
    const auto monitor = [&overview](bool isOn, int seconds) {
        return [&overview, isOn, seconds] {
            return overview.longestTurn([&] { overview.setMonitored(isOn, seconds); });
        };
    };
    const auto widen = [&] {
        return overview.longestTurn([&] {
            overview.view()->horizontalHeader()->resizeSection(4, 60 + 10 * (++turn % 3));
            QThread::msleep(kDragEndMs);
        });
    };
    const double blockMs = slowest(
        {{"not monitored any more", monitor(false, 1)},
         {"the next second", monitor(false, 2)},
         {"monitored again", monitor(true, 0)},
         {"other widths", widen},
         {"a round of other records",
          [&] {
              return overview.longestTurnOfRound(
                  [turn](int address) { return statusOf(address, turn); });
          }},
         {"all lost", [&] {
              return overview.longestTurnOfRound([](int) { return LdbStatus::disconnected(); });
          }}});

    bool good = report("growth", growth, kGrowthLimit, Bound::AtMost);
    good = report("hidden", hiddenMs / shownMs, kHiddenLimit, Bound::AtMost) && good;
    good = report("filter", filterMs / kFrameMs * 100, kLimitPercent, Bound::AtMost) && good;
    good = report("block", std::max(blockMs, firstMs) / kBlockMs * 100, kLimitPercent,
                  Bound::AtMost) &&
           good;
    return good;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    takeShortForm(argc, argv);
    const QApplication application(argc, argv);
    QDir::setCurrent(QStringLiteral(PROJECT_FOLDER));
    return benchOverview() ? 0 : 1;
}

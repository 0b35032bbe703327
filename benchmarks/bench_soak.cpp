// A simulated day on a bad bus: the main window against ldb-simulator, which answers at once, for
// as many exchanges as 9600 baud allows in a day. 1 % of the answers are garbled and 1 % late, LDBs
// vanish and come back, loops get faults, and every hour (a 24th of the exchanges) the line is cut,
// the box is closed, the line restored and Start pressed.
//   wrong     log lines and overview rows that are not what the LDB has sent
//   losses    losses told of LDBs that were on the bus, and LDBs that did not come back
//   dropped   prompt, intact answers that are not in the log, for each answer late or missing
//   heap      growth of the heap in use from the second hour's end to the last one's, in MB
//   resident  growth of the resident memory in the same time, in MB
//   handles   growth of descriptors and threads in the same time
// Ends with status 1 when a figure is out of its bounds; --short lives two short hours and fails of
// wrong lines only.
#include "app/shared/usersettings.h"
#include "app/window/mainwindow.h"
#include "benchmarks/soak/badday.h"
#include "benchmarks/soak/linetail.h"
#include "benchmarks/soak/logaudit.h"
#include "benchmarks/soak/windowoperator.h"
#include "benchmarks/support/report.h"
#include "benchmarks/support/simulatorprocess.h"
#include "tests/support/processresources.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr double kDroppedLimit = 0.02;
constexpr double kHeapLimitMb = 1;
constexpr double kResidentLimitMb = 8;

constexpr int kHoursADay = 24;
// In the short form.
constexpr int kShortHours = 2;
constexpr int kShortExchangesAnHour = 4000;
constexpr std::size_t kWarmUpHours = 2;
constexpr double kMillisecondsADay = 86400e3;
constexpr double kMegabyte = 1024.0 * 1024.0;
constexpr int kTickMs = 100;
constexpr int kLinkMs = 5;
constexpr int kSettleTicks = 3;
constexpr int kScaledFromAddress = 230;
/// With more, so few addresses are silent that a scan is over before its late answers.
constexpr int kMostLdbs = 64;
/// Every so many hours Start is pressed once before the line is back.
constexpr int kImpatientHours = 3;

struct Options
{
    int hours = kHoursADay;
    int ldbs = 32;
    int scale = 50;
    quint32 seed = 1;
    int exchanges = 0; ///< a day; 0: as many as the wire allows
};

/// The folder of the soak: per-user settings, tuning file, scenario, port, journal and log. The
/// program is to be started in it.
class Site
{
public:
    explicit Site(const BadDay& day)
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
        QDir::setCurrent(m_folder.path());
        write(constants::kTuningFileName, day.tuning());
        write(m_scenario, day.scenarioJson());
        userSettings().setValue(constants::kComPortKey, bus());
    }

    /// For whoever wants to know what went wrong.
    void keep()
    {
        m_folder.setAutoRemove(false);
        std::printf("journal and log are in %s\n", qPrintable(m_folder.path()));
    }
    QString bus() const { return m_folder.filePath(QStringLiteral("bus")); }
    QString journal() const { return m_folder.filePath(QStringLiteral("journal")); }
    QString log() const { return m_folder.filePath(QStringLiteral("log.csv")); }
    QStringList simulatorArguments() const
    {
        return {QStringLiteral("--unpaced"),
                QStringLiteral("--link"),
                bus(),
                QStringLiteral("--journal"),
                journal(),
                QStringLiteral("--scenario"),
                m_folder.filePath(m_scenario)};
    }

private:
    void write(const QString& name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("%s cannot be written", qPrintable(name));
        }
    }

    const QString m_scenario = QStringLiteral("site.json");
    QTemporaryDir m_folder;
};

class Soak
{
public:
    Soak(BadDay& day, const Site& site, int exchangesAnHour);

    /// Lives one hour, from Start to the box behind the cut, and counts what is left then.
    void liveHour(int hour);
    /// Whether all figures are within their bounds.
    bool judge() const;

private:
    void start();
    void cut();
    void restore(bool isImpatient);
    void tick();
    void checkReturns();
    void print(int hour) const;
    ProcessResources growth() const;

    BadDay& m_day;
    const Site& m_site;
    const int m_exchangesAnHour;
    SimulatorProcess m_simulator;
    MainWindow m_window;
    WindowOperator m_operator;
    LogAudit m_audit;
    LineTail m_journal;
    LineTail m_log;
    bool m_isHeaderRead = false;
    /// Lines of the last tick: the journal may have been a line behind the wire then.
    QByteArrayList m_logLines;
    QHash<QString, QStringList> m_shown;
    int m_lossBoxes = 0;
    int m_notBack = 0;
    std::vector<ProcessResources> m_resources; ///< at the end of each hour
    QElapsedTimer m_clock;
};

Soak::Soak(BadDay& day, const Site& site, int exchangesAnHour)
    : m_day(day)
    , m_site(site)
    , m_exchangesAnHour(exchangesAnHour)
    , m_simulator(site.simulatorArguments())
    , m_operator(&m_window)
    , m_audit(day.names())
    , m_journal(site.journal())
    , m_log(site.log())
{
    m_window.show();
    m_operator.startLogging(site.log());
    m_clock.start();
}

void Soak::liveHour(int hour)
{
    start();
    const int begin = m_audit.findings().exchanges;
    const std::vector<BadDay::Event> events = m_day.nextHour();
    auto next = events.begin();
    const auto partDone = [this, begin] {
        return static_cast<double>(m_audit.findings().exchanges - begin) / m_exchangesAnHour;
    };
    while (partDone() < 1) {
        const double part = partDone();
        for (; next != events.end() && next->at <= part; ++next) {
            if (!next->vanishing.isEmpty()) {
                m_audit.expectLoss(next->vanishing);
            }
            m_simulator.command(next->command);
        }
        tick();
        if (!m_operator.isRunning()) {
            qFatal("the run has ended by itself");
        }
    }
    checkReturns();
    cut();
    restore(hour % kImpatientHours == 0);
    m_resources.push_back(ProcessResources::now());
    print(hour);
}

void Soak::start()
{
    m_operator.pressStart();
    // Early enough for all that is late at full scale to have come when the short windows begin.
    m_operator.awaitScanAt(kScaledFromAddress);
    m_simulator.command(m_day.scaledLateness());
    m_operator.awaitScan();
}

void Soak::cut()
{
    m_simulator.command(QStringLiteral("cut"));
    m_operator.confirmFailure();
    for (int i = 0; i < kSettleTicks; ++i) {
        tick();
    }
    m_audit.endRun();
}

void Soak::restore(bool isImpatient)
{
    if (isImpatient) {
        m_operator.pressStart();
        m_operator.confirmFailure();
    }
    m_simulator.command(BadDay::fullLateness());
    m_simulator.command(QStringLiteral("restore"));
    while (!QFile::exists(m_site.bus())) {
        letRun(kLinkMs);
    }
}

/// Holds what was logged up to the last tick against the journal, and looks at the window.
void Soak::tick()
{
    letRun(kTickMs);
    m_lossBoxes += m_operator.closeLossBox() ? 1 : 0;
    QByteArrayList lines = m_log.takeNew();
    if (!m_isHeaderRead && !lines.isEmpty()) {
        m_isHeaderRead = true;
        lines.removeFirst();
    }
    QHash<QString, QStringList> shown = m_operator.shownRows();
    for (const QByteArray& line : m_journal.takeNew()) {
        m_audit.takeJournalLine(line);
    }
    // What was shown at the last tick was its last line of each LDB.
    QList<QStringList> shownBeside;
    for (auto line = m_logLines.crbegin(); line != m_logLines.crend(); ++line) {
        shownBeside.prepend(m_shown.take(QString::fromUtf8(line->left(line->indexOf(';')))));
    }
    for (int i = 0; i < m_logLines.size(); ++i) {
        m_audit.takeLogLine(m_logLines.at(i), shownBeside.at(i));
    }
    m_logLines = lines;
    m_shown = shown;
}

/// Every LDB is on the bus again: the window must know.
void Soak::checkReturns()
{
    const QHash<QString, QStringList> shown = m_operator.shownRows();
    for (const QString& hexId : m_day.names().keys()) {
        if (shown.contains(hexId) && m_audit.isShownLost(hexId)) {
            ++m_notBack;
            std::printf("WRONG  %s  has come back, but is shown as lost\n", qPrintable(hexId));
        }
    }
}

void Soak::print(int hour) const
{
    const LogAudit::Findings& all = m_audit.findings();
    const ProcessResources& now = m_resources.back();
    if (hour == 0) {
        std::printf("hour exchanges     sent    lines  wrong garbled   late unanswered losses  "
                    "heap MB  RSS MB  fds threads seconds\n");
    }
    std::printf("%4d %9d %8d %8d %6d %7d %6d %10d %6d %8.3f %7.2f %4d %7d %7lld\n", hour + 1,
                all.exchanges, all.sent, all.lines, all.wrong, all.garbled, all.late,
                all.unanswered, all.losses, static_cast<double>(now.heapBytes) / kMegabyte,
                static_cast<double>(now.residentBytes) / kMegabyte, now.descriptors, now.threads,
                static_cast<long long>(m_clock.elapsed() / 1000));
    std::fflush(stdout);
}

/// From the warmed-up program to the end.
ProcessResources Soak::growth() const
{
    const ProcessResources& first = m_resources.at(std::min(kWarmUpHours, m_resources.size()) - 1);
    const ProcessResources& last = m_resources.back();
    return {last.heapBytes - first.heapBytes, last.residentBytes - first.residentBytes,
            last.descriptors - first.descriptors, last.threads - first.threads};
}

bool Soak::judge() const
{
    const LogAudit::Findings& all = m_audit.findings();
    std::printf("%d log lines, %d of them \"Disconnected\"; %d overview rows looked at; "
                "%d boxes about losses closed\n",
                all.lines, all.lostLines, all.shown, m_lossBoxes);
    std::printf(
        "%d intact status answers; not in the log: %d second ones to a repeated request, %d "
        "that the cuts took, %d late ones, %d others\n",
        all.sent, all.surplus, all.takenByCut, all.lateNotTaken, all.promptNotTaken);
    const ProcessResources grown = growth();
    bool good = all.lines > 0 && all.shown > 0 && all.wrong == 0;
    good = report("wrong", all.wrong, 0, Bound::AtMost) && good;
    good = report("losses", all.falseLosses + m_notBack, 0, Bound::AtMost) && good;
    good = report("dropped", static_cast<double>(all.promptNotTaken) / (all.late + all.unanswered),
                  kDroppedLimit, Bound::AtMost) &&
           good;
    good = report("heap", static_cast<double>(grown.heapBytes) / kMegabyte, kHeapLimitMb,
                  Bound::AtMost) &&
           good;
    good = report("resident", static_cast<double>(grown.residentBytes) / kMegabyte,
                  kResidentLimitMb, Bound::AtMost) &&
           good;
    return report("handles", std::max(grown.descriptors, grown.threads), 0, Bound::AtMost) && good;
}

/// Fails the benchmark for an option that is no number above zero.
int takeNumber(const QCommandLineParser& parser, const char* name, int otherwise)
{
    const QString text = parser.value(QLatin1String(name));
    bool isNumber = text.isEmpty();
    const int number = text.isEmpty() ? otherwise : text.toInt(&isNumber);
    if (!isNumber || number < 0) {
        qFatal("--%s must be a number", name);
    }
    return number;
}

Options takeOptions()
{
    QCommandLineParser parser;
    for (const char* name : {"hours", "ldbs", "scale", "seed", "exchanges"}) {
        parser.addOption({QLatin1String(name), {}, QStringLiteral("NUMBER")});
    }
    parser.process(QCoreApplication::arguments());
    Options options;
    if (isShortForm()) {
        options.hours = kShortHours;
        options.exchanges = kShortExchangesAnHour * kHoursADay;
    }
    options.hours = takeNumber(parser, "hours", options.hours);
    options.ldbs = std::clamp(takeNumber(parser, "ldbs", options.ldbs), 2, kMostLdbs);
    options.scale = takeNumber(parser, "scale", options.scale);
    options.seed = static_cast<quint32>(takeNumber(parser, "seed", 1));
    options.exchanges = takeNumber(parser, "exchanges", options.exchanges);
    return options;
}

/// What the product says about a bad bus would bury the figures.
void dropMessages(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    Q_UNUSED(context)
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(message));
    }
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(dropMessages);
    takeShortForm(argc, argv);
    const QApplication application(argc, argv);
    const Options options = takeOptions();
    BadDay day(options.ldbs, options.scale, options.seed);
    const double pacedMs = day.pacedExchangeMs();
    const int paced = static_cast<int>(kMillisecondsADay / pacedMs);
    const int exchanges = options.exchanges > 0 ? options.exchanges : paced;
    std::printf("%d LDBs, %.2f ms an exchange at 9600 baud: %d exchanges in a day without a pause. "
                "This day has %d,\nof which %d hours are lived; answer window and latenesses are "
                "%d times shorter, save in scans.\n",
                options.ldbs, pacedMs, paced, exchanges, options.hours, options.scale);
    Site site(day);
    Soak soak(day, site, exchanges / kHoursADay);
    for (int hour = 0; hour < options.hours; ++hour) {
        soak.liveHour(hour);
    }
    const bool good = soak.judge();
    if (!good) {
        site.keep();
    }
    return good ? 0 : 1;
}

// The conversation on a bad line, with everything real but the boards: the main window with its log
// running, against ldb-simulator on a pseudo-terminal at the pace of 9600 baud. Eight LDBs, whose
// values keep changing and are unlike each other; after a scan of the good line, minutes of each
// adversary; one LDB falls silent for a while. Then the log, and what the overview showed, is held
// against the simulator's journal:
//   harmed       requests and answers that the line has harmed
//   strays       bytes that nobody has sent
//   wrong        log lines and shown rows that are not what this LDB has sent just before, and
//                losses told wrongly or not
//   missing      answers that came undamaged and alone and are not in the log, or two seconds late
//   left out     undamaged answers among stray bytes that are not in the log, as the rules allow
//   latest       the longest time from an answer's end to its line in the log, in ms
//   behind       the longest time that the simulator was behind its line, in ms: it is put before
//                all other work where the system allows that (as root), for boards are held up by
//                nothing
// The audit is audited, too: each log is spoilt in four ways, and each must be found. Ends with
// status 1 when anything is wrong or missing; the journal, the log and the program's messages are
// kept then. The short form fails of what is wrong only: a busy machine holds the simulator up,
// too.
#include "app/shared/usersettings.h"
#include "app/window/mainwindow.h"
#include "benchmarks/badline/logaudit.h"
#include "benchmarks/badline/windowoperator.h"
#include "benchmarks/support/report.h"
#include "benchmarks/support/simulatorprocess.h"
#include "serial/ldb/generalinformation.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int kMinuteMs = 60000;
constexpr int kShortMs = 20000;
/// Of the good line: a few rounds before, and time to end what is under way behind.
constexpr int kGoodMs = 6000;
/// Shorter trials are over before a loss could be told.
constexpr int kShortestWithLossMs = 2 * kMinuteMs;
constexpr int kSilentMs = 40000;
/// Stop may overtake what has just been sent.
constexpr int kStopMs = 300;
constexpr int kDifferencesPrinted = 10;
/// A trial with fewer has shown nothing.
constexpr int kFewestRecords = 50;
constexpr double kMillisecondsPerSecond = 1000;

const QString kSilentLdb = QStringLiteral("2F");

struct Trial
{
    const char* name;
    QStringList begin; ///< commands to the simulator
    QString end;
};

std::vector<Trial> trials()
{
    return {{"flips", {QStringLiteral("flips 2 2")}, QStringLiteral("flips off")},
            {"losses", {QStringLiteral("losses 2 2")}, QStringLiteral("losses off")},
            {"strays", {QStringLiteral("stray 3 30")}, QStringLiteral("stray off")},
            {"queue, strays",
             {QStringLiteral("line queue"), QStringLiteral("stray 3 30")},
             QStringLiteral("stray off")}};
}

/// Names by id.
const QHash<QString, QString>& names()
{
    static const QHash<QString, QString> all = {
        {QStringLiteral("03"), QStringLiteral("Boiler house")},
        {QStringLiteral("07"), QStringLiteral("Turbine hall")},
        {QStringLiteral("0A"), QStringLiteral("Control room")},
        {QStringLiteral("1C"), QStringLiteral("Tank farm N")},
        {QStringLiteral("2F"), QStringLiteral("Tank farm S")},
        {QStringLiteral("5B"), QStringLiteral("Jetty 2")},
        {QStringLiteral("A4"), QStringLiteral("Workshop")},
        {QStringLiteral("E9"), QStringLiteral("Gate & admin")}};
    return all;
}

/// Loops of different lengths feed different currents; boards that measure all the time have new
/// values at each answer.
QByteArray scenario(int seed)
{
    QByteArray ldbs;
    int fims = 4;
    QStringList ids = names().keys();
    ids.sort();
    for (const QString& hexId : qAsConst(ids)) {
        const QString ldb = QStringLiteral(R"({"address": "%1", "name": "%2", "fims": %3})")
                                .arg(hexId, names().value(hexId), QString::number(fims));
        ldbs += (ldbs.isEmpty() ? "" : ",\n") + ldb.toUtf8();
        fims += 3;
    }
    return R"({"seed": )" + QByteArray::number(seed) + R"(,
"timing": {"measuringSeconds": 3600},
"line": {"turnaroundFromMs": 4, "turnaroundToMs": 12},
"ldbs": [)" +
           ldbs + "]}\n";
}

/// The folder of a trial: per-user settings, scenario, port, journal, log and messages. The
/// program is to be started in it.
class Site
{
public:
    explicit Site(int seed)
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
        QDir::setCurrent(m_folder.path());
        QFile file(path("site.json"));
        const QByteArray content = scenario(seed);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("the scenario cannot be written");
        }
        userSettings().setValue(constants::kComPortKey, path("bus"));
    }

    void keep()
    {
        m_folder.setAutoRemove(false);
        std::printf("journal, log and messages are in %s\n", qPrintable(m_folder.path()));
    }
    QString path(const char* name) const { return m_folder.filePath(QLatin1String(name)); }
    QStringList simulatorArguments() const
    {
        return {QStringLiteral("--link"),     path("bus"),
                QStringLiteral("--journal"),  path("journal"),
                QStringLiteral("--scenario"), path("site.json")};
    }

private:
    QTemporaryDir m_folder;
};

/// What the program says about a bad line would bury the figures; it tells the time and goes into a
/// file, for whoever wants to know what went wrong.
void keepMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    Q_UNUSED(context)
    if (type == QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(message));
        return;
    }
    if (std::FILE* file = std::fopen("messages", "a")) {
        std::fprintf(file, "%s %s\n",
                     qPrintable(QDateTime::currentDateTime().toString(Qt::ISODateWithMs)),
                     qPrintable(message));
        std::fclose(file);
    }
}

/// What a trial leaves to be judged.
struct Traces
{
    std::vector<LoggedLine> log;
    BusBook book;
    qint64 until = 0; ///< wall time, ms since 1970
    double seconds = 0;
    int lossBoxes = 0;
    int lossesDue = 0;
};

Traces live(const Trial& trial, const Site& site, int milliseconds)
{
    Traces traces;
    SimulatorProcess simulator(site.simulatorArguments());
    simulator.makeRealTime(); // its delays are measured
    MainWindow window;
    WindowOperator user(&window);
    window.show();
    user.startLogging(site.path("log.csv"));
    LogWatch watch(site.path("log.csv"), user);
    user.pressStart();
    user.awaitScan();
    letRun(kGoodMs);
    for (const QString& command : trial.begin) {
        simulator.command(command);
    }
    int left = milliseconds;
    if (milliseconds >= kShortestWithLossMs) {
        traces.lossesDue = 1;
        letRun(milliseconds / 4);
        simulator.command(QStringLiteral("silent %1 on").arg(kSilentLdb));
        letRun(kSilentMs);
        simulator.command(QStringLiteral("silent %1 off").arg(kSilentLdb));
        left -= milliseconds / 4 + kSilentMs;
    }
    letRun(left);
    simulator.command(trial.end);
    letRun(kGoodMs);
    traces.until = QDateTime::currentMSecsSinceEpoch() - kStopMs;
    user.pressStop();
    letRun(kStopMs);
    watch.look();
    traces.log = watch.lines();
    traces.seconds = (milliseconds + 2 * kGoodMs) / kMillisecondsPerSecond;
    traces.lossBoxes = watch.lossBoxes();
    QFile journal(site.path("journal"));
    if (!journal.open(QIODevice::ReadOnly)) {
        qFatal("there is no journal");
    }
    traces.book = readJournal(journal.readAll());
    return traces;
}

LogFindings audit(const Traces& traces)
{
    LogFindings findings = auditLog(traces.log, traces.book, names(), traces.until);
    if (findings.losses.count(kSilentLdb) < traces.lossesDue) {
        findings.wrong.append(kSilentLdb + QStringLiteral("  was silent: not told"));
    }
    if (!findings.stillLost.isEmpty()) {
        findings.wrong.append(findings.stillLost.join(QLatin1Char(' ')) +
                              QStringLiteral("  is back: not told"));
    }
    if (findings.losses.isEmpty() != (traces.lossBoxes == 0)) {
        findings.wrong.append(QStringLiteral("%1 boxes about losses").arg(traces.lossBoxes));
    }
    return findings;
}

/// The ways to spoil a log: a line under another LDB, a round missing, a line twice, and a loss of
/// an LDB that is there. Those that the audit does not find.
QString missedFaults(const Traces& traces, const LogFindings& unspoilt)
{
    using Log = std::vector<LoggedLine>;
    const auto place = static_cast<std::ptrdiff_t>(traces.log.size() * 3 / 4);
    const QByteArray text = traces.log[static_cast<std::size_t>(place)].text;
    QStringList missed;
    const auto findingsOf = [&](const auto& spoil) {
        Traces spoilt = traces;
        spoil(spoilt.log, spoilt.log.begin() + place);
        return audit(spoilt);
    };
    const auto expect = [&missed](bool isFound, const char* what) {
        if (!isFound) {
            missed.append(QLatin1String(what));
        }
    };
    const LogFindings misplaced = findingsOf([&text](Log&, Log::iterator at) {
        const QString other = text.startsWith("07") ? QStringLiteral("0A") : QStringLiteral("07");
        const QByteArray rest = text.mid(text.indexOf(';', text.indexOf(';') + 1));
        at->text = (other + QLatin1Char(';') + names().value(other)).toUtf8() + rest;
    });
    expect(misplaced.wrong.size() > unspoilt.wrong.size(), "a line under another LDB");
    // One answer alone may have come among stray bytes.
    const LogFindings thinned =
        findingsOf([](Log& log, Log::iterator at) { log.erase(at, at + names().size()); });
    expect(thinned.missing.size() > unspoilt.missing.size(), "a round missing");
    const LogFindings doubled =
        findingsOf([](Log& log, Log::iterator at) { log.insert(at, LoggedLine(*at)); });
    expect(doubled.wrong.size() > unspoilt.wrong.size(), "a line twice");
    const LogFindings lost = findingsOf([&text](Log& log, Log::iterator at) {
        LoggedLine line = *at;
        QByteArrayList values = text.split(';');
        values[generalinformation::ModeRow] = "Disconnected";
        for (int row = generalinformation::LoopRow; row <= generalinformation::AmplifierRow;
             ++row) {
            values[row].clear();
        }
        line.text = values.join(';');
        log.insert(at, line);
    });
    expect(lost.falseLosses > unspoilt.falseLosses, "a false loss");
    return missed.join(QStringLiteral(", "));
}

bool judge(const Trial& trial, const Traces& traces)
{
    const LogFindings findings = audit(traces);
    const double pace = findings.records / traces.seconds;
    std::printf("%-14s %7d %8.2f %6d %6d %5d %7d %8d %6d %5d %6lld %6lld\n", trial.name,
                findings.records, pace, traces.book.harmed, traces.book.strays,
                findings.wrong.size(), findings.missing.size(), findings.leftOut,
                findings.losses.size(), findings.falseLosses,
                static_cast<long long>(findings.latest),
                static_cast<long long>(traces.book.longestDelay()));
    for (const QString& difference :
         (findings.wrong + findings.missing).mid(0, kDifferencesPrinted)) {
        std::printf("DIFFERENCE  %s\n", qPrintable(difference));
    }
    const bool isTried = findings.records >= kFewestRecords && findings.shown > 0;
    const QString missed = isTried ? missedFaults(traces, findings) : QStringLiteral("all");
    if (!missed.isEmpty()) {
        std::printf("the audit does not find: %s\n", qPrintable(missed));
    }
    std::fflush(stdout);
    const bool isComplete = findings.missing.isEmpty() || isShortForm();
    return findings.wrong.isEmpty() && isComplete && missed.isEmpty();
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    takeShortForm(argc, argv);
    const QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOptions({{QStringLiteral("minutes"), QStringLiteral("Minutes of each adversary."),
                        QStringLiteral("number"), QStringLiteral("5")},
                       {QStringLiteral("seed"), QStringLiteral("Of the simulator's chance."),
                        QStringLiteral("number"), QStringLiteral("1")},
                       {QStringLiteral("only"), QStringLiteral("One adversary alone."),
                        QStringLiteral("name"), QString()}});
    parser.addHelpOption();
    parser.process(QCoreApplication::arguments());
    const int milliseconds =
        isShortForm()
            ? kShortMs
            : static_cast<int>(parser.value(QStringLiteral("minutes")).toDouble() * kMinuteMs);
    const QString only = parser.value(QStringLiteral("only"));
    qInstallMessageHandler(keepMessage);

    std::printf("adversary      records a second harmed strays wrong missing left out losses false "
                "latest behind\n");
    std::fflush(stdout);
    bool isGood = true;
    int tried = 0;
    int seed = parser.value(QStringLiteral("seed")).toInt();
    for (const Trial& trial : trials()) {
        ++seed;
        if (only.isEmpty() || only == QLatin1String(trial.name)) {
            ++tried;
            Site site(seed);
            if (!judge(trial, live(trial, site, milliseconds))) {
                isGood = false;
                site.keep();
            }
        }
    }
    return isGood && tried > 0 ? 0 : 1;
}

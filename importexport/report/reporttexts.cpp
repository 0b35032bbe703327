#include "importexport/report/reporttexts.h"

#include "recording/lineshares.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/ldb/microseconds.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>

using generalinformation::kNoValue;

namespace reporttexts {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(VisitReport)
};

constexpr qint64 kLongUnheard = 300LL * 1000000; // far longer than a round of a large site
constexpr qint64 kShortPause = 2000000;          // between two runs: too short to miss anything

const QString kSeparator = QStringLiteral(", ");

QString endName(recordedwork::Finding::End end)
{
    switch (end) {
    case recordedwork::Finding::End::Open:
        return Texts::tr("Open");
    case recordedwork::Finding::End::Short:
        return Texts::tr("Short");
    case recordedwork::Finding::End::Connected:
        break;
    }
    return Texts::tr("Connected");
}

/// The ids and names of the LDBs for which it holds.
template <typename Holds>
QStringList namesOf(const VisitReport& report, Holds holds)
{
    QStringList names;
    for (const ReportedLdb& ldb : report.ldbs) {
        if (holds(ldb)) {
            names.append(nameText(ldb.hexId, ldb.name));
        }
    }
    return names;
}

bool isHeard(const ReportedLdb& ldb)
{
    return !ldb.record.rows.isEmpty();
}

bool isLost(const ReportedLdb& ldb)
{
    return isHeard(ldb) && generalinformation::isLost(ldb.record.rows);
}

FaultLevel worstOf(const ReportedLdb& ldb)
{
    using namespace generalinformation;
    const QList<QStringList>& rows = ldb.record.rows;
    if (!isHeard(ldb) || isLost(ldb)) {
        return FaultLevel::None;
    }
    const auto level =
        std::max({ldbLoopFault(integer(rows, LoopRow)), ldbEarthFault(integer(rows, EarthRow)),
                  ldbAmplifierFault(integer(rows, AmplifierRow))});
    const auto isShort = [&rows](Row row) {
        return integer(rows, row) == kMissingMeasurement;
    };
    const bool isPortShort = isShort(PrimaryVoltageRow) || isShort(SecondaryVoltageRow);
    if (isOutOfOrder(rows)) {
        return FaultLevel::Major;
    }
    return isPortShort ? std::max(level, FaultLevel::Minor) : level;
}

/// "0A Platform (Open, Earth leakage)".
QString faultyText(const ReportedLdb& ldb)
{
    using namespace generalinformation;
    const QList<QStringList>& rows = ldb.record.rows;
    QStringList what;
    const auto add = [&what, &rows](Row row, const QString& part, FaultLevel level) {
        if (level != FaultLevel::None) {
            what.append(Texts::tr("%1: %2").arg(part, text(rows, row)));
        }
    };
    if (isOutOfOrder(rows)) {
        what.append(text(rows, ModeRow));
    }
    add(LoopRow, Texts::tr("Loop"), ldbLoopFault(integer(rows, LoopRow)));
    add(EarthRow, Texts::tr("Earth"), ldbEarthFault(integer(rows, EarthRow)));
    add(AmplifierRow, Texts::tr("Amplifier"), ldbAmplifierFault(integer(rows, AmplifierRow)));
    const auto port = [&what, &rows](Row row, const QString& side) {
        if (integer(rows, row) == kMissingMeasurement) {
            what.append(Texts::tr("%1: %2").arg(side, text(rows, row)));
        }
    };
    port(PrimaryVoltageRow, Texts::tr("Primary side"));
    port(SecondaryVoltageRow, Texts::tr("Secondary side"));
    return QStringLiteral("%1 (%2)").arg(nameText(ldb.hexId, ldb.name), what.join(kSeparator));
}

/// The LDBs with a fault that is there, or that has gone and is remembered.
QStringList faultyOf(const VisitReport& report, FaultLevel level)
{
    const auto isThere = [&report](const QString& hexId) {
        return std::any_of(report.faults.begin(), report.faults.end(), [&](const FaultSpan& span) {
            return span.hexId == hexId && span.isThere() && span.place != FaultPlace::None;
        });
    };
    QStringList texts;
    for (const ReportedLdb& ldb : report.ldbs) {
        FaultLevel worst = worstOf(ldb);
        if (worst == FaultLevel::Minor && isThere(ldb.hexId)) {
            worst = FaultLevel::Major; // a port's short
        }
        if (worst == level) {
            texts.append(faultyText(ldb));
        }
    }
    return texts;
}

RecordedMinute sumOf(const VisitReport& report)
{
    RecordedMinute sum;
    for (const ReportedLdb& ldb : report.ldbs) {
        // An LDB that does not answer is told as such; its probes say nothing about the line.
        const bool wasLost =
            !isHeard(ldb) ||
            std::any_of(report.faults.begin(), report.faults.end(), [&ldb](const FaultSpan& span) {
                return span.hexId == ldb.hexId && span.place == FaultPlace::None;
            });
        if (!wasLost) {
            sum.asked += ldb.line.asked;
            sum.good += ldb.line.good;
            sum.damaged += ldb.line.damaged;
            sum.silent += ldb.line.silent;
        }
    }
    return sum;
}

/// Says at which times of the span no run was on.
void addPauses(const VisitReport& report, QStringList& texts)
{
    const TimeSpan span = *report.recorded;
    qint64 until = span.from;
    const auto add = [&texts](qint64 from, qint64 to) {
        if (to - from > kShortPause) {
            texts.append(Texts::tr("The bus was not monitored from %1 to %2 (%3).")
                             .arg(timeText(from), timeText(to), durationText(to - from)));
        }
    };
    std::vector<RecordedRun> runs = report.runs;
    std::sort(runs.begin(), runs.end(),
              [](const RecordedRun& a, const RecordedRun& b) { return a.begun < b.begun; });
    for (const RecordedRun& run : runs) {
        add(until, qMin(run.begun, span.to));
        until = qMax(until, run.until);
    }
    add(until, span.to);
}

void addNames(QStringList& texts, const QString& sentence, const QStringList& names)
{
    if (!names.isEmpty()) {
        texts.append(sentence.arg(names.join(kSeparator)));
    }
}

} // namespace

QString timeText(qint64 at)
{
    return at == 0 ? kNoValue
                   : microseconds::localTime(at).toString(generalinformation::kSecondsFormat);
}

QString nameText(const QString& hexId, const QString& name)
{
    return name.trimmed().isEmpty() ? hexId : QStringLiteral("%1 %2").arg(hexId, name);
}

QString portsText(const VisitReport& report)
{
    QStringList ports;
    for (const RecordedRun& run : report.runs) {
        if (!ports.contains(run.port)) {
            ports.append(run.port);
        }
    }
    return ports.join(kSeparator);
}

QString faultText(const FaultSpan& fault)
{
    if (fault.isRemembered) {
        return Texts::tr("%1, came and went between two looks").arg(fault.text());
    }
    return fault.times > 1 ? Texts::tr("%1, %n times", nullptr, fault.times).arg(fault.text())
                           : fault.text();
}

QString beginText(const FaultSpan& fault)
{
    if (fault.begun == 0) {
        return Texts::tr("not known");
    }
    return fault.isBeginVague ? Texts::tr("before %1").arg(timeText(fault.begun))
                              : timeText(fault.begun);
}

QString endText(const FaultSpan& fault)
{
    if (fault.isRemembered) {
        return kNoValue;
    }
    if (fault.isThere()) {
        return Texts::tr("still there");
    }
    return fault.isEndVague ? Texts::tr("before %1").arg(timeText(fault.ended))
                            : timeText(fault.ended);
}

QString durationOf(const FaultSpan& fault, const VisitReport& report)
{
    if (fault.isRemembered || fault.begun == 0 || (fault.isBeginVague && fault.isEndVague)) {
        return kNoValue;
    }
    const qint64 end = fault.isThere() ? report.recorded.value_or(report.span).to : fault.ended;
    const QString duration = durationText(qMax<qint64>(end - fault.begun, 0));
    if (fault.isBeginVague) {
        return Texts::tr("%1 at least").arg(duration);
    }
    return fault.isEndVague ? Texts::tr("%1 at most").arg(duration) : duration;
}

QString occasionText(FormerSettings::Occasion occasion)
{
    switch (occasion) {
    case FormerSettings::Occasion::Save:
        return Texts::tr("a save");
    case FormerSettings::Occasion::Write:
        return Texts::tr("a writing of the table");
    case FormerSettings::Occasion::Import:
        return Texts::tr("an import");
    case FormerSettings::Occasion::PutBack:
        break;
    }
    return Texts::tr("a put back");
}

QString sideText(const recordedwork::Finding::Side& side)
{
    using End = recordedwork::Finding::End;
    if (!side.isTracked) {
        return Texts::tr("not tracked");
    }
    if (!side.isFinished) {
        return Texts::tr("not ended");
    }
    return side.end == End::Connected
               ? endName(side.end)
               : Texts::tr("%1, approximately at FIM %2").arg(endName(side.end)).arg(side.fims);
}

QString countText(const recordedwork::Finding::Side& side)
{
    return side.isTracked ? QString::number(side.fims) : kNoValue;
}

std::optional<int> loopCount(const recordedwork::Finding& finding)
{
    return finding.primary.isTracked && finding.secondary.isTracked
               ? std::make_optional(finding.primary.fims + finding.secondary.fims)
               : std::nullopt;
}

QString numberText(std::optional<int> number)
{
    return number ? QString::number(*number) : kNoValue;
}

bool isOutOfOrder(const QList<QStringList>& rows)
{
    switch (static_cast<LdbState>(generalinformation::integer(rows, generalinformation::ModeRow))) {
    case LdbState::Fault:
    case LdbState::Disconnected:
    case LdbState::FimResetFailed:
    case LdbState::FactoryResetFailed:
        return true;
    default:
        return false;
    }
}

QStringList summaryTexts(const VisitReport& report)
{
    if (!report.recorded) {
        return {Texts::tr("Nothing is recorded of this time.")};
    }
    // Of a visit of last week nobody knows how it is now.
    QStringList texts{
        Texts::tr("%n LDB's were found.", nullptr, static_cast<int>(report.ldbs.size()))};
    const auto tell = [&texts](const QStringList& names, const QString& none, const QString& some) {
        texts.append(names.isEmpty() ? none : some.arg(names.size()).arg(names.join(kSeparator)));
    };
    tell(faultyOf(report, FaultLevel::Major), Texts::tr("No LDB had a fault at the end."),
         Texts::tr("LDB's with a fault at the end (%1): %2."));
    const QStringList remembered = faultyOf(report, FaultLevel::Minor);
    if (!remembered.isEmpty()) {
        tell(remembered, {}, Texts::tr("LDB's that remember a fault that has gone (%1): %2."));
    }
    tell(namesOf(report, isLost), Texts::tr("No LDB was lost at the end."),
         Texts::tr("LDB's lost at the end (%1): %2."));
    // Says what an engineer must not overlook when he leaves.
    const auto tellMode = [&](LdbState state, const QString& some) {
        const QStringList names = namesOf(report, [state](const ReportedLdb& ldb) {
            return isHeard(ldb) && static_cast<LdbState>(generalinformation::integer(
                                       ldb.record.rows, generalinformation::ModeRow)) == state;
        });
        if (!names.isEmpty()) {
            tell(names, {}, some);
        }
    };
    tellMode(LdbState::ServiceMode, Texts::tr("LDB's in service mode (%1): %2."));
    tellMode(LdbState::CheckSettings,
             Texts::tr("LDB's whose settings are to be checked (%1): %2."));
    return texts;
}

QStringList missingTexts(const VisitReport& report)
{
    QStringList texts;
    if (!report.recorded) {
        texts.append(Texts::tr("Nothing is recorded of this time."));
    }
    QStringList missing;
    for (const KnownLdb& ldb : report.missing) {
        missing.append(nameText(ldb.hexId, ldb.name));
    }
    addNames(texts, Texts::tr("Remembered of this installation, and not found: %1."), missing);
    addNames(texts, Texts::tr("Found, and never heard: %1."),
             namesOf(report, [](const ReportedLdb& ldb) { return !isHeard(ldb); }));
    addNames(texts, Texts::tr("Lost, and without values therefore: %1."), namesOf(report, isLost));
    addNames(texts, Texts::tr("Last heard before this time: %1."),
             namesOf(report, [&report](const ReportedLdb& ldb) {
                 return isHeard(ldb) && ldb.record.at < report.span.from;
             }));
    const qint64 end = report.recorded.value_or(report.span).to;
    addNames(texts, Texts::tr("Last heard more than 5 minutes before the end: %1."),
             namesOf(report, [&report, end](const ReportedLdb& ldb) {
                 return isHeard(ldb) && !isLost(ldb) && ldb.record.at >= report.span.from &&
                        ldb.record.at < end - kLongUnheard;
             }));
    addNames(texts, Texts::tr("In the list for a time only: %1."),
             namesOf(report, [](const ReportedLdb& ldb) { return !ldb.isListed; }));
    addNames(texts, Texts::tr("Without a confirmed firmware ID: %1."),
             namesOf(report, [](const ReportedLdb& ldb) { return !ldb.firmware; }));
    if (report.hasAppendix) {
        addNames(texts, Texts::tr("Settings not read in this time: %1."),
                 namesOf(report, [](const ReportedLdb& ldb) { return !ldb.settings; }));
    }
    if (report.recorded) {
        addPauses(report, texts);
    }
    for (const RecordedGap& gap : report.gaps) {
        texts.append(Texts::tr("%n exchanges from %1 to %2 are not recorded.", nullptr, gap.lost)
                         .arg(timeText(gap.from), timeText(gap.to)));
    }
    for (const RecordingNotice& notice : report.notices) {
        texts.append(notice.text());
    }
    return texts;
}

QString flightText(const RecordedMinute& line)
{
    constexpr double kPerMillisecond = 1000.0;
    if (line.good == 0) {
        return kNoValue;
    }
    const auto text = [](double microseconds) {
        return QString::number(microseconds / kPerMillisecond, 'f', 0);
    };
    return Texts::tr("%1 ms, at most %2 ms")
        .arg(text(static_cast<double>(line.sumOfFlights) / line.good),
             text(static_cast<double>(line.mostFlight)));
}

QString lineText(const VisitReport& report)
{
    const RecordedMinute sum = sumOf(report);
    if (sum.asked == 0) {
        return Texts::tr("Line quality: nothing was asked.");
    }
    const bool isGood = lineshares::isGood(sum.asked - sum.good, sum.asked);
    const QString text = isGood ? Texts::tr("Line quality: good. Of %1 questions %2 were answered "
                                            "well.")
                                : Texts::tr("Line quality: not good. Of %1 questions %2 were "
                                            "answered well.");
    return text.arg(sum.asked).arg(lineshares::text(sum.good, sum.asked));
}

} // namespace reporttexts

#include "importexport/report/visitcollector.h"

#include "recording/recordingreader.h"
#include "serial/ldb/busaddress.h"
#include "serial/ldb/exchangebytes.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/ldbstatus.h"
#include "serial/ldb/microseconds.h"

#include <QDateTime>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace {

using microseconds::kMinute;
using microseconds::kSecond;
constexpr qint64 kFirstPiece = 10 * kMinute;
constexpr qint64 kLongestGap = 15 * kSecond; // no value of the plot is live for longer

using generalinformation::Row;

/// What a record has in place of the voltage of a port that is shorted.
QString shortText()
{
    LdbStatus status;
    status.primaryPortShort = static_cast<quint8>(LdbPortShort::Short);
    return generalinformation::text(generalinformation::buildRows({}, {}, status, {}, {}),
                                    Row::PrimaryVoltageRow);
}

std::set<FaultPlace> presentFaults(const QList<QStringList>& rows)
{
    using namespace generalinformation;
    std::set<FaultPlace> places;
    if (rows.isEmpty()) {
        return places;
    }
    if (isLost(rows)) {
        return {FaultPlace::None};
    }
    const int loop = integer(rows, LoopRow);
    const int earth = integer(rows, EarthRow);
    const auto add = [&places](bool isThere, FaultPlace place) {
        if (isThere) {
            places.insert(place);
        }
    };
    const auto has = [](int code, auto flag) {
        return (code & static_cast<int>(flag)) != 0;
    };
    const bool hasLoopFault = ldbLoopFault(loop) == FaultLevel::Major;
    add(hasLoopFault && has(loop, LdbLoopState::Open), FaultPlace::LoopOpen);
    add(hasLoopFault && has(loop, LdbLoopState::Short), FaultPlace::LoopShort);
    add(hasLoopFault && has(loop, LdbLoopState::DcLeakage), FaultPlace::LoopDcLeakage);
    const bool hasEarthFault = ldbEarthFault(earth) == FaultLevel::Major;
    add(hasEarthFault && has(earth, LdbEarthState::Open), FaultPlace::EarthOpen);
    add(hasEarthFault && has(earth, LdbEarthState::Leakage), FaultPlace::EarthLeakage);
    add(ldbAmplifierFault(integer(rows, AmplifierRow)) == FaultLevel::Major, FaultPlace::Amplifier);
    add(text(rows, PrimaryVoltageRow) == shortText(), FaultPlace::PrimaryPort);
    add(text(rows, SecondaryVoltageRow) == shortText(), FaultPlace::SecondaryPort);
    return places;
}

std::optional<double> milliamperes(const QList<QStringList>& rows, Row row)
{
    const double value = generalinformation::number(rows, row);
    const bool isMeasured = generalinformation::hasValue(rows, row) &&
                            static_cast<int>(value) != generalinformation::kMissingMeasurement;
    return isMeasured ? std::make_optional(value) : std::nullopt;
}

/// Those of the polling, and those of commands: who reads all settings asks for it, too, while the
/// polling of a large site takes minutes until it has asked everybody twice. In order.
std::vector<Exchange> firmwareExchanges(RecordingReader& reader, TimeSpan piece)
{
    std::vector<Exchange> polled = reader.exchangesOf(ExchangeKind::Firmware, piece);
    std::vector<Exchange> read = reader.exchangesOf(ExchangeKind::Read, piece);
    read.erase(std::remove_if(read.begin(), read.end(),
                              [](const Exchange& exchange) {
                                  return exchange.request !=
                                         exchangebytes::usualRequest(ExchangeKind::Firmware,
                                                                     exchange.hexId);
                              }),
               read.end());
    std::vector<Exchange> all;
    all.reserve(polled.size() + read.size());
    std::merge(
        polled.begin(), polled.end(), read.begin(), read.end(), std::back_inserter(all),
        [](const Exchange& one, const Exchange& other) { return one.sentAt < other.sentAt; });
    return all;
}

/// Whether the event is in none of the report's own lists.
bool isOther(EventKind kind)
{
    // Gaps are named in the list of what is missing.
    return kind != EventKind::Mark && kind != EventKind::FaultFinding && kind != EventKind::Gap;
}

} // namespace

VisitCollector::VisitCollector(ReportRequest request)
    : m_request(std::move(request))
{
    m_report.head = m_request.head;
    m_report.span = m_request.span;
    m_report.hasAppendix = m_request.hasAppendix;
    m_steps = {[this](RecordingReader& reader) { readFrame(reader); },
               [this](RecordingReader& reader) { readLdbs(reader); },
               [this](RecordingReader& reader) { readFormerEvents(reader); },
               [this](RecordingReader& reader) { readEvents(reader); },
               [this](RecordingReader& reader) {
                   readFirmware(reader, lastPiece());
               }};
    if (m_request.hasAppendix) {
        m_steps.emplace_back(
            [this](RecordingReader& reader) { readSettings(reader, lastPiece()); });
    }
}

void VisitCollector::step(RecordingReader& reader)
{
    if (isDone()) {
        return;
    }
    const Step next = std::move(m_steps.front());
    m_steps.pop_front();
    next(reader);
    takeNotices(reader);
}

void VisitCollector::takeNotices(RecordingReader& reader)
{
    std::vector<RecordingNotice>& notices = m_report.notices;
    for (RecordingNotice& notice : reader.takeNotices()) {
        if (std::find(notices.begin(), notices.end(), notice) == notices.end()) {
            notices.push_back(std::move(notice));
        }
    }
}

void VisitCollector::readFrame(RecordingReader& reader)
{
    const TimeSpan span = m_report.span;
    readFormerSettings();
    // This reader may have given its notices to others already. A new one gives them again.
    RecordingReader another(reader.path());
    another.runs(span);
    another.events(span);
    takeNotices(another);
    const auto extent = reader.extent();
    if (!extent || extent->from >= span.to || extent->to <= span.from) {
        m_steps.clear(); // nothing of the span is recorded
        findMissing();
        return;
    }
    m_report.recorded = TimeSpan{qMax(span.from, extent->from), qMin(span.to, extent->to)};
    m_report.runs = reader.runs(span);
    m_report.gaps = reader.gaps(span);
}

void VisitCollector::readLdbs(RecordingReader& reader)
{
    const TimeSpan span = *m_report.recorded;
    for (RecordedRecord& record : reader.stateAt(span.to - 1)) {
        ReportedLdb ldb;
        ldb.hexId = record.hexId;
        ldb.record = std::move(record);
        m_report.ldbs.push_back(std::move(ldb));
    }
    const qint64 minutes = span.to / kMinute - span.from / kMinute + 1;
    const auto sums = reader.minutes({}, span, static_cast<int>(minutes));
    QStringList left;
    for (const RecordedMinute& sum : sums) {
        if (!find(sum.hexId)) {
            left.append(sum.hexId);
        }
    }
    addLeft(reader, left);
    for (const RecordedMinute& sum : sums) {
        find(sum.hexId)->line = sum;
    }
    std::sort(m_report.ldbs.begin(), m_report.ldbs.end(), [](const auto& a, const auto& b) {
        return busaddress::fromHexId(a.hexId) < busaddress::fromHexId(b.hexId);
    });
    for (ReportedLdb& ldb : m_report.ldbs) {
        ldb.name = generalinformation::ownName(ldb.record.rows);
        for (const RecordedRun& run : m_report.runs) {
            if (ldb.name.isEmpty()) {
                ldb.name = run.names.value(ldb.hexId);
            }
        }
    }
    findMissing();
}

/// The LDBs that were in the list at some time of the span.
void VisitCollector::addLeft(RecordingReader& reader, const QStringList& hexIds)
{
    for (const QString& hexId : hexIds) {
        ReportedLdb ldb;
        ldb.hexId = hexId;
        ldb.isListed = false;
        auto records = reader.records(hexId, *m_report.recorded, 1);
        if (!records.empty()) {
            ldb.record = std::move(records.front());
        }
        m_report.ldbs.push_back(std::move(ldb));
    }
}

void VisitCollector::findMissing()
{
    for (const KnownLdb& known : m_request.known) {
        if (!find(known.hexId)) {
            m_report.missing.push_back(known);
        } else if (find(known.hexId)->name.isEmpty()) {
            find(known.hexId)->name = known.name;
        }
    }
}

void VisitCollector::readFormerSettings()
{
    if (m_request.formerFolder.isEmpty()) {
        return;
    }
    const TimeSpan span = m_report.span;
    for (FormerSettings& former : FormerSettingsStore(m_request.formerFolder).all()) {
        const qint64 at = microseconds::of(former.at);
        if (at >= span.from && at < span.to) {
            m_report.former.push_back(std::move(former));
        }
    }
    std::reverse(m_report.former.begin(), m_report.former.end()); // they were read latest first
}

/// A fault that is there at the begin of the span began before it.
void VisitCollector::readFormerEvents(RecordingReader& reader)
{
    for (const RecordedEvent& event : reader.events({0, m_report.span.from})) {
        m_faults.take(event);
    }
    m_faults.forgetEnded();
}

void VisitCollector::readEvents(RecordingReader& reader)
{
    for (const RecordedEvent& event : reader.events(m_report.span)) {
        takeEvent(event);
    }
    m_report.faults = m_faults.all();
    compareWithRecords();
    for (std::size_t i = 0; i < m_report.findings.size(); ++i) {
        m_steps.emplace_front([this, i](RecordingReader& next) { readFinding(next, i); });
    }
}

void VisitCollector::takeEvent(const RecordedEvent& event)
{
    if (FaultSpans::isTaken(event)) {
        m_faults.take(event);
        return;
    }
    if (event.kind == EventKind::FaultFinding) {
        m_report.findings.push_back({event, recordedwork::findingOf(event), {}, {}});
        return;
    }
    if (event.kind == EventKind::Mark) {
        m_report.marks.push_back(event);
        return;
    }
    const bool isOfSettings =
        event.kind == EventKind::SettingsSaved || event.kind == EventKind::SettingsImported;
    const auto changes =
        isOfSettings ? recordedwork::changesOf(event) : std::vector<recordedwork::FieldChange>();
    for (const recordedwork::FieldChange& change : changes) {
        m_report.changes.push_back(
            {event.at, event.hexId, event.kind == EventKind::SettingsImported, change});
    }
    if (changes.empty() && isOther(event.kind)) {
        m_report.others.push_back(event);
    }
}

/// The last records count: a fault that flaps is told only when it has settled.
void VisitCollector::compareWithRecords()
{
    for (const ReportedLdb& ldb : m_report.ldbs) {
        if (ldb.record.rows.isEmpty()) {
            continue;
        }
        std::set<FaultPlace> untold = presentFaults(ldb.record.rows);
        const bool isLost = untold.count(FaultPlace::None) > 0;
        for (FaultSpan& span : m_report.faults) {
            if (span.hexId != ldb.hexId || !span.isThere()) {
                continue;
            }
            // Whether the faults of a lost LDB are still there is not known.
            const bool isKnown = !isLost || span.place == FaultPlace::None;
            if (untold.erase(span.place) == 0 && isKnown && span.begun < ldb.record.at) {
                span.ended = ldb.record.at;
            }
        }
        for (const FaultPlace place : untold) {
            FaultSpan span;
            span.hexId = ldb.hexId;
            span.place = place;
            m_report.faults.push_back(span);
        }
    }
}

void VisitCollector::readFinding(RecordingReader& reader, std::size_t index)
{
    ReportedFinding& reported = m_report.findings[index];
    const RecordedEvent& event = reported.event;
    for (const RecordedEvent& former : reader.events({0, event.at})) {
        if (former.hexId != event.hexId) {
            continue;
        }
        if (const auto finding = recordedwork::findingOf(former)) {
            reported.former = {former.at, *finding};
        }
    }
    if (event.since == 0) {
        return;
    }
    for (const RecordedRecord& record : reader.records(event.hexId, {event.since, event.at + 1})) {
        if (!reported.samples.empty() && record.at - reported.samples.back().at > kLongestGap) {
            reported.samples.push_back({reported.samples.back().at + 1, {}, {}});
        }
        reported.samples.push_back({record.at, milliamperes(record.rows, Row::PrimaryCurrentRow),
                                    milliamperes(record.rows, Row::SecondaryCurrentRow)});
    }
}

/// A damaged answer can pass for a sound one, so only what was told twice alike counts.
void VisitCollector::readFirmware(RecordingReader& reader, TimeSpan piece)
{
    const auto exchanges = firmwareExchanges(reader, piece);
    for (auto exchange = exchanges.rbegin(); exchange != exchanges.rend(); ++exchange) {
        ReportedLdb* ldb = find(exchange->hexId);
        if (!ldb || ldb->firmware || exchange->outcome != ExchangeOutcome::Believed) {
            continue;
        }
        for (const QByteArray& body : exchangebytes::answerBodies(exchange->answer)) {
            const auto firmware = decodeFirmwareId(body);
            if (!firmware) {
                continue;
            }
            const ReadValue<QString> told{exchange->sentAt, *firmware};
            const auto later = m_laterFirmware.constFind(ldb->hexId);
            if (later != m_laterFirmware.constEnd() && later->value == told.value) {
                ldb->firmware = *later;
            } else {
                m_laterFirmware.insert(ldb->hexId, told);
            }
        }
    }
    const bool isWhole =
        std::all_of(m_report.ldbs.begin(), m_report.ldbs.end(),
                    [](const ReportedLdb& ldb) { return ldb.firmware.has_value(); });
    const auto before = pieceBefore(piece);
    if (!isWhole && before) {
        m_steps.emplace_front(
            [this, before](RecordingReader& next) { readFirmware(next, *before); });
    }
}

void VisitCollector::readSettings(RecordingReader& reader, TimeSpan piece)
{
    const auto exchanges = reader.exchangesOf(ExchangeKind::Read, piece);
    for (auto exchange = exchanges.rbegin(); exchange != exchanges.rend(); ++exchange) {
        ReportedLdb* ldb = find(exchange->hexId);
        if (!ldb || ldb->settings || exchange->outcome != ExchangeOutcome::Believed) {
            continue;
        }
        for (const QByteArray& body : exchangebytes::answerBodies(exchange->answer)) {
            if (const auto settings = decodeLdbSettings(body, ldb->hexId)) {
                ldb->settings = {exchange->sentAt, *settings};
            }
        }
    }
    const bool isWhole =
        std::all_of(m_report.ldbs.begin(), m_report.ldbs.end(),
                    [](const ReportedLdb& ldb) { return ldb.settings.has_value(); });
    const auto before = pieceBefore(piece);
    if (!isWhole && before) {
        m_steps.emplace_front(
            [this, before](RecordingReader& next) { readSettings(next, *before); });
    }
}

TimeSpan VisitCollector::lastPiece() const
{
    const TimeSpan span = *m_report.recorded;
    return {qMax(span.from, span.to - kFirstPiece), span.to};
}

std::optional<TimeSpan> VisitCollector::pieceBefore(TimeSpan piece) const
{
    const qint64 begin = m_report.recorded->from;
    if (piece.from <= begin) {
        return std::nullopt;
    }
    return TimeSpan{qMax(begin, piece.from - 2 * (piece.to - piece.from)), piece.from};
}

ReportedLdb* VisitCollector::find(const QString& hexId)
{
    return const_cast<ReportedLdb*>(std::as_const(m_report).find(hexId));
}

TimeSpan visitOfToday(RecordingReader& reader, qint64 now)
{
    const QDate today = microseconds::localTime(now).date();
    TimeSpan span{microseconds::of(today.startOfDay()), now};
    qint64 first = now;
    for (const RecordedRun& run : reader.runs(span)) {
        if (run.begun >= span.from) {
            first = qMin(first, run.begun);
        }
    }
    span.from = first < now ? first : span.from;
    return span;
}

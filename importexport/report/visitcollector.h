#pragma once

#include "importexport/report/faultspans.h"
#include "importexport/report/visitreport.h"

#include <QHash>
#include <QStringList>

#include <deque>
#include <functional>
#include <optional>

class RecordingReader;

/// Collects from a recording what a report says, a piece at a time, so that others can read in
/// between. Used in one thread at a time.
class VisitCollector
{
public:
    explicit VisitCollector(ReportRequest request);
    VisitCollector(const VisitCollector&) = delete;
    VisitCollector& operator=(const VisitCollector&) = delete;

    bool isDone() const { return m_steps.empty(); }
    /// Reads the next piece; some ten milliseconds.
    void step(RecordingReader& reader);
    /// What has been collected; complete when `isDone()`.
    const VisitReport& report() const { return m_report; }

private:
    using Step = std::function<void(RecordingReader&)>;

    void takeNotices(RecordingReader& reader);
    void readFrame(RecordingReader& reader);
    void readLdbs(RecordingReader& reader);
    void addLeft(RecordingReader& reader, const QStringList& hexIds);
    void findMissing();
    void readFormerSettings();
    void readFormerEvents(RecordingReader& reader);
    void readEvents(RecordingReader& reader);
    void takeEvent(const RecordedEvent& event);
    void compareWithRecords();
    void readFinding(RecordingReader& reader, std::size_t index);
    void readFirmware(RecordingReader& reader, TimeSpan piece);
    void readSettings(RecordingReader& reader, TimeSpan piece);
    /// The piece of the span before this one, twice as long; nothing at the begin of the span.
    std::optional<TimeSpan> pieceBefore(TimeSpan piece) const;
    TimeSpan lastPiece() const;
    ReportedLdb* find(const QString& hexId);

    VisitReport m_report;
    ReportRequest m_request;
    std::deque<Step> m_steps;
    FaultSpans m_faults;
    QHash<QString, ReadValue<QString>>
        m_laterFirmware; ///< told once so far; an equal answer before it is looked for
};

/// The visit of today: from the first start after midnight to `now`; from midnight where there was
/// none.
TimeSpan visitOfToday(RecordingReader& reader, qint64 now);

#include "importexport/report/visitcontents.h"

#include "importexport/report/reporttexts.h"
#include "recording/lineshares.h"
#include "serial/ldb/busaddress.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/ldbstatus.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

using namespace reportpart;
using namespace reporttexts;

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(VisitReport)
};

using Rows = std::vector<std::vector<Cell>>;

/// Composes the parts of the document, one after the other.
class Composer
{
public:
    Composer(const VisitReport& report, const LineWords& words)
        : m_report(report)
        , m_words(words)
    {
    }
    ReportContents compose();

private:
    void heading(const QString& text, int level = 1) { put(Heading{text, level}); }
    void paragraph(const QString& text) { put(Paragraph{text}); }
    void table(std::vector<Column> columns, Rows rows);
    template <typename Part>
    void put(Part part)
    {
        m_contents.parts.emplace_back(std::move(part));
    }

    void putHead();
    void putSummary();
    void putLdbs();
    void putFaults();
    void putFindings();
    void putFinding(const ReportedFinding& reported);
    void putChanges();
    void putFormer();
    void putMarks();
    void putEvents();
    void putLine();
    void putMissing();
    void putSettings();

    const VisitReport& m_report;
    const LineWords& m_words;
    ReportContents m_contents;
};

void Composer::table(std::vector<Column> columns, Rows rows)
{
    put(Table{std::move(columns), std::move(rows)});
}

ReportContents Composer::compose()
{
    m_contents.title = Texts::tr("Report of the visit");
    m_contents.language = Texts::tr("en", "code of this language");
    m_contents.subject = m_report.head.installation;
    putHead();
    putSummary();
    putLdbs();
    putFaults();
    putFindings();
    putChanges();
    putMarks();
    putEvents();
    putLine();
    putMissing();
    put(Signatures{{Texts::tr("Place and date"), Texts::tr("Engineer"), Texts::tr("Customer")}});
    if (m_report.hasAppendix) {
        putSettings();
    }
    return std::move(m_contents);
}

void Composer::putHead()
{
    const ReportHead& head = m_report.head;
    heading(m_contents.title, 0);
    const TimeSpan span = m_report.recorded.value_or(m_report.span);
    const auto orDash = [](const QString& text) {
        return text.trimmed().isEmpty() ? generalinformation::kNoValue : text;
    };
    table({{{}, 30}, {{}, 100}}, {{Texts::tr("Installation"), orDash(head.installation)},
                                  {Texts::tr("Place"), orDash(head.place)},
                                  {Texts::tr("Engineer"), orDash(head.engineer)},
                                  {Texts::tr("Customer's reference"), orDash(head.reference)},
                                  {Texts::tr("Begun"), timeText(span.from)},
                                  {Texts::tr("Ended"), timeText(span.to - 1)},
                                  {Texts::tr("Program"), head.program},
                                  {Texts::tr("Port"), orDash(portsText(m_report))}});
    if (!head.remarks.trimmed().isEmpty()) {
        heading(Texts::tr("Remarks"));
        for (const QString& line : head.remarks.trimmed().split(QLatin1Char('\n'))) {
            paragraph(line);
        }
    }
}

void Composer::putSummary()
{
    heading(Texts::tr("Summary"));
    for (const QString& sentence : summaryTexts(m_report)) {
        paragraph(sentence);
    }
    paragraph(lineText(m_report));
}

void Composer::putLdbs()
{
    using namespace generalinformation;
    heading(Texts::tr("LDB's"));
    Rows rows;
    rows.reserve(m_report.ldbs.size());
    for (const ReportedLdb& ldb : m_report.ldbs) {
        const QList<QStringList>& record = ldb.record.rows;
        if (record.isEmpty()) {
            std::vector<Cell> row{
                ldb.hexId, ldb.name, {Texts::tr("Not heard"), Cell::Tone::Warned}};
            row.resize(10, Cell(kNoValue));
            rows.push_back(std::move(row));
            continue;
        }
        const auto fault = [&record](Row row, FaultLevel level) {
            return Cell(text(record, row), level == FaultLevel::Major   ? Cell::Tone::Bad
                                           : level == FaultLevel::Minor ? Cell::Tone::Warned
                                                                        : Cell::Tone::Plain);
        };
        const auto port = [&record](Row voltage, Row current) {
            const QString volts = text(record, voltage);
            const QString milliamperes = text(record, current);
            return volts == milliamperes ? Cell(volts)
                                         : Cell(volts + QLatin1Char('\n') + milliamperes);
        };
        rows.push_back(
            {ldb.hexId,
             ldb.name,
             {text(record, ModeRow), isOutOfOrder(record) ? Cell::Tone::Bad : Cell::Tone::Plain},
             fault(LoopRow,
                   isLost(record) ? FaultLevel::None : ldbLoopFault(integer(record, LoopRow))),
             fault(EarthRow,
                   isLost(record) ? FaultLevel::None : ldbEarthFault(integer(record, EarthRow))),
             fault(AmplifierRow, isLost(record) ? FaultLevel::None
                                                : ldbAmplifierFault(integer(record, AmplifierRow))),
             port(PrimaryVoltageRow, PrimaryCurrentRow),
             port(SecondaryVoltageRow, SecondaryCurrentRow),
             ldb.firmware ? ldb.firmware->value : kNoValue,
             text(record, TimestampRow)});
    }
    table({{Texts::tr("ID"), 9},
           {Texts::tr("Name"), 27, true},
           {Texts::tr("Mode"), 23},
           {Texts::tr("Loop"), 24},
           {Texts::tr("Earth"), 21},
           {Texts::tr("Amplifier"), 21},
           {Texts::tr("Primary side"), 18},
           {Texts::tr("Secondary side"), 18},
           {Texts::tr("Firmware"), 18},
           {Texts::tr("As of"), 20}},
          std::move(rows));
}

void Composer::putFaults()
{
    heading(Texts::tr("Faults"));
    if (m_report.faults.empty()) {
        paragraph(Texts::tr("No fault was recorded."));
        return;
    }
    Rows rows;
    rows.reserve(m_report.faults.size());
    for (const FaultSpan& fault : m_report.faults) {
        rows.push_back(
            {fault.hexId,
             m_report.nameOf(fault.hexId),
             faultText(fault),
             beginText(fault),
             endText(fault),
             {durationOf(fault, m_report), fault.isThere() ? Cell::Tone::Bad : Cell::Tone::Plain}});
    }
    table({{Texts::tr("ID"), 9},
           {Texts::tr("Name"), 27, true},
           {Texts::tr("Fault"), 46},
           {Texts::tr("Begin"), 36},
           {Texts::tr("End"), 36},
           {Texts::tr("Duration"), 26}},
          std::move(rows));
}

void Composer::putFindings()
{
    heading(Texts::tr("Fault finding"));
    if (m_report.findings.empty()) {
        paragraph(Texts::tr("No run of fault finding or commissioning was recorded."));
    }
    for (const ReportedFinding& reported : m_report.findings) {
        putFinding(reported);
    }
}

void Composer::putFinding(const ReportedFinding& reported)
{
    const RecordedEvent& event = reported.event;
    heading(Texts::tr("LDB %1: %2")
                .arg(nameText(event.hexId, m_report.nameOf(event.hexId)), timeText(event.at)),
            2);
    if (!reported.finding) {
        paragraph(event.description());
        return;
    }
    const recordedwork::Finding& finding = *reported.finding;
    paragraph(finding.isCommissioning ? Texts::tr("Commissioning") : Texts::tr("Fault finding"));
    const auto former = [&reported](auto side) {
        return reported.former ? countText(reported.former->value.*side)
                               : generalinformation::kNoValue;
    };
    const auto row = [&](const QString& name, auto side) {
        const recordedwork::Finding::Side& found = finding.*side;
        const bool isBad = found.isFinished && found.end != recordedwork::Finding::End::Connected;
        return std::vector<Cell>{name,
                                 {sideText(found), isBad ? Cell::Tone::Bad : Cell::Tone::Plain},
                                 countText(found),
                                 {},
                                 former(side)};
    };
    // The LDB is told the number of the whole loop, whose FIMs the two sides share.
    const auto count = loopCount(finding);
    const bool isOther = count && finding.configured && count != finding.configured;
    table({{Texts::tr("Side"), 34},
           {Texts::tr("Result"), 60},
           {Texts::tr("FIM's counted"), 26},
           {Texts::tr("FIM's configured"), 28},
           {reported.former ? Texts::tr("Last run, %1").arg(timeText(reported.former->at))
                            : Texts::tr("Last run: none recorded"),
            40}},
          {row(Texts::tr("Primary side"), &recordedwork::Finding::primary),
           row(Texts::tr("Secondary side"), &recordedwork::Finding::secondary),
           {Texts::tr("Both sides"),
            {},
            {numberText(count), isOther ? Cell::Tone::Warned : Cell::Tone::Plain},
            finding.configured ? numberText(finding.configured) : Texts::tr("not known"),
            numberText(reported.former ? loopCount(reported.former->value) : std::nullopt)}});
    for (const recordedwork::Finding::Leakage& leakage : finding.leakages) {
        paragraph(recordedwork::leakageText(leakage));
    }
    if (reported.samples.size() > 1) {
        put(Picture{runPicture(reported.samples),
                    Texts::tr("The currents of both sides during the run.")});
    }
}

void Composer::putChanges()
{
    heading(Texts::tr("Changed settings"));
    if (m_report.changes.empty()) {
        paragraph(Texts::tr("No change of a setting was recorded."));
        putFormer();
        return;
    }
    Rows rows;
    rows.reserve(m_report.changes.size());
    for (const ReportedChange& changed : m_report.changes) {
        const recordedwork::FieldChange& change = changed.change;
        const bool isGood = change.outcome == recordedwork::ChangeOutcome::Verified;
        rows.push_back({changed.hexId,
                        m_report.nameOf(changed.hexId),
                        fieldName(change.field),
                        recordedwork::valueText(change.field, change.before),
                        recordedwork::valueText(change.field, change.after),
                        timeText(changed.at),
                        {recordedwork::outcomeText(change.outcome),
                         isGood ? Cell::Tone::Plain : Cell::Tone::Warned}});
    }
    table({{Texts::tr("ID"), 9},
           {Texts::tr("Name"), 27, true},
           {Texts::tr("Setting"), 38},
           {Texts::tr("Old"), 24},
           {Texts::tr("New"), 24},
           {Texts::tr("When"), 34},
           {Texts::tr("Read back"), 30}},
          std::move(rows));
    putFormer();
}

/// The program keeps former settings itself, so this also tells of changes that were not recorded.
void Composer::putFormer()
{
    for (const FormerSettings& former : m_report.former) {
        QStringList hexIds;
        for (const LdbSettings& settings : former.ldbs) {
            hexIds.append(busaddress::toHexId(settings.address));
        }
        const QString occasion =
            former.note.isEmpty()
                ? occasionText(former.occasion)
                : QStringLiteral("%1 (%2)").arg(occasionText(former.occasion), former.note);
        paragraph(Texts::tr("%1: before %2, the former settings of %3 were kept.")
                      .arg(former.at.toLocalTime().toString(generalinformation::kSecondsFormat),
                           occasion, hexIds.join(QStringLiteral(", "))));
    }
}

void Composer::putMarks()
{
    heading(Texts::tr("Marks of the engineer"));
    if (m_report.marks.empty()) {
        paragraph(Texts::tr("No mark was made."));
        return;
    }
    Rows rows;
    rows.reserve(m_report.marks.size());
    for (const RecordedEvent& mark : m_report.marks) {
        rows.push_back({timeText(mark.at), mark.hexId, mark.description()});
    }
    table({{Texts::tr("Time"), 36}, {Texts::tr("LDB"), 12}, {Texts::tr("Mark"), 132}},
          std::move(rows));
}

void Composer::putEvents()
{
    heading(Texts::tr("Other events"));
    if (m_report.others.empty()) {
        paragraph(Texts::tr("No other event was recorded."));
        return;
    }
    Rows rows;
    rows.reserve(m_report.others.size());
    for (const RecordedEvent& event : m_report.others) {
        rows.push_back({timeText(event.at), event.hexId, event.description()});
    }
    table({{Texts::tr("Time"), 36}, {Texts::tr("LDB"), 12}, {Texts::tr("Event"), 132}},
          std::move(rows));
}

void Composer::putLine()
{
    heading(Texts::tr("Line quality"));
    paragraph(lineText(m_report));
    std::vector<RecordedMinute> lines;
    Rows rows;
    for (const ReportedLdb& ldb : m_report.ldbs) {
        const RecordedMinute& line = ldb.line;
        if (line.asked > 0) {
            lines.push_back(line);
        }
        if (line.asked > line.good) {
            rows.push_back({ldb.hexId, ldb.name, QString::number(line.asked),
                            lineshares::text(line.good, line.asked), QString::number(line.damaged),
                            QString::number(line.silent),
                            QString::number(line.asked - line.good - line.damaged - line.silent),
                            flightText(line)});
        }
    }
    if (m_words && !lines.empty()) {
        paragraph(m_words(lines));
    }
    if (lines.empty()) {
        return;
    }
    const std::size_t perfect = lines.size() - rows.size();
    if (perfect > 0) {
        paragraph(Texts::tr("%n LDB's answered every question at once.", nullptr,
                            static_cast<int>(perfect)));
    }
    if (!rows.empty()) {
        table({{Texts::tr("ID"), 9},
               {Texts::tr("Name"), 30, true},
               {Texts::tr("Questions"), 22},
               {Texts::tr("Answered well"), 24},
               {Texts::tr("Damaged"), 22},
               {Texts::tr("Not answered"), 24},
               {Texts::tr("Not believed"), 22},
               {Texts::tr("Answer after"), 27}},
              std::move(rows));
    }
}

void Composer::putMissing()
{
    heading(Texts::tr("Not looked at, or not answered"));
    const QStringList texts = missingTexts(m_report);
    for (const QString& sentence : texts) {
        paragraph(sentence);
    }
    if (texts.isEmpty()) {
        paragraph(Texts::tr("Every LDB was looked at and answered, and nothing of this time is "
                            "missing in the recording."));
    }
}

void Composer::putSettings()
{
    heading(Texts::tr("Appendix: settings of all LDB's"));
    std::vector<Column> columns{{Texts::tr("ID"), 9}};
    columns.reserve(kLdbFields.size() + 2);
    for (const LdbField field : kLdbFields) {
        const bool isName = field == LdbField::Name;
        columns.push_back({fieldHead(field), isName ? 27 : 17, isName});
    }
    columns.push_back({Texts::tr("Read"), 22});
    Rows rows;
    rows.reserve(m_report.ldbs.size());
    for (const ReportedLdb& ldb : m_report.ldbs) {
        std::vector<Cell> row{ldb.hexId};
        for (const LdbField field : kLdbFields) {
            row.emplace_back(ldb.settings              ? fieldValue(field, ldb.settings->value)
                             : field == LdbField::Name ? ldb.name
                                                       : generalinformation::kNoValue);
        }
        row.push_back(ldb.settings ? Cell(timeText(ldb.settings->at))
                                   : Cell(Texts::tr("not read"), Cell::Tone::Warned));
        rows.push_back(std::move(row));
    }
    table(std::move(columns), std::move(rows));
}

} // namespace

bool Table::hasHead() const
{
    return std::any_of(columns.begin(), columns.end(),
                       [](const Column& column) { return !column.title.isEmpty(); });
}

ReportContents contentsOf(const VisitReport& report, const LineWords& words)
{
    return Composer(report, words).compose();
}

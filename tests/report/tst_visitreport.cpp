#include "importexport/report/faultspans.h"
#include "importexport/report/reporthtml.h"
#include "importexport/report/reportpages.h"
#include "importexport/report/visitcollector.h"
#include "importexport/report/visitcontents.h"
#include "recording/recordingreader.h"
#include "serial/ldb/busaddress.h"
#include "tests/report/reportedvisit.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <QAbstractTextDocumentLayout>
#include <QProcess>
#include <QTextBlock>
#include <QTextTable>

namespace {

constexpr qint64 kSecond = RecordedBus::kSecond;
const QString kDash = QString(QChar(0x2013)); // what nobody knows

VisitReport collect(const QString& folder, const ReportRequest& request)
{
    RecordingReader reader(folder);
    VisitCollector collector(request);
    while (!collector.isDone()) {
        collector.step(reader);
    }
    return collector.report();
}

/// Where lines end is the layout's affair, and ligatures are the font's.
QString bare(const QString& text)
{
    static const QRegularExpression blanks("\\s");
    return text.normalized(QString::NormalizationForm_KC).remove(blanks);
}

QString momentText(qint64 at)
{
    return QDateTime::fromMSecsSinceEpoch(at / 1000).toString(generalinformation::kSecondsFormat);
}

QString textOfPdf(const QByteArray& pdf)
{
    QProcess process;
    process.start(PDFTOTEXT, {"-raw", "-enc", "UTF-8", "-", "-"});
    process.write(pdf);
    process.closeWriteChannel();
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// Bare, without what stands at the margins and at the head of every table but the first of a kind.
QString bodyOf(const QString& text, const QStringList& heads)
{
    QString body;
    QStringList pages = text.split(QChar(12), Qt::SkipEmptyParts);
    for (int i = 0; i < pages.size(); ++i) {
        QString page = bare(pages.at(i));
        const QString margin = bare("Report of the visit" + ReportedVisit::kInstallation +
                                    QString("Page %1 of %2").arg(i + 1).arg(pages.size()));
        if (!page.startsWith(margin)) {
            return "no margins on page " + page;
        }
        page.remove(0, margin.size());
        for (const QString& head : heads) {
            if (i > 0 && page.startsWith(bare(head))) {
                page.remove(0, bare(head).size()); // repeated
            }
        }
        body += page;
    }
    return body;
}

const QString kLdbHead =
    "ID Name Mode Loop Earth Amplifier Primary side Secondary side Firmware As of";
const QString kFaultHead = "ID Name Fault Begin End Duration";
const QString kLineHead =
    "ID Name Questions Answered well Damaged Not answered Not believed Answer after";
const QString kSettingsHead = "ID Name Number of FIM's Open Detection Delay General Fault Output "
                              "Earth Leakage Detection Earth Wire Open Detection "
                              "Start in Service Mode Amplifier Detection Audio Mute Read";

} // namespace

/// A recording of a visit, against what its report says.
class TestVisitReport : public TestCase
{
    Q_OBJECT
private slots:
    void pdfSaysWhatIsRecorded_data()
    {
        const Table<int, bool> row("ldbs", "isLetter");
        row("3, A4", 3, false);
        row("32, A4", 32, false);
        row("32, Letter", 32, true);
        row("253, A4", 253, false);
        row("253, Letter", 253, true);
    }
    void pdfSaysWhatIsRecorded()
    {
        QFETCH(int, ldbs);
        QFETCH(bool, isLetter);
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        const ReportedVisit visit(folder, ldbs);
        const ReportContents contents = contentsOf(collect(folder, visit.request()));
        const ReportPages pages(contents,
                                isLetter ? ReportPages::Paper::Letter : ReportPages::Paper::A4);
        const QString text = textOfPdf(pages.pdf());
        QCOMPARE(text.count(QChar(12)), pages.count());
        QString body = bodyOf(text, {kLdbHead, kFaultHead, kLineHead, kSettingsHead});
        const auto section = [&body](const QString& from, const QString& to) {
            const int begin = body.indexOf(bare(from)) + bare(from).size();
            const int end = body.indexOf(bare(to), begin);
            return body.mid(begin, end - begin);
        };
        QCOMPARE(section("Report of the visit", "Summary"), bare(headText(visit)));
        QCOMPARE(section("LDB's" + kLdbHead, "Faults" + kFaultHead), bare(ldbsText(folder, visit)));
        QCOMPARE(section("Faults" + kFaultHead, "Fault finding LDB"), bare(faultsText(visit)));
        QVERIFY(section("Fault finding LDB", "Changed settings")
                    .contains(bare("Primary side Open, approximately at FIM 7 7 11 Secondary side "
                                   "not tracked" +
                                   kDash + "9 Both sides" + kDash + "20 20")));
        QCOMPARE(section("Changed settings ID Name Setting Old New When Read back",
                         "Marks of the engineer"),
                 bare(changesText(visit)));
        QCOMPARE(section("Marks of the engineer Time LDB Mark", "Other events"),
                 bare(marksText(folder, visit)));
        QCOMPARE(section("Other events Time LDB Event", "Line quality"),
                 bare(eventsText(folder, visit)));
        const QString missing = section("Not looked at, or not answered", "Place and date");
        QVERIFY(missing.contains(bare(ldbs == 253 ? "Without" : "not found: FD gone.")));
        QVERIFY(visit.silent.isEmpty() || missing.contains(bare("never heard: " + visit.silent)));
        // The names of all LDBs, and the values of the one that was read.
        body = body.mid(body.indexOf(bare(kSettingsHead)) + bare(kSettingsHead).size());
        QCOMPARE(body, bare(settingsText(visit)));
    }

    void cutsNoRow_data()
    {
        const Table<int, bool> row("ldbs", "isLetter");
        row("A4", 60, false);
        row("Letter", 60, true);
    }
    void cutsNoRow()
    {
        QFETCH(int, ldbs);
        QFETCH(bool, isLetter);
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        const ReportedVisit visit(folder, ldbs);
        VisitReport report = collect(folder, visit.request());
        for (int i = 0; i < 40; ++i) { // rows of many heights
            RecordedEvent mark;
            mark.at = visit.begin;
            mark.text = QString("word ").repeated(i * 7) + QString(i * 9, 'W');
            report.marks.push_back(mark);
        }
        const ReportPages pages(contentsOf(report),
                                isLetter ? ReportPages::Paper::Letter : ReportPages::Paper::A4);
        const QTextDocument& document = pages.document();
        const auto pageOf = [&document](double y) {
            return int(y / document.pageSize().height());
        };
        int rows = 0;
        int continued = 0;
        for (QTextFrame* frame : document.rootFrame()->childFrames()) {
            auto* table = qobject_cast<QTextTable*>(frame);
            for (int row = 0; row < table->rows(); ++row) {
                QRectF rect;
                for (int column = 0; column < table->columns(); ++column) {
                    const QTextBlock block =
                        table->cellAt(row, column).firstCursorPosition().block();
                    rect |= document.documentLayout()->blockBoundingRect(block);
                }
                QVERIFY2(pageOf(rect.top()) == pageOf(rect.bottom() - 1),
                         qPrintable(table->cellAt(row, 0).firstCursorPosition().block().text()));
                ++rows;
            }
            const QRectF whole = document.documentLayout()->frameBoundingRect(table);
            QVERIFY2(pageOf(whole.top()) == pageOf(whole.bottom() - 1),
                     qPrintable(QString("%1 to %2: %3")
                                    .arg(whole.top())
                                    .arg(whole.bottom())
                                    .arg(table->cellAt(table->rows() - 1, 0)
                                             .firstCursorPosition()
                                             .block()
                                             .text())));
            continued +=
                table->format().pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore ? 1 : 0;
        }
        QVERIFY(rows > 2 * ldbs);
        QVERIFY(continued >= 4);
    }

    void putsFaultsTogether_data()
    {
        using Kind = EventKind;
        const Table<QVector<RecordedEvent>, QStringList> row("events", "spans");
        const auto event = [](int at, Kind kind, int since = 0) {
            RecordedEvent made;
            made.at = at * kSecond;
            made.kind = kind;
            made.hexId = "0A";
            made.place = kind == Kind::Lost || kind == Kind::Returned ? FaultPlace::None
                                                                      : FaultPlace::LoopOpen;
            made.since = since * kSecond;
            return made;
        };
        const auto flapped = [&event](int since, int at, bool isStill) {
            RecordedEvent made = event(at, Kind::Flapped, since);
            made.before = QString::number(int(Kind::FaultBegun));
            made.count = 12;
            made.isStill = isStill;
            return made;
        };
        const auto vague = [&event](int at, Kind kind) {
            RecordedEvent made = event(at, kind);
            made.isVague = true;
            return made;
        };
        row("begun and ended", {event(5, Kind::FaultBegun), event(9, Kind::FaultEnded, 5)},
            {"5-9"});
        row("there still", {event(5, Kind::FaultBegun)}, {"5-"});
        row("begun before", {event(9, Kind::FaultEnded, 2)}, {"2-9"});
        row("its begin is not known", {event(9, Kind::FaultEnded)}, {"0-9"});
        row("remembered only", {event(7, Kind::FaultRemembered)}, {"7-0 remembered"});
        row("loss beside a fault",
            {event(3, Kind::FaultBegun), event(4, Kind::Lost), event(6, Kind::Returned, 4)},
            {"3-", "4-6"});
        row("flapped",
            {event(1, Kind::FaultBegun), event(2, Kind::FaultEnded, 1), event(4, Kind::FaultBegun),
             flapped(4, 20, false), flapped(20, 40, false)},
            {"1-2", "4-20 x13", "20-40 x12"});
        row("flapped, there still, flapped, then gone",
            {event(4, Kind::FaultBegun), flapped(4, 20, true), flapped(21, 29, true),
             event(30, Kind::FaultEnded, 20)},
            {"4-30 x25"});
        row("there already, and gone meanwhile",
            {vague(5, Kind::FaultBegun), vague(9, Kind::FaultEnded)}, {"<5-<9"});
        row("an end that nobody saw", {event(5, Kind::FaultBegun), event(8, Kind::FaultBegun)},
            {"5-8", "8-"});
    }
    void putsFaultsTogether()
    {
        QFETCH(QVector<RecordedEvent>, events);
        FaultSpans spans;
        for (const RecordedEvent& event : events) {
            spans.take(event);
        }
        QStringList told;
        for (const FaultSpan& span : spans.all()) {
            QString text = QString(span.isBeginVague ? "<%1-" : "%1-").arg(span.begun / kSecond);
            text += span.isEndVague ? "<" : "";
            text += span.isThere() ? QString() : QString::number(span.ended / kSecond);
            text += span.times > 1 ? QString(" x%1").arg(span.times) : QString();
            told.append(text + (span.isRemembered ? " remembered" : ""));
        }
        QTEST(told, "spans");
    }

    void namesWhatIsMissing()
    {
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        RecordWriter writer(optionsFor(folder));
        RecordedBus bus(QDateTime(QDate(2026, 3, 4), QTime(7, 0)));
        bus.start({"0A", "0B"});
        bus.beginRound();
        bus.status("0B");
        bus.status("0A", RecordedBus::loopOpen(true)); // from before the span on
        const qint64 opened = bus.now - 50000;
        bus.stop();
        bus.now += 600 * kSecond;
        const qint64 begin = bus.now;
        bus.start({"0A", "0B", "0C", "0D"});
        bus.beginRound();
        bus.status("0A", RecordedBus::loopOpen(true));
        bus.status("0D");
        bus.ask("0A", ExchangeKind::Firmware, QByteArray("LDB 1.07").toHex().toUpper());
        bus.ask("0A", ExchangeKind::Firmware, QByteArray("LDB 1.08").toHex().toUpper());
        // Polled once, and read once by a command.
        bus.ask("0D", ExchangeKind::Firmware, QByteArray("LDB 1.07").toHex().toUpper());
        Exchange read = bus.ask("0D", ExchangeKind::Read, QByteArray("LDB 1.07").toHex().toUpper());
        read.request = exchangebytes::usualRequest(ExchangeKind::Firmware, "0D");
        bus.inputs.back() = input::Told{read, 0};
        const qint64 stopped = bus.now;
        bus.stop();
        bus.now += 300 * kSecond;
        bus.start({"0A", "0B", "0C", "0D"});
        RecordedEvent gap;
        gap.kind = EventKind::Gap;
        gap.since = bus.now;
        gap.at = bus.now + kSecond;
        gap.count = 17;
        bus.inputs.push_back(gap);
        bus.now += 2 * kSecond;
        bus.status("0A", RecordedBus::loopOpen(true));
        writer.take(bus.take());
        writer.finish();

        ReportRequest request;
        request.span = {begin, bus.now};
        request.known = {{"2B", "Platform"}};
        // Written while nothing was recorded of it; and before.
        request.formerFolder = sandbox.path("former");
        const FormerSettingsStore store(request.formerFolder);
        FormerSettings former;
        former.at = QDateTime::fromMSecsSinceEpoch((begin + kSecond) / 1000);
        former.occasion = FormerSettings::Occasion::Import;
        former.note = "north.csv";
        former.ldbs.resize(1);
        former.ldbs[0].address = 0x2B;
        QCOMPARE(store.keep(former), QString());
        former.at = QDateTime::fromMSecsSinceEpoch((begin - kSecond) / 1000);
        QCOMPARE(store.keep(former), QString());
        const VisitReport report = collect(folder, request);
        QCOMPARE(report.faults.size(), std::size_t(1));
        QCOMPARE(report.faults[0].begun, opened);
        QVERIFY(report.faults[0].isThere());
        const QString html = QString::fromUtf8(htmlOf(contentsOf(report)));
        for (const QString& expected :
             {QString("not found: 2B Platform."), QString("never heard: 0C."),
              QString("heard before this time: 0B."),
              // Told once so and once so.
              QString("confirmed firmware ID: 0A, 0B, 0C."),
              QString("5 minutes before the end: 0D."),
              QString("not monitored from %1 to").arg(momentText(stopped)),
              QString("17 exchanges from"),
              momentText(begin + kSecond) +
                  ": before an import (north.csv), the former settings of 2B were kept.",
              QString("a fault at the end (1): 0A (Loop: Open).")}) {
            QVERIFY2(html.count(expected) == 1, qPrintable(expected));
        }
    }

    void htmlHoldsTextAsText()
    {
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        const ReportedVisit visit(folder, 3);
        const QString html =
            QString::fromUtf8(htmlOf(contentsOf(collect(folder, visit.request()))));
        QVERIFY(html.contains("&lt;b&gt;no markup&lt;/b&gt; &amp; no loss"));
        QVERIFY(html.contains("Halle &lt;2&gt;"));
        QVERIFY(!html.contains("<b>no"));
        QVERIFY(html.contains("<html lang=\"en\">"));
        QVERIFY(html.contains("data:image/png;base64,"));
    }

    void beginsWithTheFirstStartOfTheDay()
    {
        const Sandbox sandbox;
        const QString folder = sandbox.path("recordings");
        const ReportedVisit visit(folder, 3); // with a run of the day before
        RecordingReader reader(folder);
        const qint64 evening = visit.begin + 10LL * 3600 * kSecond;
        QCOMPARE(visitOfToday(reader, evening).from, visit.begin);
        QCOMPARE(visitOfToday(reader, evening).to, evening);
        const qint64 tomorrow = visit.begin + 24LL * 3600 * kSecond;
        QCOMPARE(momentText(visitOfToday(reader, tomorrow).from), QString("2026-03-05: 00:00:00"));
    }

private:
    static QString headText(const ReportedVisit& visit)
    {
        return "Installation" + ReportedVisit::kInstallation +
               "Place Place 1 Engineer A. Engineer Customer's reference PO 4711/8 Begun" +
               momentText(visit.begin) + "Ended" + momentText(visit.end - 1) +
               "Program Sniffer 2.2 Port COM7 Remarks First remark Second remark, with <angles>";
    }

    static QString ldbsText(const QString& folder, const ReportedVisit& visit)
    {
        using namespace generalinformation;
        RecordingReader reader(folder);
        QString expected;
        for (const RecordedRecord& record : reader.stateAt(visit.end)) {
            if (record.rows.isEmpty()) {
                expected += record.hexId + "Not heard" + kDash.repeated(7);
                continue;
            }
            expected += record.hexId + nameOf(record.hexId);
            for (const Row row : {ModeRow, LoopRow, EarthRow, AmplifierRow}) {
                expected += text(record.rows, row);
            }
            for (const Row row : {PrimaryVoltageRow, SecondaryVoltageRow}) {
                const QString current = text(record.rows, Row(row + 1));
                expected += text(record.rows, row) + (current == kDash ? "" : current);
            }
            expected += QString("LDB 1.%1").arg(10 + busaddress::fromHexId(record.hexId) % 7) +
                        text(record.rows, TimestampRow);
        }
        return expected;
    }

    static QString faultsText(const ReportedVisit& visit)
    {
        struct Fault
        {
            qint64 begun;
            qint64 ended;
            QString hexId;
            QString what;
            bool isOlder = false; ///< there when its LDB was heard first
        };
        std::vector<Fault> faults{
            {visit.openedAt, visit.closedAt, visit.opened, "Loop open", false},
            {visit.lostAt, 0, visit.lost, "Lost", false}};
        for (auto leaking = visit.leaking.begin(); leaking != visit.leaking.end(); ++leaking) {
            faults.push_back({leaking.value(), 0, leaking.key(), "Earth leakage", true});
        }
        std::sort(faults.begin(), faults.end(),
                  [](const Fault& a, const Fault& b) { return a.begun < b.begun; });
        QString expected;
        for (const Fault& fault : faults) {
            const qint64 end = fault.ended == 0 ? visit.end : fault.ended;
            expected += fault.hexId + nameOf(fault.hexId) + fault.what +
                        (fault.isOlder ? "before" : "") + momentText(fault.begun) +
                        (fault.ended == 0 ? "still there" : momentText(fault.ended)) +
                        durationText(end - fault.begun) + (fault.isOlder ? "at least" : "");
        }
        return expected;
    }

    static QString changesText(const ReportedVisit& visit)
    {
        const QString ldb = visit.changed + nameOf(visit.changed);
        const QString at = momentText(visit.changedAt);
        return ldb + "Name old name new name" + at + "verified" + ldb +
               "Open Detection Delay 10 s 12 s" + at + "verified" + ldb + "Audio Mute off on" + at +
               "refused by the LDB";
    }

    static QString marksText(const QString& folder, const ReportedVisit& visit)
    {
        return eventsText(folder, visit, true);
    }

    static QString eventsText(const QString& folder, const ReportedVisit& visit,
                              bool isOfMarks = false)
    {
        RecordingReader reader(folder);
        QString expected;
        for (const RecordedEvent& event : reader.events({visit.begin, visit.end})) {
            const bool isOther =
                event.kind == EventKind::RunBegun || event.kind == EventKind::RunEnded ||
                event.kind == EventKind::ScanDiffers || event.kind == EventKind::ModeChanged;
            if (isOfMarks ? event.kind == EventKind::Mark : isOther) {
                expected += momentText(event.at) + event.hexId + event.description();
            }
        }
        return expected;
    }

    static QString settingsText(const ReportedVisit& visit)
    {
        QString expected;
        for (const QString& hexId : visit.ldbs) {
            const QString name = hexId == visit.silent ? QString() : nameOf(hexId);
            expected += hexId == visit.changed
                            ? "02 LDB 02 20 12 s on on off off off off" + momentText(visit.readAt)
                            : hexId + name + kDash.repeated(8) + "not read";
        }
        return expected;
    }

    static QString nameOf(const QString& hexId) { return ReportedVisit::nameOf(hexId); }
};

REGISTER_TEST(TestVisitReport, QGuiApplication)
#include "tst_visitreport.moc"

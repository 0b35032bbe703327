#include "recording/lineshares.h"
#include "tests/support/testprogram.h"
#include "views/quality/qualityfindings.h"
#include "views/quality/qualityhistory.h"

using Harm = QualityFinding::Harm;
using Spread = QualityFinding::Spread;

namespace {

constexpr qint64 kSecond = 1000000;
constexpr qint64 kMinute = 60 * kSecond;
constexpr qint64 kHour = 60 * kMinute;
constexpr qint64 kMonday = 20000LL * 24 * kHour; // midnight, UTC

/// "0A 1000 50 3": asked, damaged, silent; the others were good. Several behind semicolons; "x30"
/// at the end of one: so many LDBs of that kind.
CountsOfLdbs countsOf(const QString& text)
{
    CountsOfLdbs ldbs;
    for (const QString& part : text.split("; ", Qt::SkipEmptyParts)) {
        const QStringList words = part.split(' ');
        QualityCounts counts;
        counts.asked = words.at(1).toLongLong();
        counts.damaged = words.at(2).toLongLong();
        counts.silent = words.at(3).toLongLong();
        counts.good = counts.asked - counts.damaged - counts.silent;
        const int many = words.size() > 4 ? words.at(4).mid(1).toInt() : 1;
        for (int ldb = 0; ldb < many; ++ldb) {
            ldbs.insert(many == 1 ? words.at(0) : words.at(0) + QString::number(ldb), counts);
        }
    }
    return ldbs;
}

QString nameOf(const QualityFinding& finding)
{
    static const char* const kSpreads[] = {"alone", "foremost", "alike", "uneven", "one"};
    return QString("%1 %2 %3")
        .arg(finding.harm == Harm::Damage ? "damage" : "silence",
             kSpreads[static_cast<int>(finding.spread)], finding.hexIds.join(','))
        .trimmed();
}

RecordedMinute minuteOf(const QString& hexId, qint64 at, int asked, int good, int damaged = 0)
{
    RecordedMinute minute;
    minute.hexId = hexId;
    minute.at = at;
    minute.asked = asked;
    minute.good = good;
    minute.damaged = damaged;
    return minute;
}

/// What a recording of LDBs 01 and 02 would give: both asked 30 times a minute, the second one with
/// a damaged answer in each minute.
std::vector<RecordedMinute> recorded(const QualityHistory::Need& need)
{
    std::vector<RecordedMinute> minutes;
    for (qint64 at = need.span.from; at < need.span.to; at += need.each * kMinute) {
        const int whole = static_cast<int>(
            (std::min(need.span.to, at + need.each * kMinute) - at + kMinute - 1) / kMinute);
        minutes.push_back(minuteOf("01", at, 30 * whole, 30 * whole));
        minutes.push_back(minuteOf("02", at, 30 * whole, 29 * whole, whole));
    }
    return minutes;
}

/// Gives it all that it needs; how many minutes and pieces of flight times it asked for.
std::pair<qint64, int> feed(QualityHistory& history)
{
    std::pair<qint64, int> asked{0, 0};
    while (const auto need = history.need()) {
        if (need->isFlights) {
            ++asked.second;
            history.take(*need, std::vector<std::pair<QString, int>>(10, {"01", 31000}));
        } else {
            asked.first += (need->span.to - need->span.from) / kMinute;
            history.take(*need, recorded(*need));
        }
    }
    return asked;
}

} // namespace

/// What is said of the line, from numbers alone.
class TestLineQuality : public TestCase
{
    Q_OBJECT
private slots:
    void share_data()
    {
        const Table<qint64, qint64, QString> row("part", "whole", "shown");
        row("over nothing", 0, 0, "\u2013");
        row("none", 0, 7, "0 %");
        row("all", 7, 7, "100 %");
        row("one in a million", 1, 1000000, "< 0.01 %");
        row("all but one in a million", 999999, 1000000, "> 99.99 %");
        row("one in three", 1, 3, "33.33 %");
    }
    void share()
    {
        QFETCH(qint64, part);
        QFETCH(qint64, whole);
        QTEST(lineshares::text(part, whole), "shown");
    }

    void flightTimes()
    {
        std::vector<int> flights;
        for (int flight = 100; flight > 1; --flight) {
            flights.push_back(flight * 1000);
        }
        flights.push_back(900000); // one that was very late
        const auto times = flightTimesOf(flights);
        QVERIFY(times);
        QCOMPARE(times->median, 51000);
        QCOMPARE(times->part95, 96000);
        flights.resize(19);
        QVERIFY(!flightTimesOf(flights));
    }

    void findings_data()
    {
        const Table<QString, QString> row("ldbs", "found");
        row("nobody asked", "", "");
        row("too few", "01 19 19 0; 02 19 19 0; 03 19 0 0; 04 19 0 0; 05 19 0 0; 06 19 0 0", "");
        row("no more than chance", "01 100000 4 4; 02 100000 3 5; 03 100000 5 2", "");
        row("damage on one", "x 2000 0 0 x31; 1C 2000 40 0", "damage alone 1C");
        row("damage on one of 253, a few in all", "x 270 0 0 x252; 1C 270 9 0", "damage alone 1C");
        row("on one of two", "01 500 0 0; 02 500 25 0", "damage alone 02");
        row("on two of many", "x 2000 1 0 x30; 1C 2000 40 0; 1D 2000 300 0", "damage alone 1D,1C");
        row("on all", "01 2000 40 0; 02 2000 45 0; 03 2000 33 0; 04 2000 41 0", "damage alike");
        row("on all of 253, about one each", "x 270 1 0 x200; y 270 2 0 x53", "damage alike");
        row("on all, and more on one", "x 2000 20 0 x31; 1C 2000 400 0", "damage foremost 1C");
        row("on half of them", "x 2000 0 0 x8; y 2000 100 0 x8", "damage uneven");
        row("on the only one", "01 500 25 0", "damage one 01");
        row("on one, beside one that was hardly asked", "01 500 25 0; 02 10 0 0", "damage one 01");
        row("one lost", "x 2000 0 0 x31; 1C 400 0 400", "silence alone 1C");
        row("all silent", "x 200 0 200 x8", "silence alike");
        row("both", "x 2000 20 0 x31; 1C 2000 22 2000", "damage alike, silence alone 1C");
    }
    void findings()
    {
        QFETCH(QString, ldbs);
        QStringList found;
        for (const QualityFinding& finding : qualityfindings::find(countsOf(ldbs))) {
            found << nameOf(finding);
            QVERIFY(!qualityfindings::text(finding).isEmpty());
        }
        QTEST(found.join(", "), "found");
    }

    void words_data()
    {
        const Table<QString, qint64, QString> row("ldbs", "unbelieved", "words");
        row("nobody asked", "", 0, "Too few exchanges to say anything of the line.");
        row("good", "01 5000 0 0; 02 5000 4 0", 0,
            "The line is good: no more than one exchange in a thousand was not.");
        row("one with damage", "x 2000 0 0 x31; 1C 2000 40 0", 0,
            "Damage on LDB 1C alone: look at its connection.");
        row("all with damage", "x 2000 40 0 x4", 0,
            "Damage on all LDBs alike: look at the adapter and the trunk.");
        row("late answers are not silence", "01 5000 0 0; 02 5000 0 0", 30,
            "Answers came at unusual times, and were not believed.");
    }
    void words()
    {
        QFETCH(QString, ldbs);
        QFETCH(qint64, unbelieved);
        CountsOfLdbs counts = countsOf(ldbs);
        if (unbelieved > 0) {
            counts.first().good -= unbelieved;
        }
        QTEST(qualityfindings::text(counts), "words");
    }

    void history_data()
    {
        // Asked of LDB 01: whole minutes of a reach that ends 30 s into the first bar.
        const Table<int, int, int> row("reach", "minutes", "bars");
        row("now", int(QualityReach::Now), 5, 5);
        row("hour", int(QualityReach::Hour), 60, 60);
        row("day", int(QualityReach::Day), 95 * 15 + 1, 96);
        row("week", int(QualityReach::Week), 83 * 120 + 1, 84);
    }
    void history()
    {
        QFETCH(int, reach);
        QFETCH(int, minutes);
        QFETCH(int, bars);
        const qint64 end = kMonday + 12 * kHour + 30 * kSecond;
        QualityHistory history;
        history.setEnd(QualityReach(reach), end);
        const auto [read, pieces] = feed(history);
        QVERIFY(read <= minutes); // nothing twice
        QVERIFY2(pieces >= 5 && pieces <= 60, qPrintable(QString::number(pieces)));
        auto lines = history.lines();
        QCOMPARE(lines.size(), std::size_t(3));
        QCOMPARE(lines[0].hexId, QString());
        QCOMPARE(lines[0].counts.asked, 60 * minutes);
        QCOMPARE(lines[1].hexId, QString("02")); // the worse one
        QCOMPARE(lines[1].counts.asked, 30 * minutes);
        QCOMPARE(lines[1].counts.damaged, minutes);
        QCOMPARE(lines[1].counts.unbelieved(), 0);
        QCOMPARE(int(lines[1].bars.size()), bars);
        QVERIFY(!lines[1].flights);
        QCOMPARE(lines[2].flights->median, 31000);
        QCOMPARE(history.counts().value("02").damaged, minutes);

        // Five seconds later: one bar is read again, and nothing counts double.
        history.setEnd(QualityReach(reach), end + 5 * kSecond);
        const auto [readAgain, piecesAgain] = feed(history);
        QVERIFY(readAgain <= 2);
        QVERIFY(piecesAgain <= 1);
        QCOMPARE(history.lines()[0].counts.asked, 60 * minutes);

        // Back in time nothing of what came later is left.
        history.setEnd(QualityReach(reach), end - kHour);
        QVERIFY(history.lines().size() == 1);
        feed(history);
        QCOMPARE(history.lines()[0].counts.asked % 60, 0);
        QVERIFY(history.lines()[1].bars.back().at <= end - kHour);
    }

    void whatIsOldLeaves()
    {
        QualityHistory history;
        history.setEnd(QualityReach::Hour, kMonday);
        auto need = history.need();
        history.take(*need, {minuteOf("09", need->span.from, 100, 0, 100)});
        QCOMPARE(history.lines()[0].counts.damaged, 100);
        history.setEnd(QualityReach::Hour, kMonday + 2 * kMinute);
        QCOMPARE(history.lines().size(), std::size_t(1));
        QCOMPARE(history.lines()[0].counts.asked, 0);
    }

    void worstFirst()
    {
        QualityHistory history;
        history.setEnd(QualityReach::Now, kMonday);
        history.take(*history.need(), {minuteOf("01", kMonday - kMinute, 100, 99, 1),
                                       minuteOf("02", kMonday - kMinute, 5, 0, 5), // too few
                                       minuteOf("03", kMonday - kMinute, 100, 90), // not believed
                                       minuteOf("04", kMonday - kMinute, 1000, 980, 20)});
        QStringList order;
        for (const LineQuality& line : history.lines()) {
            order << line.hexId;
        }
        QCOMPARE(order.join(' '), QString(" 03 04 01 02"));
        QCOMPARE(history.lines()[1].counts.unbelieved(), 10);
    }

    void barLevels_data()
    {
        const Table<int, int, int> row("asked", "bad", "level");
        row("nobody asked", 0, 0, int(QualityBar::Level::Nothing));
        row("all good", 4, 0, int(QualityBar::Level::Good));
        row("one of few", 4, 1, int(QualityBar::Level::Some));
        row("two of few", 4, 2, int(QualityBar::Level::Bad));
        row("a few of many", 100, 5, int(QualityBar::Level::Some));
        row("more", 100, 6, int(QualityBar::Level::Bad));
    }
    void barLevels()
    {
        QFETCH(int, asked);
        QFETCH(int, bad);
        QualityBar bar;
        bar.counts.asked = asked;
        bar.counts.good = asked - bad;
        QTEST(int(bar.level()), "level");
    }
};

REGISTER_TEST(TestLineQuality, QCoreApplication)

#include "tst_linequality.moc"

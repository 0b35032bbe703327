#include "tests/support/testprogram.h"
#include "views/events/eventmodel.h"

#include <QAbstractItemModelTester>

#include <algorithm>
#include <random>

namespace {

constexpr qint64 kSecond = 1000000;
constexpr qint64 kNoon = 1772625600 * kSecond;

RecordedEvent eventOf(EventKind kind, qint64 second, const QString& hexId, qint64 since = -1)
{
    RecordedEvent event;
    event.kind = kind;
    event.at = kNoon + second * kSecond;
    event.hexId = hexId;
    event.place = FaultPlace::LoopOpen;
    event.since = since < 0 ? 0 : kNoon + since * kSecond;
    return event;
}

std::vector<RecordedEvent> night()
{
    return {
        eventOf(EventKind::RunBegun, 0, ""),           eventOf(EventKind::FaultBegun, 10, "2B"),
        eventOf(EventKind::FaultEnded, 101, "2B", 10), eventOf(EventKind::FaultBegun, 101, "03"),
        eventOf(EventKind::Lost, 200, "2B"),           eventOf(EventKind::Returned, 230, "2B", 200),
        eventOf(EventKind::FaultBegun, 300, "2B")};
}

/// LDB and duration of each row.
QStringList rowsOf(const EventModel& model)
{
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        rows.append(model.index(row, events::LdbColumn).data().toString() + ' ' +
                    model.index(row, events::DurationColumn).data().toString());
    }
    return rows;
}

} // namespace

/// The list of events: newest first, each once, with how long it lasted.
class TestEventModel : public TestCase
{
    Q_OBJECT
private slots:
    /// What is recorded now comes while the past is read, backwards.
    void listsThemInWhateverOrderTheyCome()
    {
        const QStringList expected{"2B not ended",  "2B 30 s",       "2B 30 s", "03 not ended",
                                   "2B 1 min 31 s", "2B 1 min 31 s", " "};
        std::mt19937 chance(20260304);
        for (int trial = 0; trial < 50; ++trial) {
            EventModel model;
            const QAbstractItemModelTester tester(
                &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
            auto events = night();
            if (trial % 2 == 0) {
                std::shuffle(events.begin(), events.end(), chance);
            }
            std::size_t done = 0;
            while (done < events.size()) {
                const std::size_t next = std::min(events.size(), done + 1 + chance() % 3);
                model.add(
                    {events.begin() + std::ptrdiff_t(done), events.begin() + std::ptrdiff_t(next)});
                done = next;
            }
            model.add(night()); // once more
            QCOMPARE(model.rowCount(), expected.size());
            QStringList rows = rowsOf(model);
            QStringList sorted = expected;
            std::sort(rows.begin(), rows.end());
            std::sort(sorted.begin(), sorted.end());
            QCOMPARE(rows, sorted);
            for (int row = 1; row < model.rowCount(); ++row) {
                QVERIFY(model.eventAt(row)->at <= model.eventAt(row - 1)->at);
            }
        }
    }

    void showsThoseAskedFor_data()
    {
        addColumns<QString, int, QStringList, int>("hexId", "group", "words", "rows");
        const int any = -1;
        QTest::newRow("all") << "" << any << QStringList() << 7;
        QTest::newRow("of an LDB") << "2B" << any << QStringList() << 5;
        QTest::newRow("faults") << "" << int(EventGroup::Faults) << QStringList() << 4;
        QTest::newRow("losses of an LDB") << "2B" << int(EventGroup::Losses) << QStringList() << 2;
        QTest::newRow("by words in any case") << "" << any << QStringList{"OPEN", "gone"} << 1;
        QTest::newRow("none") << "5B" << any << QStringList() << 0;
    }
    void showsThoseAskedFor()
    {
        QFETCH(QString, hexId);
        QFETCH(int, group);
        QFETCH(QStringList, words);
        QFETCH(int, rows);
        EventModel model;
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.add({night().front()});
        EventFilter filter;
        filter.hexId = hexId;
        filter.words = words;
        if (group >= 0) {
            filter.group = static_cast<EventGroup>(group);
        }
        model.setFilter(filter);
        model.add(night()); // while it is in force
        QCOMPARE(model.rowCount(), rows);
        QCOMPARE(model.count(), 7);
        model.setFilter({});
        QCOMPARE(model.rowCount(), 7);
    }
};

REGISTER_TEST(TestEventModel, QCoreApplication)
#include "tst_eventmodel.moc"

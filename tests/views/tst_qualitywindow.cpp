#include "app/shared/colours.h"
#include "recording/recordingaccess.h"
#include "tests/recording/recordedbus.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"
#include "tests/views/records.h"
#include "views/quality/overviewquality.h"
#include "views/quality/qualitymodel.h"
#include "views/quality/qualitywindow.h"
#include "views/tables/deviceoverviewtable.h"
#include "views/tables/overviewcolumns.h"

#include <QtWidgets>

#include <memory>

namespace {

constexpr qint64 kSecond = RecordedBus::kSecond;
constexpr qint64 kMinute = 60 * kSecond;
const QDateTime kNoon(QDate(2026, 3, 4), QTime(12, 0));

/// A recorded bus of four LDBs, of which one is damaged from the twentieth minute on, and what
/// shows its line quality.
struct Desk
{
    Sandbox sandbox;
    qint64 now = kNoon.toMSecsSinceEpoch() * 1000 + 30 * kMinute;
    bool isUnrecorded = false;
    LiveQuality live;
    RecordingAccess access{RecordingAccess::Thread::Callers};

    explicit Desk(bool isRecorded = true)
    {
        const QStringList ldbs{"0A", "0B", "2B", "30"};
        live.setList(ldbs);
        RecordedBus bus(kNoon);
        bus.start(ldbs);
        for (int minute = 0; minute < 30; ++minute) {
            bus.now = kNoon.toMSecsSinceEpoch() * 1000 + minute * kMinute;
            bus.beginRound();
            for (int turn = 0; turn < 30; ++turn) {
                for (const QString& hexId : ldbs) {
                    const bool isDamaged = hexId == "2B" && minute >= 20 && turn % 3 == 0;
                    bus.ask(hexId, ExchangeKind::Status, isDamaged ? "12" : TestBus::status(),
                            isDamaged ? ExchangeOutcome::Damaged : ExchangeOutcome::Believed);
                    live.takeExchange(std::get<input::Told>(bus.inputs.back()).exchange);
                }
            }
        }
        if (isRecorded) {
            RecordWriter writer(optionsFor(sandbox.path("recordings")));
            writer.take(bus.take());
            writer.finish();
            access.setPath(sandbox.path("recordings"));
        }
    }
    std::unique_ptr<QualityWindow> open()
    {
        auto window = std::make_unique<QualityWindow>(
            QualityWindow::Sources{{&access, &live, [this] { return now; },
                                    [this] {
                                        return isUnrecorded;
                                    }},
                                   [](const QString& hexId) {
                                       return "Hall " + hexId;
                                   }},
            nullptr);
        window->open();
        settle();
        return window;
    }
    static void settle() { VirtualTime::current()->advance(300); }
};

struct Shown
{
    explicit Shown(QualityWindow& window)
        : table(window.findChild<QTableView*>("qualityTable"))
        , words(window.findChild<QLabel*>("qualityWordsLabel")->text())
        , note(window.findChild<QLabel*>("qualityNoteLabel")->text())
    {
    }
    QString row(int row) const
    {
        QStringList cells;
        for (int column = 0; column < QualityModel::BarsColumn; ++column) {
            cells << table->model()->index(row, column).data().toString();
        }
        return cells.join('|');
    }
    QTableView* table;
    QString words;
    QString note;
};

} // namespace

/// The line quality as it is shown, from a recording.
class TestQualityWindow : public TestCase
{
    Q_OBJECT
private slots:
    void showsWhatIsRecorded()
    {
        Desk desk;
        const auto window = desk.open();
        const QAbstractItemModelTester tester(
            window->findChild<QTableView*>("qualityTable")->model(),
            QAbstractItemModelTester::FailureReportingMode::QtTest);
        const Shown now(*window);
        // Five minutes of 120 exchanges, of which 10 were damaged.
        QCOMPARE(now.row(0), QString("Bus||600|91.67 %|8.33 %|0 %|0 %|31.0 ms|31.0 ms"));
        QCOMPARE(now.row(1), QString("2B|Hall 2B|150|66.67 %|33.33 %|0 %|0 %|31.0 ms|31.0 ms"));
        QCOMPARE(now.row(2), QString("0A|Hall 0A|150|100 %|0 %|0 %|0 %|31.0 ms|31.0 ms"));
        QCOMPARE(now.words, QString("Damage on LDB 2B alone: look at its connection."));

        window->findChild<QComboBox*>("qualityReachBox")->setCurrentIndex(1);
        Desk::settle();
        const Shown hour(*window);
        QVERIFY2(hour.row(1).startsWith("2B|Hall 2B|900|88.89 %|11.11 %|0 %|0 %|≈ 31.0 ms"),
                 qPrintable(hour.row(1)));

        // Nothing more is known of what comes after the recording's end.
        desk.now += 60 * kMinute;
        VirtualTime::current()->advance(6000);
        QCOMPARE(Shown(*window).table->model()->rowCount(), 1);
        QCOMPARE(Shown(*window).row(0),
                 QString("Bus||0|\u2013|\u2013|\u2013|\u2013|\u2013|\u2013"));
        QCOMPARE(Shown(*window).words, QString("Too few exchanges to say anything of the line."));
    }

    void followsTheMomentShown()
    {
        Desk desk;
        const auto window = desk.open();
        window->setShown(desk.now - 15 * kMinute);
        Desk::settle();
        const Shown back(*window);
        QCOMPARE(back.row(0), QString("Bus||600|100 %|0 %|0 %|0 %|31.0 ms|31.0 ms"));
        QCOMPARE(back.words,
                 QString("The line is good: no more than one exchange in a thousand was not."));
        QVERIFY(back.note.contains("2026-03-04 12:15"));
        // The minute under way counts what comes only later: the first damage is in it.
        window->setShown(desk.now - 9 * kMinute - 30 * kSecond);
        Desk::settle();
        QCOMPARE(Shown(*window).words, back.words);
        QVERIFY(Shown(*window).note.contains("2026-03-04 12:20"));
        window->setShown(std::nullopt);
        Desk::settle();
        QVERIFY(Shown(*window).row(1).startsWith("2B|"));
        QVERIFY(!Shown(*window).note.contains("2026"));
    }

    void showsWhatIsCountedWhereNothingIsRecorded()
    {
        Desk desk(false);
        const auto window = desk.open();
        const Shown now(*window);
        QCOMPARE(now.row(1), QString("2B|Hall 2B|150|66.67 %|33.33 %|0 %|0 %|\u2013|\u2013"));
        QVERIFY(now.note.startsWith("Nothing is recorded"));
    }

    void whatIsNotRecordedNowIsCounted()
    {
        Desk desk;
        desk.isUnrecorded = true;
        const auto window = desk.open();
        QVERIFY(Shown(*window).note.startsWith("Nothing is recorded"));
        QVERIFY(Shown(*window).row(1).endsWith(QString::fromUtf8("\xE2\x80\x93")));
        // What lies back is in the recording all the same, and so is what follows.
        window->setShown(desk.now - 15 * kMinute);
        Desk::settle();
        QVERIFY(Shown(*window).row(1).endsWith("31.0 ms"));
        window->setShown(std::nullopt);
        desk.isUnrecorded = false;
        VirtualTime::current()->advance(6000);
        QVERIFY(Shown(*window).row(1).endsWith("31.0 ms"));
    }

    void aSelectedLdbStaysSelected()
    {
        Desk desk;
        const auto window = desk.open();
        const Shown now(*window);
        now.table->selectRow(1);
        QCOMPARE(now.table->currentIndex().siblingAtColumn(0).data().toString(), QString("2B"));
        window->setShown(desk.now - 15 * kMinute); // no longer the worst
        Desk::settle();
        QCOMPARE(now.table->currentIndex().siblingAtColumn(0).data().toString(), QString("2B"));
    }

    void readsNothingWhileItIsHidden()
    {
        Desk desk;
        const auto window = desk.open();
        window->hide();
        desk.now -= 15 * kMinute;
        VirtualTime::current()->advance(20000);
        QVERIFY(Shown(*window).row(1).startsWith("2B|"));
        window->show();
        Desk::settle();
        QVERIFY(Shown(*window).row(1).startsWith("0A|"));
    }

    void barsInTheOverview()
    {
        Desk desk;
        QTableView view;
        DeviceOverviewTable overview(&view);
        overview.setMonitoring(records::monitored());
        for (const char* hexId : {"0A", "2B"}) {
            overview.processData(hexId, records::record(hexId));
        }
        view.resize(900, 200);
        view.show();
        const auto make = [&] {
            auto bars = std::make_unique<OverviewQuality>(&view, &desk.live, &desk.access,
                                                          [&desk] { return desk.now; });
            VirtualTime::current()->advance(6000);
            return bars;
        };
        // How many pixels of a row's ID cell have a colour.
        const auto pixels = [&view](int row, const QString& colour) {
            const QImage image =
                view.viewport()
                    ->grab(view.visualRect(view.model()->index(row, overview::IdColumn)))
                    .toImage();
            int count = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    count += image.pixelColor(x, y) == QColor(colour) ? 1 : 0;
                }
            }
            return count;
        };
        auto bars = make();
        QVERIFY(pixels(0, colours::kQualityGood) > 50);
        QCOMPARE(pixels(0, colours::kQualityBad), 0);
        QVERIFY(pixels(1, colours::kQualityBad) > 50);
        QVERIFY(pixels(1, colours::kQualityGood) > 10); // of before

        bars->setShown(desk.now - 9 * kMinute - 30 * kSecond);
        Desk::settle();
        QCOMPARE(pixels(1, colours::kQualityBad), 0);
        QVERIFY(pixels(1, colours::kQualityGood) > 50);
        bars->setShown(std::nullopt);
        QVERIFY(pixels(1, colours::kQualityBad) > 50);

        bars->setBarsShown(false);
        QCOMPARE(pixels(1, colours::kQualityBad), 0);
        bars = make(); // in the next start
        QVERIFY(!bars->areShown());
        QCOMPARE(pixels(1, colours::kQualityBad), 0);
    }
};

REGISTER_TEST(TestQualityWindow, InVirtualTime<QApplication>)

#include "tst_qualitywindow.moc"

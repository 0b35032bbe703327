#include "app/lookback/lookbackkeys.h"
#include "app/lookback/timebar.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QDateTime>

namespace {

constexpr qint64 kSecond = 1000000;
constexpr qint64 kHour = 3600 * kSecond;
const qint64 kNoon = QDateTime(QDate(2026, 3, 4), QTime(12, 0)).toMSecsSinceEpoch() * 1000;

/// Of what a key does, or "-" where it is not the bar's.
QString nameOf(std::optional<BarKey> key)
{
    static const QStringList names{"play",        "back",     "on",     "former record",
                                   "next record", "far back", "far on", "former event",
                                   "next event",  "begin",    "end",    "slower",
                                   "faster",      "go to",    "live"};
    return key ? names.at(static_cast<int>(*key)) : QStringLiteral("-");
}

} // namespace

/// The bar of the recorded time: which time is where, and which key is whose.
class TestTimeBar : public TestCase
{
    Q_OBJECT
private slots:
    void keys_data()
    {
        // On the bar looking back, on the bar live, in the table, on the plot, on a button, in a
        // list, in a text.
        const Table<int, Qt::KeyboardModifiers, QStringList> row("key", "modifiers", "meanings");
        const auto none = Qt::KeyboardModifiers();
        row("Space", int(Qt::Key_Space), none, {"play", "play", "play", "play", "-", "-", "-"});
        row("Left", int(Qt::Key_Left), none, {"back", "back", "back", "-", "back", "-", "-"});
        row("Shift+Right", int(Qt::Key_Right), Qt::ShiftModifier,
            {"next record", "next record", "next record", "-", "next record", "-", "-"});
        row("Ctrl+Left", int(Qt::Key_Left), Qt::ControlModifier,
            {"former event", "former event", "former event", "former event", "former event",
             "former event", "-"});
        row("Page Up", int(Qt::Key_PageUp), none,
            {"far back", "far back", "-", "-", "far back", "-", "-"});
        row("Home", int(Qt::Key_Home), none,
            {"begin", "begin", "begin", "begin", "begin", "-", "-"});
        row("Down", int(Qt::Key_Down), none, {"-", "-", "-", "-", "-", "-", "-"});
        row("]", int(Qt::Key_BracketRight), none,
            {"faster", "faster", "faster", "faster", "faster", "faster", "-"});
        row("[ on AltGr", int(Qt::Key_BracketLeft), Qt::ControlModifier | Qt::AltModifier,
            {"slower", "slower", "slower", "slower", "slower", "slower", "-"});
        row("Escape", int(Qt::Key_Escape), none,
            {"live", "-", "live", "live", "live", "live", "-"});
        row("Ctrl+G", int(Qt::Key_G), Qt::ControlModifier,
            {"go to", "go to", "go to", "go to", "go to", "go to", "go to"});
        row("G", int(Qt::Key_G), none, {"-", "-", "-", "-", "-", "-", "-"});
        row("Alt+Left", int(Qt::Key_Left), Qt::AltModifier, {"-", "-", "-", "-", "-", "-", "-"});
        row("Ctrl+Home", int(Qt::Key_Home), Qt::ControlModifier,
            {"-", "-", "-", "-", "-", "-", "-"});
    }

    void keys()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QStringList meanings{nameOf(barKeyOf(key, modifiers, KeyPlace::Bar, true)),
                             nameOf(barKeyOf(key, modifiers, KeyPlace::Bar, false))};
        for (const KeyPlace place : {KeyPlace::Table, KeyPlace::Plot, KeyPlace::Button,
                                     KeyPlace::Control, KeyPlace::TextField}) {
            meanings << nameOf(barKeyOf(key, modifiers, place, true));
            // What is elsewhere keeps all its keys while the window is live.
            if (key != Qt::Key_G) {
                QCOMPARE(nameOf(barKeyOf(key, modifiers, place, false)), "-");
            }
        }
        QTEST(meanings, "meanings");
    }

    void everyPixelIsATimeAndBack()
    {
        const TimeScale scale({kNoon, kNoon + 7LL * 24 * kHour}, 1000);
        for (int x = 0; x <= 1000; ++x) {
            QVERIFY(qAbs(scale.xOf(scale.atOf(x)) - x) < 0.01);
        }
        QCOMPARE(scale.xOf(0), 0.0);
        QCOMPARE(scale.atOf(2000), kNoon + 7LL * 24 * kHour);
        // Of hardly any time, too.
        QCOMPARE(TimeScale({kNoon, kNoon}, 100).atOf(100), kNoon + TimeScale::kShortest);
    }

    void zoomKeepsWhatIsPointedAt()
    {
        const TimeSpan week{kNoon, kNoon + 7LL * 24 * kHour};
        TimeScale scale(week, 1000);
        const qint64 pointed = scale.atOf(700);
        for (int notch = 0; notch < 100; ++notch) {
            const TimeSpan span = scale.zoomed(pointed, 0.8, week);
            QVERIFY(span.from >= week.from && span.to <= week.to);
            scale = TimeScale(span, 1000);
            QVERIFY(qAbs(scale.xOf(pointed) - 700) < 1.5);
        }
        QCOMPARE(scale.span().to - scale.span().from, TimeScale::kShortest);
        for (int notch = 0; notch < 100; ++notch) {
            scale = TimeScale(scale.zoomed(scale.atOf(10), 1.25, week), 1000);
        }
        QCOMPARE(scale.span().from, week.from);
        QCOMPARE(scale.span().to, week.to);
    }

    void timesStandWhereTheClockIsRound()
    {
        constexpr qint64 kDay = 24 * kHour;
        for (const qint64 length :
             {kHour / 30, kHour, 5 * kHour, 40 * kHour, 40 * kDay, 60LL * 365 * kDay}) {
            const TimeScale scale({kNoon + 17 * kSecond, kNoon + 17 * kSecond + length}, 1000);
            const auto ticks = scale.ticks(90);
            QVERIFY(!ticks.empty() && ticks.size() <= 12);
            for (std::size_t i = 0; i < ticks.size(); ++i) {
                const QTime time = QDateTime::fromMSecsSinceEpoch(ticks[i] / 1000).time();
                QCOMPARE(time.second() % 10, 0);
                QVERIFY(!scale.isInDays(90) || time == QTime(0, 0));
                QVERIFY(i == 0 || scale.xOf(ticks[i]) - scale.xOf(ticks[i - 1]) > 80);
            }
        }
    }

    void aClickWantsItsMomentOrItsEvent()
    {
        TimeBar bar;
        bar.resize(1000, 24);
        QSignalSpy moments(&bar, &TimeBar::momentWanted);
        QSignalSpy live(&bar, &TimeBar::liveWanted);
        const auto click = [&bar](int x) {
            QTest::mouseClick(&bar, Qt::LeftButton, Qt::NoModifier, QPoint(x, 10));
        };
        click(100); // nothing is recorded
        QVERIFY(moments.isEmpty());
        TimeBarContent content;
        content.extent = {kNoon, kNoon + kHour};
        RecordedEvent event;
        event.at = kNoon + kHour / 2;
        content.events = {event};
        bar.setContent(content);
        click(100);
        QCOMPARE(moments.takeLast().at(0).toLongLong(), bar.scale().atOf(100));
        click(static_cast<int>(bar.scale().xOf(event.at)) + 2);
        QCOMPARE(moments.takeLast().at(0).toLongLong(), event.at);
        QVERIFY(live.isEmpty());
        click(bar.liveLeft() + 3);
        QCOMPARE(live.size(), 1);
        QVERIFY(moments.isEmpty());
    }
};

REGISTER_TEST(TestTimeBar, QApplication)
#include "tst_timebar.moc"

#include "recording/eventfinder.h"
#include "serial/ldb/ldbstatus.h"
#include "tests/support/testbus.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(EventKind)
Q_DECLARE_METATYPE(FaultPlace)

namespace {

constexpr qint64 kSecond = 1000000;

LdbStatus quiescent()
{
    LdbStatus status;
    status.state = LdbState::Quiescent;
    return status;
}

LdbStatus withLoop(quint8 loopByte)
{
    LdbStatus status = quiescent();
    status.loopByte = loopByte;
    return status;
}

/// Kind and time of each, in seconds.
QString summary(const std::vector<RecordedEvent>& events)
{
    QStringList parts;
    for (const RecordedEvent& event : events) {
        parts << QString("%1@%2").arg(int(event.kind)).arg(event.at / kSecond);
    }
    return parts.join(' ');
}

} // namespace

/// Which events are found in a stream of records.
class TestEventFinder : public TestCase
{
    Q_OBJECT
private slots:
    void tellsEachFaultWithItsPlace_data()
    {
        // Raw fields of the status, by their numbers in the protocol.
        addColumns<int, int, int, int, int, int>("field", "present", "remembered", "place", "first",
                                                 "second");
        const auto begun = int(EventKind::FaultBegun);
        const auto remembered = int(EventKind::FaultRemembered);
        const auto row = [&](const char* tag, int field, int present, int memory,
                             FaultPlace place) {
            QTest::addRow("%s", tag)
                << field << present << memory << int(place) << begun << remembered;
        };
        row("loop open", 0, 1, 2, FaultPlace::LoopOpen);
        row("loop short", 1, 0x01, 0x02, FaultPlace::LoopShort);
        row("loop leakage", 1, 0x10, 0x20, FaultPlace::LoopDcLeakage);
        row("earth leakage", 2, 1, 2, FaultPlace::EarthLeakage);
        row("earth open", 3, 1, 2, FaultPlace::EarthOpen);
        row("amplifier", 4, 2, 3, FaultPlace::Amplifier);
        row("primary port", 5, 1, 2, FaultPlace::PrimaryPort);
        row("secondary port", 6, 1, 2, FaultPlace::SecondaryPort);
    }

    void tellsEachFaultWithItsPlace()
    {
        QFETCH(int, field);
        QFETCH(int, present);
        QFETCH(int, remembered);
        QFETCH(int, place);
        const auto with = [field](int value) {
            LdbStatus status = quiescent();
            quint8* const fields[] = {&status.loopByte,          &status.loopNibbles,
                                      &status.earthByte1,        &status.earthByte2,
                                      &status.amplifier,         &status.primaryPortShort,
                                      &status.secondaryPortShort};
            *fields[field] = static_cast<quint8>(value);
            return status;
        };
        EventFinder finder;
        finder.heard(1 * kSecond, "0A", quiescent());
        finder.heard(2 * kSecond, "0A", with(present));
        finder.heard(3 * kSecond, "0A", with(present));
        finder.heard(75 * kSecond, "0A", with(remembered));
        finder.heard(76 * kSecond, "0A", quiescent());
        auto events = finder.takeEvents();
        QCOMPARE(summary(events), QString("0@2 1@75"));
        for (const RecordedEvent& event : events) {
            QCOMPARE(int(event.place), place);
            QCOMPARE(event.hexId, QString("0A"));
        }
        QCOMPARE(events[1].since, 2 * kSecond);
        QVERIFY(events[1].description().endsWith("gone after 1 min 13 s"));

        // It came and went between two looks.
        finder.heard(200 * kSecond, "0A", with(remembered));
        events = finder.takeEvents();
        QCOMPARE(summary(events), QString("2@200"));
        QCOMPARE(int(events[0].place), place);
    }

    void whatIsUnknownEndsNothing()
    {
        EventFinder finder;
        finder.heard(0, "0A", quiescent());
        finder.heard(1 * kSecond, "0A", withLoop(1));
        finder.takeEvents();
        finder.lost(2 * kSecond, "0A");
        finder.lost(3 * kSecond, "0A");
        finder.heard(62 * kSecond, "0A", withLoop(1));
        const auto events = finder.takeEvents();
        QCOMPARE(summary(events), QString("5@2 6@62"));
        QCOMPARE(events[1].since, 2 * kSecond);
        // A code without a meaning.
        LdbStatus unknown = quiescent();
        unknown.loopNibbles = 0x40;
        finder.heard(63 * kSecond, "0A", unknown);
        QVERIFY(finder.takeEvents().empty());
        finder.heard(64 * kSecond, "0A", quiescent());
        QCOMPARE(finder.takeEvents().at(0).since, 1 * kSecond);
    }

    /// Nobody listened: it cannot be said when it came or went.
    void saysWhatCameAboutUnheard_data()
    {
        addColumns<int, int, int, QString>("before", "after", "absence", "description");
        QTest::newRow("came") << 0 << 1 << 0 << "Loop open, there already";
        QTest::newRow("went") << 1 << 0 << 0 << "Loop open gone after 1 h 0 min at most";
        QTest::newRow("came in a loss") << 0 << 1 << 1 << "Loop open, there already";
        QTest::newRow("went in a loss") << 1 << 0 << 1 << "Loop open gone after 1 h 0 min at most";
        QTest::newRow("came unheard, went heard") << -1 << 1 << 0 << "Loop open, there already";
    }

    void saysWhatCameAboutUnheard()
    {
        QFETCH(int, before);
        QFETCH(int, after);
        QFETCH(int, absence);
        constexpr qint64 kHour = 3600 * kSecond;
        EventFinder finder;
        finder.runBegun();
        if (before >= 0) {
            finder.heard(1, "2B", quiescent());
            finder.heard(kSecond, "2B", withLoop(quint8(before)));
            finder.takeEvents();
        }
        if (absence == 0) {
            finder = EventFinder::fromJson(finder.toJson());
            finder.runBegun();
        } else {
            finder.lost(2 * kSecond, "2B");
        }
        finder.heard(kHour + kSecond, "2B", withLoop(quint8(after)));
        QTEST(finder.takeEvents().back().description(), "description");
        finder.heard(kHour + 61 * kSecond, "2B", withLoop(quint8(1 - after)));
        // How long it was there is told only when it was heard coming.
        QCOMPARE(finder.takeEvents().back().description(),
                 QString(after == 1 ? "Loop open gone" : "Loop open"));
    }

    void tellsModesAndScansThatDiffer()
    {
        EventFinder finder;
        LdbStatus service = quiescent();
        service.state = LdbState::ServiceMode;
        finder.scanEnded(0, {"2B", "0A"});
        finder.heard(1 * kSecond, "0A", quiescent());
        finder.heard(2 * kSecond, "0A", service);
        finder.scanEnded(3 * kSecond, {"0A", "2B"});
        finder.scanEnded(4 * kSecond, {"0A", "30"});
        const auto events = finder.takeEvents();
        QCOMPARE(summary(events), QString("4@2 7@4"));
        QCOMPARE(events[0].description(), QString("Mode Service mode, before Quiescent"));
        QCOMPARE(events[1].description(),
                 QString("The scan differs from the last one: missing: 2B; new: 30"));
    }

    void foldsWhatFlaps()
    {
        EventFinder finder;
        finder.heard(0, "0A", quiescent());
        // Every 10 s there, and gone 5 s later.
        for (int i = 1; i <= 20; ++i) {
            finder.heard(i * 10LL * kSecond, "0A", withLoop(1));
            finder.heard((i * 10 + 5) * kSecond, "0A", quiescent());
        }
        // The last one told by itself says that it is there: it comes and goes from then on.
        QCOMPARE(summary(finder.takeEvents()), QString("0@10 1@15 0@20 1@25 0@30 1@35 0@40"));
        finder.passed((205 + 59) * kSecond);
        QVERIFY(finder.takeEvents().empty());
        finder.passed((205 + 60) * kSecond);
        const auto folded = finder.takeEvents();
        QCOMPARE(summary(folded), QString("3@205"));
        QCOMPARE(folded[0].count, 16);
        QCOMPARE(folded[0].since, 40 * kSecond);
        QVERIFY(!folded[0].isStill);
        QCOMPARE(folded[0].description(), QString("Loop open: 16 times in 2 min 45 s, gone now"));
        // From here on it is a fault like any other.
        finder.heard(400 * kSecond, "0A", withLoop(1));
        QCOMPARE(summary(finder.takeEvents()), QString("0@400"));
    }

    /// However it ends, the list ends with what is so.
    void saysHowFlappingEnds_data()
    {
        addColumns<int, QString>("ends", "told");
        QTest::newRow("with the begin that was told") << 0 << "1@300";
        QTest::newRow("with its end") << 1 << "1@45 0@300";
        QTest::newRow("with another begin") << 2 << "3@50 1@300";
        QTest::newRow("with another end") << 3 << "3@55 0@300";
    }

    void saysHowFlappingEnds()
    {
        QFETCH(int, ends);
        EventFinder finder;
        finder.heard(0, "0A", quiescent());
        for (int i = 1; i <= 3; ++i) {
            finder.heard(i * 10LL * kSecond, "0A", withLoop(1));
            finder.heard((i * 10 + 5) * kSecond, "0A", quiescent());
        }
        bool isOpen = false;
        for (int i = 0; i <= ends; ++i) {
            isOpen = !isOpen;
            finder.heard((40 + i * 5) * kSecond, "0A", withLoop(isOpen ? 1 : 0));
        }
        finder.takeEvents();
        finder.heard(300 * kSecond, "0A", withLoop(isOpen ? 0 : 1));
        QTEST(summary(finder.takeEvents()), "told");
    }

    void foldsWhatComesAndGoesAllDay()
    {
        EventFinder finder;
        finder.heard(0, "0A", quiescent());
        int events = 0;
        int times = 0;
        constexpr int kDay = 24 * 60;
        for (int minute = 2; minute <= kDay; minute += 2) {
            finder.heard(minute * 60LL * kSecond, "0A", withLoop(1));
            finder.heard((minute * 60 + 30) * kSecond, "0A", quiescent());
            for (const RecordedEvent& event : finder.takeEvents()) {
                ++events;
                times += event.kind == EventKind::Flapped      ? event.count
                         : event.kind == EventKind::FaultBegun ? 1
                                                               : 0;
            }
        }
        QVERIFY2(events < 60, qPrintable(QString::number(events)));
        QVERIFY2(times > kDay / 2 - 40, qPrintable(QString::number(times)));
    }

    void boardsAtWorkAreNoEvents()
    {
        EventFinder finder;
        for (int second = 0; second < 3600; second += 20) {
            LdbStatus status = quiescent();
            status.state = second % 60 == 0 ? LdbState::Measuring : LdbState::Quiescent;
            finder.heard(second * kSecond, "0A", status);
        }
        QVERIFY(finder.takeEvents().empty());
        // Their usual changes do not hide another one.
        LdbStatus status = quiescent();
        status.state = LdbState::Fault;
        finder.heard(3601 * kSecond, "0A", status);
        QCOMPARE(finder.takeEvents().at(0).description(), QString("Mode Fault, before Quiescent"));
    }

    void foldsLossesAndModes()
    {
        EventFinder finder;
        for (int i = 0; i < 10; ++i) {
            LdbStatus status = quiescent();
            status.state = i % 2 == 0 ? LdbState::Quiescent : LdbState::Fault;
            finder.heard(i * 10LL * kSecond, "0A", status);
            finder.heard(i * 10LL * kSecond, "2B", quiescent());
            finder.lost((i * 10 + 5) * kSecond, "2B");
        }
        finder.takeEvents();
        finder.passed(1000 * kSecond);
        QStringList texts;
        for (const RecordedEvent& event : finder.takeEvents()) {
            texts << event.hexId + ' ' + event.description();
        }
        texts.sort();
        QCOMPARE(texts, (QStringList{"0A Mode Fault: 1 times in 20 s",
                                     "2B Lost: 6 times in 1 min 0 s, still lost"}));
    }

    void whatIsStillThereAfterFlappingEndsLater()
    {
        EventFinder finder;
        for (int i = 0; i < 5; ++i) {
            finder.heard(i * 10LL * kSecond, "0A", quiescent());
            finder.heard((i * 10 + 5) * kSecond, "0A", withLoop(1));
        }
        finder.heard(200 * kSecond, "0A", withLoop(1));
        const auto events = finder.takeEvents();
        QCOMPARE(events.back().kind, EventKind::Flapped);
        QVERIFY(events.back().isStill);
        finder.heard(300 * kSecond, "0A", quiescent());
        const auto end = finder.takeEvents();
        QCOMPARE(summary(end), QString("1@300"));
        QCOMPARE(end[0].since, 45 * kSecond);
    }

    /// Whatever happens, cut in two by a restart at any place, gives the same events.
    void aRestartChangesNothing()
    {
        const auto step = [](EventFinder& finder, int i) {
            const qint64 at = i * 7LL * kSecond;
            if (i % 11 == 5) {
                finder.lost(at, "0A");
            } else if (i % 23 == 7) {
                finder.scanEnded(at, {"0A", QString::number(10 + i % 3)});
            } else {
                finder.heard(at, i % 3 == 0 ? "2B" : "0A", withLoop(quint8((i / 2) % 3)));
            }
        };
        constexpr int kSteps = 90;
        EventFinder whole;
        for (int i = 0; i < kSteps; ++i) {
            step(whole, i);
        }
        const auto expected = whole.takeEvents();
        QVERIFY(std::any_of(expected.begin(), expected.end(), [](const RecordedEvent& event) {
            return event.kind == EventKind::Flapped;
        }));
        for (int cut = 0; cut < kSteps; ++cut) {
            EventFinder first;
            for (int i = 0; i < cut; ++i) {
                step(first, i);
            }
            auto events = first.takeEvents();
            EventFinder second = EventFinder::fromJson(first.toJson());
            for (int i = cut; i < kSteps; ++i) {
                step(second, i);
            }
            const auto rest = second.takeEvents();
            events.insert(events.end(), rest.begin(), rest.end());
            QCOMPARE(summary(events), summary(expected));
            QVERIFY(events == expected);
        }
    }
};

REGISTER_TEST(TestEventFinder, QCoreApplication)
#include "tst_eventfinder.moc"

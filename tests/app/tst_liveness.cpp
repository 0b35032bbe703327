#include "app/log/logpanel.h"
#include "app/shared/colours.h"
#include "app/window/attention.h"
#include "tests/app/livewindow.h"
#include "tests/support/testbus.h"
#include "tests/support/testprogram.h"
#include "tests/tracking/plotinspection.h"
#include "tracking/faultfinding/alarmsound.h"
#include "views/tables/overviewcolumns.h"

#include <qwt_plot_curve.h>

#include <cmath>

namespace {

const QString kDash = QString::fromUtf8("–");
constexpr int kEarthLeakage = 1;
constexpr qint64 kSilence = 25000; // ms, longer than any value of a small bus is live

/// The status of `TestBus::status()` with an earth leakage.
QByteArray withLeakage(int state = 10)
{
    QByteArray body = TestBus::status(state);
    body[17] = '0' + kEarthLeakage;
    return body;
}

} // namespace

/// The whole window on the bus: what it shows as live is so, and what is not live looks so.
class TestLiveness : public UnpaintedWindow
{
    Q_OBJECT
private slots:
    void stripSaysWhatIsMonitored()
    {
        open(kLdbs);
        QCOMPARE(strip(), "Not monitored: click Start.");
        click("startButton");
        QCOMPARE(strip(), "Not monitored: the bus is being scanned");
        WAIT_COMPARE(strip(), "Monitored: 3 LDBs answer.");

        QString since = clock();
        click("startButton");
        const QString stopped = QStringLiteral("Not monitored since %1: stopped").arg(since);
        QCOMPARE(strip(), stopped);
        VirtualTime::current()->advance(90000);
        QCOMPARE(strip(), stopped);
        click("startButton");
        QCOMPARE(strip(),
                 QStringLiteral("Not monitored since %1: the bus is being scanned").arg(since));
        WAIT_COMPARE(strip(), "Monitored: 3 LDBs answer.");
        click("reloadDevicesButton");
        WAIT_VERIFY(strip().endsWith("the bus is being scanned"));
        WAIT_COMPARE(strip(), "Monitored: 3 LDBs answer.");

        since = clock();
        const ExpectWarning warning("^Port ");
        m_bus->cut();
        WAIT_COMPARE(
            strip(),
            QStringLiteral("Not monitored since %1: the connection to test bus was lost; waiting "
                           "for it to come back")
                .arg(since));
        click("startButton");
        WAIT_COMPARE(
            strip(),
            QStringLiteral("Not monitored since %1: test bus cannot be opened").arg(since));

        // The date stands there when it is another day's.
        VirtualTime::current()->advance(86400000);
        QVERIFY2(strip().contains(QRegularExpression("since \\d{4}-\\d\\d-\\d\\d " + since)),
                 qPrintable(strip()));
    }

    void whatIsNotLiveIsGrey_data()
    {
        addColumns<QString, QStringList>("event", "live");
        QTest::newRow("stop") << QStringLiteral("stop") << QStringList();
        QTest::newRow("cut") << QStringLiteral("cut") << QStringList();
        QTest::newRow("all silent") << QStringLiteral("silence") << QStringList();
        QTest::newRow("one is polled alone")
            << QStringLiteral("alone") << QStringList(kLdbs.first());
    }

    void whatIsNotLiveIsGrey()
    {
        QFETCH(QString, event);
        QFETCH(QStringList, live);
        // Not lost for a long time: their values stay on the screen.
        m_sandbox->writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=1000\n");
        start();
        QCOMPARE(liveRows(), kLdbs);
        QCOMPARE(age(kLdbs.at(1)), QString());
        const QColor former = loopTextColour();
        QCOMPARE(curveColour("VPri"), QColor("red"));
        const int heightOfDetails = detailsHeight();

        const ExpectWarning warning("^Port ", ExpectWarning::Need::MayCome);
        if (event == "stop") {
            click("startButton");
        } else if (event == "cut") {
            m_bus->cut();
            VirtualTime::current()->advance(1);
        } else if (event == "silence") {
            m_bus->setPresent({});
        } else {
            clickRow(kLdbs.first());
            click("fimTrackingButton");
        }
        if (event != "silence") {
            QCOMPARE(liveRows(), live); // at once
        }
        VirtualTime::current()->advance(kSilence);
        QCOMPARE(liveRows(), live);
        QVERIFY(text(kLdbs.at(1), overview::PrimaryVoltageColumn).endsWith(" V"));
        QVERIFY(loopTextColour() != former);
        QVERIFY2(QRegularExpression("^2\\d s$").match(age(kLdbs.at(1))).hasMatch(),
                 qPrintable(age(kLdbs.at(1))));
        QVERIFY(areLampsHatched());
        QCOMPARE(causes(), QStringList(QStringLiteral("Not monitored")));
        QVERIFY2(strip().startsWith(live.isEmpty() ? QStringLiteral("Not monitored since ")
                                                   : QStringLiteral("Only LDB 03 is polled.")),
                 qPrintable(strip()));
        if (live.isEmpty()) {
            QVERIFY2(detailAge().endsWith(" s ago"), qPrintable(detailAge()));
            // On a small laptop there is no room for one more line.
            QCOMPARE(detailsHeight(), heightOfDetails);
            QVERIFY(curveColour("VPri") != QColor("red"));
            VirtualTime::current()->advance(600000);
            QCOMPARE(age(kLdbs.at(1)), "10 min");
        }

        // And back, with a gap in the plot where nothing was known.
        if (event == "silence") {
            m_bus->setPresent(kLdbs);
            WAIT_COMPARE(liveRows(), kLdbs);
            QCOMPARE(loopTextColour(), former);
            QCOMPARE(curveColour("VPri"), QColor("red"));
            const auto* curve = plotinspection::curveOf(*child<QWidget>("plotContainer"), "VPri");
            int gaps = 0;
            for (std::size_t i = 1; i < curve->dataSize(); ++i) {
                const int at = static_cast<int>(i);
                const bool isLong = curve->sample(at).x() - curve->sample(at - 1).x() > kSilence;
                gaps += isLong ? 1 : 0;
                QVERIFY(!isLong || std::isnan(curve->sample(at - 1).y()));
            }
            QCOMPARE(gaps, 1);
        }
    }

    /// What holds a small bus up does not make those look old that answer.
    void silentLdbsLeaveTheOthersLive()
    {
        m_sandbox->writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=1000\n");
        const QStringList present{kLdbs.first(), "11", "12"};
        start(present + QStringList{"20", "21"});
        m_bus->setPresent(present);
        for (int second = 0; second < 60; ++second) {
            VirtualTime::current()->advance(1000);
            for (const QString& hexId : present) {
                QVERIFY2(isLive(hexId), qPrintable(age(hexId)));
            }
            QVERIFY2(strip().startsWith("Monitored: "), qPrintable(strip()));
        }
        // Each round takes longer than a value lives where all is well.
        m_bus->setPresent({});
        VirtualTime::current()->advance(40000);
        QVERIFY(!isLive(kLdbs.first()));
    }

    /// As on the night when summer time ends.
    void aClockSetBackHidesNothing()
    {
        start();
        const ExpectWarning warning("^Plot: the clock was set back");
        m_bus->shiftWall(-3600000);
        VirtualTime::current()->advance(10000);
        QCOMPARE(liveRows(), kLdbs);
        QVERIFY(!areLampsHatched());
        QCOMPARE(strip(), QString("Monitored: 3 LDBs answer."));
        m_bus->setPresent({});
        VirtualTime::current()->advance(30000);
        QVERIFY2(!strip().contains("3 LDBs answer"), qPrintable(strip()));
    }

    void lostLdbHasNoValues()
    {
        const QString lost = kLdbs.first(); // the one in detail and plot
        start();
        const QString path = setLogPath();
        click("logStartStopButton");
        m_bus->setPresent(kLdbs.mid(1));
        WAIT_COMPARE(text(lost, overview::NameColumn), "Disconnected (LDB 03)");
        WAIT_COMPARE(strip(), "Monitored: 2 of 3 LDBs answer, 1 lost.");
        QCOMPARE(text(lost, overview::ModeColumn), "Disconnected");
        for (int column = overview::LoopColumn; column <= overview::AmplifierColumn; ++column) {
            QCOMPARE(text(lost, column), kDash);
        }
        const auto* curve = plotinspection::curveOf(*child<QWidget>("plotContainer"), "ISec");
        WAIT_VERIFY(std::isnan(curve->sample(int(curve->dataSize()) - 1).y()));
        WAIT_VERIFY(Sandbox::readFile(path).contains("\n03;LDB 03;Disconnected;;;;;;;;"));
        QVERIFY(!Sandbox::readFile(path).contains("\n03;LDB 03;Disconnected;;0"));
        QCOMPARE(causes(), QStringList(QString::fromUtf8("03  LDB 03 – Disconnected")));
        // The box names it.
        QCOMPARE(m_window->findChild<MessageBox*>()->text(),
                 QStringLiteral("The LDB with ID: 03 (LDB 03) is disconnected!"));

        // By numbers: what has none stands at one end.
        overview()->sortByColumn(overview::PrimaryCurrentColumn, Qt::AscendingOrder);
        QCOMPARE(cell(lost, 1).row(), 0);

        m_bus->setPresent(kLdbs);
        WAIT_VERIFY(text(lost, overview::PrimaryVoltageColumn).endsWith(" V"));
        QCOMPARE(text(lost, overview::NameColumn), "LDB 03");
    }

    void lostLdbsStayUntilDismissed()
    {
        start();
        const QStringList present{kLdbs.at(0), kLdbs.at(2)};
        const QString lost = kLdbs.at(1);
        m_bus->setPresent(present);
        // A scan finds out, and says so once.
        click("reloadDevicesButton");
        WAIT_COMPARE(strip(), "Monitored: 2 of 3 LDBs answer, 1 lost.");
        QCOMPARE(text(lost, overview::NameColumn), "Disconnected (LDB 0A)");
        QCOMPARE(label("countLabel"), "2 of 3 answer, 1 lost.");
        WAIT_COMPARE(m_window->findChildren<MessageBox*>().size(), 1);
        closeBoxes();
        click("reloadDevicesButton");
        WAIT_VERIFY(strip().contains("scanned"));
        QCOMPARE(overview()->model()->rowCount(), 3);
        WAIT_COMPARE(strip(), "Monitored: 2 of 3 LDBs answer, 1 lost.");
        QCOMPARE(text(lost, overview::PrimaryVoltageColumn), kDash);
        QCOMPARE(causes().size(), 1);

        VirtualTime::current()->advance(5000);
        QVERIFY(m_window->findChildren<MessageBox*>().isEmpty());

        click("dismissLostButton");
        QCOMPARE(overview()->model()->rowCount(), 2);
        VirtualTime::current()->advance(5000);
        QCOMPARE(overview()->model()->rowCount(), 2);
        QCOMPARE(strip(), "Monitored: 2 LDBs answer.");
        QVERIFY(!child<QPushButton>("dismissLostButton")->isVisible());
        QCOMPARE(label("countLabel"), "Available LDB's: 2.");
        m_bus->setPresent(kLdbs);
        click("reloadDevicesButton");
        WAIT_COMPARE(strip(), "Monitored: 3 LDBs answer.");
        WAIT_VERIFY(text(lost, overview::PrimaryVoltageColumn).endsWith(" V"));
    }

    void dismissedWithoutARun()
    {
        start();
        m_bus->setPresent({kLdbs.at(2)});
        click("reloadDevicesButton");
        WAIT_COMPARE(strip(), "Monitored: 1 of 3 LDBs answer, 2 lost.");
        click("startButton");
        closeBoxes();
        // One of the two, by its own menu; the selected one.
        emit overview()->customContextMenuRequested(
            overview()->visualRect(cell(kLdbs.at(0), overview::NameColumn)).center());
        auto* menu = overview()->findChild<QMenu*>();
        QVERIFY(menu != nullptr);
        QCOMPARE(menu->actions().first()->text(), "Dismiss LDB 03");
        menu->actions().first()->trigger();
        menu->close();
        QCOMPARE(overview()->model()->rowCount(), 2);
        QCOMPARE(cell(kLdbs.at(1), overview::TickColumn).data(Qt::CheckStateRole).toInt(),
                 int(Qt::Checked));
        click("startButton");
        WAIT_COMPARE(strip(), "Monitored: 1 of 2 LDBs answer, 0 lost, 1 not heard yet.");
        QCOMPARE(overview()->model()->rowCount(), 2);
    }

    void logWaitsForTheBus()
    {
        start();
        const auto* panel = m_window->findChild<LogPanel*>();
        const auto dot = [this] {
            const QImage image =
                child<QTabWidget>("controlTabs")->tabIcon(2).pixmap(18, 18).toImage();
            return image.pixelColor(image.width() / 2, image.height() / 2);
        };
        const QString path = setLogPath();
        click("logStartStopButton");
        WAIT_COMPARE(panel->status(), LogPanel::Status::Logging);
        QCOMPARE(dot(), QColor(colours::kOrangered));
        QCOMPARE(label("logStatusLabel"), QString());

        click("startButton");
        QCOMPARE(panel->status(), LogPanel::Status::Waiting);
        QCOMPARE(dot(), QColor(colours::kAmber));
        const QByteArray logged = Sandbox::readFile(path);
        const QString from = QString::fromLatin1(logged.trimmed().split(';').value(
                                                     logged.trimmed().split(';').size() - 2))
                                 .section(": ", 1);
        QCOMPARE(label("logStatusLabel"),
                 QStringLiteral("Waiting for the bus since %1.").arg(from));
        VirtualTime::current()->advance(60000);
        QCOMPARE(Sandbox::readFile(path), logged); // no line of its own

        click("startButton");
        WAIT_COMPARE(panel->status(), LogPanel::Status::Logging);
        const QRegularExpression gap("^No record came from " + from +
                                     " to \\d\\d:\\d\\d:\\d\\d\\.$");
        QVERIFY2(gap.match(label("logStatusLabel")).hasMatch(),
                 qPrintable(label("logStatusLabel")));
        click("logStartStopButton");
        QCOMPARE(panel->status(), LogPanel::Status::Off);
        QVERIFY(child<QTabWidget>("controlTabs")->tabIcon(2).isNull());
    }

    void logStaysWithItsLdb()
    {
        start();
        const QString path = setLogPath();
        child<QRadioButton>("logSelectedRadioButton")->click();
        click("logStartStopButton");
        QCOMPARE(label("logSubjectLabel"), "LDB 03 (LDB 03)");
        clickRow(kLdbs.at(1));
        VirtualTime::current()->advance(5000);
        QCOMPARE(label("logSubjectLabel"), "LDB 03 (LDB 03)");
        const QByteArray log = Sandbox::readFile(path);
        QVERIFY(log.count("\n03;") > 3);
        QVERIFY(!log.contains("\n0A;"));
        // The next log takes the one that is selected then.
        click("logStartStopButton");
        QCOMPARE(label("logSubjectLabel"), QString());
        click("logStartStopButton");
        QCOMPARE(label("logSubjectLabel"), "LDB 0A (LDB 0A)");
        WAIT_VERIFY(Sandbox::readFile(path).contains("\n0A;"));
    }

    void causeIsScrolledTo()
    {
        QStringList ldbs;
        for (int address = 1; address <= 60; ++address) {
            ldbs.append(QStringLiteral("%1").arg(address, 2, 16, QLatin1Char('0')).toUpper());
        }
        open(ldbs);
        m_bus->setScript([](const QByteArray& body) -> std::optional<QByteArray> {
            return body == "FE3C737803" ? std::make_optional(TestBus::framed(withLeakage()))
                                        : std::nullopt;
        });
        click("startButton");
        auto* causesB = child<QListWidget>("lampCausesB");
        WAIT_VERIFY(causesB->item(0)->text().startsWith("3C"));
        const auto isSeen = [this] {
            return overview()->viewport()->rect().contains(
                overview()->visualRect(cell(QStringLiteral("3C"), overview::NameColumn)).center());
        };
        QVERIFY(!isSeen());
        emit causesB->itemClicked(causesB->item(0));
        QVERIFY(isSeen());
    }

    void callsAUserElsewhere()
    {
        start();
        const QSignalSpy called(m_window->findChild<Attention*>(), &Attention::called);
        const QSignalSpy sounded(m_window->findChild<AlarmSound*>(), &AlarmSound::sounded);
        QByteArray status = TestBus::status();
        m_bus->setScript([&status](const QByteArray& body) -> std::optional<QByteArray> {
            return body == "FE0A737803" ? std::make_optional(TestBus::framed(status))
                                        : std::nullopt;
        });
        const auto pass = [] {
            VirtualTime::current()->advance(5000);
        };

        QApplication::setActiveWindow(m_window.get());
        status = withLeakage();
        pass();
        QCOMPARE(called.size(), 0); // the user sees it
        status = TestBus::status();
        pass();
        QApplication::setActiveWindow(nullptr);
        pass();
        QCOMPARE(called.size(), 0); // that a fault goes is no alarm
        status = withLeakage();
        pass();
        QCOMPARE(called.size(), 1);
        QCOMPARE(sounded.size(), 0);
        const ExpectWarning warning("warning sound stays silent|^PulseAudio",
                                    ExpectWarning::Need::MayCome);
        userSettings().setValue(constants::kAudioWarningsKey, true);
        status = withLeakage(254); // one more
        pass();
        QCOMPARE(called.size(), 2);
        QCOMPARE(sounded.size(), 1);
        m_bus->setPresent({kLdbs.at(1)});
        WAIT_COMPARE(called.size(), 3); // another one is lost
    }
};

REGISTER_TEST(TestLiveness, InVirtualTime<QApplication>)

#include "tst_liveness.moc"

#include "app/log/logpanel.h"
#include "app/lookback/lookback.h"
#include "app/lookback/shownsource.h"
#include "app/recording/recordingcontrol.h"
#include "app/window/ldbviews.h"
#include "recording/recordingexport.h"
#include "recording/recordingreader.h"
#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"
#include "tracking/plot/plot.h"

#include <limits>
#include <random>

namespace {

constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};
constexpr double kPlotSpan = 600000; // ms
const QStringList kBus{"03", "0A", "2B", "FD"};

/// The texts of a view, with what is grey of it.
QStringList textsOf(const QTableView& view)
{
    QStringList texts;
    const QAbstractItemModel* model = view.model();
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            const QModelIndex index = model->index(row, column);
            cells << index.data().toString() +
                         index.data(Qt::ForegroundRole).value<QBrush>().color().name();
        }
        texts << cells.join('|');
    }
    return texts;
}

} // namespace

/// The whole window looking back: it shows what it showed then, and nothing is sent.
class TestLookBack : public LiveWindow
{
    Q_OBJECT
private slots:
    /// Records, lamps, their pages, details and plot of a bad time, as they were.
    void showsWhatTheLiveWindowHad_data()
    {
        const Table<int> row("minutes");
        row("ten minutes", 10);
        if (qEnvironmentVariableIsSet("SNIFFER_LONG_TESTS")) {
            row("an hour", 60);
        }
    }

    void showsWhatTheLiveWindowHad()
    {
        QFETCH(int, minutes);
        open(kBus);
        auto* recorder = control()->recorder();
        std::vector<RecordedEvent> events;
        connect(recorder, &Recorder::eventRecorded, m_window.get(),
                [&events](const RecordedEvent& event) { events.push_back(event); });
        std::map<qint64, Monitoring> monitored;
        connect(m_window->findChild<LdbViews*>(), &LdbViews::monitoringTold, m_window.get(),
                [&monitored, recorder](const Monitoring& monitoring) {
                    monitored[recorder->moment()] = monitoring;
                });
        const QString log = setLogPath();
        child<QSpinBox>("logSpeedSpinBox")->setValue(3);
        child<QRadioButton>("logAllRadioButton")->click();
        click("logStartStopButton");
        std::size_t told = 0;
        struct Shown
        {
            double plotFrom;
            QStringList picture;
        };
        std::map<std::size_t, Shown> shown;
        connect(m_window->findChild<LdbViews*>(), &LdbViews::selectedLdbChanged, m_window.get(),
                [this] { beginPlot(); });
        std::vector<QList<QStringList>> tellings;
        const auto note = [this, &told, &shown, &tellings](const QString&,
                                                           const QList<QStringList>& rows) {
            tellings.push_back(rows);
            if (++told % 23 == 0) {
                shown[told - 1] = {m_plotFrom, picture(m_plotFrom)};
            }
        };
        // Behind the views.
        auto* source = m_window->findChild<ShownSource*>();
        connect(source, &RecordSource::generalInformationUpdated, m_window.get(), note,
                Qt::QueuedConnection);
        connect(source, &RecordSource::extraInformationUpdated, m_window.get(), note,
                Qt::QueuedConnection);
        live(minutes);
        click("startButton");
        VirtualTime::current()->advance(20000);
        click("logStartStopButton");

        RecordingReader reader(control()->folder());
        const auto records = reader.records({}, kAll);
        QCOMPARE(records.size(), told);
        for (std::size_t i = 0; i < told; ++i) {
            QCOMPARE(records[i].rows, tellings[i]);
        }
        QVERIFY(shown.size() > 50);
        source->disconnect(m_window.get());
        int different = 0;
        for (const auto& [telling, live] : shown) {
            lookBack()->goTo(records[telling].at);
            VirtualTime::current()->advance(1);
            QCOMPARE(lookBack()->shown(), std::make_optional(records[telling].at));
            const QStringList now = picture(live.plotFrom);
            if (now != live.picture && ++different < 4) {
                qWarning() << "at" << telling << records[telling].hexId
                           << QString::number(live.plotFrom, 'f', 0);
                const auto tell = [](const char* who, const QStringList& has,
                                     const QStringList& lacks) {
                    for (const QString& line : has) {
                        if (!lacks.contains(line)) {
                            qWarning().noquote() << who << line;
                        }
                    }
                };
                tell("live  ", live.picture, now);
                tell("replay", now, live.picture);
            }
        }
        QCOMPARE(different, 0);
        const auto recorded = reader.events(kAll);
        QVERIFY(recorded.size() > 10);
        QVERIFY(m_window->findChild<TimeBar*>()->content().events == recorded);
        std::stable_sort(events.begin(), events.end(),
                         [](const RecordedEvent& left, const RecordedEvent& right) {
                             return left.at < right.at;
                         });
        QVERIFY(recorded == events);
        QBuffer exported;
        QVERIFY(exported.open(QIODevice::WriteOnly));
        QCOMPARE(recordingexport::writeLog(reader, kAll, {{}, 3}, exported), QString());
        QCOMPARE(QString::fromUtf8(exported.data()), Sandbox::readFile(log));
        compareMonitoring(monitored);
    }

    void nothingIsSentAndLiveGoesOn()
    {
        start();
        const QString log = setLogPath();
        click("logStartStopButton");
        VirtualTime::current()->advance(30000);
        QCOMPARE(lookBack()->shown(), std::optional<qint64>());
        const QStringList before = picture();
        m_bus->clearRequests();
        auto* bar = m_window->findChild<TimeBar*>();
        bar->setFocus();
        QTest::keyClick(bar, Qt::Key_Left);
        VirtualTime::current()->advance(10);
        QVERIFY(lookBack()->shown());
        const qint64 at = *lookBack()->shown();
        QVERIFY(child<QWidget>("recordedBand")->isVisible());
        QVERIFY(!child<QWidget>("monitoringStrip")->isVisible());
        QVERIFY(label("recordedLabel").startsWith("Recorded: "));
        QVERIFY(label("recordedNowLabel").contains("Monitored: 3 LDBs answer."));
        for (const char* name : {"startButton", "reloadDevicesButton", "exportDeviceSettingsButton",
                                 "importDeviceSettingsButton", "fimTrackingButton"}) {
            QVERIFY2(!child<QWidget>(name)->isEnabled(), name);
        }
        for (const auto* button : child<QWidget>("ldbActionsGroup")->findChildren<QPushButton*>()) {
            QVERIFY2(!button->isEnabled(), qPrintable(button->objectName()));
        }
        // Another LDB can be looked at, which asks nobody for anything.
        clickRow("FD");
        VirtualTime::current()->advance(5000);
        QCOMPARE(child<QTableView>("deviceDetailTableView")->model()->index(0, 1).data(), "FD");
        QVERIFY(!detailTime().isEmpty());
        QCOMPARE(m_bus->commands(), QList<QByteArray>());
        QCOMPARE(*lookBack()->shown(), at);

        // What happens now is said now, logged and recorded.
        const QString mode = text("0A", overview::ModeColumn);
        const auto logged = Sandbox::readFile(log).count('\n');
        m_bus->setPresent({"03", "FD"});
        VirtualTime::current()->advance(20000);
        QCOMPARE(label("recordedNowLabel"), "now: LDB 0A lost; back to live");
        QVERIFY(Sandbox::readFile(log).count('\n') > logged + 20);
        QCOMPARE(text("0A", overview::ModeColumn), mode);

        lookBack()->press(BarKey::Live);
        QCOMPARE(lookBack()->shown(), std::optional<qint64>());
        QVERIFY(!child<QWidget>("recordedBand")->isVisible());
        QVERIFY(text("0A", overview::ModeColumn) != mode);
        QVERIFY(isLive("03"));
        QVERIFY(!areLampsHatched());
        QCOMPARE(causes().size(), 1);
        VirtualTime::current()->advance(3000);
        // It is the present again: the settings of the LDB selected meanwhile are read.
        QVERIFY(!m_bus->commands().isEmpty());
        m_bus->setPresent(kLdbs);
        VirtualTime::current()->advance(20000);
        QCOMPARE(picture().first().section('|', 0, 3), before.first().section('|', 0, 3));
    }

    void playsAtItsSpeed()
    {
        start();
        VirtualTime::current()->advance(120000);
        lookBack()->goTo(0); // the begin
        VirtualTime::current()->advance(10);
        const qint64 begin = *lookBack()->shown();
        auto* bar = m_window->findChild<TimeBar*>();
        QTest::keyClick(bar, Qt::Key_Space);
        VirtualTime::current()->advance(5000);
        QCOMPARE((*lookBack()->shown() - begin) / 1000000, 5);
        QTest::keyClick(bar, Qt::Key_BracketRight);
        QTest::keyClick(bar, Qt::Key_BracketRight);
        const qint64 slow = *lookBack()->shown();
        VirtualTime::current()->advance(10000);
        QCOMPARE((*lookBack()->shown() - slow) / 1000000, 50);
        QTest::keyClick(bar, Qt::Key_Space);
        const qint64 paused = *lookBack()->shown();
        VirtualTime::current()->advance(5000);
        QCOMPARE(*lookBack()->shown(), paused);
        QVERIFY(!areLampsHatched());
        QTest::keyClick(bar, Qt::Key_Right, Qt::ShiftModifier);
        VirtualTime::current()->advance(10);
        QVERIFY(*lookBack()->shown() > paused);
        QVERIFY(*lookBack()->shown() < paused + 1000000);
        QTest::keyClick(bar, Qt::Key_Home);
        VirtualTime::current()->advance(10);
        QCOMPARE(*lookBack()->shown(), begin);
        overview()->setFocus();
        QTest::keyClick(overview(), Qt::Key_Escape);
        QCOMPARE(lookBack()->shown(), std::optional<qint64>());
    }

    void opensARecordingWithoutABus()
    {
        start();
        VirtualTime::current()->advance(60000);
        const QString folder = control()->folder();
        m_window.reset();
        m_window = std::make_unique<MainWindow>(m_bus->ports());
        m_window->openRecording(folder);
        m_window->show();
        VirtualTime::current()->advance(100);
        QVERIFY(lookBack()->shown());
        QCOMPARE(overview()->model()->rowCount(), kLdbs.size());
        QCOMPARE(text("0A", overview::IdColumn), "0A");
        QVERIFY(!detailTime().isEmpty());
        QVERIFY(!child<QWidget>("startButton")->isEnabled());

        m_window = std::make_unique<MainWindow>(m_bus->ports());
        m_window->openRecording(m_sandbox->path("nothing here"));
        m_window->show();
        VirtualTime::current()->advance(100);
        QVERIFY(!lookBack()->shown());
        auto* box = m_window->findChild<MessageBox*>("noRecordingBox");
        QVERIFY(box != nullptr);
        QVERIFY(box->text().contains("nothing here"));
    }

private:
    /// What the strip said, and by what the views were live or grey.
    void compareMonitoring(const std::map<qint64, Monitoring>& monitored)
    {
        RecordingReader reader(control()->folder());
        const TimeSpan extent = *reader.extent();
        const auto text = [](const Monitoring& monitoring) {
            return QStringLiteral("state %1 since %2 alone %3 from %4 lifetime %5 known %6 lost %7")
                .arg(static_cast<int>(monitoring.state))
                .arg(monitoring.since.value_or(0))
                .arg(monitoring.polledAlone)
                .arg(monitoring.from)
                .arg(monitoring.lifetime)
                .arg(monitoring.known)
                .arg(monitoring.lost);
        };
        const auto isSame = [](const Monitoring& left, const Monitoring& right) {
            // A round's time is told a while before its first question is asked.
            const auto isClose = [](qint64 a, qint64 b) {
                return qAbs(a - b) < 1000;
            };
            return left.state == right.state && left.polledAlone == right.polledAlone &&
                   isClose(left.since.value_or(0), right.since.value_or(0)) &&
                   (!left.isPolling() ||
                    (isClose(left.from, right.from) && qAbs(left.lifetime - right.lifetime) < 50 &&
                     left.known == right.known && left.lost == right.lost));
        };
        int different = 0;
        int compared = 0;
        std::map<int, int> states;
        for (const auto& [at, live] : monitored) {
            if (at < extent.from || at >= extent.to || ++compared % 7 != 0) {
                continue;
            }
            // A loss is recorded at the question that told of it; the window hears of it when that
            // has been waited for.
            Replay before;
            before.show(moment::read(reader, at - 1000000, {}));
            Replay replay;
            replay.show(moment::read(reader, at, {}));
            ++states[static_cast<int>(live.state)];
            if (!isSame(replay.monitoring(), live) && !isSame(before.monitoring(), live) &&
                ++different < 12) {
                qWarning().noquote() << live.clockText(live.now) << "live  " << text(live)
                                     << "\nreplay" << text(replay.monitoring());
            }
        }
        QCOMPARE(different, 0);
        QVERIFY(states.size() >= 3);
    }

    LookBack* lookBack() const { return m_window->findChild<LookBack*>(); }
    RecordingControl* control() const { return m_window->findChild<RecordingControl*>(); }

    /// Everything that the window shows of the bus, but how old it is; of the plot from a time on.
    QStringList picture(double plotFrom = 0) const
    {
        QStringList lines = textsOf(*overview());
        const auto* details = child<QTableView>("deviceDetailTableView")->model();
        for (int row = 0; row < details->rowCount(); ++row) {
            lines << "detail " + details->index(row, 1).data().toString();
        }
        for (const char* lamp : {"lampALabel", "lampBLabel", "lampCLabel", "lampDLabel"}) {
            lines << child<QLabel>(lamp)->accessibleName();
        }
        for (const QString& hexId : kBus) {
            lines << hexId + (isLive(hexId) ? " live" : " old");
        }
        for (const char* page :
             {"lampCausesA", "lampCausesB", "lampCausesC", "lampCausesD", "lampCausesOut"}) {
            const auto* list = child<QListWidget>(page);
            for (int row = 0; row < list->count(); ++row) {
                lines << page + (' ' + list->item(row)->text());
            }
        }
        return lines + curves(plotFrom);
    }

    /// The values of ten minutes of the chart that is shown.
    QStringList curves(double plotFrom) const
    {
        QStringList lines;
        for (const Plot* plot : m_window->findChildren<Plot*>()) {
            const PlotHistory& history = plot->history();
            if (!plot->isVisible() || history.isEmpty()) {
                continue;
            }
            const double from = std::max(plotFrom, history.newestTime() - kPlotSpan + 60000);
            for (int i = history.firstNotBefore(from); i < history.size(); ++i) {
                QString line = history.isRecord(i) ? "curve " : "gap ";
                line += QString::number(history.times()[i], 'f', 0);
                if (!history.isRecord(i)) {
                    lines << line;
                    continue;
                }
                for (const int curve : history.curves()) {
                    line += ' ' + QString::number(history.values(curve)[i]);
                }
                lines << line;
            }
        }
        return lines;
    }

    /// A bad line, LDBs that go and come, faults, renames, restarts.
    void live(int minutes)
    {
        std::mt19937 chance(20260304);
        Adversaries bad;
        bad.flippedAnswers = 3;
        bad.lostAnswers = 3;
        bad.lateAnswers = 2;
        click("startButton");
        VirtualTime::current()->advance(60000);
        m_bus->host().setAdversaries(bad);
        for (int second = 60; second < minutes * 60; second += 10) {
            switch (chance() % 20) {
            case 0:
                m_bus->change("0A", "02", "4E6F727468");
                break;
            case 1:
                m_bus->setPresent({"03", "2B"});
                break;
            case 2:
                m_bus->setPresent(kBus);
                break;
            case 3:
                click("reloadDevicesButton");
                break;
            case 4:
                click("startButton");
                VirtualTime::current()->advance(10000);
                beginPlot();
                click("startButton");
                break;
            case 5:
            case 6:
                setLeakage(chance() % 2 == 0);
                break;
            default:
                break;
            }
            VirtualTime::current()->advance(10000);
        }
    }
    void beginPlot() { m_plotFrom = static_cast<double>(m_bus->ports().wallTime()); }
    void setLeakage(bool isThere)
    {
        m_bus->setScript([isThere](const QByteArray& body) -> std::optional<QByteArray> {
            constexpr int kLeakagePlace = 17;
            if (!isThere || body != "FE2B737803") {
                return std::nullopt;
            }
            QByteArray answer = TestBus::status();
            answer[kLeakagePlace] = '1';
            return TestBus::framed(answer);
        });
    }

    double m_plotFrom = 0; ///< ms; what is drawn of before came out of the recording, too
};

REGISTER_TEST(TestLookBack, InVirtualTime<QApplication>)
#include "tst_lookback.moc"

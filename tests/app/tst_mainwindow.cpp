#include "app/preferences/settingsmenu.h"
#include "app/transfer/settingstransfer.h"
#include "app/window/windowlook.h"
#include "tests/app/livewindow.h"
#include "tests/support/bracketingtranslator.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"

namespace {

const QString kAllAnswer = "Monitored: 3 LDBs answer.";
const QString kFailed = "Serial communication failed.";

} // namespace

/// Run, port, language, layout and what else is of the whole window.
class TestMainWindow : public LiveWindow
{
    Q_OBJECT
private slots:
    void init() override
    {
        LiveWindow::init();
        makeBus(kLdbs);
    }

    void startsAndStops()
    {
        makeWindow();
        QCOMPARE(m_window->windowTitle(),
                 QStringLiteral("Tavro Cordex Sniffer Version " APPLICATION_VERSION));
        QVERIFY(!button("ldbResetButton")->isEnabled());
        QVERIFY(button("reloadDevicesButton")->isEnabled());

        button("startButton")->click();
        QCOMPARE(button("startButton")->text(), "Stop");
        QVERIFY(!button("reloadDevicesButton")->isEnabled());
        WAIT_VERIFY(child<QProgressBar>("progressBar")->isVisible());
        QVERIFY(message().startsWith("Scanning for connected LDB's...  LDB's Checked "));

        WAIT_COMPARE(rows(), 3);
        QCOMPARE(label("countLabel"), "Available LDB's: 3.");
        QVERIFY(!child<QProgressBar>("progressBar")->isVisible());
        WAIT_COMPARE(detail(0), "03");
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        QVERIFY(button("reloadDevicesButton")->isEnabled());

        button("startButton")->click();
        QCOMPARE(button("startButton")->text(), "Start");
        QVERIFY(!button("ldbResetButton")->isEnabled());
        QVERIFY(!button("allLdbResetButton")->isEnabled());
        QCOMPARE(label("countLabel"), "Available LDB's: 3.");
        QCoreApplication::processEvents(); // what was on its way when it stopped
        m_bus->clearRequests();
        QCoreApplication::processEvents();
        QVERIFY(m_bus->requests().isEmpty());
    }

    void reloadKeepsTheTick()
    {
        startWindow();
        clickRow("FD");
        WAIT_COMPARE(detail(0), "FD");

        m_bus->setPresent({"03", "FD"});
        button("reloadDevicesButton")->click();
        QCOMPARE(label("countLabel"), "Loading LDB device list...");
        QVERIFY(!button("ldbResetButton")->isEnabled());
        WAIT_COMPARE(label("countLabel"), "2 of 3 answer, 1 lost.");
        QCOMPARE(rows(), 3);
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        m_bus->clearRequests();
        button("ldbResetButton")->click();
        WAIT_VERIFY(m_bus->requests().contains("FEFD73780001"));
    }

    void cutLine()
    {
        startWindow();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        // An action is under way.
        m_bus->setScript([this](const QByteArray& request) -> std::optional<QByteArray> {
            if (request != "FE0373780001") {
                return std::nullopt;
            }
            m_bus->cut();
            return QByteArray();
        });
        const ExpectWarning warning("^Port ");
        button("ldbResetButton")->click();
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->informativeText(),
                 "Port test bus is gone: the adapter was unplugged. Plug it in.\n"
                 "The program waits for the port, and goes on by itself when it is back.");
        // All behind the box can be used.
        QCOMPARE(boxes().constFirst()->windowModality(), Qt::NonModal);
        QVERIFY(button("endWaitingButton")->isVisible());
        QCOMPARE(message(), "LDB 03 did not answer: LDB reset.");
        QVERIFY(!button("startButton")->isChecked());
        QCOMPARE(label("countLabel"), kFailed);
        QVERIFY(!button("ldbResetButton")->isEnabled());
        QCoreApplication::processEvents();
        QCOMPARE(boxes().size(), 1);

        // And works again when the line does, by itself; what was asked before is not sent again.
        m_bus->setScript({});
        m_bus->clearRequests();
        m_bus->restore();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        VirtualTime::current()->advance(60000);
        QVERIFY(button("startButton")->isChecked());
        QVERIFY(boxes().isEmpty() && !button("endWaitingButton")->isVisible());
        QCOMPARE(m_bus->writes(), QList<QByteArray>());
        QVERIFY(!m_bus->requests().contains("FE0373780001"));
        QCOMPARE(label("countLabel"), "Available LDB's: 3.");
    }

    void noPortIsChosen()
    {
        userSettings().remove(constants::kComPortKey);
        m_window = std::make_unique<MainWindow>(); // on the ports of this machine
        m_window->show();
        const ExpectWarning warning("^Port ");
        button("startButton")->click();
        QTRY_COMPARE(boxes().size(), 1);
        QVERIFY(boxes().constFirst()->informativeText().startsWith("No serial port is chosen."));
        QCOMPARE(strip(), "Not monitored: no serial port is chosen");
    }

    void otherPort()
    {
        userSettings().setValue(constants::kComPortKey, m_sandbox->path("gone"));
        makeWindow();
        {
            const ExpectWarning warning("^Port ");
            button("startButton")->click();
            WAIT_COMPARE(label("countLabel"), kFailed);
        }
        // Another port starts the link, and only its success takes the failure off the screen.
        emit m_window->findChild<SettingsMenu*>()->comPortUpdated(m_bus->portName());
        QVERIFY(button("startButton")->isChecked());
        WAIT_COMPARE(rows(), 3);
        QCOMPARE(label("countLabel"), "Available LDB's: 3.");

        // So does one chosen while the link runs.
        m_bus->setPresent({"77"});
        m_bus->setPortName("another port");
        emit m_window->findChild<SettingsMenu*>()->comPortUpdated(m_bus->portName());
        WAIT_COMPARE(rows(), 1);
        QCOMPARE(label("countLabel"), "Available LDB's: 1.");
    }

    void lostLdb_data()
    {
        addColumns<QString, bool>("lost", "actionsStay");
        QTest::newRow("the ticked one") << "03" << false;
        QTest::newRow("another one") << "0A" << true;
    }

    void lostLdb()
    {
        QFETCH(QString, lost);
        QFETCH(bool, actionsStay);
        m_sandbox->writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=0\n");
        startWindow();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());

        // All have answered by now: one that never did is no loss.
        WAIT_VERIFY(m_bus->requests().contains("FEFD737804"));
        QStringList others = kLdbs;
        others.removeAll(lost);
        m_bus->setPresent(others);
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(),
                 QStringLiteral("The LDB with ID: %1 (LDB %1) is disconnected!").arg(lost));
        QCOMPARE(button("ldbResetButton")->isEnabled(), actionsStay);
        // Those for all are for the others.
        QVERIFY(button("allLdbResetButton")->isEnabled());
        QCOMPARE(shownTip(button("ldbResetButton")), actionsStay
                                                         ? button("ldbResetButton")->toolTip()
                                                         : "The selected LDB is not connected.");
        QCOMPARE(button("settingsSaveButton")->isEnabled(), actionsStay);

        // It comes back by itself, and with it what can be done with it.
        m_bus->setPresent(kLdbs);
        m_bus->clearRequests();
        WAIT_VERIFY(m_bus->requests().contains("FE" + lost.toLatin1() + "737803"));
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        QCOMPARE(boxes().size(), 1);
    }

    void closingAsksWhatItWouldBreakOff_data()
    {
        const Table<QByteArray, QString> row("work", "reason");
        row("import", "import",
            "An import is under way. The LDB being written may be left with a part of its "
            "settings.");
        row("export", "export",
            "An export is under way. LDB's not read yet will be missing in the file.");
        row("save", "save", "Settings are being saved. The LDB may be left with a part of them.");
        row("run", "run", "Fault finding is under way. The loop may be left without sound.");
    }

    void closingAsksWhatItWouldBreakOff()
    {
        QFETCH(QByteArray, work);
        startWindow();
        WAIT_VERIFY(button("fimTrackingButton")->isEnabled());
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        if (work == "run") {
            QVERIFY(beginRun());
            WAIT_VERIFY(tracking()->run().phase() == TrackingRun::Phase::FactoryReset);
        } else if (work == "save") {
            button("settingsSaveButton")->click();
        } else {
            auto* transfer = m_window->findChild<SettingsTransfer*>();
            m_sandbox->writeFile("in.csv", "3;A;1;1;5;0;1;0;1;30;F\n");
            work == "export" ? transfer->exportTo(m_sandbox->path("out.csv"))
                             : transfer->importFrom(m_sandbox->path("in.csv"));
        }
        for (const bool isYes : {false, true}) {
            QVERIFY(!m_window->close());
            QVERIFY(m_window->isVisible());
            MessageBox* box = MessageBox::find(m_window.get(), "closeBox");
            QVERIFY(box != nullptr);
            QTEST(box->informativeText(), "reason");
            if (isYes) {
                box->buttons().constFirst()->click();
            } else {
                QTest::keyClick(box, Qt::Key_Escape);
                QCoreApplication::processEvents();
                QVERIFY(m_window->isVisible());
            }
        }
        QVERIFY(!m_window->isVisible());
    }

    void yesToClosingIsForOnce()
    {
        startWindow();
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        m_window->findChild<SettingsTransfer*>()->exportTo(m_sandbox->path("out.csv"));
        QVERIFY(!m_window->close());
        auto* fims = child<QSpinBox>("settingsNumberOfFimsSpinBox");
        fims->setValue(fims->value() + 1);
        MessageBox::find(m_window.get(), "closeBox")->buttons().constFirst()->click();
        MessageBox* unsaved = MessageBox::find(m_window.get(), "unsavedSettingsBox");
        QVERIFY(unsaved != nullptr);
        QTest::keyClick(unsaved, Qt::Key_Escape);
        fims->setValue(fims->value() - 1);
        QVERIFY2(!m_window->close(), "the export is still on");
    }

    void trackingPollsOneLdb()
    {
        startWindow();
        WAIT_VERIFY(button("fimTrackingButton")->isEnabled());
        clickRow("0A");
        WAIT_COMPARE(detail(0), "0A");
        button("fimTrackingButton")->click();
        WAIT_COMPARE(strip(), "Only LDB 0A is polled.");
        QVERIFY(tracking() != nullptr && tracking()->isVisible());
        tracking()->close();
        WAIT_COMPARE(strip(), kAllAnswer);
        m_bus->clearRequests();
        WAIT_VERIFY(m_bus->requests().contains("FEFD737803"));
    }

    void lampIsTwoClicksFromItsCause()
    {
        constexpr int kServiceMode = 30;
        m_bus->setScript([](const QByteArray& body) -> std::optional<QByteArray> {
            return body == "FEFD737803"
                       ? std::make_optional(TestBus::framed(TestBus::status(kServiceMode)))
                       : std::nullopt;
        });
        startWindow();
        child<QTabWidget>("controlTabs")->setCurrentIndex(1);
        QTest::mouseClick(child<QLabel>("lampALabel"), Qt::LeftButton);
        auto* causes = child<QListWidget>("lampCausesA");
        WAIT_VERIFY(causes->isVisible());
        WAIT_VERIFY(causes->count() == 1 && causes->item(0)->text().startsWith("FD"));
        clickCell(*causes, 0);
        WAIT_COMPARE(detail(0), "FD");
    }

    void logsWhatIsPolled()
    {
        startWindow();
        const QString path = m_sandbox->path("log.csv");
        child<QLineEdit>("logFilePathText")->setText(path);
        button("logStartStopButton")->click();
        QVERIFY(!child<QTabWidget>("controlTabs")->tabIcon(2).isNull());
        WAIT_VERIFY(Sandbox::readFile(path).contains("\nFD;"));
        const QRegularExpression record(
            "^FD;LDB FD;Quiescent;Ok;2\\d.*;\\d{4}-\\d\\d-\\d\\d: [\\d:]{8};$",
            QRegularExpression::MultilineOption);
        WAIT_VERIFY(record.match(Sandbox::readFile(path)).hasMatch());
        button("logStartStopButton")->click();
        QVERIFY(child<QTabWidget>("controlTabs")->tabIcon(2).isNull());

        // A log that cannot go on says so.
        child<QLineEdit>("logFilePathText")->setText("/dev/full");
        const ExpectWarning warning("stopped");
        button("logStartStopButton")->click();
        WAIT_COMPARE(boxes().size(), 1);
        QVERIFY2(boxes().constFirst()->informativeText().startsWith("/dev/full: "),
                 qPrintable(boxes().constFirst()->informativeText()));
        QVERIFY(!button("logStartStopButton")->isChecked());
        QVERIFY(child<QLineEdit>("logFilePathText")->isEnabled());
    }

    void languageChangeLosesNothing()
    {
        startWindow();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        clickRow("0A");
        WAIT_COMPARE(detail(0), "0A");
        child<QLineEdit>("logFilePathText")->setText(m_sandbox->path("log.csv"));
        button("logStartStopButton")->click();
        overview()->horizontalHeader()->resizeSection(2, 222);

        auto language = std::make_unique<BracketingTranslator>();
        WAIT_COMPARE(button("startButton")->text(), "[Stop]");
        QCOMPARE(button("logStartStopButton")->text(), "[Stop]");
        QCOMPARE(button("reloadDevicesButton")->text(), "[&Reload Devices]");
        QCOMPARE(label("countLabel"), "[Available LDB's: 3.]");
        QVERIFY(label("queueLabel").startsWith("[Serial commands in queue: ]"));
        QVERIFY(child<QLabel>("lampALabel")->toolTip().contains('['));
        QCOMPARE(detail(0), "0A");
        QCOMPARE(overview()->horizontalHeader()->sectionSize(2), 222);
        QVERIFY(button("logStartStopButton")->isChecked());

        language.reset();
        WAIT_COMPARE(button("startButton")->text(), "Stop");
        QCOMPARE(rows(), 3);
    }

    void layoutComesBack_data()
    {
        const Table<QRect, bool> row("savedScreens", "placeComesBack");
        const QRect screens = QGuiApplication::primaryScreen()->virtualGeometry();
        row("same screens", screens, true);
        row("one screen less", screens.adjusted(0, 0, 1920, 0), false);
        row("no screens stored", {}, false);
    }

    void layoutComesBack()
    {
        QFETCH(QRect, savedScreens);
        QFETCH(bool, placeComesBack);
        const QList<const char*> splitters{"deviceOverviewAndPlotSplitter", "leftAndRightSplitter",
                                           "plotAndDetailSplitter"};
        const auto positions = [this, &splitters] {
            QList<int> found;
            for (const char* name : splitters) {
                found.append(child<QSplitter>(name)->sizes().constFirst());
            }
            return found;
        };
        startWindow();
        const QSize firstSize = m_window->size();
        m_window->resize(1300, 700);
        QCoreApplication::processEvents();
        const QList<int> former = positions();
        for (const char* name : splitters) {
            const QList<int> sizes = child<QSplitter>(name)->sizes();
            child<QSplitter>(name)->setSizes({sizes.at(0) + 60, sizes.at(1) - 60});
        }
        QCoreApplication::processEvents();
        const QList<int> moved = positions();
        QVERIFY(m_window->close());
        // Layouts saved by earlier versions are found under these very names.
        for (const char* key :
             {"position/geometry", "position/windowState", "position/leftAndRightLayoutSplitter",
              "position/deviceOverviewAndPLotSplitter"}) {
            QVERIFY2(userSettings().contains(QLatin1String(key)), key);
        }
        userSettings().setValue("position/screenGeometry", savedScreens);

        m_window.reset();
        startWindow();
        QCOMPARE(m_window->size(), placeComesBack ? QSize(1300, 700) : firstSize);
        m_window->resize(1300, 700);
        QCoreApplication::processEvents();
        for (int i = 0; i < splitters.size(); ++i) {
            QVERIFY2(qAbs(moved.at(i) - former.at(i)) > 10, splitters.at(i));
            QVERIFY2(qAbs(positions().at(i) - moved.at(i)) < 5, splitters.at(i)); // by rounding
        }
    }
};

REGISTER_TEST(TestMainWindow, InVirtualTime<QApplication>)

#include "tst_mainwindow.moc"

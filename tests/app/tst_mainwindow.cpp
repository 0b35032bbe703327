#include "app/preferences/settingsmenu.h"
#include "app/settingstable/settingstablewindow.h"
#include "app/settingstable/writepreview.h"
#include "app/transfer/settingstransfer.h"
#include "app/window/windowlook.h"
#include "tests/app/livewindow.h"
#include "tests/support/bracketingtranslator.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"

namespace {

constexpr int kIdColumn = 1;
const QString kAllAnswer = "Monitored: 3 LDBs answer.";
const QString kFailed = "Serial communication failed.";

} // namespace

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
        start();
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
        start();
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
        start();
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
        // Its settings are shown as they were read last, and rest.
        QCOMPARE(settingsState(),
                 actionsStay ? QString() : "LDB 03 is not connected: this was read last");
        QCOMPARE(child<QLineEdit>("settingsNameLineEdit")->text(), "LDB 03");
        QCOMPARE(child<QLineEdit>("settingsNameLineEdit")->isEnabled(), actionsStay);
        QCOMPARE(button("settingsSaveButton")->isEnabled(), actionsStay);

        // It comes back by itself, and with it what can be done with it.
        m_bus->setPresent(kLdbs);
        m_bus->clearRequests();
        WAIT_VERIFY(m_bus->requests().contains("FE" + lost.toLatin1() + "737803"));
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        QCOMPARE(boxes().size(), 1);
    }

    void lostLdbShowsWhatWasReadLast()
    {
        m_sandbox->writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=0\n");
        start();
        for (const QString& hexId : {QString("0A"), QString("03")}) {
            clickRow(hexId);
            WAIT_COMPARE(child<QLineEdit>("settingsNameLineEdit")->text(), "LDB " + hexId);
        }
        m_bus->setPresent({"03"});
        WAIT_VERIFY(!boxes().isEmpty() && boxes().constFirst()->text().contains("0A") &&
                    boxes().constFirst()->text().contains("FD"));
        m_bus->change("0A", "02", QByteArray("Roof").toHex().toUpper());
        auto* name = child<QLineEdit>("settingsNameLineEdit");
        clickRow("0A");
        QCOMPARE(name->text(), "LDB 0A");
        QVERIFY(!name->isEnabled());
        QCOMPARE(settingsState(), "LDB 0A is not connected: this was read last");
        QCOMPARE(shownTip(button("settingsSaveButton")), "The selected LDB is not connected.");
        clickRow("FD"); // of which nothing was read
        QCOMPARE(name->text(), QString());
        QCOMPARE(settingsState(), "LDB FD is not connected: its settings are not known");

        clickRow("0A");
        m_bus->setPresent(kLdbs);
        WAIT_COMPARE(name->text(), "Roof");
        WAIT_VERIFY(name->isEnabled());
        QCOMPARE(settingsState(), QString());
    }

    void unsavedChangesAreAskedFor_data()
    {
        // "choice": of the question; empty: Escape
        const Table<QString, QString, bool, bool> row("leave", "choice", "goesOn", "isSaved");
        for (const char* leave : {"0A", "close", "port"}) {
            const auto named = [leave](const char* what) {
                return QString("%1: %2").arg(leave, what).toLatin1();
            };
            row(named("Save").constData(), leave, "Save", true, true);
            row(named("refused Save").constData(), leave, "Save", false, false);
            row(named("Discard").constData(), leave, "Discard", true, false);
            row(named("Stay").constData(), leave, "Stay", false, false);
            row(named("Escape").constData(), leave, {}, false, false);
        }
    }

    void unsavedChangesAreAskedFor()
    {
        QFETCH(QString, leave);
        QFETCH(QString, choice);
        QFETCH(bool, goesOn);
        QFETCH(bool, isSaved);
        start();
        auto* name = child<QLineEdit>("settingsNameLineEdit");
        WAIT_COMPARE(name->text(), "LDB 03");
        WAIT_COMPARE(detail(0), "03");
        name->setText("Roof");
        if (choice == "Save" && !isSaved) {
            m_bus->answerTo("03", "736302", "\x15");
        }
        if (leave == "close") {
            QVERIFY(!m_window->close());
        } else if (leave == "port") {
            m_bus->setPortName("another port");
            userSettings().setValue(constants::kComPortKey, "another port");
            emit m_window->findChild<SettingsMenu*>()->comPortUpdated("another port");
        } else {
            clickRow(leave);
        }
        QCOMPARE(boxes().size(), 1);
        MessageBox* box = boxes().constFirst();
        QCOMPARE(box->text(), "LDB 03 has 1 unsaved change(s).");
        QVERIFY(m_window->isVisible());
        QCOMPARE(detail(0), "03");
        QCOMPARE(name->text(), "Roof");
        m_bus->clearRequests();
        if (choice.isEmpty()) {
            QTest::keyClick(box, Qt::Key_Escape);
        } else {
            press(box, choice);
        }

        const auto hasGoneOn = [this, &leave] {
            return leave == "close"  ? !m_window->isVisible()
                   : leave == "port" ? label("countLabel") == "Loading LDB device list..."
                                     : detail(0) == leave;
        };
        if (choice == "Save" && !isSaved) {
            WAIT_VERIFY(settingsState().contains("not written: Name (refused)"));
        }
        if (goesOn) {
            WAIT_VERIFY(hasGoneOn());
        } else {
            QCoreApplication::processEvents();
            QVERIFY(!hasGoneOn());
            QCOMPARE(name->text(), "Roof");
            QVERIFY(settingsState().startsWith("1 unsaved change(s), in bold"));
            QCOMPARE(userSettings().value(constants::kComPortKey).toString(), "test bus");
        }
        const QByteArray record = m_bus->settingsOf("03");
        QCOMPARE(decodeLdbSettings(record)->name, isSaved ? "Roof" : "LDB 03");
        QCOMPARE(m_bus->writes().isEmpty(), choice != "Save");
    }

    void changesOfALostLdbAreAskedFor()
    {
        m_sandbox->writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=0\n");
        start();
        auto* name = child<QLineEdit>("settingsNameLineEdit");
        WAIT_COMPARE(name->text(), "LDB 03");
        WAIT_VERIFY(m_bus->requests().contains("FEFD737804"));
        name->setText("Roof");
        m_bus->setPresent({"0A", "FD"});
        WAIT_VERIFY(!name->isEnabled());
        QCOMPARE(name->text(), "Roof");
        delete boxes().constFirst(); // which tells of the loss
        for (const QString& choice : {QString("Stay"), QString("Discard")}) {
            clickRow("0A");
            QCOMPARE(boxes().size(), 1);
            MessageBox* box = boxes().constFirst();
            QCOMPARE(box->informativeText(),
                     "They cannot be saved now. The selected LDB is not connected.");
            QCOMPARE(box->buttons().size(), 2);
            press(box, choice);
            QCOMPARE(name->text(), choice == "Stay" ? "Roof" : "");
            delete box;
        }
        WAIT_COMPARE(name->text(), "LDB 0A");
    }

    void editsOutliveARun()
    {
        start();
        auto* name = child<QLineEdit>("settingsNameLineEdit");
        WAIT_COMPARE(name->text(), "LDB 03");
        name->setText("Roof");
        button("startButton")->click();
        QCOMPARE(shownTip(button("settingsSaveButton")),
                 "Nothing is monitored: click Start first.");
        m_bus->change("03", "02", QByteArray("Shed").toHex().toUpper());
        button("startButton")->click();
        WAIT_VERIFY(settingsState().contains("Changed by somebody else meanwhile: Name (Shed)"));
        QCOMPARE(name->text(), "Roof");

        // An LDB that a scan does not find any more stays, as a lost one; its edits are told when
        // it is dismissed.
        m_bus->setPresent({"0A"});
        button("reloadDevicesButton")->click();
        WAIT_VERIFY(child<QPushButton>("dismissLostButton")->isVisible());
        QCOMPARE(detail(0), "03");
        QCOMPARE(name->text(), "Roof");
        for (MessageBox* box : boxes()) {
            delete box;
        }
        button("dismissLostButton")->click();
        WAIT_COMPARE(detail(0), "0A");
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), "LDB 03 is gone. These changes were not saved:");
        QCOMPARE(boxes().constFirst()->informativeText(), "Name: Roof");
        WAIT_COMPARE(name->text(), "LDB 0A");
    }

    void startInServiceModeCanBeTakenBack()
    {
        constexpr int kServiceMode = 30;
        m_bus->setScript([](const QByteArray& body) -> std::optional<QByteArray> {
            return body == "FE03737803"
                       ? std::make_optional(TestBus::framed(TestBus::status(kServiceMode)))
                       : std::nullopt;
        });
        m_bus->change("03", "14", "0B");
        start();
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        QVERIFY(!button("serviceModeButton")->isEnabled());
        QCOMPARE(shownTip(button("serviceModeButton")),
                 "The selected LDB is in service mode: end it with LDB Reset first.");
        {
            const BracketingTranslator language;
            QVERIFY(shownTip(button("serviceModeButton")).startsWith("[The selected LDB"));
        }
        auto* box = child<QCheckBox>("settingsStartInServiceModeCheckBox");
        QVERIFY(box->isChecked());
        box->click();
        m_bus->clearRequests();
        button("settingsSaveButton")->click();
        WAIT_COMPARE(message(), "The settings of LDB 03 are saved.");
        QCOMPARE(m_bus->writes(), (QList<QByteArray>{"FE0373631403", "FE03737806"}));
    }

    void serviceModeSendsNothing()
    {
        constexpr int kServiceMode = 30;
        QByteArray status = TestBus::status();
        m_bus->setScript([&status](const QByteArray& body) -> std::optional<QByteArray> {
            return body == "FE03737803" ? std::make_optional(TestBus::framed(status))
                                        : std::nullopt;
        });
        start();
        WAIT_VERIFY(button("serviceModeButton")->isEnabled());

        status = TestBus::status(kServiceMode);
        WAIT_VERIFY(!button("serviceModeButton")->isEnabled());
        QVERIFY(!button("fimTrackingButton")->isEnabled());
        QVERIFY(button("fimResetButton")->isEnabled());
        QVERIFY(button("ldbResetButton")->isEnabled());
        QVERIFY(button("allServiceModeButton")->isEnabled());

        status = TestBus::status();
        WAIT_VERIFY(button("serviceModeButton")->isEnabled());
        for (const QByteArray& request : m_bus->requests()) {
            QVERIFY2(!request.mid(4).startsWith("737800"), request.constData());
        }
    }

    void actions_data()
    {
        // "tag": what is told
        const Table<QByteArray, QByteArray, QByteArray> row("buttonName", "body", "answer");
        row("LDB 03 accepted: FIM reset.", "fimResetButton", "FE0373780000", "\x06");
        row("LDB 03 refused: LDB reset.", "ldbResetButton", "FE0373780001", "\x15");
        row("LDB 03 did not answer: Service mode.", "serviceModeButton", "FE0373780003", "");
    }

    void actions()
    {
        QFETCH(QByteArray, buttonName);
        QFETCH(QByteArray, body);
        QFETCH(QByteArray, answer);
        start();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        m_bus->setScript([&body, &answer](const QByteArray& request) {
            return request == body ? std::make_optional(answer) : std::nullopt;
        });
        button(buttonName.constData())->click();
        WAIT_COMPARE(message(), QTest::currentDataTag());
        QVERIFY(m_bus->requests().contains(body));

        // What was in vain stays in sight until the next action.
        const bool isInVain = answer != "\x06" && !body.startsWith("FEFF");
        const QString inVain = isInVain ? QTest::currentDataTag() : QString();
        m_window->statusBar()->clearMessage();
        QCOMPARE(label("actionFailureLabel"), inVain);
        QCOMPARE(child<QLabel>("actionFailureLabel")->isVisible(), isInVain);
        m_bus->setScript(nullptr);
        button("fimResetButton")->click();
        WAIT_COMPARE(message(), "LDB 03 accepted: FIM reset.");
        QCOMPARE(label("actionFailureLabel"), QString());
    }

    void actionsForAllAreAsked_data()
    {
        // "seen": what the box says in the end
        const Table<QByteArray, QByteArray, QString, QString, QString> row(
            "buttonName", "body", "question", "sent", "seen");
        row("FIM reset", "allFimResetButton", "FEFF73780000", "Reset the FIM's of all 3 LDB(s)?",
            "Sent to all LDB's: FIM reset.", "Seen in a FIM reset: 3 of 3 LDB's.");
        row("LDB reset", "allLdbResetButton", "FEFF73780001", "Restart all 3 LDB(s)?",
            "Sent to all LDB's: LDB reset.", "Answered since the LDB reset: 3 of 3 LDB's.");
        row("service mode", "allServiceModeButton", "FEFF73780003",
            "Put all 3 LDB(s) into service mode?", "Sent to all LDB's: Service mode.",
            "In service mode: 3 of 3 LDB's.");
    }

    void actionsForAllAreAsked()
    {
        QFETCH(QByteArray, buttonName);
        QFETCH(QByteArray, body);
        QFETCH(QString, question);
        QFETCH(QString, sent);
        QFETCH(QString, seen);
        start();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        // Whatever is no explicit yes sends nothing.
        for (const int key : {int(Qt::Key_Escape), int(Qt::Key_Return), 0}) {
            button(buttonName.constData())->click();
            QCOMPARE(boxes().size(), 1);
            QCOMPARE(boxes().constFirst()->text(), question);
            QVERIFY(!boxes().constFirst()->informativeText().isEmpty());
            if (key == 0) {
                boxes().constFirst()->close();
            } else {
                QTest::keyClick(boxes().constFirst(), static_cast<Qt::Key>(key));
            }
            WAIT_VERIFY(boxes().isEmpty());
            const int requests = m_bus->requests().size();
            WAIT_VERIFY(m_bus->requests().size() > requests + 20);
            QVERIFY(!m_bus->requests().contains(body));
        }
        button(buttonName.constData())->click();
        boxes().constFirst()->buttons().constFirst()->click();
        WAIT_COMPARE(message(), sent);
        QVERIFY(m_bus->requests().contains(body));
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), seen);
        QCOMPARE(boxes().constFirst()->informativeText(), QString());
    }

    void whoDidNotFollowIsNamed()
    {
        start();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        m_bus->setScript([](const QByteArray& body) -> std::optional<QByteArray> {
            return body == "FE0A737803" ? std::make_optional(TestBus::framed(TestBus::status()))
                                        : std::nullopt;
        });
        button("allServiceModeButton")->click();
        boxes().constFirst()->buttons().constFirst()->click();
        WAIT_VERIFY(boxes().isEmpty());
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), "In service mode: 2 of 3 LDB's.");
        QCOMPARE(boxes().constFirst()->informativeText(), "Not in it: 0A (Quiescent)");
    }

    void yesIsForTheBusThatWasThere()
    {
        start();
        WAIT_VERIFY(button("allLdbResetButton")->isEnabled());
        button("allLdbResetButton")->click();
        QCOMPARE(boxes().size(), 1);
        button("startButton")->click();
        WAIT_VERIFY(boxes().isEmpty());
    }

    void importIsShownFirst()
    {
        const QString path = exported();
        clickRow("0A");
        WAIT_COMPARE(detail(0), "0A");
        m_bus->change("0A", "03", "1E00"); // since the export
        m_bus->clearRequests();
        auto* transfer = m_window->findChild<SettingsTransfer*>();
        transfer->importFrom(path);
        QVERIFY(!button("importDeviceSettingsButton")->isEnabled());
        WAIT_VERIFY(table()->isVisible());
        QVERIFY(button("importDeviceSettingsButton")->isEnabled());
        // 3, 10 and 253: read as hexadecimal only the first one is an LDB of this bus.
        const auto* bar = table()->findChild<QFrame*>("importBar");
        auto* other = bar->findChild<QPushButton*>("otherReadingButton");
        QVERIFY(other->isVisible());
        QCOMPARE(bar->findChild<QLabel*>("barLabel")->text(),
                 "Import of \"out.csv\": nothing has been written yet. The IDs of the file are "
                 "read as hexadecimal. The names fit better as decimal: then 3 are those of the "
                 "LDB's, now 1.");
        openPreview();
        const QString noLdb =
            "Line 8: ID 10 (read as 10 hexadecimal, address 16): no LDB with this address is "
            "connected";
        const QStringList leftOut{noLdb, "Line 10: ID 253: The ID is no address",
                                  "LDB 0A (address 10): no line in the file",
                                  "LDB FD (address 253): no line in the file",
                                  "LDB 10 has not been read yet."};
        QCOMPARE(problems(), leftOut);
        QVERIFY(!writeButton()->isEnabled());

        // Enter and Escape write nothing.
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            QTest::keyClick(preview(), key);
            WAIT_VERIFY(preview() == nullptr);
            openPreview();
        }
        preview()->close();
        WAIT_VERIFY(preview() == nullptr);

        other->click();
        openPreview();
        QCOMPARE(problems(), QStringList());
        const auto* list = preview()->findChild<QTreeWidget*>();
        QCOMPARE(list->topLevelItemCount(), 1);
        const QTreeWidgetItem* changed = list->topLevelItem(0);
        QCOMPARE(changed->text(WritePreview::LdbColumn), "0A");
        QCOMPARE(changed->text(WritePreview::NameColumn), "LDB 0A");
        QCOMPARE(changed->text(WritePreview::FieldColumn), "Number of FIM's");
        QCOMPARE(changed->text(WritePreview::ChangeColumn),
                 QString::fromUtf8("30 \xE2\x86\x92 20"));
        QCOMPARE(m_bus->writes(), QList<QByteArray>());
        QCOMPARE(writeButton()->text(), "Write 1 LDB(s)");

        writeButton()->click();
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), "Importing LDB settings finished!");
        QCOMPARE(m_bus->writes(), (QList<QByteArray>{"FE0A7363031400", "FE0A737806"}));
        WAIT_COMPARE(child<QSpinBox>("settingsNumberOfFimsSpinBox")->value(), 20);
        QVERIFY(!bar->isVisible());
    }

    void importCanBeDiscarded()
    {
        const QString path = exported();
        m_window->findChild<SettingsTransfer*>()->importFrom(path);
        WAIT_VERIFY(table()->isVisible());
        QVERIFY(table()->underWay() != nullptr);
        const auto* bar = table()->findChild<QFrame*>("importBar");
        bar->findChild<QPushButton*>("barCloseButton")->click();
        QCOMPARE(message(), "Nothing was imported.");
        QVERIFY(table()->underWay() == nullptr);
        QVERIFY(boxes().isEmpty());
    }

    void restOfAnImportCanBeDiscarded()
    {
        const QString path = exported();
        m_bus->change("03", "03", "1E00");
        m_window->findChild<SettingsTransfer*>()->importFrom(path);
        WAIT_VERIFY(table()->isVisible());
        openPreview();
        writeButton()->click(); // of 3, 10 and 253, read as hexadecimal, only 3 is there
        WAIT_COMPARE(boxes().size(), 1);
        QVERIFY(table()->underWay() != nullptr);
        const auto* bar = table()->findChild<QFrame*>("importBar");
        QVERIFY(bar->isVisible());
        bar->findChild<QPushButton*>("barCloseButton")->click();
        QVERIFY(table()->underWay() == nullptr);
        QVERIFY(!bar->isVisible());
    }

    void putsBackWhatAnImportChanged()
    {
        start();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        m_bus->change("0A", "02", "48FC6C"); // no name of this computer's encoding
        m_bus->change("0A", "16", "01");
        QHash<QString, QByteArray> former;
        for (const QString& hexId : kLdbs) {
            former[hexId] = m_bus->settingsOf(hexId);
        }
        const QByteArray rest(";0;0;0;0;1;1;1;200;F\n"); // a wrong file
        m_sandbox->writeFile("in.csv", "3;A" + rest + "0A;B" + rest + "FD;C" + rest);
        m_window->findChild<SettingsTransfer*>()->importFrom(m_sandbox->path("in.csv"));
        WAIT_VERIFY(table()->isVisible());
        openPreview();
        writeButton()->click();
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), "Importing LDB settings finished!");
        boxes().constFirst()->accept();
        for (const QString& hexId : kLdbs) {
            QVERIFY(m_bus->settingsOf(hexId) != former[hexId]);
        }
        table()->findChild<QAction*>("former")->trigger();
        table()->findChild<QPushButton*>("putBackFormerButton")->click();
        WAIT_VERIFY(preview() != nullptr);
        writeButton()->click();
        WAIT_COMPARE(message(), "The settings of 3 LDB(s) are written.");
        for (const QString& hexId : kLdbs) {
            QCOMPARE(m_bus->settingsOf(hexId), former[hexId]);
        }
    }

    void oneTransferAtATime()
    {
        const QString path = exported();
        auto* transfer = m_window->findChild<SettingsTransfer*>();
        transfer->importFrom(path);
        QVERIFY(child<QPushButton>("stopTransferButton")->isVisible());
        for (const char* name : {"exportDeviceSettingsButton", "importDeviceSettingsButton",
                                 "reloadDevicesButton", "allLdbResetButton"}) {
            QVERIFY2(!button(name)->isEnabled(), name);
        }
        // Whatever else asks for one does not break it off.
        transfer->exportTo(m_sandbox->path("other.csv"));
        QVERIFY(!QFile::exists(m_sandbox->path("other.csv")));
        WAIT_VERIFY(table()->isVisible());
    }

    void stopSaysWhatWasWritten()
    {
        start();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        const QByteArray rest(";1;1;5;0;1;0;1;30;F\n");
        m_sandbox->writeFile("in.csv", "3;A" + rest + "0A;B" + rest + "FD;C" + rest);
        m_bus->setScript([this](const QByteArray& body) -> std::optional<QByteArray> {
            if (body.startsWith("FE0A736302")) {
                button("stopTransferButton")->click();
            }
            return std::nullopt;
        });
        m_window->findChild<SettingsTransfer*>()->importFrom(m_sandbox->path("in.csv"));
        WAIT_VERIFY(table()->isVisible());
        openPreview();
        writeButton()->click();
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), "Importing LDB settings was stopped.");
        QCOMPARE(boxes().constFirst()->informativeText(), "Done: 03, 0A\nNot begun: FD");
        QVERIFY(!child<QPushButton>("stopTransferButton")->isVisible());
        QVERIFY(button("importDeviceSettingsButton")->isEnabled());
        QCOMPARE(m_bus->settingsOf("FD"), TestBus::record("FD"));
    }

    void lostPortLeavesTheImportInTheTable()
    {
        const QString path = exported();
        m_bus->change("03", "03", "1E00");
        m_window->findChild<SettingsTransfer*>()->importFrom(path);
        WAIT_VERIFY(table()->isVisible());
        {
            const ExpectWarning warning("^Port ");
            m_bus->cut();
            WAIT_VERIFY(!button("importDeviceSettingsButton")->isEnabled());
        }
        auto* write = table()->findChild<QAction*>("write");
        QVERIFY(!write->isEnabled());
        m_bus->restore();
        button("startButton")->click();
        WAIT_VERIFY(write->isEnabled());
        closeBoxes();
        openPreview();
        writeButton()->click();
        WAIT_COMPARE(m_bus->settingsOf("03"), TestBus::record("03"));
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
        start();
        WAIT_VERIFY(button("fimTrackingButton")->isEnabled());
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        if (work == "run") {
            QVERIFY(beginRun());
            WAIT_VERIFY(tracking()->run().phase() == TrackingRun::Phase::FactoryReset);
        } else if (work == "save") {
            button("settingsSaveButton")->click();
        } else {
            auto* transfer = m_window->findChild<SettingsTransfer*>();
            work == "export" ? transfer->exportTo(m_sandbox->path("out.csv"))
                             : transfer->importFrom(exportedWithin());
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

    void saveIsInSightOnASmallScreen()
    {
        start();
        m_window->resize(1280, 720);
        child<QTabWidget>("controlTabs")->setCurrentWidget(child<QWidget>("ldbSettingsTab"));
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        const QRect whole = button("settingsSaveButton")->rect();
        QCOMPARE(button("settingsSaveButton")->visibleRegion().boundingRect(), whole);
    }

    void yesToClosingIsForOnce()
    {
        start();
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
        start();
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

    void mutedLdbIsMarked()
    {
        m_bus->change("0A", "16", "01");
        start();
        const auto* details = child<QTableView>("deviceDetailTableView");
        const auto isMarked = [](const QModelIndex& name) {
            return !name.data(Qt::DecorationRole).isNull() &&
                   name.data(Qt::ToolTipRole).toString().contains("muted");
        };
        const auto nameOf = [&](const QString& hexId) {
            return cell(hexId, overview::NameColumn);
        };
        WAIT_VERIFY(nameOf("0A").isValid());
        clickRow("0A");
        WAIT_VERIFY(isMarked(nameOf("0A")));
        QVERIFY(isMarked(details->model()->index(1, 1)));
        QVERIFY(!isMarked(nameOf("03")));

        // The mark outlives a scan; what an LDB tells now counts.
        button("reloadDevicesButton")->click();
        WAIT_VERIFY(!button("reloadDevicesButton")->isEnabled());
        WAIT_VERIFY(button("reloadDevicesButton")->isEnabled());
        QVERIFY(isMarked(nameOf("0A")));
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        child<QCheckBox>("settingsAudioMuteCheckBox")->click();
        button("settingsSaveButton")->click();
        WAIT_VERIFY(!isMarked(nameOf("0A")));
        QVERIFY(!isMarked(details->model()->index(1, 1)));

        // A mute that nobody has stored does not outlive the LDB's reset.
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        child<QCheckBox>("settingsAudioMuteCheckBox")->click();
        button("settingsSaveButton")->click();
        WAIT_VERIFY(isMarked(nameOf("0A")));
        button("ldbResetButton")->click();
        m_bus->change("0A", "16", "00");
        WAIT_VERIFY(!isMarked(nameOf("0A")));
    }

    void lampIsTwoClicksFromItsCause()
    {
        constexpr int kServiceMode = 30;
        m_bus->setScript([](const QByteArray& body) -> std::optional<QByteArray> {
            return body == "FEFD737803"
                       ? std::make_optional(TestBus::framed(TestBus::status(kServiceMode)))
                       : std::nullopt;
        });
        start();
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
        start();
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
        start();
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
        start();
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
        start();
        QCOMPARE(m_window->size(), placeComesBack ? QSize(1300, 700) : firstSize);
        m_window->resize(1300, 700);
        QCoreApplication::processEvents();
        for (int i = 0; i < splitters.size(); ++i) {
            QVERIFY2(qAbs(moved.at(i) - former.at(i)) > 10, splitters.at(i));
            QVERIFY2(qAbs(positions().at(i) - moved.at(i)) < 5, splitters.at(i)); // by rounding
        }
    }

    void closesWhileCommandsWait()
    {
        start();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        m_bus->setPresent({});
        for (int i = 0; i < 20; ++i) {
            button("ldbResetButton")->click();
        }
        WAIT_COMPARE(label("queueLabel"), "Serial commands in queue: 20");
        const qint64 now = VirtualTime::current()->now();
        QVERIFY(m_window->close());
        m_window.reset();
        QCOMPARE(VirtualTime::current()->now(), now); // waits for none of them
    }

private:
    void start()
    {
        makeWindow();
        button("startButton")->click();
        WAIT_COMPARE(ids(), kLdbs);
    }
    /// A file that needs nothing but its place.
    QString exportedWithin() const
    {
        m_sandbox->writeFile("in.csv", "3;A;1;1;5;0;1;0;1;30;F\n");
        return m_sandbox->path("in.csv");
    }
    /// Started, and its settings exported.
    QString exported()
    {
        start();
        QString path = m_sandbox->path("out.csv");
        m_window->findChild<SettingsTransfer*>()->exportTo(path);
        waitUntil([this] { return boxes().size() == 1; });
        boxes().constFirst()->accept();
        waitUntil([this] { return boxes().isEmpty(); });
        return path;
    }
    SettingsTableWindow* table() const { return m_window->findChild<SettingsTableWindow*>(); }
    WritePreview* preview() const { return m_window->findChild<WritePreview*>(); }
    void openPreview()
    {
        table()->findChild<QAction*>("write")->trigger();
        QVERIFY(preview() != nullptr);
    }
    QPushButton* writeButton() const
    {
        return preview()->findChild<QPushButton*>("previewWriteButton");
    }
    QStringList problems() const
    {
        const auto* list = preview()->findChild<QListWidget*>();
        QStringList texts;
        for (int row = 0; row < list->count(); ++row) {
            texts.append(list->item(row)->text());
        }
        return texts;
    }
    int rows() const { return overview()->model()->rowCount(); }
    /// Of the LDBs that have a row, in the order of their addresses.
    QStringList ids() const
    {
        QStringList found = columnTexts(*overview()->model(), kIdColumn);
        found.sort();
        return found;
    }
    QString settingsState() const { return label("settingsStateLabel"); }
    QString detail(int row) const
    {
        return child<QTableView>("deviceDetailTableView")->model()->index(row, 1).data().toString();
    }
};

REGISTER_TEST(TestMainWindow, InVirtualTime<QApplication>)

#include "tst_mainwindow.moc"

#include "app/preferences/settingsmenu.h"
#include "tests/app/livewindow.h"
#include "tests/support/bracketingtranslator.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"

/// The editor of settings in the window: what becomes of edits, and of an LDB that is lost.
class TestMainWindowSettings : public LiveWindow
{
    Q_OBJECT
private slots:
    void init() override
    {
        LiveWindow::init();
        makeBus(kLdbs);
    }

    void lostLdbShowsWhatWasReadLast()
    {
        m_sandbox->writeTuning("[SerialSettings]\nDISCONNECTED_COUNT=0\n");
        startWindow();
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
        startWindow();
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
        startWindow();
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
        startWindow();
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
        startWindow();
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

    void saveIsInSightOnASmallScreen()
    {
        startWindow();
        m_window->resize(1280, 720);
        child<QTabWidget>("controlTabs")->setCurrentWidget(child<QWidget>("ldbSettingsTab"));
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        const QRect whole = button("settingsSaveButton")->rect();
        QCOMPARE(button("settingsSaveButton")->visibleRegion().boundingRect(), whole);
    }

    void mutedLdbIsMarked()
    {
        m_bus->change("0A", "16", "01");
        startWindow();
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
        // In the next run it is asked, selected or not, and nobody else is.
        clickRow("03");
        button("startButton")->click();
        m_bus->clearRequests();
        button("startButton")->click();
        QVERIFY(!isMarked(nameOf("0A")));
        WAIT_VERIFY(isMarked(nameOf("0A")));
        QCOMPARE(m_bus->requests().count("FE0A737201"), 1);
        QCOMPARE(m_bus->requests().count("FEFD737201"), 0);
        clickRow("0A");
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
};

REGISTER_TEST(TestMainWindowSettings, InVirtualTime<QApplication>)

#include "tst_mainwindowsettings.moc"

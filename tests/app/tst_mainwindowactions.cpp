#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"

/// Actions for one LDB and for all.
class TestMainWindowActions : public LiveWindow
{
    Q_OBJECT
private slots:
    void init() override
    {
        LiveWindow::init();
        makeBus(kLdbs);
    }

    void serviceModeSendsNothing()
    {
        constexpr int kServiceMode = 30;
        QByteArray status = TestBus::status();
        m_bus->setScript([&status](const QByteArray& body) -> std::optional<QByteArray> {
            return body == "FE03737803" ? std::make_optional(TestBus::framed(status))
                                        : std::nullopt;
        });
        startWindow();
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
        startWindow();
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
        startWindow();
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
        startWindow();
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
        QCOMPARE(boxes().constFirst()->informativeText(), "Not in it: 0A LDB 0A (Quiescent)");
    }

    void yesIsForTheBusThatWasThere()
    {
        startWindow();
        WAIT_VERIFY(button("allLdbResetButton")->isEnabled());
        button("allLdbResetButton")->click();
        QCOMPARE(boxes().size(), 1);
        button("startButton")->click();
        WAIT_VERIFY(boxes().isEmpty());
    }

    void closesWhileCommandsWait()
    {
        startWindow();
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
};

REGISTER_TEST(TestMainWindowActions, InVirtualTime<QApplication>)

#include "tst_mainwindowactions.moc"

#include "history/installation.h"
#include "importexport/ldbfields.h"
#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"

#include <random>

using Phase = TrackingRun::Phase;

Q_DECLARE_METATYPE(Phase)

namespace {

const QString kLdb = "03"; // the one that is ticked at first
constexpr qint64 kSecond = 1000;
constexpr int kWholeRun = 1500000; // ms

// Parameters as TestBus changes them.
const QByteArray kFlags("14");
const QByteArray kMute("16");
const QByteArray kDelay("17");

const QString kRestore = "Restore the former settings";

QString delayTexts(int before, int now)
{
    return QString("before %1%3s, now %2%3s").arg(before).arg(now).arg(QChar(0xA0));
}

} // namespace

/// What fault finding leaves in an LDB: nothing, whatever ends the run, the window or the program.
class TestPutBack : public UnpaintedWindow
{
    Q_OBJECT
private slots:
    void init() override
    {
        UnpaintedWindow::init();
        makeBus({kLdb, "0A"});
        m_bus->change(kLdb, kDelay, "1900");
        m_bus->change(kLdb, kFlags, "06");
        m_before = inLdb();
    }

    void runLeavesTheLdbAsItWas_data()
    {
        addColumns<Phase, QString, bool>("phase", "by", "wasMuted");
        const auto rows = [](const char* name, Phase phase) {
            for (const char* by : {"stop", "close"}) {
                for (const bool wasMuted : {false, true}) {
                    QTest::addRow("%s, %s%s", name, by, wasMuted ? ", muted on purpose" : "")
                        << phase << QString::fromLatin1(by) << wasMuted;
                }
            }
        };
        rows("factory reset", Phase::FactoryReset);
        rows("rebooting", Phase::Rebooting);
        rows("counting", Phase::Counting);
        QTest::newRow("result") << Phase::Finished << QString() << false;
        QTest::newRow("result, muted on purpose") << Phase::Finished << QString() << true;
    }

    void runLeavesTheLdbAsItWas()
    {
        QFETCH(Phase, phase);
        QFETCH(QString, by);
        QFETCH(bool, wasMuted);
        m_bus->change(kLdb, kMute, wasMuted ? "01" : "00");
        m_before = inLdb();
        start();
        QVERIFY(beginRun());
        QVERIFY(reach(phase));
        WAIT_VERIFY(m_bus->requests().contains("FE0373780002"));
        if (phase == Phase::Counting) {
            WAIT_VERIFY(m_bus->requests().contains("FE0373631601"));
        }
        QVERIFY(!isForgotten());
        if (by == QLatin1String("stop")) {
            tracking()->findChild<QPushButton*>("startButton")->click();
        } else if (by == QLatin1String("close")) {
            tracking()->close();
        }
        QVERIFY(answer("formerSettingsBox", kRestore));
        closeAlarms();
        // The mute has ended before anybody is asked.
        QCOMPARE(inLdb().audioMute, wasMuted);
        QVERIFY(waitUntilForgotten());
        QVERIFY(isAsBefore());
        QCOMPARE(message(), "LDB 03 has its former settings again.");
        QCOMPARE(m_bus->writes().constLast(), QByteArray("FE03737806"));
    }

    void resetThatShowsLate()
    {
        // Between the command and the first record that shows it, all settings are as before.
        constexpr int kRecords = 8;
        int left = -1;
        m_bus->setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
            if (body == "FE0373780002") {
                left = kRecords;
            }
            const bool isLate = body == "FE03737803" && left > 0;
            left -= isLate ? 1 : 0;
            return isLate ? std::make_optional(TestBus::framed(TestBus::status())) : std::nullopt;
        });
        start();
        QVERIFY(beginRun());
        WAIT_VERIFY(left > 0);
        tracking()->close();
        QVERIFY(restores());
    }

    void leavingForgets()
    {
        breakOffARun();
        const auto* box = qobject_cast<MessageBox*>(dialog("formerSettingsBox"));
        QVERIFY2(box->informativeText().contains(delayTexts(25, 10)),
                 qPrintable(box->informativeText()));
        QCOMPARE(box->defaultButton()->text(), kRestore);
        QVERIFY(answer("formerSettingsBox", "Leave them"));
        QVERIFY(isForgotten());
        QVERIFY(message().contains("forgotten"));
        QCOMPARE(inLdb().openDetectionDelay, quint16(10));
    }

    void laterIsAskedAtTheNextStart()
    {
        breakOffARun();
        QTest::keyClick(dialog("formerSettingsBox"), Qt::Key_Escape);
        QVERIFY(!isForgotten());
        VirtualTime::current()->advance(60 * kSecond);
        QVERIFY2(!dialog("formerSettingsBox"), "once a run of the link is enough");
        button("startButton")->click();
        button("startButton")->click();
        QVERIFY(restores());
    }

    void programDiesAtAnyMoment_data()
    {
        addColumns<int, bool>("afterMs", "wasMuted");
        constexpr int kLongest = 260000; // into the counting
        std::mt19937 random(14);
        for (int i = 0; i < trials(4, 12); ++i) {
            const auto after = static_cast<int>(random() % kLongest);
            QTest::addRow("%d ms%s", after, i % 3 == 0 ? ", muted on purpose" : "")
                << after << (i % 3 == 0);
        }
        // While the first commands are under way.
        for (const int after : {0, 60, 150, 400}) {
            QTest::addRow("%d ms, early", after) << after << false;
        }
    }

    void programDiesAtAnyMoment()
    {
        QFETCH(int, afterMs);
        QFETCH(bool, wasMuted);
        m_bus->change(kLdb, kMute, wasMuted ? "01" : "00");
        m_before = inLdb();
        start();
        QVERIFY(beginRun());
        VirtualTime::current()->advance(afterMs);
        m_window.reset();

        // Nobody has ended the mute, and the LDB goes on with what it was told.
        start();
        for (qint64 gone = 0; !isForgotten() && gone < kWholeRun; gone += kSecond) {
            VirtualTime::current()->advance(kSecond);
            if (dialog("formerSettingsBox")) {
                // Its mute is back by then, without anybody having been asked.
                QCOMPARE(inLdb().audioMute, m_before.audioMute);
                press(dialog("formerSettingsBox"), kRestore);
            }
        }
        QVERIFY(isForgotten());
        QVERIFY(isAsBefore());
        VirtualTime::current()->advance(150 * kSecond);
        QVERIFY(isAsBefore());
    }

    void lineIsCut()
    {
        muteByARun();
        {
            const ExpectWarning warning("^Port ");
            m_bus->cut();
            WAIT_VERIFY(!button("startButton")->isChecked());
        }
        // The window says so: nothing can be started there, and nobody is polled.
        auto* startRun = tracking()->findChild<QPushButton*>("startButton");
        QVERIFY(!startRun->isEnabled());
        QVERIFY(!shownTip(startRun).isEmpty());
        QVERIFY(!strip().contains("Only"));
        WAIT_VERIFY(dialog("stillMutedBox") != nullptr);
        QVERIFY(inLdb().audioMute);
        tracking()->close();

        m_bus->restore();
        button("startButton")->click();
        WAIT_VERIFY(!inLdb().audioMute);
        WAIT_COMPARE(message(), "The audio mute of LDB 03 from the fault finding has ended.");
        QVERIFY(restores());
    }

    void muteThatIsRefused()
    {
        muteByARun();
        m_bus->answerTo(kLdb, "73631600", "\x15");
        const ExpectWarning warning("audio mute of LDB \"03\"");
        tracking()->close();
        WAIT_VERIFY(dialog("stillMutedBox") != nullptr);
        QVERIFY(!isForgotten());
        // It can be ended by hand, so Save must not wait.
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        VirtualTime::current()->advance(30 * kSecond);
        QVERIFY(inLdb().audioMute);
        m_bus->setScript({});
        WAIT_VERIFY(!inLdb().audioMute);
        QVERIFY(answer("formerSettingsBox", kRestore));
        QVERIFY(waitUntilForgotten());
    }

    void diskThatCannotBeWritten()
    {
        const ExpectWarning warning("cannot be read", ExpectWarning::Need::MayCome);
        start();
        // In the way of the file.
        const QString folder = Installations().folderOf("installation-1");
        QVERIFY(QDir().mkpath(folder + "/kept-ldbs.json"));
        QVERIFY(beginRun());
        QVERIFY(answer("noWayBackBox", "Start all the same"));
        QVERIFY(reach(Phase::Counting));
        WAIT_VERIFY(inLdb().audioMute);
        tracking()->close();
        // This program still knows it.
        QVERIFY(answer("formerSettingsBox", kRestore));
        WAIT_VERIFY(isAsBefore());
        WAIT_COMPARE(message(), "LDB 03 has its former settings again.");
        VirtualTime::current()->advance(30 * kSecond);
        QVERIFY(!dialog("formerSettingsBox"));
    }

    void programDiesBeforeTheStoring()
    {
        breakOffARun();
        m_bus->clearRequests();
        m_bus->answerTo(kLdb, "737806", QByteArray());
        press(dialog("formerSettingsBox"), kRestore);
        WAIT_VERIFY(m_bus->requests().contains("FE03737806"));
        m_window.reset();

        // It has all, but loses it at its next reset.
        QVERIFY(isAsBefore());
        QVERIFY(!isForgotten());
        m_bus->setScript({});
        m_bus->clearRequests();
        start();
        QVERIFY(waitUntilForgotten());
        QCOMPARE(m_bus->writes(), QList<QByteArray>{"FE03737806"});
        QVERIFY(!dialog("formerSettingsBox"));
    }

    void anotherLdbWhileAsked()
    {
        breakOffARun();
        m_bus->change(kLdb, "02", QByteArray("Other").toHex().toUpper());
        m_bus->clearRequests();
        QVERIFY(answer("formerSettingsBox", kRestore));
        WAIT_VERIFY(boxText("is now called Other"));
        QCOMPARE(m_bus->writes(), QList<QByteArray>());
        QVERIFY(!isForgotten());
    }

    void changedWhileAsked()
    {
        breakOffARun();
        m_bus->change(kLdb, kDelay, "0700");
        QVERIFY(answer("formerSettingsBox", kRestore));
        WAIT_VERIFY(boxText(delayTexts(25, 7)));
        QCOMPARE(inLdb().openDetectionDelay, quint16(7));
        QVERIFY(restores());
    }

    void keptFileIsDamaged()
    {
        KeptLdbs().keep({kLdb, "LDB 03", QDateTime::currentDateTimeUtc(), false, m_before});
        const QByteArray whole = Sandbox::readFile(KeptLdbs().filePath());
        m_sandbox->writeFile(KeptLdbs().filePath(), whole.left(whole.size() / 2));
        const ExpectWarning warning("is damaged");
        start();
        WAIT_VERIFY(dialog("unreadableKeptBox") != nullptr);
        QVERIFY(boxText(".damaged"));
        dialog("unreadableKeptBox")->close();
        button("startButton")->click();
        button("startButton")->click();
        VirtualTime::current()->advance(60 * kSecond);
        QVERIFY2(!dialog("unreadableKeptBox"), "once is enough");
    }

    void closingBeforeTheMuteHasEnded()
    {
        muteByARun();
        tracking()->close();
        m_window->close();
        QVERIFY(m_window->isVisible());
        QVERIFY(dialog("closeBox"));
        QVERIFY(boxText("without sound"));
        press(dialog("closeBox"), "Stay");
        WAIT_VERIFY(!inLdb().audioMute);
    }

    void onlyOneOfThemAgrees_data()
    {
        addColumns<QString, QString, QString, bool, bool>("keptId", "keptName", "answer", "isMuted",
                                                          "isForgotten");
        const auto rows = [](const char* tag, const char* id, const char* name) {
            const auto row = [=](const char* answer, bool isMuted, bool isForgotten) {
                QTest::addRow("%s, %s", tag, answer)
                    << QString::fromLatin1(id) << QString::fromLatin1(name)
                    << QString::fromLatin1(answer) << isMuted << isForgotten;
            };
            row("The same LDB", false, true);
            row("Forget it", true, true);
            row("Another LDB", true, false);
        };
        rows("address", "03", "Hall");
        rows("name", "77", "LDB 03");
        // Neither: nobody is asked.
        QTest::newRow("none") << "77"
                              << "Hall" << QString() << true << false;
        // The LDB at the address is there: one that merely has the same name is none of it.
        QTest::newRow("both, of another") << "0A"
                                          << "LDB 0A" << QString() << true << true;
    }

    void onlyOneOfThemAgrees()
    {
        QFETCH(QString, keptId);
        QFETCH(QString, keptName);
        QFETCH(QString, answer);
        m_bus->change(kLdb, kMute, "01");
        KeptLdbs().keep({keptId, keptName, QDateTime::currentDateTimeUtc(), false, std::nullopt});
        start();
        VirtualTime::current()->advance(10 * kSecond);
        QVERIFY(inLdb().audioMute);
        QCOMPARE(dialog("sameLdbBox") != nullptr, !answer.isEmpty());
        if (!answer.isEmpty()) {
            press(dialog("sameLdbBox"), answer);
        }
        VirtualTime::current()->advance(10 * kSecond);
        QTEST(inLdb().audioMute, "isMuted");
        QTEST(isForgotten(), "isForgotten");
        QVERIFY(!dialog("sameLdbBox"));
    }

    void saveAfterwardsCannotMute()
    {
        start();
        WAIT_VERIFY(button("settingsSaveButton")->isEnabled());
        QVERIFY(beginRun());
        QVERIFY(reach(Phase::Counting));
        WAIT_VERIFY(inLdb().audioMute);
        VirtualTime::current()->advance(20 * kSecond); // the editor would have read it by now
        QVERIFY(!button("settingsSaveButton")->isEnabled());
        // The end of the mute takes its time.
        int refusals = 0;
        m_bus->setScript([&](const QByteArray& body) -> std::optional<QByteArray> {
            const bool isHeldUp = body == "FE0373631600" && ++refusals < 3;
            return isHeldUp ? std::make_optional(QByteArray()) : std::nullopt;
        });
        tracking()->close();
        const auto saveOrAnswer = [this] {
            return button("settingsSaveButton")->isEnabled() && !inLdb().audioMute;
        };
        while (!saveOrAnswer()) {
            QVERIFY2(!button("settingsSaveButton")->isEnabled(), "muted, and Save would write it");
            VirtualTime::current()->advance(10);
        }
        m_window->findChild<QSpinBox*>("settingsNumberOfFimsSpinBox")->setValue(7);
        button("settingsSaveButton")->click();
        WAIT_COMPARE(inLdb().numberOfFims, quint16(7));
        VirtualTime::current()->advance(5 * kSecond);
        QVERIFY(!inLdb().audioMute);
        QVERIFY(dialog("formerSettingsBox"));
    }

    void takesTheCountOver()
    {
        m_bus->change(kLdb, "03", "0900"); // 9 of the 20 that are there
        start();
        QVERIFY(beginRun());
        QVERIFY(reach(Phase::Finished));
        WAIT_VERIFY(dialog("formerSettingsBox") != nullptr);
        closeAlarms();
        const auto* counts = tracking()->findChild<QLabel*>("fimCountsLabel");
        QCOMPARE(counts->text(), "FIM's counted: 20   configured: 9");
        m_bus->clearRequests();
        tracking()->findChild<QPushButton*>("takeOverButton")->click();
        WAIT_COMPARE(counts->text(), "FIM's counted: 20   configured: 20");
        QCOMPARE(m_bus->writes(), (QList<QByteArray>{"FE037363031400", "FE03737806"}));
        QCOMPARE(inLdb().numberOfFims, quint16(20));
        // What was taken over is not put back.
        QVERIFY(answer("formerSettingsBox", kRestore));
        QVERIFY(waitUntilForgotten());
        QCOMPARE(inLdb().numberOfFims, quint16(20));
        QCOMPARE(inLdb().openDetectionDelay, quint16(25));
    }

private:
    void start()
    {
        makeWindow();
        button("startButton")->click();
        WAIT_VERIFY(button("fimTrackingButton")->isEnabled());
    }

    /// Until the user is asked what becomes of the former settings.
    void breakOffARun()
    {
        start();
        QVERIFY(beginRun());
        QVERIFY(reach(Phase::Rebooting));
        tracking()->close();
        WAIT_VERIFY(dialog("formerSettingsBox") != nullptr);
    }
    void muteByARun()
    {
        start();
        QVERIFY(beginRun());
        QVERIFY(reach(Phase::Counting));
        WAIT_VERIFY(inLdb().audioMute);
    }
    bool reach(Phase phase)
    {
        return waitUntil([&] { return tracking() && tracking()->run().phase() == phase; },
                         kWholeRun);
    }

    /// Whether a box that is open says so.
    bool boxText(const QString& part) const
    {
        const auto open = boxes();
        return std::any_of(open.begin(), open.end(), [&](const MessageBox* box) {
            return box->isVisible() && (box->text() + box->informativeText()).contains(part);
        });
    }

    /// Those of the sides and of leakages.
    void closeAlarms()
    {
        const auto boxes = m_window->findChildren<QMessageBox*>(QString());
        for (QMessageBox* box : boxes) {
            if (box->objectName().isEmpty()) {
                box->close();
            }
        }
    }

    LdbSettings inLdb() const { return LiveWindow::inLdb(kLdb); }
    /// When asked.
    bool restores() const
    {
        return answer("formerSettingsBox", kRestore) && waitUntilForgotten() && isAsBefore();
    }
    bool isAsBefore() const { return differingFields(m_before, inLdb()).empty(); }
    /// Reads the file once a quarter of a second only.
    static bool waitUntilForgotten()
    {
        for (qint64 gone = 0; !isForgotten() && gone < kWholeRun; gone += kSecond / 4) {
            VirtualTime::current()->advance(kSecond / 4);
        }
        return isForgotten();
    }

    static bool isForgotten() { return Installations().keptLdbsOf("installation-1").all().empty(); }
    LdbSettings m_before;
};

REGISTER_TEST(TestPutBack, InVirtualTime<QApplication>)

#include "tst_putback.moc"

#include "app/preferences/settingsmenu.h"
#include "app/settingstable/settingstablewindow.h"
#include "app/settingstable/writepreview.h"
#include "app/transfer/settingstransfer.h"
#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"

#include <random>

namespace {

const QStringList kSite{"03", "04", "05"};
const QString kLdb = "03"; // the one that is ticked at first
constexpr qint64 kSecond = 1000;
constexpr qint64 kMinute = 60 * kSecond;

enum class Work
{
    Idle,
    Scan,
    Save,
    Import,
    Run
};

PortIdentity adapter(const QString& name)
{
    return {name, "A1", 0x0403, 0x6001};
}

} // namespace

Q_DECLARE_METATYPE(Work)

/// The port dies at any moment of any work, comes back, perhaps under another name, and the program
/// goes on by itself. All cuts of a row happen to one window.
class TestCuts : public LiveWindow
{
    Q_OBJECT
private slots:
    void comesBackByItself_data()
    {
        // "latest": ms from the beginning of the work to the cut, at most
        const Table<Work, int, int, int> row("work", "cuts", "latest", "seed");
        row("idle", Work::Idle, 200, 3000, 1);
        row("scan", Work::Scan, 70, 30000, 2);
        row("save", Work::Save, 130, 1500, 3);
        row("import", Work::Import, 120, 8000, 4);
        row("run, its beginning", Work::Run, 20, 3000, 5);
        row("run", Work::Run, 10, 90000, 6);
    }

    void comesBackByItself()
    {
        QFETCH(Work, work);
        QFETCH(int, cuts);
        QFETCH(int, latest);
        QFETCH(int, seed);
        const ExpectWarning warning("^Port |audio mute of LDB", ExpectWarning::Need::MayCome);
        m_chance.seed(static_cast<unsigned>(seed));
        openSite();
        const QStringList rows = columnTexts(*overview()->model(), overview::IdColumn);
        for (int cut = 0; cut < cuts; ++cut) {
            const QString where = QString::number(cut) + ". cut: ";
            QVERIFY2(begin(work), qPrintable(where + "the work does not begin"));
            VirtualTime::current()->advance(below(latest));
            const QString wrong = cutAndRestore(cut % 2 == 1, work);
            QVERIFY2(wrong.isEmpty(), qPrintable(where + wrong));
            QCOMPARE(columnTexts(*overview()->model(), overview::IdColumn), rows);
        }
    }

    void waitingEnds_data()
    {
        const Table<QString> row("by");
        row("button", "button");
        row("Start", "start");
        row("another port", "port");
    }

    void waitingEnds()
    {
        QFETCH(QString, by);
        const ExpectWarning warning("^Port ");
        openSite();
        m_bus->cut();
        WAIT_VERIFY(button("endWaitingButton")->isVisible());
        QVERIFY(strip().contains("waiting"));
        if (by == "button") {
            click("endWaitingButton");
        } else if (by == "start") {
            click("startButton");
        } else {
            emit m_window->findChild<SettingsMenu*>()->comPortUpdated("COM9");
        }
        VirtualTime::current()->advance(3 * kSecond);
        QVERIFY(!button("endWaitingButton")->isVisible());
        m_bus->restore();
        m_bus->clearRequests();
        VirtualTime::current()->advance(kMinute);
        QVERIFY(!button("startButton")->isChecked());
        QVERIFY(m_bus->requests().isEmpty());
    }

    void longAwayIsChecked()
    {
        const ExpectWarning warning("^Port ");
        openSite();
        m_bus->cut();
        VirtualTime::current()->advance(9 * kMinute);
        m_bus->restore();
        m_bus->clearRequests();
        WAIT_VERIFY(strip().startsWith("Monitored: 3 LDBs"));
        // At once, without a probe.
        WAIT_VERIFY(!m_bus->requests().isEmpty());
        QCOMPARE(m_bus->requests().first().mid(4), QByteArray("737803"));
        QVERIFY(!hasProbed());

        m_bus->cut();
        VirtualTime::current()->advance(11 * kMinute);
        m_bus->restore();
        m_bus->clearRequests();
        WAIT_VERIFY(hasProbed());
        WAIT_VERIFY(strip().startsWith("Monitored: 3 LDBs"));
        VirtualTime::current()->advance(10 * kSecond);
        QVERIFY(!question());
        QVERIFY(button("ldbResetButton")->isEnabled());
    }

    void twoThatFit()
    {
        const ExpectWarning warning("^Port ");
        const PortIdentity cheap{"ttyUSB0", {}, 0x1A86, 0x7523};
        openSite(cheap);
        m_bus->cut();
        VirtualTime::current()->advance(5 * kSecond);
        m_bus->setPort({"ttyUSB3", {}, 0x1A86, 0x7523}, {{"ttyUSB2", {}, 0x1A86, 0x7523}});
        m_bus->restore();
        VirtualTime::current()->advance(5 * kSecond);
        auto* box = m_window->findChild<MessageBox*>("whichPortBox");
        QVERIFY(box != nullptr);
        QVERIFY(!button("startButton")->isChecked());
        for (auto* button : box->findChildren<QPushButton*>()) {
            if (button->text() == "ttyUSB3") {
                button->click();
                break;
            }
        }
        WAIT_VERIFY(strip().startsWith("Monitored: 3 LDBs"));
        QCOMPARE(userSettings().value(constants::kComPortKey).toString(), "ttyUSB3");
    }

    void portThatDoesNotOpenYet()
    {
        const ExpectWarning warning("^Port ");
        openSite();
        m_bus->cut();
        VirtualTime::current()->advance(2 * kSecond);
        closeBoxes();
        // Listed, and not to be had.
        m_bus->setPort(adapter("nobody's"), {adapter("ttyUSB0")});
        VirtualTime::current()->advance(kMinute);
        QVERIFY(m_window->findChildren<MessageBox*>().isEmpty());
        QVERIFY(button("endWaitingButton")->isVisible());
        m_bus->setPort(adapter("ttyUSB0"));
        m_bus->restore();
        WAIT_VERIFY(strip().startsWith("Monitored: 3 LDBs"));
    }

private:
    void openSite(const PortIdentity& port = adapter("ttyUSB0"))
    {
        makeBus(kSite);
        m_bus->setPort(port);
        userSettings().setValue(constants::kComPortKey, port.name);
        makeWindow();
        click("startButton");
        WAIT_VERIFY(strip().startsWith("Monitored: 3 LDBs"));
        VirtualTime::current()->advance(5 * kSecond);
    }

    QDialog* question() const { return dialog("installationQuestion"); }

    bool hasProbed() const
    {
        return std::any_of(m_bus->requests().begin(), m_bus->requests().end(),
                           [](const QByteArray& body) { return body.mid(4) == "70"; });
    }

    bool begin(Work work)
    {
        m_bus->clearRequests();
        switch (work) {
        case Work::Idle:
            return true;
        case Work::Scan:
            click("reloadDevicesButton");
            return true;
        case Work::Save: {
            auto* fims = child<QSpinBox>("settingsNumberOfFimsSpinBox");
            auto* save = button("settingsSaveButton");
            const bool isReady = waitUntil([&] { return save->isEnabled(); });
            fims->setValue(fims->value() % 90 + 1);
            child<QSpinBox>("settingsOpenDetectionDelaySpinBox")->setValue(10 + below(90));
            save->click();
            return isReady;
        }
        case Work::Import:
            return beginImport();
        case Work::Run:
            return waitUntil([&] { return button("fimTrackingButton")->isEnabled(); }) &&
                   beginRun();
        }
        return false;
    }

    bool beginImport()
    {
        QByteArray lines;
        for (const QString& hexId : kSite) {
            lines += QByteArray::number(hexId.toInt(nullptr, 16)) + ";LDB " + hexId.toLatin1() +
                     ";1;0;" + QByteArray::number(1 + below(200)) + ";0;0;0;0;" +
                     QByteArray::number(1 + below(200)) + ";F\n";
        }
        m_sandbox->writeFile("in.csv", lines);
        m_window->findChild<SettingsTransfer*>()->importFrom(m_sandbox->path("in.csv"));
        const auto* table = m_window->findChild<SettingsTableWindow*>();
        auto* write = table->findChild<QAction*>("write");
        if (!waitUntil([&] { return table->isVisible() && write->isEnabled(); })) {
            return false;
        }
        write->trigger();
        m_window->findChild<WritePreview*>()
            ->findChild<QPushButton*>("previewWriteButton")
            ->click();
        return true;
    }

    /// What went wrong; empty if nothing did.
    QString cutAndRestore(bool isRenamed, Work work)
    {
        const QList<QByteArray> before = m_bus->writes();
        if (QSet<QByteArray>(before.begin(), before.end()).size() != before.size() &&
            work != Work::Run && work != Work::Import) {
            return "a write was sent twice: " + before.join(' ');
        }
        m_bus->cut();
        VirtualTime::current()->advance(below(12000) + 1);
        if (button("startButton")->isChecked()) {
            return "the run goes on without a port";
        }
        const bool wasMuted = isAnyMuted();
        m_bus->clearRequests();
        m_bus->setPort(adapter(isRenamed ? "ttyUSB" + QString::number(1 + below(9)) : "ttyUSB0"));
        m_bus->restore();
        const auto isBack = [this] {
            // The window of fault finding has its LDB polled alone.
            return (strip().startsWith("Monitored: 3 LDBs") || strip().startsWith("Only")) &&
                   !question() && !isBusy();
        };
        if (!waitUntil(isBack, 70 * kSecond)) {
            return "it does not come back: " + strip();
        }
        VirtualTime::current()->advance(4 * kSecond);
        if (FimTracking* window = tracking()) {
            if (window->run().phase() == TrackingRun::Phase::Counting) {
                return "the run is resumed";
            }
            window->close();
        }
        // A factory reset that was sent takes its time, and nobody is asked before its end.
        for (int second = 0; second < 200 && (isAnyMuted() || !disabled().isEmpty()); ++second) {
            VirtualTime::current()->advance(kSecond);
            answerAll();
        }
        if (isAnyMuted()) {
            return "a loop stays muted";
        }
        for (const QByteArray& body : m_bus->writes()) {
            // What was put back is stored, also where it was there already.
            const bool isUnmuting = wasMuted && body == "FE0373631600";
            const bool isStoring = work == Work::Run && body == "FE03737806";
            if (!isUnmuting && !isStoring && !(wasMuted && body == "FE03737806")) {
                return "sent after the cut: " + body;
            }
        }
        if (!disabled().isEmpty()) {
            return "stays disabled: " + disabled();
        }
        return {};
    }

    /// What a user does who wants nothing of it any more.
    void answerAll() const
    {
        if (dialog("sameLdbBox")) {
            answer("sameLdbBox", "The same LDB");
        } else if (dialog("formerSettingsBox")) {
            answer("formerSettingsBox", "Leave them");
        } else {
            closeBoxes();
        }
    }

    bool isAnyMuted() const
    {
        return std::any_of(kSite.begin(), kSite.end(),
                           [this](const QString& hexId) { return inLdb(hexId).audioMute; });
    }

    bool isBusy() const
    {
        return button("stopTransferButton")->isVisible() ||
               !button("importDeviceSettingsButton")->isEnabled();
    }

    /// What cannot be used, though it could on a bus at rest; empty for nothing.
    QString disabled() const
    {
        for (const char* name :
             {"startButton", "reloadDevicesButton", "importDeviceSettingsButton",
              "exportDeviceSettingsButton", "ldbResetButton", "fimTrackingButton",
              "settingsSaveButton", "allServiceModeButton"}) {
            if (!button(name)->isEnabled()) {
                return name;
            }
        }
        if (const QWidget* modal = QApplication::activeModalWidget()) {
            return "all behind " + modal->objectName();
        }
        return m_window->isEnabled() ? QString() : "the window";
    }

    int below(int end) { return static_cast<int>(m_chance() % static_cast<unsigned>(end)); }

    std::mt19937 m_chance;
};

REGISTER_TEST(TestCuts, InVirtualTime<QApplication>)

#include "tst_cuts.moc"

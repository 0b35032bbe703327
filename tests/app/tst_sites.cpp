#include "app/preferences/settingsmenu.h"
#include "history/installation.h"
#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"
#include "tests/tracking/plotinspection.h"

#include <qwt_plot_curve.h>

namespace {

constexpr qint64 kSecond = 1000;
constexpr qint64 kMinute = 60 * kSecond;
const PortIdentity kAdapter{"ttyUSB0", "A1", 0x0403, 0x6001};
constexpr int kLarge = 200; // all their names take longer than anybody waits for one
const QByteArray kName("02");
const QByteArray kMute("16");

QStringList addresses(int first, int count)
{
    QStringList hexIds;
    for (int i = 0; i < count; ++i) {
        hexIds += QByteArray::number(first + i, 16).toUpper().rightJustified(2, '0');
    }
    return hexIds;
}

} // namespace

/// One adapter, several sites.
class TestSites : public UnpaintedWindow
{
    Q_OBJECT
private slots:
    void anotherSiteIsNoticed_data()
    {
        // Of `known` LDBs: those at other addresses (from the last one on), those of other names
        // (from the first one on).
        addColumns<int, int, int, QString>("known", "moved", "renamed", "when");
        for (const char* when : {"start", "long cut", "short cut", "reload"}) {
            const auto add = [&](const char* name, int known, int moved, int renamed) {
                QTest::addRow("%s, %s", name, when)
                    << known << moved << renamed << QString::fromLatin1(when);
            };
            add("other names", 8, 0, 8);
            add("a third the same", 12, 0, 8);
            add("the only one", 1, 0, 1);
            if (qstrcmp(when, "long cut") != 0) {
                add("a large site", kLarge, 0, kLarge);
            }
            add("other addresses", 8, 8, 0);
            add("a third the same, others moved", 12, 4, 4);
            add("two thirds moved", 12, 8, 0);
        }
    }

    void anotherSiteIsNoticed()
    {
        QFETCH(int, known);
        QFETCH(int, moved);
        QFETCH(int, renamed);
        QFETCH(QString, when);
        const ExpectWarning warning("^Port ", ExpectWarning::Need::MayCome);
        const QStringList site = addresses(1, known);
        openSite(site);
        const QByteArray remembered = stored();
        // A loop that this site has muted, at an address and with a name that the other one has,
        // too.
        const QString muted = site.at(std::min(renamed, known - 1));
        Installations()
            .keptLdbsOf("installation-1")
            .keep({muted, "LDB " + muted, QDateTime::currentDateTimeUtc(), false, std::nullopt});
        leave(when);

        m_bus->change(muted, kMute, "01");
        m_bus->setPresent(site.mid(0, known - moved) + addresses(100, moved));
        for (const QString& hexId : site.mid(0, renamed)) {
            m_bus->change(hexId, kName, encodeName("Other " + hexId));
        }
        m_bus->clearRequests();
        comeBack(when);
        bool isNoticed = false;
        for (int second = 0; second < (known == kLarge || when == "short cut" ? 180 : 90);
             ++second) {
            VirtualTime::current()->advance(kSecond);
            isNoticed = isNoticed || question() != nullptr;
            QVERIFY(dialog("lossBox") == nullptr);
            QVERIFY2(m_bus->writes().isEmpty(), "something is written");
        }
        QVERIFY(isNoticed && question());
        QVERIFY(!button("ldbResetButton")->isEnabled());
        QVERIFY(!button("settingsSaveButton")->isEnabled());
        QCOMPARE(ldbsIn(stored()), ldbsIn(remembered));
        WAIT_VERIFY(overview()->model()->rowCount() == known); // who is there, and nobody else

        // Whoever presses Enter has not said that it is the one that it is not.
        QVERIFY(!question()->findChild<QPushButton*>("chooseInstallationButton")->isEnabled());
        QTest::keyClick(question(), Qt::Key_Return);
        VirtualTime::current()->advance((known == kLarge ? 90 : 20) * kSecond);
        QVERIFY(button("allLdbResetButton")->isEnabled());
        QVERIFY(m_bus->writes().isEmpty());
        QVERIFY(dialog("lossBox") == nullptr);
        const auto all = Installations().read().installations;
        QCOMPARE(all.size(), std::size_t(2));
        QCOMPARE(int(all.back().ldbs.size()), known);
        QCOMPARE(ldbsIn(stored()), ldbsIn(remembered));
    }

    void sameSiteStartsAtOnce()
    {
        constexpr int kLdbCount = 32;
        const QStringList site = addresses(1, kLdbCount);
        openSite(site);
        leave("start");
        const KeptLdb muted{"05", "LDB 05", QDateTime::currentDateTimeUtc(), false, std::nullopt};
        Installations().keptLdbsOf("installation-1").keep(muted);
        m_bus->change("05", kMute, "01");
        m_bus->setPresent(site.mid(0, kLdbCount - 1)); // one is switched off
        m_bus->change("07", kName, encodeName("Renamed"));
        comeBack("start");
        const qint64 begun = VirtualTime::current()->now();
        WAIT_VERIFY(overview()->model()->rowCount() == kLdbCount);
        WAIT_COMPARE(text("20", overview::ModeColumn), "Not heard yet");
        WAIT_VERIFY(text("01", overview::ModeColumn) == "Quiescent");
        QVERIFY2(VirtualTime::current()->now() - begun <= kSecond,
                 qPrintable(QString::number(VirtualTime::current()->now() - begun)));
        // And all that are there.
        WAIT_VERIFY(text("1F", overview::ModeColumn) == "Quiescent");
        QVERIFY2(VirtualTime::current()->now() - begun <= 4 * kSecond,
                 qPrintable(QString::number(VirtualTime::current()->now() - begun)));
        WAIT_VERIFY(!inLdb("05").audioMute);
        VirtualTime::current()->advance(kMinute);
        QVERIFY(question() == nullptr && dialog("lossBox") == nullptr);
        QCOMPARE(text("07", overview::NameColumn), "Renamed");
        QCOMPARE(text("20", overview::ModeColumn), "Not heard yet");
        QCOMPARE(strip(), "Monitored: 31 of 32 LDBs answer, 0 lost, 1 not heard yet.");
        QVERIFY(stored().contains("Renamed"));
        // It is greyed, and no lamp counts it.
        QVERIFY(!cell("20", overview::TickColumn).data(overview::LiveRole).toBool());
        QVERIFY(causes().filter("20").isEmpty());
    }

    /// The names of a large site take longer than those of a small one are waited for.
    void sameLargeSiteIsRecognised_data()
    {
        const Table<QString> row("when");
        row("start", "start");
        row("short cut", "short cut");
    }

    void sameLargeSiteIsRecognised()
    {
        QFETCH(QString, when);
        const ExpectWarning warning("^Port ", ExpectWarning::Need::MayCome);
        const QStringList site = addresses(1, kLarge);
        openSite(site);
        leave(when);
        m_bus->setPresent(site.mid(3));
        const KeptLdb muted{"C8", "LDB C8", QDateTime::currentDateTimeUtc(), false, std::nullopt};
        Installations().keptLdbsOf("installation-1").keep(muted);
        m_bus->change("C8", kMute, "01");
        comeBack(when);
        for (int second = 0; second < 150; ++second) {
            VirtualTime::current()->advance(kSecond);
            QVERIFY(question() == nullptr);
        }
        QVERIFY(child<QPushButton>("allLdbResetButton")->isEnabled());
        QVERIFY(!decodeLdbSettings(m_bus->settingsOf("C8"))->audioMute);
    }

    /// The silence of those that nobody asks keeps nobody muted.
    void whoIsPolledAloneBehindACutIsPutBack()
    {
        const ExpectWarning warning("^Port ", ExpectWarning::Need::MayCome);
        openSite(addresses(1, 8));
        click("fimTrackingButton");
        WAIT_COMPARE(strip(), "Only LDB 01 is polled.");
        leave("short cut");
        Installations()
            .keptLdbsOf("installation-1")
            .keep({"01", "LDB 01", QDateTime::currentDateTimeUtc(), false, std::nullopt});
        m_bus->change("01", kMute, "01");
        comeBack("short cut");
        WAIT_VERIFY(!inLdb("01").audioMute);
        QCOMPARE(strip(), "Only LDB 01 is polled.");
    }

    /// At the addresses of this one there are other LDBs.
    void whatWasOfAnotherSiteIsGone()
    {
        const ExpectWarning warning("^Port ", ExpectWarning::Need::MayCome);
        openSite(kLdbs);
        click("settingsTableButton");
        auto* table = m_window->findChild<QWidget*>("settingsTableWindow");
        const auto* cells = table->findChild<QTableView*>()->model();
        const auto holds = [cells](const QString& text) {
            return !cells->match(cells->index(0, 1), Qt::DisplayRole, text).isEmpty();
        };
        WAIT_VERIFY(holds("LDB 0A"));
        table->close();
        const auto samples = [this] {
            return plotinspection::curveOf(*child<QWidget>("plotContainer"), "VPri")->dataSize();
        };
        VirtualTime::current()->advance(5 * kMinute);
        WAIT_COMPARE(child<QLineEdit>("settingsNameLineEdit")->text(), "LDB 03");
        leave("short cut");
        for (const QString& hexId : kLdbs) {
            m_bus->change(hexId, kName, encodeName("Other " + hexId));
        }
        comeBack("short cut");
        WAIT_VERIFY(question() != nullptr);
        VirtualTime::current()->advance(kMinute);
        const auto before = samples();
        question()->findChild<QPushButton*>("newInstallationButton")->click();
        VirtualTime::current()->advance(20 * kSecond);
        QVERIFY2(samples() < before / 2,
                 qPrintable(QStringLiteral("%1 of %2").arg(samples()).arg(before)));
        QVERIFY(!holds("LDB 0A"));
        QCOMPARE(child<QLineEdit>("settingsNameLineEdit")->text(), "Other 03");
    }

    /// What was known stays, as lost, however few answer and whatever the user does.
    void thoseThatAreSilentStay_data()
    {
        // Of eight.
        addColumns<int, QString>("answering", "when");
        QTest::newRow("most, and it is scanned") << 6 << "start, reload";
        QTest::newRow("few, and the user says that it is the same site") << 3 << "start, same";
        QTest::newRow("few, scanned at once") << 3 << "reload at once, same";
        QTest::newRow("most, scanned at once") << 6 << "reload at once";
        QTest::newRow("few, monitored all the time") << 3 << "reload";
    }

    void thoseThatAreSilentStay()
    {
        QFETCH(int, answering);
        QFETCH(QString, when);
        const QStringList site = addresses(1, 8);
        openSite(site);
        if (when != "reload") {
            click("startButton");
        }
        m_bus->setPresent(site.mid(0, answering));
        click(when.startsWith("reload") ? "reloadDevicesButton" : "startButton");
        VirtualTime::current()->advance(90 * kSecond);
        QCOMPARE(question() != nullptr, when.endsWith("same"));
        if (question()) {
            question()->findChild<QListWidget*>()->setCurrentRow(0);
            question()->findChild<QPushButton*>("chooseInstallationButton")->click();
        } else if (when == "start, reload") {
            click("reloadDevicesButton");
        }
        VirtualTime::current()->advance(90 * kSecond);
        QCOMPARE(overview()->model()->rowCount(), 8);
        QCOMPARE(text("08", overview::NameColumn), "Disconnected (LDB 08)");
        QCOMPARE(
            strip(),
            QString("Monitored: %1 of 8 LDBs answer, %2 lost.").arg(answering).arg(8 - answering));
        QCOMPARE(Installations().read().installations.front().ldbs.size(), std::size_t(8));
        QVERIFY(question() == nullptr);
        // Whose loss a scan has shown is told, and nothing of those that have only been remembered.
        QCOMPARE(dialog("lossBox") != nullptr, when == "reload" || when == "reload at once");
    }

    /// A line that is dead for longer than a loss takes, behind a cut, is no other site.
    void aDeadLineBehindACutIsNoOtherSite()
    {
        const ExpectWarning warning("^Port ", ExpectWarning::Need::MayCome);
        const QStringList site = addresses(1, 8);
        openSite(site);
        leave("short cut");
        m_bus->setPresent({});
        comeBack("short cut");
        VirtualTime::current()->advance(180 * kSecond);
        QVERIFY(question() == nullptr);
        QVERIFY(dialog("lossBox") != nullptr);
        QCOMPARE(strip().mid(0, 13), "Not monitored");
        QCOMPARE(overview()->model()->rowCount(), 8);
        m_bus->setPresent(site);
        WAIT_VERIFY(strip() == "Monitored: 8 LDBs answer.");
        QVERIFY(question() == nullptr);
    }

    void whoIsGivenUpComesBackByItself()
    {
        openSite(kLdbs);
        m_bus->setPresent(kLdbs.mid(0, 2));
        WAIT_VERIFY(text("FD", overview::ModeColumn) == "Disconnected");
        click("dismissLostButton");
        WAIT_VERIFY(overview()->model()->rowCount() == 2);
        VirtualTime::current()->advance(kMinute);
        m_bus->setPresent(kLdbs);
        WAIT_COMPARE(text("FD", overview::NameColumn), "LDB FD");
        VirtualTime::current()->advance(10 * kSecond);
        QVERIFY(stored().contains("LDB FD"));
    }

    /// Whatever is remembered.
    void reloadScansAllOfTheBus()
    {
        openSite(kLdbs);
        leave("start");
        m_bus->clearRequests();
        click("reloadDevicesButton");
        WAIT_VERIFY(strip().endsWith("the bus is being scanned"));
        WAIT_VERIFY(strip().startsWith("Monitored: 3 LDBs"));
        QCOMPARE(m_bus->requests().first(), QByteArray("FE0170"));
        WAIT_VERIFY(child<QPushButton>("ldbResetButton")->isEnabled());
        QVERIFY(question() == nullptr);
    }

    void firstStartIsAsEver()
    {
        openSite(kLdbs);
        QVERIFY(m_bus->requests().contains("FEFD70"));
        const auto all = Installations().read().installations;
        QCOMPARE(all.size(), std::size_t(1));
        QVERIFY(all.front().name.isEmpty());
        QCOMPARE(int(all.front().ldbs.size()), 3);
        QVERIFY(question() == nullptr);
    }

    void preferenceTurnsItOff()
    {
        openSite(kLdbs);
        leave("start");
        userSettings().setValue(constants::kKnownStartKey, false);
        m_bus->clearRequests();
        comeBack("start");
        QVERIFY(strip().endsWith("the bus is being scanned"));
        WAIT_VERIFY(strip().startsWith("Monitored: 3 LDBs"));
        QVERIFY(m_bus->requests().contains("FE5070"));
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        QVERIFY(question() == nullptr);
    }

    /// Two sites in one day with one adapter, and back with another one.
    void twoSitesInOneDay()
    {
        openSite(addresses(1, 4));
        nameIt("Hall");
        leave("start");
        m_bus->setPresent(addresses(50, 4));
        comeBack("start");
        WAIT_VERIFY(question() != nullptr);
        QVERIFY(question()->findChild<QLabel*>()->text().contains("\"Hall\""));
        question()->findChild<QPushButton*>("newInstallationButton")->click();
        WAIT_VERIFY(strip().startsWith("Monitored: 4 LDBs"));
        VirtualTime::current()->advance(10 * kSecond);
        nameIt("School");
        QVERIFY(m_window->windowTitle().endsWith(" - School"));
        leave("start");

        m_bus->setPresent(addresses(1, 4));
        comeBack("start");
        WAIT_VERIFY(question() != nullptr);
        auto* list = question()->findChild<QListWidget*>();
        QCOMPARE(list->count(), 2);
        list->setCurrentRow(0);
        QCOMPARE(list->currentItem()->text(), "Hall (4 LDBs)");
        question()->findChild<QPushButton*>("chooseInstallationButton")->click();
        WAIT_VERIFY(strip().startsWith("Monitored: 4 LDBs"));
        QVERIFY(m_window->windowTitle().endsWith(" - Hall"));
        VirtualTime::current()->advance(10 * kSecond);
        leave("start");

        // Known by its LDBs at a port that was never used.
        m_bus->setPort({"COM5"});
        emit m_window->findChild<SettingsMenu*>()->comPortUpdated("COM5");
        WAIT_VERIFY(question() != nullptr);
        question()->findChild<QPushButton*>("chooseInstallationButton")->click();
        QVERIFY(m_window->windowTitle().endsWith(" - Hall"));
        VirtualTime::current()->advance(10 * kSecond);
        const auto installations = Installations().read().installations;
        QCOMPARE(installations.size(), std::size_t(2));
        // What was recorded before it was known went with it.
        const QDir hall(Installations().folderOf(installations[0].id) + "/recordings");
        QCOMPARE(hall.entryList({"*.sqlite"}).size(), 2);
    }

    void formChangesWhatIsRemembered()
    {
        openSite(kLdbs);
        click("startButton");
        emit m_window->findChild<SettingsMenu*>()->installationWanted();
        auto* form = m_window->findChild<QDialog*>("installationForm");
        QVERIFY(form != nullptr && form->isVisible());
        QCOMPARE(form->findChild<QListWidget*>()->item(0)->text(), "installation-1 (in use)");
        auto* ldbs = form->findChild<QTreeWidget*>("installationLdbs");
        QCOMPARE(ldbs->topLevelItemCount(), 3);
        QCOMPARE(ldbs->topLevelItem(1)->text(1), "LDB 0A");
        form->findChild<QLineEdit*>("installationNameEdit")->setText(" Town  hall ");
        form->findChild<QPlainTextEdit*>("installationNotesEdit")->setPlainText("Key at the gate");
        ldbs->topLevelItem(1)->setSelected(true);
        form->findChild<QPushButton*>("forgetLdbButton")->click();
        QCOMPARE(ldbs->topLevelItemCount(), 2);
        form->close();
        const Installation kept = Installations().read().installations.front();
        QCOMPARE(kept.name, "Town hall");
        QCOMPARE(kept.notes, "Key at the gate");
        QCOMPARE(int(kept.ldbs.size()), 2);
        QVERIFY(m_window->windowTitle().endsWith(" - Town hall"));

        // Another one is used from the next start on.
        emit m_window->findChild<SettingsMenu*>()->installationWanted();
        form->findChild<QPushButton*>("addInstallationButton")->click();
        form->findChild<QLineEdit*>("installationNameEdit")->setText("New hall");
        form->findChild<QPushButton*>("useInstallationButton")->click();
        form->close();
        QVERIFY(m_window->windowTitle().endsWith(" - New hall"));
        m_bus->clearRequests();
        click("startButton");
        WAIT_VERIFY(strip().startsWith("Monitored: 3 LDBs"));
        VirtualTime::current()->advance(10 * kSecond);
        const auto all = Installations().read().installations;
        QCOMPARE(all.size(), std::size_t(2));
        QCOMPARE(all.front().name, "New hall");
        QCOMPARE(int(all.front().ldbs.size()), 3);
    }

    void damagedFileIsSaid()
    {
        openSite(kLdbs);
        leave("start");
        const QString path = Installations().folderOf("installation-1") + "/installation.json";
        m_sandbox->writeFile(path, "{");
        const ExpectWarning warning("cannot be understood");
        comeBack("start");
        QVERIFY(dialog("installationBox") != nullptr);
        QVERIFY(QFile::exists(path + ".damaged"));
        WAIT_VERIFY(strip().startsWith("Monitored: 3 LDBs"));
    }

private:
    void openSite(const QStringList& ldbs)
    {
        makeBus(ldbs);
        m_bus->setPort(kAdapter);
        userSettings().setValue(constants::kComPortKey, kAdapter.name);
        makeWindow();
        click("startButton");
        WAIT_VERIFY(strip().startsWith("Monitored: "));
        VirtualTime::current()->advance((ldbs.size() < kLarge ? 20 : 60) * kSecond); // their names
    }

    void leave(const QString& when)
    {
        if (when == "reload") {
            return; // the line is plugged in elsewhere, and scanned at once
        }
        if (when == "start") {
            click("startButton");
        } else {
            m_bus->cut();
        }
        VirtualTime::current()->advance(when == "long cut" ? 11 * kMinute : kMinute);
    }

    void comeBack(const QString& when)
    {
        if (when == "start") {
            click("startButton");
        } else if (when == "reload") {
            click("reloadDevicesButton");
        } else {
            m_bus->restore();
        }
    }

    void nameIt(const QString& name)
    {
        emit m_window->findChild<SettingsMenu*>()->installationWanted();
        auto* form = m_window->findChild<QDialog*>("installationForm");
        form->findChild<QLineEdit*>("installationNameEdit")->setText(name);
        form->close();
    }

    static QByteArray stored()
    {
        return Sandbox::readFile(Installations().folderOf("installation-1") + "/installation.json");
    }
    /// Of the file, what is known of the LDBs.
    static QByteArray ldbsIn(const QByteArray& file)
    {
        const int begin = file.indexOf("\"ldbs\"");
        return file.mid(begin, file.indexOf(']', begin) - begin);
    }

    QDialog* question() const { return dialog("installationQuestion"); }
};

REGISTER_TEST(TestSites, InVirtualTime<QApplication>)

#include "tst_sites.moc"

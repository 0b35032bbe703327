#include "app/preferences/settingsmenu.h"
#include "history/installation.h"
#include "recording/recordingfolder.h"
#include "recording/recordingreader.h"
#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"
#include "tests/tracking/plotinspection.h"

#include <qwt_plot_curve.h>

#include <limits>

namespace {

constexpr TimeSpan kAll{0, std::numeric_limits<qint64>::max()};
constexpr qint64 kSecond = 1000;
constexpr qint64 kMinute = 60 * kSecond;

QString recordings(const QString& installation = "installation-1")
{
    return QDir(Installations().folderOf(installation)).filePath("recordings");
}

QStringList texts(const std::vector<RecordedEvent>& events, EventKind kind)
{
    QStringList texts;
    for (const RecordedEvent& event : events) {
        if (event.kind == kind) {
            texts.append(event.hexId + ": " + event.description());
        }
    }
    return texts;
}

} // namespace

/// What the window records, says of it, and lets the user take home.
class TestRecordingWindow : public LiveWindow
{
    Q_OBJECT
private slots:
    void recordsWhileTheBusRuns()
    {
        start();
        pass(kMinute);
        QCOMPARE(indicator()->text(), QString("Recording"));
        QVERIFY(indicator()->toolTip().contains("recording-"));
        const qint64 heard = m_bus->requests().size();
        QVERIFY(heard > 500);
        m_window.reset();
        RecordingReader reader(recordings());
        // All but the last one, of which nobody knows what becomes of it.
        QVERIFY(qint64(reader.exchanges({}, kAll).size()) >= heard - 1);
        QCOMPARE(reader.runs(kAll).size(), std::size_t(1));
        QVERIFY(reader.runs(kAll)[0].isEnded);
        QCOMPARE(QDir(recordings()).entryList({"*-wal"}).size(), 0); // opens from anywhere

        makeWindow();
        QCOMPARE(indicator()->text(), QString("Not recording"));
        click("startButton");
        pass(kMinute);
        QCOMPARE(indicator()->text(), QString("Recording"));
        click("startButton");
        QCOMPARE(indicator()->text(), QString("Not recording"));
    }

    void goesWithTheInstallation()
    {
        start();
        pass(10 * kSecond);
        emit m_window->findChild<SettingsMenu*>()->installationWanted();
        auto* form = m_window->findChild<QDialog*>("installationForm");
        // One without a name would give way to the other, with its recordings.
        form->findChild<QLineEdit*>("installationNameEdit")->setText("Hall");
        form->findChild<QPushButton*>("addInstallationButton")->click();
        form->findChild<QPushButton*>("useInstallationButton")->click();
        pass(kMinute);
        m_window.reset();
        RecordingReader former(recordings());
        RecordingReader later(recordings("installation-2"));
        QVERIFY(former.extent() && later.extent());
        // But for the exchange that was under way.
        QVERIFY(former.extent()->to <= later.extent()->from + 200000); // µs
        QVERIFY(former.runs(kAll)[0].isEnded);
        QStringList listed;
        for (const RecordedRecord& record : later.stateAt(later.extent()->to)) {
            listed.append(record.hexId);
            QVERIFY(!record.rows.isEmpty());
        }
        QCOMPARE(listed, kLdbs);
    }

    void isSetByTheUser()
    {
        start();
        pass(kMinute);
        emit m_window->findChild<SettingsMenu*>()->recordingWanted();
        QVERIFY(form("recordingForm")->isVisible());
        auto* days = child<QTreeWidget>("recordingDayList");
        QCOMPARE(days->topLevelItemCount(), 1);
        days->topLevelItem(0)->setCheckState(0, Qt::Checked);
        child<QCheckBox>("recordingOnCheckBox")->setChecked(false);
        QCOMPARE(child<QSpinBox>("recordingDaysSpinBox")->value(), 30);
        QCOMPARE(child<QDoubleSpinBox>("recordingSizeSpinBox")->value(), 2.0);
        child<QDoubleSpinBox>("recordingSizeSpinBox")->setValue(0.5);
        click("recordingOkButton");
        QVERIFY(!form("recordingForm")->isVisible());
        QCOMPARE(indicator()->text(), QString("Recording is off"));
        QCOMPARE(recordingfolder::keptDays(recordings()).size(), 1);
        QCOMPARE(userSettings().value("recording/megabytes").toInt(), 512);
        pass(kSecond);
        const auto extent = RecordingReader(recordings()).extent();
        pass(kMinute);
        QCOMPARE(RecordingReader(recordings()).extent()->to, extent->to);

        emit m_window->findChild<SettingsMenu*>()->recordingWanted();
        QCOMPARE(days->topLevelItem(0)->checkState(0), Qt::Checked);
        child<QCheckBox>("recordingOnCheckBox")->setChecked(true);
        child<QLineEdit>("recordingFolderEdit")->setText(m_sandbox->path("elsewhere"));
        click("recordingOkButton");
        pass(kMinute);
        QVERIFY(RecordingReader(m_sandbox->path("elsewhere/installation-1")).extent());
    }

    void saysThatNothingCanBeWritten()
    {
        // A file where the folder is to be.
        userSettings().setValue("recording/folder", m_sandbox->path("blocked"));
        m_sandbox->writeFile("blocked", "x");
        start();
        pass(10 * kSecond);
        QCOMPARE(indicator()->text(), QString("Not recorded!"));
        QVERIFY(indicator()->toolTip().contains("Nothing is recorded"));
        QVERIFY(message().contains("Nothing is recorded"));
        QVERIFY(QFile::remove(m_sandbox->path("blocked")));
        pass(10 * kSecond);
        QCOMPARE(indicator()->text(), QString("Recording"));
        QVERIFY(message().contains("Recording goes on"));
        const RecordingReader reader(m_sandbox->path("blocked/installation-1"));
        // What waited is there.
        QVERIFY(reader.extent() && reader.extent()->to - reader.extent()->from > 30000000);
    }

    void takesTheLogHome()
    {
        open(kLdbs);
        const QString live = setLogPath();
        child<QRadioButton>("logAllRadioButton")->setChecked(true);
        child<QSpinBox>("logSpeedSpinBox")->setValue(5);
        click("logStartStopButton");
        click("startButton");
        pass(2 * kMinute);
        offer("takeHomeAction");
        child<QSpinBox>("evidenceIntervalSpinBox")->setValue(5);
        const QString taken = m_sandbox->path("taken.csv");
        save(taken);
        click("logStartStopButton");
        pass(0);
        QVERIFY2(label("evidenceStateLabel").startsWith("Saved"),
                 qPrintable(label("evidenceStateLabel")));
        const QByteArray lines = Sandbox::readFile(taken);
        QVERIFY(lines.count('\n') > 50);
        QCOMPARE(lines, Sandbox::readFile(live));

        child<QRadioButton>("evidenceCaptureChoice")->click();
        save(m_sandbox->path("taken.pcapng"));
        pass(0);
        QVERIFY(Sandbox::readFile(m_sandbox->path("taken.pcapng"))
                    .contains("\x01" + QByteArray("LDB 03").toHex().toUpper()));
        child<QRadioButton>("evidenceEventsChoice")->click();
        save(m_sandbox->path("events.csv"));
        pass(0);
        QVERIFY(Sandbox::readFile(m_sandbox->path("events.csv")).contains("Started on test bus"));
    }

    void saysWhatCannotBeTaken()
    {
        start();
        pass(kMinute);
        offer("takeHomeAction");
        save(m_sandbox->path("no/such/folder.csv"));
        pass(0);
        QVERIFY(label("evidenceStateLabel").startsWith("Not saved"));
        QVERIFY(MessageBox::find(form("evidenceForm"), "evidenceBox"));
        closeBoxes();

        child<QRadioButton>("evidenceFromToChoice")->click();
        auto* to = child<QDateTimeEdit>("evidenceToEdit");
        child<QDateTimeEdit>("evidenceFromEdit")->setDateTime(to->dateTime().addSecs(1));
        click("evidenceSaveButton");
        QVERIFY(label("evidenceStateLabel").contains("before its begin"));

        // A stop leaves no half file.
        child<QRadioButton>("evidenceVisitChoice")->click();
        pass(30 * kMinute); // more than a piece
        const QString path = m_sandbox->path("stopped.csv");
        save(path, [this] { click("evidenceStopButton"); });
        pass(0);
        QVERIFY(label("evidenceStateLabel").startsWith("Stopped"));
        QVERIFY(!QFile::exists(path));
    }

    void copiesTheVisit()
    {
        start();
        pass(kMinute);
        offer("copyVisitAction");
        QVERIFY(child<QRadioButton>("evidenceCopyChoice")->isChecked());
        click("evidenceSaveButton");
        auto* dialog = form("evidenceForm")->findChild<QFileDialog*>();
        QVERIFY(dialog);
        emit dialog->fileSelected(m_sandbox->path(""));
        pass(0);
        QVERIFY(label("evidenceStateLabel").startsWith("Saved"));
        const QString copy = label("evidenceStateLabel").mid(QString("Saved: ").size());
        const qint64 heard = m_bus->requests().size();
        // While the original goes on.
        RecordingReader reader(copy);
        QVERIFY(qint64(reader.exchanges({}, kAll).size()) >= heard - 2);
        QCOMPARE(reader.stateAt(reader.extent()->to).size(), std::size_t(kLdbs.size()));
        pass(kSecond);
        QCOMPARE(indicator()->text(), QString("Recording"));
    }

    void keepsWhatIsDone()
    {
        start();
        click("fimResetButton");
        pass(20 * kSecond);
        const ExpectWarning warning("^Port ", ExpectWarning::Need::MayCome);
        m_bus->cut();
        pass(20 * kSecond);
        m_bus->restore();
        pass(20 * kSecond);
        closeBoxes();
        m_window.reset();
        const auto events = RecordingReader(recordings()).events(kAll);
        QCOMPARE(texts(events, EventKind::ActionSent),
                 QStringList("03: LDB 03 accepted: FIM reset."));
        QCOMPARE(texts(events, EventKind::PortLost), QStringList(": Port lost: test bus"));
        const QStringList back = texts(events, EventKind::PortBack);
        QCOMPARE(back.size(), 1);
        QVERIFY2(back[0].startsWith(": Port back after "), qPrintable(back[0]));
    }

    /// "When was 0A open, for how long, what were its currents?", from a cold start.
    void tellsOfTheNight()
    {
        bool isOpen = false;
        open(kLdbs);
        m_bus->setScript([&isOpen](const QByteArray& body) -> std::optional<QByteArray> {
            QByteArray status = TestBus::status();
            status.replace(12, 2, isOpen ? "01" : "00");
            return body.mid(2) == "0A737803" ? std::make_optional(TestBus::framed(status))
                                             : std::nullopt;
        });
        click("startButton");
        pass(2 * kMinute);
        isOpen = true;
        pass(90 * kSecond);
        isOpen = false;
        pass(10 * kMinute);
        m_window.reset();

        makeWindow();
        child<QToolButton>("eventsButton")->click();
        pass(0);
        auto* ldbs = child<QComboBox>("eventLdbBox");
        ldbs->setCurrentIndex(ldbs->findText("0A"));
        auto* list = child<QTableView>("eventTable");
        const QAbstractItemModel* events = list->model();
        QCOMPARE(events->rowCount(), 2);
        const QModelIndex begun = events->index(1, 3);
        QCOMPARE(begun.data().toString(), QString("Loop open"));
        QVERIFY(events->index(1, 2).data().toString().startsWith("1 min 3"));
        QCOMPARE(overview()->model()->rowCount(), 0);
        emit list->doubleClicked(begun);
        pass(0);
        // Its row has come, and it is the one that is shown alone.
        const QAbstractItemModel* details = child<QTableView>("deviceDetailTableView")->model();
        QCOMPARE(details->index(0, details->columnCount() - 1).data().toString(), QString("0A"));
        QCOMPARE(text("0A", overview::LoopColumn), QString("Open"));
        QCOMPARE(text("0A", overview::PrimaryCurrentColumn), QString("12.3 mA"));

        auto* mark = child<QPushButton>("eventMarkButton");
        mark->click();
        auto* dialog = m_window->findChild<QDialog*>("markDialog");
        QVERIFY(dialog);
        dialog->findChild<QLineEdit*>()->setText("seen at night");
        dialog->accept();
        pass(0);
        ldbs->setCurrentIndex(0);
        QCOMPARE(events->match(events->index(0, 3), Qt::DisplayRole, "seen at night", 2).size(), 1);
    }

    void plotsThePast()
    {
        start();
        pass(5 * kMinute);
        m_window.reset();
        pass(2 * kMinute);
        makeWindow();
        click("startButton");
        WAIT_VERIFY(overview()->model()->rowCount() == kLdbs.size());
        VirtualTime::current()->advance(4000);
        const auto* curve = plotinspection::curveOf(*child<QWidget>("plotContainer"), "VPri");
        QVERIFY(curve);
        QVERIFY2(curve->dataSize() > 150, qPrintable(QString::number(curve->dataSize())));
        // Nothing joins the two runs.
        int gaps = 0;
        bool wasGap = false;
        for (std::size_t i = 0; i < curve->dataSize(); ++i) {
            const bool isGap = qIsNaN(curve->sample(static_cast<int>(i)).y());
            gaps += isGap && !wasGap ? 1 : 0;
            wasGap = isGap;
        }
        QCOMPARE(gaps, 1);
    }

private:
    /// With what it makes of it.
    static void pass(qint64 milliseconds) { VirtualTime::current()->advance(milliseconds); }
    QToolButton* indicator() const { return child<QToolButton>("recordingIndicator"); }
    QDialog* form(const char* name) const { return child<QDialog>(name); }
    void offer(const char* action) const
    {
        child<QAction>(action)->trigger();
        pass(0);
    }
    /// As the user does; `meanwhile` while it is being written.
    void save(const QString& path, const std::function<void()>& meanwhile = {}) const
    {
        click("evidenceSaveButton");
        auto* dialog = form("evidenceForm")->findChild<QFileDialog*>();
        QVERIFY(dialog);
        emit dialog->fileSelected(path);
        dialog->close();
        if (meanwhile) {
            meanwhile();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

REGISTER_TEST(TestRecordingWindow, InVirtualTime<QApplication>)
#include "tst_recordingwindow.moc"

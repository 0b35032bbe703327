#include "tests/app/settingsdesk.h"
#include "tests/support/testprogram.h"

namespace {

constexpr int kFlagsPosition = 8; // in a settings record

} // namespace

class TestLdbSettingsEditor : public TestCase
{
    Q_OBJECT
private slots:
    void wheelChangesNothing()
    {
        Desk desk;
        QVERIFY(desk.prepare());
        for (QSpinBox* box : {desk.fims(), desk.delay()}) {
            box->setFocus();
            const int before = box->value();
            QWheelEvent turn(QPointF(5, 5), box->mapToGlobal(QPointF(5, 5).toPoint()), QPoint(),
                             QPoint(0, -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                             false);
            QCoreApplication::sendEvent(box, &turn);
            QCOMPARE(box->value(), before);
            QVERIFY2(!turn.isAccepted(), "the form is to be scrolled by it");
        }
        QVERIFY(!desk.editor->hasUnsavedChanges());
    }

    void oneWayToLeaveAtATime()
    {
        // As another port chosen while the question about another LDB is open.
        Desk desk;
        QVERIFY(desk.prepare());
        desk.fims()->setValue(7);
        desk.editor->leave([] {});
        bool hasStayed = false;
        desk.editor->leave([] { QFAIL("left unasked"); }, [&hasStayed] { hasStayed = true; });
        QCOMPARE(desk.boxes().size(), 1);
        QVERIFY(hasStayed);
    }

    void showsTheRecord()
    {
        Desk desk;
        QVERIFY(desk.connectLink());
        const QByteArray record = TestBus::record(kLdb).replace(kFlagsPosition, 2, "0D");
        desk.bus.answerTo(kLdb, "737201",
                          TestBus::framed(QByteArray(record).replace(kMutePosition, 2, "02")));
        QCOMPARE(desk.state(), "No LDB selected");
        desk.editor->setSelectedLdb(kLdb);
        QCOMPARE(desk.state(), "Waiting for the settings of LDB 0A");
        QVERIFY(desk.select(kLdb));

        QCOMPARE(desk.name()->text(), "LDB 0A");
        QCOMPARE(desk.fims()->value(), 20);
        QCOMPARE(desk.delay()->value(), 10);
        QVERIFY(desk.detection()->isChecked());
        QVERIFY(desk.mute()->isChecked());
        QVERIFY(desk.ui<QCheckBox>("settingsGeneralFaultOutputCheckBox")->isChecked());
        QVERIFY(!desk.ui<QCheckBox>("settingsEarthLeakageDetectionCheckBox")->isChecked());
        QVERIFY(desk.ui<QCheckBox>("settingsEarthWireOpenDetectionCheckBox")->isChecked());
        QVERIFY(desk.ui<QCheckBox>("settingsStartInServiceModeCheckBox")->isChecked());
        QVERIFY(!desk.ui<QCheckBox>("settingsAmplifierDetectionCheckBox")->isChecked());
        QCOMPARE(desk.state(), QString());
        WAIT_COMPARE(desk.ui<QLabel>("settingsFirmwareIdLabel")->text(), "LDB 1.07");
        QCOMPARE(desk.fims()->maximum(), 0xFFFF);
        QCOMPARE(desk.delay()->maximum(), 0xFFFF);

        // A new selection shows nothing of the former one.
        desk.editor->setSelectedLdb(kOtherLdb);
        QCOMPARE(desk.name()->text(), QString());
        QCOMPARE(desk.ui<QLabel>("settingsFirmwareIdLabel")->text(), QString());
        QVERIFY(!desk.save()->isEnabled());
    }

    void saysThatNothingCame()
    {
        Desk desk;
        desk.bus.answerTo(kLdb, "737201", QByteArray(""));
        QVERIFY(desk.connectLink());
        desk.editor->setSelectedLdb(kLdb);
        desk.editor->requestSettings();
        QCOMPARE(desk.state(), "Waiting for the settings of LDB 0A");
        WAIT_COMPARE(desk.state(), "LDB 0A did not answer: its settings are not known");
        QVERIFY(!desk.save()->isEnabled());
        // It comes back.
        desk.bus.answerTo(kLdb, "737201", TestBus::framed(TestBus::record(kLdb)));
        QVERIFY(desk.select(kLdb));
        QCOMPARE(desk.state(), QString());
    }

    void onlyTheOwnRecordCounts_data()
    {
        const Table<QString, QByteArray, bool> row("asked", "answer", "counts");
        const QByteArray own = TestBus::record(kLdb);
        const QByteArray other = TestBus::record(kOtherLdb);
        row("own", kLdb, own, true);
        row("own, to a request of another", kOtherLdb, own, false);
        row("another's, to the own request", kLdb, other, false);
        row("refused", kLdb, kNak, false);
    }

    void onlyTheOwnRecordCounts()
    {
        QFETCH(QString, asked);
        QFETCH(QByteArray, answer);
        QFETCH(bool, counts);
        Desk desk;
        desk.editor->setSelectedLdb(kLdb);
        desk.editor->processLdbSettings(asked, answer);
        QCOMPARE(desk.editor->edit().hasRecord(), counts);
        QVERIFY(desk.buttonsAre(counts));
        QCOMPARE(desk.name()->text(), counts ? "LDB 0A" : QString());
    }

    void buttonsFollowWhatIsAllowed()
    {
        Desk desk;
        desk.editor->setSelectedLdb(kLdb);
        desk.editor->processLdbSettings(kLdb, TestBus::record(kLdb));
        for (const bool saveAllowed : {false, true}) {
            EnabledControls controls;
            controls.editing = kAllowed;
            controls.settings.hindrance = saveAllowed ? Hindrance::None : Hindrance::Transferring;
            desk.editor->apply(controls);
            QVERIFY(desk.buttonsAre(saveAllowed));
            QVERIFY(desk.name()->isEnabled());
            QCOMPARE(shownTip(desk.save()),
                     saveAllowed ? QString() : hindranceText(Hindrance::Transferring));
        }
    }

    void changesAreMarkedInWords()
    {
        Desk desk;
        desk.editor->setSelectedLdb(kLdb);
        desk.editor->processLdbSettings(kLdb, TestBus::record(kLdb));
        desk.name()->setText("Roof");
        desk.fims()->setValue(300);
        desk.mute()->click();
        desk.detection()->click();
        QVERIFY(!desk.delay()->isEnabled());
        QCOMPARE(desk.delay()->text(), "0");
        QCOMPARE(desk.state(), "4 unsaved change(s), in bold");
        const QList<QPair<QWidget*, QString>> marks = {
            {desk.name(), "Changed. The LDB has: LDB 0A"},
            {desk.fims(), "Changed. The LDB has: 20"},
            {desk.mute(), "Changed. The LDB has: off"},
            {desk.detection(), QString("Changed. The LDB has: 10%1s").arg(QChar(0xA0))},
            {desk.ui<QCheckBox>("settingsAmplifierDetectionCheckBox"), QString()},
        };
        for (const auto& [widget, words] : marks) {
            QCOMPARE(widget->accessibleDescription(), words);
            QCOMPARE(widget->toolTip(), words);
            QCOMPARE(widget->font().bold(), !words.isEmpty());
        }

        // A further record takes no edit away.
        desk.editor->processLdbSettings(kLdb,
                                        TestBus::record(kLdb).replace(kFlagsPosition, 2, "13"));
        QVERIFY(desk.ui<QCheckBox>("settingsAmplifierDetectionCheckBox")->isChecked());
        QCOMPARE(desk.name()->text(), "Roof");

        desk.undo()->click();
        QCOMPARE(desk.state(), QString());
        QCOMPARE(desk.name()->text(), "LDB 0A");
        QVERIFY(desk.delay()->isEnabled());
        QCOMPARE(desk.delay()->value(), 10);
        for (const auto& entry : marks) {
            QCOMPARE(entry.first->accessibleDescription(), QString());
            QVERIFY(!entry.first->font().bold());
        }
    }

    void nameIsTypedAsFarAsItFits()
    {
        Desk desk;
        QVERIFY(desk.prepare());
        desk.name()->clear();
        QTest::keyClicks(desk.name(), "12345678901234567");
        QCOMPARE(desk.editor->edit().values().name, "123456789012345");
        // No validator stops what a program sets, nor more typed behind a 16 byte name of an LDB.
        desk.name()->setText("1234567890123456");
        desk.save()->click();
        QCOMPARE(desk.lastMessage(), "The name does not fit into 15 byte(s).");
        QVERIFY(desk.saving.isEmpty());
        QVERIFY(desk.settle());
        QCOMPARE(desk.bus.writes(), QList<QByteArray>());
    }
};

REGISTER_TEST(TestLdbSettingsEditor, InVirtualTime<QApplication>)

#include "tst_ldbsettingseditor.moc"

#include "tests/app/settingsdesk.h"
#include "tests/support/testprogram.h"

namespace {

const QByteArray kSilence("");

QByteArray hex(const char* text)
{
    return QByteArray(text).toHex().toUpper();
}

/// Without what was only repeated for want of an answer, or of one in time.
QList<QByteArray> withoutRepetitions(const QList<QByteArray>& bodies)
{
    QList<QByteArray> result;
    for (const QByteArray& body : bodies) {
        if (result.isEmpty() || result.constLast() != body) {
            result.append(body);
        }
    }
    return result;
}

/// Lets an LDB reboot as soon as it has stored its settings.
TestBus::Script silentOnceStored()
{
    return [isStored = false](const QByteArray& body) mutable -> std::optional<QByteArray> {
        isStored = isStored || body == "FE0A737806";
        return isStored && body == "FE0A737201" ? std::make_optional(kSilence) : std::nullopt;
    };
}

/// What a user does to the values.
using Change = std::function<void(const Desk& desk)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class TestLdbSettingsSaving : public TestCase
{
    Q_OBJECT
private slots:
    void saves_data()
    {
        // "writes": in this order, behind the LDB's address
        const Table<Change, QStringList> row("change", "writes");
        const Change everyField([](const Desk& desk) {
            desk.name()->setText("Roof");
            desk.delay()->setValue(5);
            desk.fims()->setValue(200);
            for (const char* flag : {"AudioMute", "GeneralFaultOutput", "EarthWireOpenDetection",
                                     "StartInServiceMode", "AmplifierDetection"}) {
                desk.ui<QCheckBox>(qPrintable(QString("settings%1CheckBox").arg(flag)))->click();
            }
        });
        const Change defaults([](const Desk& desk) {
            desk.fims()->setValue(7);
            desk.defaults()->click();
        });
        const Change detectionOff([](const Desk& desk) { desk.detection()->click(); });
        row("every field", everyField,
            {"736302526F6F66", "7363141E", "7363170500", "73631601", "736303C800", "737806"});
        row("detection off", detectionOff, {"7363170000", "737806"});
        row("the defaults", defaults, {"73631413", "7363030700", "737806"});
        row("nothing", [](const Desk&) {}, {"737806"});
    }

    void saves()
    {
        QFETCH(Change, change);
        QFETCH(QStringList, writes);
        Desk desk;
        QVERIFY(desk.prepare());
        desk.bus.clearRequests();
        change(desk);
        QVERIFY(desk.settle());
        QCOMPARE(desk.bus.writes(), QList<QByteArray>());

        desk.bus.clearRequests();
        desk.save()->click();
        QCOMPARE(desk.saves(true), 1);
        QVERIFY(desk.saves(false) == 0);
        QVERIFY(desk.buttonsAre(false));
        WAIT_COMPARE(desk.lastMessage(), "The settings of LDB 0A are saved.");
        QList<QByteArray> commands;
        for (const QString& write : QStringList("737201") + writes + QStringList("737201")) {
            commands.append("FE0A" + write.toLatin1());
        }
        QCOMPARE(withoutRepetitions(desk.bus.commands()), commands);
        QCOMPARE(desk.saves(false), 1);
        QVERIFY(desk.buttonsAre(true));

        // The edits have ended: what the LDB has now is shown, and a later record as well.
        QCOMPARE(desk.state(), QString());
        desk.bus.change(kLdb, "02", hex("LDB 0B"));
        desk.editor->requestSettings();
        WAIT_COMPARE(desk.name()->text(), "LDB 0B");
    }

    void tellsWhatWasNotWritten_data()
    {
        // "reported": what the LDB has instead; empty: nothing is missing
        const Table<QByteArray, QByteArray, QString> row("request", "answer", "reported");
        row("Name (refused)", "736302", kNak, "Name (LDB 0A)");
        row("Earth Leakage Detection (refused)", "736314", kNak, "Earth Leakage Detection (on)");
        row("Open Detection Delay (refused)", "736317", kNak,
            QString("Open Detection Delay (10%1s)").arg(QChar(0xA0)));
        row("Audio Mute (refused)", "736316", kNak, "Audio Mute (off)");
        row("Number of FIM's (refused)", "736303", kNak, "Number of FIM's (20)");
        row("storing (refused)", "737806", kNak, "");
        row("Name (no answer)", "736302", kSilence, "Name (LDB 0A)");
        row("storing (no answer)", "737806", kSilence, "");
    }

    void tellsWhatWasNotWritten()
    {
        QFETCH(QByteArray, request);
        QFETCH(QByteArray, answer);
        QFETCH(QString, reported);
        Desk desk;
        QVERIFY(desk.prepare());
        desk.name()->setText("Roof");
        desk.delay()->setValue(5);
        desk.fims()->setValue(7);
        desk.mute()->click();
        desk.ui<QCheckBox>("settingsEarthLeakageDetectionCheckBox")->click();
        desk.bus.answerTo(kLdb, request, answer);
        desk.bus.clearRequests();
        desk.notices.hush();

        desk.save()->click();
        QVERIFY(!desk.save()->isEnabled());
        WAIT_COMPARE(desk.saves(false), 1);
        QVERIFY(desk.buttonsAre(true));
        const QString notWritten = QString("LDB 0A: not written: ") + QTest::currentDataTag();
        // The acknowledgement that follows a silence may be that of the silent command, so the next
        // one can count as unanswered too.
        QVERIFY2(desk.lastMessage().startsWith(notWritten), qPrintable(desk.lastMessage()));
        QVERIFY(answer.isEmpty() || desk.lastMessage() == notWritten);
        // One that fails keeps none of the others back.
        QCOMPARE(withoutRepetitions(desk.bus.writes()).size(), 6);

        // The record is read all the same, and what the LDB lacks is told and stays an edit.
        WAIT_COMPARE(desk.editor->edit().changeCount(), reported.isEmpty() ? 0 : 1);
        QVERIFY2(desk.lastMessage().startsWith(notWritten), qPrintable(desk.lastMessage()));
        const QString difference = "; the LDB reports other values than written: ";
        QCOMPARE(desk.lastMessage().section(difference, 1), reported);
        QCOMPARE(desk.name()->text(), "Roof");
        QCOMPARE(desk.fims()->value(), 7);
    }

    void leavesAloneWhatOthersHaveChanged()
    {
        Desk desk;
        desk.bus.change(kLdb, "16", "01"); // muted while the editor reads
        QVERIFY(desk.prepare());
        QVERIFY(desk.mute()->isChecked());
        desk.delay()->setValue(26);
        desk.fims()->setValue(7);
        desk.ui<QCheckBox>("settingsEarthWireOpenDetectionCheckBox")->click();
        // Meanwhile the mute is ended, and somebody else sets another count and another flag.
        desk.bus.change(kLdb, "16", "00");
        desk.bus.change(kLdb, "03", "0900");
        desk.bus.change(kLdb, "14", "0B");
        desk.bus.clearRequests();

        desk.save()->click();
        WAIT_COMPARE(desk.boxes().size(), 1);
        QCOMPARE(withoutRepetitions(desk.bus.writes()),
                 (QList<QByteArray>{"FE0A7363140F", "FE0A7363171A00", "FE0A737806"}));
        QVERIFY(!desk.mute()->isChecked());
        QVERIFY(desk.ui<QCheckBox>("settingsStartInServiceModeCheckBox")->isChecked());
        const QString reason =
            "not written, as somebody else has changed it meanwhile: Number of FIM's (9)";
        QCOMPARE(desk.boxes().constFirst(), "Not all settings of LDB 0A are saved.\n" + reason);
        QCOMPARE(desk.state(), "1 unsaved change(s), in bold\n" + reason);
        QCOMPARE(desk.fims()->value(), 7);
        QCOMPARE(desk.fims()->toolTip(), "Changed by somebody else meanwhile. The LDB has: 9");

        // Who has seen it can overwrite it.
        desk.bus.clearRequests();
        desk.save()->click();
        WAIT_COMPARE(desk.lastMessage(), "The settings of LDB 0A are saved.");
        QCOMPARE(withoutRepetitions(desk.bus.writes()),
                 (QList<QByteArray>{"FE0A7363030700", "FE0A737806"}));
        QCOMPARE(desk.state(), QString());
    }

    void leavesAloneAnLdbOfAnotherName()
    {
        Desk desk;
        QVERIFY(desk.prepare());
        desk.fims()->setValue(7);
        desk.bus.change(kLdb, "02", hex("Shed")); // perhaps an exchanged board
        desk.bus.clearRequests();
        desk.save()->click();
        WAIT_COMPARE(desk.boxes().size(), 1);
        QCOMPARE(desk.bus.writes(), QList<QByteArray>());
        QVERIFY2(desk.boxes().constFirst().contains(
                     "nothing was written, as the LDB is now called \"Shed\""),
                 qPrintable(desk.boxes().constFirst()));
        QCOMPARE(desk.fims()->value(), 7);

        // Who has seen its name can go on.
        QCOMPARE(desk.name()->text(), "Shed");
        desk.save()->click();
        WAIT_COMPARE(desk.lastMessage(), "The settings of LDB 0A are saved.");
        QCOMPARE(withoutRepetitions(desk.bus.writes()),
                 (QList<QByteArray>{"FE0A7363030700", "FE0A737806"}));
    }

    void secondSaveKnowsTheFirst()
    {
        // The record is not read again yet when the user has thought better of it.
        Desk desk;
        QVERIFY(desk.prepare());
        desk.bus.clearRequests();
        desk.mute()->click();
        desk.save()->click();
        WAIT_COMPARE(desk.saves(false), 1);
        desk.mute()->click();
        desk.save()->click();
        WAIT_COMPARE(desk.saves(false), 2);
        QVERIFY(desk.settle());
        QCOMPARE(desk.lastMessage(), "The settings of LDB 0A are saved.");
        QCOMPARE(desk.boxes(), QStringList());
        QCOMPARE(desk.state(), QString());
        QCOMPARE(withoutRepetitions(desk.bus.writes()),
                 (QList<QByteArray>{"FE0A73631601", "FE0A737806", "FE0A73631600", "FE0A737806"}));
        QCOMPARE(desk.bus.settingsOf(kLdb), TestBus::record(kLdb));
    }

    void writesNothingUnread_data()
    {
        const Table<QByteArray> row("answer");
        row("silent", kSilence);
        row("refused", kNak);
        row("the record of another", TestBus::framed(TestBus::record(kOtherLdb)));
    }

    void writesNothingUnread()
    {
        QFETCH(QByteArray, answer);
        Desk desk;
        QVERIFY(desk.prepare());
        desk.name()->setText("Roof");
        desk.bus.answerTo(kLdb, "737201", answer);
        desk.bus.clearRequests();
        desk.save()->click();
        WAIT_COMPARE(desk.saves(false), 1);
        QVERIFY(desk.settle());
        QCOMPARE(desk.bus.writes(), QList<QByteArray>());
        const QString text =
            "nothing was written, as the settings could not be read just before (no answer)";
        QCOMPARE(desk.lastMessage(), "LDB 0A: " + text);
        QCOMPARE(desk.state(), "1 unsaved change(s), in bold\n" + text);
        QCOMPARE(desk.boxes().size(), 1);
        QVERIFY(desk.buttonsAre(true));
        QCOMPARE(desk.name()->text(), "Roof");
    }

    void failedSaveStaysInSight()
    {
        Desk desk;
        QVERIFY(desk.prepare());
        desk.name()->setText("Roof");
        desk.mute()->click();
        desk.bus.answerTo(kLdb, "7363", kNak);
        desk.save()->click();
        WAIT_COMPARE(desk.boxes().size(), 1);
        const QStringList lines{
            "2 unsaved change(s), in bold", "not written: Name (refused), Audio Mute (refused)",
            "the LDB reports other values than written: Name (LDB 0A), Audio Mute (off)"};
        QCOMPARE(desk.state(), lines.join('\n'));
        QCOMPARE(desk.mute()->toolTip(), "Changed. The LDB has: off\nNot saved: refused");
        // Neither other messages nor what the polling reads wipes it, nor is it told again.
        desk.notices.hush();
        desk.editor->requestSettings();
        QVERIFY(desk.settle());
        QCOMPARE(desk.state(), lines.join('\n'));
        QCOMPARE(desk.boxes().size(), 1);

        desk.bus.setScript(nullptr);
        desk.save()->click();
        QCOMPARE(desk.state(), lines.constFirst());
        WAIT_COMPARE(desk.lastMessage(), "The settings of LDB 0A are saved.");
        QCOMPARE(desk.state(), QString());
        QCOMPARE(desk.mute()->toolTip(), QString());
        QCOMPARE(desk.boxes().size(), 1);
    }

    void readsAgainAfterAReboot_data()
    {
        addColumns<bool, QString>("isBack", "message");
        QTest::newRow("back") << true << "The settings of LDB 0A are saved.";
        QTest::newRow("still away") << false << "LDB 0A: the settings could not be read again";
    }

    void readsAgainAfterAReboot()
    {
        QFETCH(bool, isBack);
        QFETCH(QString, message);
        Desk desk;
        QVERIFY(desk.prepare());
        desk.name()->setText("Roof");
        desk.bus.setScript(silentOnceStored());
        desk.bus.clearRequests();
        desk.save()->click();
        WAIT_COMPARE(desk.saves(false), 1);
        QVERIFY(desk.settle());
        const QString saving = "Saving the settings of LDB 0A";
        QCOMPARE(desk.lastMessage(), saving);

        emit desk.link.ldbStateUpdated(kLdb, LdbState::Booting);
        emit desk.link.ldbStateUpdated(kOtherLdb, LdbState::Quiescent);
        desk.bus.clearRequests();
        QVERIFY(desk.settle());
        QCOMPARE(withoutRepetitions(desk.bus.commands()), QList<QByteArray>{"FE0B737804"});
        QCOMPARE(desk.lastMessage(), saving);

        if (isBack) {
            desk.bus.setScript(nullptr);
        }
        emit desk.link.ldbStateUpdated(kLdb, LdbState::Quiescent);
        WAIT_COMPARE(desk.lastMessage(), message);
        QCOMPARE(desk.state(), isBack ? QString()
                                      : "1 unsaved change(s), in bold\n"
                                        "the settings could not be read again");
        QCOMPARE(desk.name()->text(), "Roof");
    }

    void readsAgainWithoutNewsOfTheReboot()
    {
        Desk desk;
        QVERIFY(desk.connectLink());
        SettingsWriter writer(&desk.link, kLdb,
                              {*decodeLdbSettings(TestBus::record(kLdb)), {LdbField::Name}},
                              SettingsWriter::ReadBack::Always);
        QSignalSpy finished(&writer, &SettingsWriter::finished);
        auto* limit = writer.findChild<QTimer*>();
        desk.bus.answerTo(kLdb, "737201", kSilence);
        writer.start();
        WAIT_VERIFY(limit->isActive());
        QCOMPARE(limit->interval(), 15000);
        desk.bus.setScript(nullptr);
        QVERIFY(finished.isEmpty());
        limit->start(0); // the time is up
        WAIT_COMPARE(finished.size(), 1);
        QVERIFY(writer.outcome().isGood());
    }

    void lostPortEndsTheSave()
    {
        Desk desk;
        QVERIFY(desk.prepare());
        desk.name()->setText("Roof");
        desk.bus.answerTo(kLdb, "736302", kSilence);
        desk.save()->click();
        WAIT_VERIFY(desk.bus.commands().contains("FE0A736302" + hex("Roof")));
        desk.link.stop();
        WAIT_COMPARE(desk.saves(false), 1);
        QVERIFY2(desk.lastMessage().endsWith("the connection ended before everything was written"),
                 qPrintable(desk.lastMessage()));
        QVERIFY(desk.save()->isEnabled());
        QCOMPARE(desk.name()->text(), "Roof");
    }

    void saveOfAnLdbNoLongerSelected()
    {
        Desk desk;
        QVERIFY(desk.prepare());
        desk.name()->setText("Roof");
        desk.bus.clearRequests();
        desk.notices.hush();
        desk.save()->click();
        desk.editor->setSelectedLdb(kOtherLdb);
        desk.editor->requestSettings();
        WAIT_COMPARE(desk.lastMessage(), "The settings of LDB 0A are saved.");
        WAIT_VERIFY(desk.save()->isEnabled());
        QCOMPARE(desk.name()->text(), "LDB 0B");
        QCOMPARE(desk.state(), QString());
        for (const QByteArray& write : desk.bus.writes()) {
            QVERIFY(write.startsWith("FE0A"));
        }
        QCOMPARE(desk.bus.settingsOf(kOtherLdb), TestBus::record(kOtherLdb));
    }
};

REGISTER_TEST(TestLdbSettingsSaving, InVirtualTime<QApplication>)

#include "tst_ldbsettingssaving.moc"

#include "app/settingseditor/ldbsettingseditor.h"
#include "serial/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/settingsbus.h"
#include "tests/support/testcase.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTimer>

namespace {

const QString kLdb = QStringLiteral("0A");
const QString kOtherLdb = QStringLiteral("0B");

const QByteArray kNak("\x15");
const QByteArray kSilence("");

// Where the fields stand in a settings record.
constexpr int kFlagsPosition = 8;
constexpr int kMutePosition = 12;

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

/// An editor on a bus of two LDBs.
class Desk
{
public:
    Desk() { editor->setLink(&link); }

    bool connectLink()
    {
        const QStringList all{kLdb, kOtherLdb};
        const auto isConnected = [&] {
            return link.isRunning() && link.connectedLdbs() == all;
        };
        // A probe that a stalling machine answers too late makes another scan necessary.
        for (int scan = 0; scan < 5 && !isConnected(); ++scan) {
            link.stop();
            if (!bus.connectLink(link)) {
                return false;
            }
        }
        return isConnected();
    }
    /// Returns with all that was asked for at the selection.
    bool select(const QString& hexId)
    {
        editor->setSelectedLdb(hexId);
        editor->requestSettings();
        const auto* firmwareId = ui<QLabel>("settingsFirmwareIdLabel");
        return waitUntil([=] { return save()->isEnabled() && !firmwareId->text().isEmpty(); });
    }
    bool prepare() { return connectLink() && select(kLdb); }

    /// The script answers requests to the LDB that begin so.
    void answerTo(const QString& hexId, const QByteArray& request, const QByteArray& answer)
    {
        const QByteArray start = "FE" + hexId.toLatin1() + request;
        bus.setScript([=](const QByteArray& body) {
            return body.startsWith(start) ? std::make_optional(answer) : std::nullopt;
        });
    }
    /// All answers to what was asked so far have reached the editor: one asked for last has.
    bool settle()
    {
        auto command = std::make_unique<ExecuteCommand>(kOtherLdb, LdbAction::FirmwareId);
        bool answered = false;
        command->addObserver(std::make_unique<ISerialCommand::ObserverCallable>(
            &link, [&answered](const QByteArray&) { answered = true; }));
        link.post(std::move(command));
        return waitUntil([&answered] { return answered; });
    }

    template <typename Widget>
    Widget* ui(const char* name) const
    {
        auto* widget = editor->findChild<Widget*>(QLatin1String(name));
        Q_ASSERT(widget);
        return widget;
    }
    QLineEdit* name() const { return ui<QLineEdit>("settingsNameLineEdit"); }
    QSpinBox* fims() const { return ui<QSpinBox>("settingsNumberOfFimsSpinBox"); }
    QSpinBox* delay() const { return ui<QSpinBox>("settingsOpenDetectionDelaySpinBox"); }
    QCheckBox* detection() const { return ui<QCheckBox>("settingsOpenDetectionDelayCheckBox"); }
    QCheckBox* mute() const { return ui<QCheckBox>("settingsAudioMuteCheckBox"); }
    QPushButton* save() const { return ui<QPushButton>("settingsSaveButton"); }
    QPushButton* undo() const { return ui<QPushButton>("settingsUndoButton"); }
    QPushButton* defaults() const { return ui<QPushButton>("settingsDefaultButton"); }
    bool buttonsAre(bool enabled) const
    {
        return save()->isEnabled() == enabled && undo()->isEnabled() == enabled &&
               defaults()->isEnabled() == enabled;
    }
    QString state() const { return ui<QLabel>("settingsStateLabel")->text(); }

    QString lastMessage() const
    {
        return messages.isEmpty() ? QString() : messages.constLast().constFirst().toString();
    }

    Sandbox sandbox;
    SettingsBus bus{{kLdb, kOtherLdb}};
    SerialLink link;
    std::unique_ptr<LdbSettingsEditor> editor = std::make_unique<LdbSettingsEditor>();
    QSignalSpy messages{editor.get(), &LdbSettingsEditor::statusMessage};
    QSignalSpy saveStarted{editor.get(), &LdbSettingsEditor::saveStarted};
    QSignalSpy saveFinished{editor.get(), &LdbSettingsEditor::saveFinished};
};

/// What a user does to the values.
using Change = std::function<void(const Desk& desk)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class TestLdbSettingsEditor : public TestCase
{
    Q_OBJECT
private slots:
    void showsTheRecord();
    void onlyTheOwnRecordCounts_data();
    void onlyTheOwnRecordCounts();
    void answerOfTheLdbSelectedBefore();
    void buttonsFollowWhatIsAllowed();
    void changesAreMarkedInWords();
    void nameIsTypedAsFarAsItFits();
    void saves_data();
    void saves();
    void tellsWhatWasNotWritten_data();
    void tellsWhatWasNotWritten();
    void tellsADifference();
    void readsAgainAfterAReboot_data();
    void readsAgainAfterAReboot();
    void readsAgainWithoutNewsOfTheReboot();
    void aLaterRecordEndsASaveThatWasNotReadBack();
    void isDestroyedWhileSaving();
    void lostPortEndsTheSave();
    void saveOfAnLdbNoLongerSelected();
};

void TestLdbSettingsEditor::showsTheRecord()
{
    Desk desk;
    QVERIFY(desk.connectLink());
    desk.bus.settingsOf(kLdb).replace(kFlagsPosition, 2, "0D");
    desk.bus.settingsOf(kLdb).replace(kMutePosition, 2, "02");
    QCOMPARE(desk.state(), QStringLiteral("No LDB selected"));
    desk.editor->setSelectedLdb(kLdb);
    QCOMPARE(desk.state(), QStringLiteral("Waiting for the settings of LDB 0A"));
    QVERIFY(desk.select(kLdb));

    QCOMPARE(desk.name()->text(), QStringLiteral("LDB 0A"));
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
    WAIT_COMPARE(desk.ui<QLabel>("settingsFirmwareIdLabel")->text(), QStringLiteral("LDB 1.07"));
    QCOMPARE(desk.fims()->maximum(), 0xFFFF);
    QCOMPARE(desk.delay()->maximum(), 0xFFFF);

    // A new selection shows nothing of the former one.
    desk.editor->setSelectedLdb(kOtherLdb);
    QCOMPARE(desk.name()->text(), QString());
    QCOMPARE(desk.ui<QLabel>("settingsFirmwareIdLabel")->text(), QString());
    QVERIFY(!desk.save()->isEnabled());
}

void TestLdbSettingsEditor::onlyTheOwnRecordCounts_data()
{
    QTest::addColumn<QString>("asked");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("counts");
    const QByteArray own = SettingsBus::record(kLdb);
    const QByteArray other = SettingsBus::record(kOtherLdb);
    QTest::newRow("own") << kLdb << own << true;
    QTest::newRow("own, to a request of another") << kOtherLdb << own << false;
    QTest::newRow("another's, to the own request") << kLdb << other << false;
    QTest::newRow("too short") << kLdb << own.chopped(1) << false;
    QTest::newRow("no number in it")
        << kLdb << "0AXX" + own.mid(4, 4) + "G3" + own.mid(10) << false;
    QTest::newRow("refused") << kLdb << kNak << false;
}

void TestLdbSettingsEditor::onlyTheOwnRecordCounts()
{
    QFETCH(QString, asked);
    QFETCH(QByteArray, answer);
    QFETCH(bool, counts);
    Desk desk;
    desk.editor->setSelectedLdb(kLdb);
    desk.editor->processLdbSettings(asked, answer);
    QCOMPARE(desk.editor->edit().hasRecord(), counts);
    QVERIFY(desk.buttonsAre(counts));
    QCOMPARE(desk.name()->text(), counts ? QStringLiteral("LDB 0A") : QString());
}

void TestLdbSettingsEditor::answerOfTheLdbSelectedBefore()
{
    Desk desk;
    QVERIFY(desk.connectLink());
    desk.editor->setSelectedLdb(kLdb);
    desk.editor->requestSettings();
    desk.editor->setSelectedLdb(kOtherLdb);
    QVERIFY(desk.settle());
    QVERIFY(desk.bus.requests().contains("FE0A737201"));
    QVERIFY(!desk.save()->isEnabled());
    QCOMPARE(desk.name()->text(), QString());
    QCOMPARE(desk.ui<QLabel>("settingsFirmwareIdLabel")->text(), QString());

    // Nor does it touch the record that has come, or what was edited in it.
    QVERIFY(desk.select(kLdb));
    desk.editor->requestSettings();
    QVERIFY(desk.select(kOtherLdb));
    desk.fims()->setValue(33);
    QVERIFY(desk.settle());
    QCOMPARE(desk.name()->text(), QStringLiteral("LDB 0B"));
    QCOMPARE(desk.fims()->value(), 33);
}

void TestLdbSettingsEditor::buttonsFollowWhatIsAllowed()
{
    Desk desk;
    desk.editor->setSelectedLdb(kLdb);
    desk.editor->processLdbSettings(kLdb, SettingsBus::record(kLdb));
    for (const bool saveAllowed : {false, true}) {
        desk.editor->setSaveAllowed(saveAllowed);
        desk.editor->setUndoAllowed(!saveAllowed);
        QCOMPARE(desk.save()->isEnabled(), saveAllowed);
        QCOMPARE(desk.defaults()->isEnabled(), saveAllowed);
        QCOMPARE(desk.undo()->isEnabled(), !saveAllowed);
    }
}

void TestLdbSettingsEditor::changesAreMarkedInWords()
{
    Desk desk;
    desk.editor->setSelectedLdb(kLdb);
    desk.editor->processLdbSettings(kLdb, SettingsBus::record(kLdb));
    desk.name()->setText(QStringLiteral("Roof"));
    desk.fims()->setValue(300);
    desk.mute()->click();
    desk.detection()->click();
    QVERIFY(!desk.delay()->isEnabled());
    QCOMPARE(desk.delay()->text(), QStringLiteral("0"));
    QCOMPARE(desk.state(), QStringLiteral("4 unsaved change(s), in bold"));
    const QList<QPair<QWidget*, QString>> marks = {
        {desk.name(), QStringLiteral("Changed. The LDB has: LDB 0A")},
        {desk.fims(), QStringLiteral("Changed. The LDB has: 20")},
        {desk.mute(), QStringLiteral("Changed. The LDB has: off")},
        {desk.detection(), QStringLiteral("Changed. The LDB has: 10")},
        {desk.ui<QCheckBox>("settingsAmplifierDetectionCheckBox"), QString()},
    };
    for (const auto& [widget, words] : marks) {
        QCOMPARE(widget->accessibleDescription(), words);
        QCOMPARE(widget->toolTip(), words);
        QCOMPARE(widget->font().bold(), !words.isEmpty());
    }

    // A further record takes no edit away.
    desk.editor->processLdbSettings(kLdb,
                                    SettingsBus::record(kLdb).replace(kFlagsPosition, 2, "13"));
    QVERIFY(desk.ui<QCheckBox>("settingsAmplifierDetectionCheckBox")->isChecked());
    QCOMPARE(desk.name()->text(), QStringLiteral("Roof"));

    desk.undo()->click();
    QCOMPARE(desk.state(), QString());
    QCOMPARE(desk.name()->text(), QStringLiteral("LDB 0A"));
    QVERIFY(desk.delay()->isEnabled());
    QCOMPARE(desk.delay()->value(), 10);
    for (const auto& entry : marks) {
        QCOMPARE(entry.first->accessibleDescription(), QString());
        QVERIFY(!entry.first->font().bold());
    }
}

void TestLdbSettingsEditor::nameIsTypedAsFarAsItFits()
{
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->clear();
    QTest::keyClicks(desk.name(), QStringLiteral("12345678901234567"));
    QCOMPARE(desk.editor->edit().values().name, QStringLiteral("123456789012345"));
    // No validator stops what a program sets, nor more typed behind a 16 byte name of an LDB.
    desk.name()->setText(QStringLiteral("1234567890123456"));
    desk.save()->click();
    QCOMPARE(desk.lastMessage(), QStringLiteral("The name does not fit into 15 byte(s)."));
    QVERIFY(desk.saveStarted.isEmpty());
    QVERIFY(desk.settle());
    QCOMPARE(desk.bus.writes(), QList<QByteArray>());
}

void TestLdbSettingsEditor::saves_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QList<QByteArray>>("writes"); // in this order
    QTest::newRow("every field") << Change([](const Desk& desk) {
        desk.name()->setText(QStringLiteral("Roof"));
        desk.delay()->setValue(5);
        desk.fims()->setValue(200);
        desk.mute()->click();
        desk.ui<QCheckBox>("settingsGeneralFaultOutputCheckBox")->click();
        desk.ui<QCheckBox>("settingsEarthWireOpenDetectionCheckBox")->click();
        desk.ui<QCheckBox>("settingsStartInServiceModeCheckBox")->click();
        desk.ui<QCheckBox>("settingsAmplifierDetectionCheckBox")->click();
    }) << QList<QByteArray>{"FE0A736302" + hex("Roof"), "FE0A7363141E",
                            "FE0A7363170500",           "FE0A73631601",
                            "FE0A736303C800",           "FE0A737806"};
    QTest::newRow("detection off") << Change([](const Desk& desk) { desk.detection()->click(); })
                                   << QList<QByteArray>{"FE0A736302" + hex("LDB 0A"),
                                                        "FE0A73631403",
                                                        "FE0A7363170000",
                                                        "FE0A73631600",
                                                        "FE0A7363031400",
                                                        "FE0A737806"};
    QTest::newRow("the defaults") << Change([](const Desk& desk) {
        desk.fims()->setValue(7);
        desk.defaults()->click();
    }) << QList<QByteArray>{"FE0A736302",   "FE0A73631413",   "FE0A7363170A00",
                            "FE0A73631600", "FE0A7363030700", "FE0A737806"};
}

void TestLdbSettingsEditor::saves()
{
    QFETCH(Change, change);
    QFETCH(QList<QByteArray>, writes);
    Desk desk;
    QVERIFY(desk.prepare());
    desk.bus.clearRequests();
    change(desk);
    QVERIFY(desk.settle());
    QCOMPARE(desk.bus.writes(), QList<QByteArray>());

    desk.bus.clearRequests();
    desk.save()->click();
    QCOMPARE(desk.saveStarted.size(), 1);
    QVERIFY(desk.saveFinished.isEmpty());
    QVERIFY(desk.buttonsAre(false));
    WAIT_COMPARE(desk.lastMessage(), QStringLiteral("The settings of LDB 0A are saved."));
    QCOMPARE(withoutRepetitions(desk.bus.requests()), writes + QList<QByteArray>{"FE0A737201"});
    QCOMPARE(desk.saveFinished.size(), 1);
    QVERIFY(desk.buttonsAre(true));

    // The edits have ended: what the LDB has now is shown, and a later record as well.
    QCOMPARE(desk.state(), QString());
    desk.bus.settingsOf(kLdb) = SettingsBus::record(kOtherLdb).replace(0, 2, "0A");
    desk.editor->requestSettings();
    WAIT_COMPARE(desk.name()->text(), QStringLiteral("LDB 0B"));
}

void TestLdbSettingsEditor::tellsWhatWasNotWritten_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("reported"); // what the LDB has instead; empty: nothing is missing
    const struct
    {
        const char* name;
        const char* request;
        const char* reported;
    } commands[] = {
        {"Name", "736302", "Name (LDB 0A)"},
        {"fault output, detection and service mode switches", "736314",
         "Earth Leakage Detection (on)"},
        {"Open Detection Delay", "736317", "Open Detection Delay (10)"},
        {"Audio Mute", "736316", "Audio Mute (off)"},
        {"Number of FIM's", "736303", "Number of FIM's (20)"},
        {"storing", "737806", ""},
    };
    for (const auto& command : commands) {
        const QString name = QString::fromLatin1(command.name);
        QTest::addRow("%s refused", command.name)
            << QByteArray(command.request) << kNak << name + QStringLiteral(" (refused)")
            << QString::fromLatin1(command.reported);
    }
    QTest::newRow("Name unanswered")
        << QByteArray("736302") << kSilence << QStringLiteral("Name (no answer)")
        << QStringLiteral("Name (LDB 0A)");
    QTest::newRow("storing unanswered")
        << QByteArray("737806") << kSilence << QStringLiteral("storing (no answer)") << QString();
}

void TestLdbSettingsEditor::tellsWhatWasNotWritten()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, answer);
    QFETCH(QString, words);
    QFETCH(QString, reported);
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->setText(QStringLiteral("Roof"));
    desk.delay()->setValue(5);
    desk.fims()->setValue(7);
    desk.mute()->click();
    desk.ui<QCheckBox>("settingsEarthLeakageDetectionCheckBox")->click();
    desk.answerTo(kLdb, request, answer);
    desk.bus.clearRequests();
    desk.messages.clear();

    desk.save()->click();
    QVERIFY(!desk.save()->isEnabled());
    WAIT_COMPARE(desk.saveFinished.size(), 1);
    QVERIFY(desk.buttonsAre(true));
    const QString notWritten = QStringLiteral("LDB 0A: not written: ") + words;
    // The acknowledgement that follows a silence may be that of the silent command, so the next one
    // can count as unanswered too.
    QVERIFY2(desk.lastMessage().startsWith(notWritten), qPrintable(desk.lastMessage()));
    QVERIFY(answer.isEmpty() || desk.lastMessage() == notWritten);
    QCOMPARE(desk.messages.constLast().at(1).toInt(), 0); // stays
    // One that fails keeps none of the others back.
    const QList<QByteArray> expected = {"FE0A736302" + hex("Roof"), "FE0A73631401",
                                        "FE0A7363170500",           "FE0A73631601",
                                        "FE0A7363030700",           "FE0A737806"};
    QCOMPARE(withoutRepetitions(desk.bus.writes()), expected);

    // The record is read all the same, and what the LDB lacks is told and stays an edit.
    WAIT_COMPARE(desk.editor->edit().changeCount(), reported.isEmpty() ? 0 : 1);
    QVERIFY2(desk.lastMessage().startsWith(notWritten), qPrintable(desk.lastMessage()));
    const QString difference = QStringLiteral("; the LDB reports other values than written: ");
    QCOMPARE(desk.lastMessage().section(difference, 1), reported);
    QCOMPARE(desk.name()->text(), QStringLiteral("Roof"));
    QCOMPARE(desk.fims()->value(), 7);
}

void TestLdbSettingsEditor::tellsADifference()
{
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->setText(QStringLiteral("Roof"));
    desk.fims()->setValue(7);
    // Acknowledged, yet not taken over.
    desk.answerTo(kLdb, "736303", QByteArray("\x06"));
    desk.messages.clear();
    desk.save()->click();
    WAIT_COMPARE(desk.lastMessage(),
                 QStringLiteral("LDB 0A: the LDB reports other values than written: "
                                "Number of FIM's (20)"));
    QCOMPARE(desk.messages.constLast().at(1).toInt(), 0);
    // All was accepted, so the edits have ended; what is shown is what the LDB has.
    WAIT_COMPARE(desk.fims()->value(), 20);
    QCOMPARE(desk.state(), QString());
}

void TestLdbSettingsEditor::readsAgainAfterAReboot_data()
{
    QTest::addColumn<bool>("isBack");
    QTest::addColumn<QString>("message");
    QTest::newRow("back") << true << QStringLiteral("The settings of LDB 0A are saved.");
    QTest::newRow("still away") << false
                                << QStringLiteral("LDB 0A: the settings could not be read again");
}

void TestLdbSettingsEditor::readsAgainAfterAReboot()
{
    QFETCH(bool, isBack);
    QFETCH(QString, message);
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->setText(QStringLiteral("Roof"));
    desk.answerTo(kLdb, "737201", kSilence);
    desk.bus.clearRequests();
    desk.save()->click();
    WAIT_COMPARE(desk.saveFinished.size(), 1);
    QVERIFY(desk.settle());
    const QString saving = QStringLiteral("Saving the settings of LDB 0A");
    QCOMPARE(desk.lastMessage(), saving);

    emit desk.link.ldbStateUpdated(kLdb, LdbState::Booting);
    emit desk.link.ldbStateUpdated(kOtherLdb, LdbState::Quiescent);
    desk.bus.clearRequests();
    QVERIFY(desk.settle());
    QCOMPARE(withoutRepetitions(desk.bus.requests()), QList<QByteArray>{"FE0B737804"});
    QCOMPARE(desk.lastMessage(), saving);

    if (isBack) {
        desk.bus.setScript(nullptr);
    }
    emit desk.link.ldbStateUpdated(kLdb, LdbState::Quiescent);
    WAIT_COMPARE(desk.lastMessage(), message);
    QCOMPARE(desk.state(), isBack ? QString() : QStringLiteral("1 unsaved change(s), in bold"));
    QCOMPARE(desk.name()->text(), QStringLiteral("Roof"));
}

void TestLdbSettingsEditor::readsAgainWithoutNewsOfTheReboot()
{
    Desk desk;
    QVERIFY(desk.connectLink());
    LdbSettingsSaver saver(&desk.link);
    QSignalSpy saved(&saver, &LdbSettingsSaver::saved);
    auto* limit = saver.findChild<QTimer*>();
    desk.answerTo(kLdb, "737201", kSilence);
    saver.save(kLdb, *decodeLdbSettings(SettingsBus::record(kLdb)));
    WAIT_VERIFY(limit->isActive());
    QCOMPARE(limit->interval(), 15000);
    desk.bus.setScript(nullptr);
    QVERIFY(saved.isEmpty());
    limit->start(0); // the time is up
    WAIT_COMPARE(saved.size(), 1);
}

void TestLdbSettingsEditor::aLaterRecordEndsASaveThatWasNotReadBack()
{
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->setText(QStringLiteral("Roof"));
    desk.answerTo(kLdb, "737201", kSilence);
    desk.save()->click();
    WAIT_COMPARE(desk.saveFinished.size(), 1);
    QVERIFY(desk.settle());
    desk.bus.setScript(nullptr);
    desk.editor->requestSettings();
    WAIT_COMPARE(desk.editor->edit().record().name, QStringLiteral("Roof"));

    // Ticked and unticked again is no edit any more, so the next record fills it.
    desk.mute()->click();
    desk.mute()->click();
    desk.bus.settingsOf(kLdb).replace(kMutePosition, 2, "01");
    desk.editor->requestSettings();
    WAIT_VERIFY(desk.editor->edit().record().audioMute);
    QVERIFY(desk.mute()->isChecked());
}

void TestLdbSettingsEditor::isDestroyedWhileSaving()
{
    Desk desk;
    QVERIFY(desk.prepare());
    desk.bus.clearRequests();
    desk.name()->setText(QStringLiteral("Roof"));
    desk.save()->click();
    WAIT_VERIFY(!desk.bus.writes().isEmpty());
    desk.editor.reset();
    // What was begun is written to its end, and nobody is told.
    WAIT_COMPARE(withoutRepetitions(desk.bus.writes()).size(), 6);
    QVERIFY(desk.settle());
    QCOMPARE(desk.bus.writes().constLast(), QByteArray("FE0A737806"));
    QVERIFY(!desk.bus.requests().contains("FE0A737201"));
}

void TestLdbSettingsEditor::lostPortEndsTheSave()
{
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->setText(QStringLiteral("Roof"));
    desk.answerTo(kLdb, "736314", kSilence);
    desk.save()->click();
    WAIT_VERIFY(desk.bus.requests().contains("FE0A73631403"));
    desk.link.stop();
    WAIT_COMPARE(desk.saveFinished.size(), 1);
    QVERIFY2(desk.lastMessage().endsWith(
                 QStringLiteral("the connection ended before everything was written")),
             qPrintable(desk.lastMessage()));
    QVERIFY(desk.save()->isEnabled());
    QCOMPARE(desk.name()->text(), QStringLiteral("Roof"));
}

void TestLdbSettingsEditor::saveOfAnLdbNoLongerSelected()
{
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->setText(QStringLiteral("Roof"));
    desk.bus.clearRequests();
    desk.messages.clear();
    desk.save()->click();
    desk.editor->setSelectedLdb(kOtherLdb);
    desk.editor->requestSettings();
    WAIT_COMPARE(desk.lastMessage(), QStringLiteral("The settings of LDB 0A are saved."));
    WAIT_VERIFY(desk.save()->isEnabled());
    QCOMPARE(desk.name()->text(), QStringLiteral("LDB 0B"));
    QCOMPARE(desk.state(), QString());
    for (const QByteArray& write : desk.bus.writes()) {
        QVERIFY(write.startsWith("FE0A"));
    }
    QCOMPARE(desk.bus.settingsOf(kOtherLdb), SettingsBus::record(kOtherLdb));
}

QTEST_MAIN(TestLdbSettingsEditor)

#include "tst_ldbsettingseditor.moc"

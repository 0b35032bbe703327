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

/// What a user does to the values.
using Change = std::function<void(const Desk& desk)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class TestLdbSettingsSaving : public TestCase
{
    Q_OBJECT
private slots:
    void saves_data();
    void saves();
    void tellsWhatWasNotWritten_data();
    void tellsWhatWasNotWritten();
    void readsAgainAfterAReboot_data();
    void readsAgainAfterAReboot();
    void readsAgainWithoutNewsOfTheReboot();
    void lostPortEndsTheSave();
    void saveOfAnLdbNoLongerSelected();
};

void TestLdbSettingsSaving::saves_data()
{
    // "writes": in this order
    addColumns<Change, QList<QByteArray>>("change", "writes");
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

void TestLdbSettingsSaving::saves()
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
    QCOMPARE(desk.saves(true), 1);
    QVERIFY(desk.saves(false) == 0);
    QVERIFY(desk.buttonsAre(false));
    WAIT_COMPARE(desk.lastMessage(), QStringLiteral("The settings of LDB 0A are saved."));
    QCOMPARE(withoutRepetitions(desk.bus.commands()), writes + QList<QByteArray>{"FE0A737201"});
    QCOMPARE(desk.saves(false), 1);
    QVERIFY(desk.buttonsAre(true));

    // The edits have ended: what the LDB has now is shown, and a later record as well.
    QCOMPARE(desk.state(), QString());
    desk.bus.change(kLdb, "02", hex("LDB 0B"));
    desk.editor->requestSettings();
    WAIT_COMPARE(desk.name()->text(), QStringLiteral("LDB 0B"));
}

void TestLdbSettingsSaving::tellsWhatWasNotWritten_data()
{
    // "reported": what the LDB has instead; empty: nothing is missing
    addColumns<QByteArray, QByteArray, QString, QString>("request", "answer", "words", "reported");
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

void TestLdbSettingsSaving::tellsWhatWasNotWritten()
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
    desk.bus.answerTo(kLdb, request, answer);
    desk.bus.clearRequests();
    desk.notices.hush();

    desk.save()->click();
    QVERIFY(!desk.save()->isEnabled());
    WAIT_COMPARE(desk.saves(false), 1);
    QVERIFY(desk.buttonsAre(true));
    const QString notWritten = QStringLiteral("LDB 0A: not written: ") + words;
    // The acknowledgement that follows a silence may be that of the silent command, so the next one
    // can count as unanswered too.
    QVERIFY2(desk.lastMessage().startsWith(notWritten), qPrintable(desk.lastMessage()));
    QVERIFY(answer.isEmpty() || desk.lastMessage() == notWritten);
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

void TestLdbSettingsSaving::readsAgainAfterAReboot_data()
{
    addColumns<bool, QString>("isBack", "message");
    QTest::newRow("back") << true << QStringLiteral("The settings of LDB 0A are saved.");
    QTest::newRow("still away") << false
                                << QStringLiteral("LDB 0A: the settings could not be read again");
}

void TestLdbSettingsSaving::readsAgainAfterAReboot()
{
    QFETCH(bool, isBack);
    QFETCH(QString, message);
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->setText(QStringLiteral("Roof"));
    desk.bus.answerTo(kLdb, "737201", kSilence);
    desk.bus.clearRequests();
    desk.save()->click();
    WAIT_COMPARE(desk.saves(false), 1);
    QVERIFY(desk.settle());
    const QString saving = QStringLiteral("Saving the settings of LDB 0A");
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
    QCOMPARE(desk.state(), isBack ? QString() : QStringLiteral("1 unsaved change(s), in bold"));
    QCOMPARE(desk.name()->text(), QStringLiteral("Roof"));
}

void TestLdbSettingsSaving::readsAgainWithoutNewsOfTheReboot()
{
    Desk desk;
    QVERIFY(desk.connectLink());
    SettingsWriter writer(&desk.link, kLdb, *decodeLdbSettings(TestBus::record(kLdb)),
                          SettingsWriter::AudioMute::Written, SettingsWriter::ReadBack::Always);
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

void TestLdbSettingsSaving::lostPortEndsTheSave()
{
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->setText(QStringLiteral("Roof"));
    desk.bus.answerTo(kLdb, "736314", kSilence);
    desk.save()->click();
    WAIT_VERIFY(desk.bus.commands().contains("FE0A73631403"));
    desk.link.stop();
    WAIT_COMPARE(desk.saves(false), 1);
    QVERIFY2(desk.lastMessage().endsWith(
                 QStringLiteral("the connection ended before everything was written")),
             qPrintable(desk.lastMessage()));
    QVERIFY(desk.save()->isEnabled());
    QCOMPARE(desk.name()->text(), QStringLiteral("Roof"));
}

void TestLdbSettingsSaving::saveOfAnLdbNoLongerSelected()
{
    Desk desk;
    QVERIFY(desk.prepare());
    desk.name()->setText(QStringLiteral("Roof"));
    desk.bus.clearRequests();
    desk.notices.hush();
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
    QCOMPARE(desk.bus.settingsOf(kOtherLdb), TestBus::record(kOtherLdb));
}

REGISTER_TEST(TestLdbSettingsSaving, InVirtualTime<QApplication>)

#include "tst_ldbsettingssaving.moc"

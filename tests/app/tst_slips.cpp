#include "app/settingstable/settingstablewindow.h"
#include "app/transfer/settingstransfer.h"
#include "history/installation.h"
#include "importexport/ldbfields.h"
#include "importexport/settingscsv.h"
#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"

#include <map>
#include <random>

namespace {

const QStringList kSite{QStringLiteral("03"), QStringLiteral("04"), QStringLiteral("09")};
constexpr int kSeeds = 200;
constexpr qint64 kStep = 50; // ms between two looks of the user
constexpr qint64 kSecond = 1000;
/// Whatever was begun is over by then: a factory reset, the boot after it, the round behind it.
constexpr qint64 kDust = 120 * kSecond;
/// Shorter than real ones: what matters is what happens in them, and at their ends.
constexpr qint64 kFactoryReset = 15 * kSecond;
constexpr qint64 kFactoryResetOutcome = 8 * kSecond;
constexpr qint64 kContact = 5 * kSecond; ///< some rounds, and what they cause
/// A flag's byte has these; the rest is reserved.
constexpr int kFlagValues = 32;

enum class Work
{
    Save,
    Import,
    Export,
    FaultFinding
};
enum class Slip
{
    Escape,
    Close,
    Unplug,
    Kill
};
const char* const kWorkNames[] = {"save", "import", "export", "fault finding"};
const char* const kSlipNames[] = {"Escape", "closing", "unplugging", "kill"};

QByteArray digits(int value, int count = 2)
{
    return QByteArray::number(value, 16).toUpper().rightJustified(count, '0');
}

} // namespace

/// A hand slips in the middle of a save, an import, an export or a fault finding: afterwards each
/// LDB has what it had before or what was asked for, or the program has said that it has not.
/// SNIFFER_SLIPS gives another number of seeds, or "first-last".
class TestSlips : public LiveWindow
{
    Q_OBJECT
private slots:
    void nothingIsSilent_data();
    void nothingIsSilent();

private:
    void prepareBoards();
    void openWindow();
    void begin();
    void askToSave();
    QString settingsFile();
    void slip();
    void closeSomething();
    void slipAgain();
    void makeContact();
    void settle();
    void openPreview();
    static bool isNothingKept();
    void userLooks(bool isHasty);
    void step(bool isHasty);
    bool isWindowGone() const { return !m_window || !m_window->isVisible(); }
    QList<QDialog*> dialogs() const;
    void answerHastily(QDialog* dialog);
    static void answerByDefault(QDialog* dialog);
    void listen();
    QStringList silentFaults();
    bool isSaid(const QString& hexId) const;
    bool isSaidOfAll() const;
    bool isStored(const QString& hexId) const;
    int below(int end) { return static_cast<int>(m_chance() % static_cast<unsigned>(end)); }

    std::mt19937 m_chance;
    Work m_work = Work::Save;
    Slip m_slip = Slip::Escape;
    bool m_isSlipDue = false;
    bool m_isPreviewDue = true;
    bool m_isCut = false;
    bool m_isKilled = false;
    std::map<QString, LdbSettings> m_before;
    std::map<QString, LdbSettings> m_asked; ///< those that were asked to change
    QStringList m_said;
};

void TestSlips::nothingIsSilent_data()
{
    addColumns<int>("seed");
    const QStringList given = qEnvironmentVariable("SNIFFER_SLIPS").split(QLatin1Char('-'));
    const int first = given.size() > 1 ? given.first().toInt() : 1;
    const int last = given.last().isEmpty() ? kSeeds : given.last().toInt();
    for (int seed = first; seed <= last; ++seed) {
        QTest::addRow("seed %d", seed) << seed;
    }
}

/// LDBs as a site has them: some are muted on purpose, two may have the same name.
void TestSlips::prepareBoards()
{
    const bool hasTwins = below(5) == 0;
    for (const QString& hexId : kSite) {
        m_bus->change(hexId, "17", digits(below(40)) + "00");
        m_bus->change(hexId, "14", digits(below(kFlagValues)));
        m_bus->change(hexId, "16", digits(below(4) == 0 ? 1 : 0));
        if (hasTwins) {
            m_bus->change(hexId, "02", QByteArray("Hall").toHex().toUpper());
        }
        m_before[hexId] = inLdb(hexId);
    }
    m_bus->clearRequests();
}

void TestSlips::openWindow()
{
    m_window = std::make_unique<MainWindow>(m_bus->ports());
    m_window->setUpdatesEnabled(false); // nobody looks at its pixels
    m_window->show();
    button("startButton")->click();
}

void TestSlips::askToSave()
{
    const QString& hexId = kSite.first(); // the one that is ticked at first
    LdbSettings& asked = m_asked[hexId] = m_before[hexId];
    asked.numberOfFims = static_cast<quint16>(1 + below(200));
    child<QSpinBox>("settingsNumberOfFimsSpinBox")->setValue(asked.numberOfFims);
    const auto toggle = [this](const char* box, bool& value) {
        if (below(2) == 0) {
            value = !value;
            child<QCheckBox>(box)->setChecked(value);
        }
    };
    toggle("settingsAmplifierDetectionCheckBox", asked.amplifierDetection);
    toggle("settingsEarthWireOpenDetectionCheckBox", asked.earthWireOpenDetection);
    toggle("settingsAudioMuteCheckBox", asked.audioMute);
    if (below(2) == 0) {
        asked.name = QStringLiteral("Kitchen");
        child<QLineEdit>("settingsNameLineEdit")->setText(asked.name);
    }
    button("settingsSaveButton")->click();
}

QString TestSlips::settingsFile()
{
    QString text = settingscsv::fileHead();
    for (const QString& hexId : kSite) {
        LdbSettings& asked = m_asked[hexId] = m_before[hexId];
        asked.name = QStringLiteral("Room ") + hexId;
        asked.numberOfFims = static_cast<quint16>(1 + below(200));
        asked.openDetectionDelay = static_cast<quint16>(below(30));
        asked.earthWireOpenDetection = below(2) == 0;
        text += settingscsv::settingsLine(asked, QStringLiteral("LDB 1.07"));
    }
    m_sandbox->writeFile("in.csv", text.toLocal8Bit());
    return m_sandbox->path("in.csv");
}

void TestSlips::begin()
{
    auto* transfer = m_window->findChild<SettingsTransfer*>();
    switch (m_work) {
    case Work::Save:
        askToSave();
        break;
    case Work::Import:
        transfer->importFrom(settingsFile());
        break;
    case Work::Export:
        transfer->exportTo(m_sandbox->path("out.csv"));
        break;
    case Work::FaultFinding:
        button("fimTrackingButton")->click();
        break;
    }
}

QList<QDialog*> TestSlips::dialogs() const
{
    QList<QDialog*> open;
    for (auto* dialog : m_window->findChildren<QDialog*>()) {
        if (dialog->isVisible()) {
            open.append(dialog);
        }
    }
    return open;
}

void TestSlips::answerByDefault(QDialog* dialog)
{
    QTest::keyClick(dialog, Qt::Key_Return);
}

/// As one who wants to get on: what the work asks for is answered with yes.
void TestSlips::answerHastily(QDialog* dialog)
{
    const QString name = dialog->objectName();
    if (name == "closeBox" || name == "unsavedSettingsBox") {
        const auto buttons = dialog->findChildren<QPushButton*>();
        buttons.at(below(buttons.size()))->click();
    } else if (name == "formerSettingsBox") {
        const auto buttons = qobject_cast<QMessageBox*>(dialog)->buttons();
        buttons.at(below(2) * 2)->click(); // now or later
    } else if (name == "startConfirmationBox") {
        qobject_cast<QMessageBox*>(dialog)->button(QMessageBox::Yes)->click();
    } else if (name == "trackingModeBox") {
        const auto buttons = qobject_cast<QMessageBox*>(dialog)->buttons();
        buttons.at(below(2))->click();
    } else if (name == "disconnectSecondaryPortDialog" || name == "writePreview") {
        dialog->accept();
    } else {
        answerByDefault(dialog);
    }
}

/// Of an import that the table shows, once.
void TestSlips::openPreview()
{
    const auto* table = m_window->findChild<SettingsTableWindow*>();
    auto* write = table->findChild<QAction*>("write");
    if (m_isPreviewDue && table->isVisible() && write->isEnabled()) {
        m_isPreviewDue = false;
        write->trigger();
    }
}

void TestSlips::userLooks(bool isHasty)
{
    if (isWindowGone()) {
        return;
    }
    listen();
    const QList<QDialog*> open = dialogs();
    if (open.isEmpty()) {
        if (isHasty && m_work == Work::Import && below(4) == 0) {
            openPreview();
        }
        return;
    }
    QDialog* dialog = open.last();
    if (!isHasty) {
        answerByDefault(dialog);
    } else if (m_isSlipDue && m_slip == Slip::Escape) {
        m_isSlipDue = false;
        QTest::keyClick(dialog, Qt::Key_Escape);
    } else if (below(4) == 0) { // not at once
        answerHastily(dialog);
    }
}

void TestSlips::step(bool isHasty)
{
    VirtualTime::current()->advance(kStep);
    userLooks(isHasty);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TestSlips::closeSomething()
{
    QList<QWidget*> windows{m_window.get()};
    if (FimTracking* run = tracking()) {
        windows.append(run);
    }
    for (QDialog* dialog : dialogs()) {
        windows.append(dialog);
    }
    windows.at(below(windows.size()))->close();
}

void TestSlips::slip()
{
    switch (m_slip) {
    case Slip::Escape:
        m_isSlipDue = true; // in the next box
        break;
    case Slip::Close:
        closeSomething();
        break;
    case Slip::Unplug:
        m_isCut = true;
        m_bus->cut();
        break;
    case Slip::Kill:
        m_isKilled = true;
        m_window.reset();
        break;
    }
}

/// The program meets the LDBs anew, and dies once more while it puts right what it finds.
void TestSlips::slipAgain()
{
    makeContact();
    for (int looks = below(160); looks > 0; --looks) {
        step(true);
    }
    m_isKilled = true;
    m_window.reset();
}

void TestSlips::makeContact()
{
    if (m_isCut) {
        m_bus->restore();
        m_isCut = false;
    }
    if (isWindowGone()) {
        m_window.reset();
        openWindow();
    } else if (!button("startButton")->isChecked()) {
        button("startButton")->click();
    }
    waitUntil([this] { return button("reloadDevicesButton")->isEnabled(); });
}

/// All that was begun comes to its end, then the program meets the LDBs anew.
void TestSlips::settle()
{
    for (qint64 gone = below(5000); gone > 0; gone -= kStep) {
        step(true);
    }
    m_isSlipDue = false;
    if (m_work == Work::FaultFinding && below(2) == 0) {
        slipAgain();
    }
    if (!isWindowGone()) {
        for (int looks = 0; looks < 20; ++looks) {
            step(false);
        }
        if (FimTracking* run = tracking()) {
            run->close();
        }
        for (int looks = 0; looks < 40; ++looks) {
            step(false);
        }
        if (button("startButton")->isChecked()) {
            button("startButton")->click();
        }
    }
    makeContact();
    qint64 quiet = 0;
    for (qint64 gone = 0; gone < kDust && quiet < kContact; gone += kStep) {
        step(false);
        const bool isQuiet = dialogs().isEmpty() && button("reloadDevicesButton")->isEnabled() &&
                             (gone % kSecond != 0 || isNothingKept());
        quiet = isQuiet ? quiet + kStep : 0;
    }
}

bool TestSlips::isNothingKept()
{
    const Installations installations;
    const auto all = installations.read().installations;
    return std::all_of(all.begin(), all.end(), [&](const Installation& installation) {
        return installations.keptLdbsOf(installation.id).all().empty();
    });
}

void TestSlips::listen()
{
    QStringList texts{message(), child<QLabel>("settingsStateLabel")->text()};
    if (const Text edits = m_window->findChild<SettingsTableWindow*>()->underWay()) {
        texts.append(edits()); // the table shows them
    }
    for (const auto* box : m_window->findChildren<MessageBox*>()) {
        texts.append(box->text() + QLatin1Char('\n') + box->informativeText());
    }
    for (const QString& text : qAsConst(texts)) {
        if (!text.isEmpty() && !m_said.contains(text)) {
            m_said.append(text);
        }
    }
}

bool TestSlips::isSaid(const QString& hexId) const
{
    const QString ldb = QStringLiteral("LDB ") + hexId;
    const QString id = QStringLiteral("ID %1 (").arg(hexId.toInt(nullptr, 16));
    return std::any_of(m_said.begin(), m_said.end(), [&](const QString& text) {
        const bool isOfIt = text.contains(ldb) || text.contains(id);
        return isOfIt && !text.startsWith("Saving") && !text.contains("are saved");
    });
}

/// That what was asked for has not been done in whichever LDB.
bool TestSlips::isSaidOfAll() const
{
    return std::any_of(m_said.begin(), m_said.end(), [](const QString& text) {
        return text.contains("Settings are being saved") || text == "Nothing was imported." ||
               text.contains("that are not written") || text.contains("An import is under way") ||
               text.startsWith("Importing LDB settings failed") ||
               text.startsWith("Importing LDB settings was stopped");
    });
}

/// Whether what was written last is stored; without that an LDB loses it at its next reset.
/// Nothing can be done for a save or an import that was killed.
bool TestSlips::isStored(const QString& hexId) const
{
    const QByteArray start = "FE" + hexId.toLatin1();
    const QList<QByteArray> writes = m_bus->writes();
    const auto last = std::find_if(writes.crbegin(), writes.crend(),
                                   [&](const QByteArray& body) { return body.startsWith(start); });
    return last == writes.crend() || last->startsWith(start + "737806") ||
           m_work != Work::FaultFinding;
}

QStringList TestSlips::silentFaults()
{
    QStringList silent;
    const bool isSaidToBeDone = m_said.contains("The settings of LDB 03 are saved.") ||
                                m_said.contains("Importing LDB settings finished!\n");
    for (const QString& hexId : kSite) {
        const LdbSettings& before = m_before[hexId];
        const LdbSettings now = inLdb(hexId);
        const auto asked = m_asked.find(hexId);
        for (const LdbField field : kLdbFields) {
            const bool isBefore = isSameField(field, before, now);
            const bool isAsked = asked != m_asked.end() && isSameField(field, asked->second, now);
            const bool isMissing = asked != m_asked.end() && !isAsked && isSaidToBeDone;
            if ((!isBefore && !isAsked && !isSaid(hexId)) || isMissing) {
                silent.append(QStringLiteral("LDB %1, %2: before %3, now %4%5")
                                  .arg(hexId, fieldName(field), fieldValue(field, before),
                                       fieldValue(field, now),
                                       isMissing ? QStringLiteral(", said to be done") : ""));
            }
        }
        const bool isIncomplete =
            asked != m_asked.end() && !differingFields(asked->second, now).empty();
        if (isIncomplete && !m_isKilled && !isSaid(hexId) && !isSaidOfAll()) {
            silent.append(QStringLiteral("LDB %1: not all was written").arg(hexId));
        }
        if (!isStored(hexId)) {
            silent.append(QStringLiteral("LDB %1: written, and not stored").arg(hexId));
        }
    }
    return silent;
}

void TestSlips::nothingIsSilent()
{
    QFETCH(int, seed);
    const ExpectWarning port("^Port ", ExpectWarning::Need::MayCome);
    m_chance.seed(static_cast<unsigned>(seed));
    m_work = static_cast<Work>(below(4));
    m_slip = static_cast<Slip>(below(4));
    m_isSlipDue = m_isCut = m_isKilled = false;
    m_isPreviewDue = true;
    m_asked.clear();
    m_said.clear();
    LdbTiming timing = TestBus::usualTiming();
    timing.factoryReset = kFactoryReset;
    timing.factoryResetOutcome = kFactoryResetOutcome;
    m_bus = std::make_unique<TestBus>(kSite, LineOptions(), nullptr, timing);
    userSettings().setValue(constants::kComPortKey, m_bus->portName());
    prepareBoards();
    openWindow();
    WAIT_VERIFY(button("settingsSaveButton")->isEnabled());

    constexpr int kLongest[] = {2500, 6000, 2500, 5000};
    constexpr int kMuted =
        35000; // ms after the start: from here on the run counts, and the LDB is muted
    // Half of the runs are disturbed at their first steps, the others anywhere.
    const bool isLate = m_work == Work::FaultFinding && below(2) == 0;
    const int from = isLate && below(2) == 0 ? kMuted : 0;
    const int moment = from + below(isLate ? kMuted : kLongest[static_cast<int>(m_work)]);
    begin();
    for (qint64 gone = 0; gone + kStep <= moment; gone += kStep) {
        step(true);
    }
    VirtualTime::current()->advance(moment % kStep);
    slip();
    settle();

    const QStringList silent = silentFaults();
    const QString what = QStringLiteral("seed %1: %2 after %3 ms of %4")
                             .arg(QString::number(seed), kSlipNames[static_cast<int>(m_slip)],
                                  QString::number(moment), kWorkNames[static_cast<int>(m_work)]);
    QVERIFY2(silent.isEmpty(),
             qPrintable(what + "\n  " + silent.join("\n  ") + "\nsaid:\n  " + m_said.join("\n  ")));
    QVERIFY2(isNothingKept(), qPrintable(what + "\nstill kept; said:\n  " + m_said.join("\n  ")));
}

REGISTER_TEST(TestSlips, InVirtualTime<QApplication>)

#include "tst_slips.moc"

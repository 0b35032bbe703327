#include "docs/screenshots/scenes.h"

#include "app/installation/installationform.h"
#include "app/notices/messagebox.h"
#include "app/preferences/settingsmenu.h"
#include "app/transfer/settingstransfer.h"
#include "docs/screenshots/trackingscene.h"

#include <QAbstractScrollArea>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolBox>

#include <cstdio>

namespace {

const QString kSite = QStringLiteral("default-site");
constexpr int kRoundSeconds = 15; // more than a round over the site's LDBs takes
constexpr int kPlotSeconds = 60;  // until the plot has something to show
constexpr int kTransferSeconds = 60;
constexpr int kLossSeconds = 60;

void showTab(Stage& stage, const QString& tab)
{
    stage.child<QTabWidget>(QStringLiteral("controlTabs"))
        ->setCurrentWidget(stage.child<QWidget>(tab));
}

QWidget* leftPanel(Stage& stage)
{
    return stage.child<QWidget>(QStringLiteral("leftPanel"));
}

/// A picture of the main window at a moment in which this lamp, which blinks, is lit.
void shootLit(Stage& stage, const QString& lamp, const QString& name)
{
    const auto* label = stage.child<QLabel>(lamp);
    Stage::waitFor(
        "the lamp",
        [label] {
            const QImage lit = label->pixmap(Qt::ReturnByValue).toImage();
            return lit.pixelColor(lit.rect().center()).saturation() > 0;
        },
        kRoundSeconds);
    stage.shoot(&stage.window(), name);
}

void shootScan(Stage& stage)
{
    constexpr int kHalfway = 130;
    const auto* progress = stage.child<QProgressBar>(QStringLiteral("progressBar"));
    stage.click(QStringLiteral("startButton"));
    Stage::waitFor(
        "the scan", [progress] { return progress->value() >= kHalfway; }, kLossSeconds);
    stage.shoot(&stage.window(), QStringLiteral("scan"));
    Stage::waitFor(
        "the end of the scan", [progress] { return !progress->isVisible(); }, kLossSeconds);
    Stage::pass(kRoundSeconds);
}

void shootFaults(Stage& stage)
{
    for (const char* command : {"open 03 after 3", "short 07 after 5", "dc-leakage 2F after 4",
                                "earth-leakage E9 after 2", "mode 0A check-settings"}) {
        stage.simulator().send(QString::fromLatin1(command));
    }
    Stage::pass(2 * kRoundSeconds);
    shootLit(stage, QStringLiteral("lampCLabel"), QStringLiteral("faults"));
    stage.child<QToolBox>(QStringLiteral("ldbActionToolBox"))
        ->setCurrentWidget(stage.child<QWidget>(QStringLiteral("earthFaultPage")));
    Stage::pass(1);
    stage.shoot(leftPanel(stage), QStringLiteral("lamp-page"));
}

void shootFilter(Stage& stage)
{
    auto* field = stage.child<QLineEdit>(QStringLiteral("overviewFilterEdit"));
    field->setText(QStringLiteral("tank"));
    Stage::pass(1);
    stage.shoot(stage.child<QWidget>(QStringLiteral("overviewPanel")), QStringLiteral("filter"));
    field->clear();
}

void shootLog(Stage& stage)
{
    showTab(stage, QStringLiteral("logTab"));
    stage.child<QSpinBox>(QStringLiteral("logSpeedSpinBox"))->setValue(10);
    stage.click(QStringLiteral("logStartStopButton"));
    Stage::pass(kRoundSeconds);
    stage.shoot(leftPanel(stage), QStringLiteral("log-running"));
    stage.click(QStringLiteral("logStartStopButton"));
    showTab(stage, QStringLiteral("statusTab"));
}

void shootDialogs(Stage& stage)
{
    stage.click(QStringLiteral("settingsMenuButton"));
    auto* menu = stage.waitForWindow<SettingsMenu>();
    // The port of the simulated installation is a temporary file's name.
    stage.child<QComboBox>(QStringLiteral("portComboBox"), menu)
        ->setEditText(QStringLiteral("ttyUSB0"));
    stage.shoot(menu, QStringLiteral("settings-dialog"));
    AboutDialog about(menu);
    about.show();
    Stage::pass(1);
    stage.shoot(&about, QStringLiteral("about"));
    about.close();
    stage.click(QStringLiteral("installationButton"), menu);
    auto* form = stage.waitForWindow<InstallationForm>();
    stage.child<QLineEdit>(QStringLiteral("installationNameEdit"), form)
        ->setText(QStringLiteral("Town hall"));
    stage.child<QLineEdit>(QStringLiteral("installationPlaceEdit"), form)
        ->setText(QStringLiteral("Leuven"));
    stage.shoot(form, QStringLiteral("installation-form"));
    form->close();
}

void shootEvidence(Stage& stage)
{
    stage.child<QAction>(QStringLiteral("takeHomeAction"))->trigger();
    auto* form = stage.waitForWindow<QDialog>(QStringLiteral("evidenceForm"));
    Stage::pass(1); // it looks when the visit began
    stage.shoot(form, QStringLiteral("evidence-form"));
    form->close();
}

void shootEvents(Stage& stage)
{
    stage.click(QStringLiteral("eventsButton"));
    Stage::pass(kRoundSeconds);
    stage.shoot(&stage.window(), QStringLiteral("events"));
    stage.click(QStringLiteral("eventsButton"));
}

/// The moment of the event before, as a moment is looked for after a fault.
void shootPast(Stage& stage)
{
    constexpr int kBackSteps = 3; // of ten seconds
    auto* bar = stage.child<QWidget>(QStringLiteral("timeBar"));
    bar->setFocus();
    for (int step = 0; step < kBackSteps; ++step) {
        QKeyEvent back(QEvent::KeyPress, Qt::Key_Left, Qt::NoModifier);
        QCoreApplication::sendEvent(bar, &back);
        Stage::pass(1);
    }
    stage.shoot(&stage.window(), QStringLiteral("look-back"));
    QKeyEvent live(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &live);
    Stage::pass(1);
}

void shootReport(Stage& stage)
{
    stage.child<QAction>(QStringLiteral("reportAction"))->trigger();
    auto* report = stage.waitForWindow<QWidget>(QStringLiteral("reportWindow"));
    stage.child<QLineEdit>(QStringLiteral("reportEngineerEdit"), report)
        ->setText(QStringLiteral("A. Weber"));
    const auto* save = stage.child<QPushButton>(QStringLiteral("reportPdfButton"), report);
    Stage::waitFor(
        "the report", [save] { return save->isEnabled(); }, 20);
    constexpr int kPastHead = 270; // which names the port of the day
    stage.child<QAbstractScrollArea>(QStringLiteral("reportPreview"), report)
        ->verticalScrollBar()
        ->setValue(kPastHead);
    Stage::pass(2); // its pages are drawn
    stage.shoot(report, QStringLiteral("report-window"));
    report->close();
}

void shootLanguages(Stage& stage)
{
    for (const QString& language :
         {QStringLiteral("Nederlands"), QStringLiteral("Francais"), QStringLiteral("English")}) {
        stage.click(QStringLiteral("settingsMenuButton"));
        auto* menu = stage.waitForWindow<SettingsMenu>();
        stage.child<QComboBox>(QStringLiteral("languageComboBox"), menu)->setCurrentText(language);
        stage.click(QStringLiteral("okButton"), menu);
        Stage::pass(kRoundSeconds);
        shootLit(stage, QStringLiteral("lampCLabel"),
                 QStringLiteral("language-") + language.toLower());
    }
}

void overview(const Stage::Options& options)
{
    Stage stage(options, kSite);
    shootScan(stage);
    Stage::pass(kPlotSeconds);
    shootLit(stage, QStringLiteral("lampBLabel"), QStringLiteral("main-window"));
    shootFaults(stage);
    shootFilter(stage);
    shootLog(stage);
    shootDialogs(stage);
    shootEvidence(stage);
    shootEvents(stage);
    shootPast(stage);
    shootReport(stage);
    shootLanguages(stage);
}

void editing(const Stage::Options& options)
{
    Stage stage(options, kSite);
    stage.start();
    Stage::pass(kRoundSeconds);
    stage.select(QStringLiteral("0A"));
    Stage::pass(kRoundSeconds);
    showTab(stage, QStringLiteral("ldbSettingsTab"));
    stage.shoot(leftPanel(stage), QStringLiteral("settings-clean"));
    stage.child<QLineEdit>(QStringLiteral("settingsNameLineEdit"))
        ->setText(QStringLiteral("Control room E"));
    stage.child<QSpinBox>(QStringLiteral("settingsNumberOfFimsSpinBox"))->setValue(7);
    stage.child<QCheckBox>(QStringLiteral("settingsEarthWireOpenDetectionCheckBox"))->click();
    stage.shoot(leftPanel(stage), QStringLiteral("settings-edited"));
    stage.click(QStringLiteral("settingsSaveButton"));
    const auto* bar = stage.child<QStatusBar>(QStringLiteral("statusBar"));
    Stage::waitFor(
        "the end of the saving",
        [bar] { return bar->currentMessage().contains(QLatin1String("saved")); }, kTransferSeconds);
    stage.shoot(&stage.window(), QStringLiteral("settings-saved"));
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("%s cannot be read", qPrintable(path));
    }
    return file.readAll();
}

void write(const QByteArray& content, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("%s cannot be written", qPrintable(path));
    }
}

/// The file with its first column as the import reads it.
void writeWithHexIds(const QByteArray& exported, const QString& path)
{
    QByteArray converted;
    const QList<QByteArray> lines = exported.split('\n');
    for (QByteArray line : lines) {
        const int end = line.indexOf(';');
        bool isNumber = false;
        const int address = line.left(end).toInt(&isNumber);
        if (isNumber) {
            line.replace(0, end, QByteArray::number(address, 16).toUpper());
        }
        converted += line + '\n';
    }
    converted.chop(1);
    write(converted, path);
}

void shootBox(Stage& stage, const QString& name)
{
    auto* box = stage.waitForWindow<MessageBox>({}, kTransferSeconds);
    stage.shoot(box, name);
    std::printf("%s: %s | %s\n", qPrintable(name), qPrintable(box->text()),
                qPrintable(box->informativeText()));
    box->accept();
    Stage::pass(1);
}

/// What an import would change, in the table and in the preview, and the yes to it.
void confirmImport(Stage& stage, const QString& name)
{
    auto* table =
        stage.waitForWindow<QWidget>(QStringLiteral("settingsTableWindow"), kTransferSeconds);
    Stage::pass(kTransferSeconds);
    stage.shoot(table, QStringLiteral("%1-table").arg(name));
    table->findChild<QAction*>(QStringLiteral("write"))->trigger();
    auto* preview = stage.waitForWindow<QDialog>(QStringLiteral("writePreview"), kTransferSeconds);
    stage.shoot(preview, name);
    preview->findChild<QPushButton*>(QStringLiteral("previewWriteButton"))->click();
    Stage::pass(1);
}

void transfer(const Stage::Options& options)
{
    Stage stage(options, kSite);
    stage.start();
    Stage::pass(kRoundSeconds);
    auto* work = stage.window().findChild<SettingsTransfer*>();
    const QString exported = stage.path(QStringLiteral("site.csv"));
    work->exportTo(exported);
    shootBox(stage, QStringLiteral("export-finished"));
    const QByteArray content = contentOf(exported);
    std::printf("%s\n", content.constData());
    // Something to write for an LDB that is there, however the IDs are read.
    write(QByteArray(content).replace("Boiler house", "Boiler hall"), exported);
    work->importFrom(exported);
    confirmImport(stage, QStringLiteral("import-preview"));
    shootBox(stage, QStringLiteral("import-failed"));
    auto* table = stage.waitForWindow<QWidget>(QStringLiteral("settingsTableWindow"), 1);
    stage.shoot(table, QStringLiteral("settings-table-written"));
    // The lines of LDBs that are not there: the next import does not begin beside them.
    table->findChild<QPushButton*>(QStringLiteral("barCloseButton"))->click();
    const QString corrected = stage.path(QStringLiteral("site-hex.csv"));
    writeWithHexIds(content, corrected);
    work->importFrom(corrected);
    confirmImport(stage, QStringLiteral("import-preview-hexadecimal"));
    stage.shoot(&stage.window(), QStringLiteral("import-running"));
    shootBox(stage, QStringLiteral("import-finished"));
}

void losses(const Stage::Options& options)
{
    Stage stage(options, kSite);
    stage.start();
    Stage::pass(kRoundSeconds);
    stage.simulator().send(QStringLiteral("vanish E9"));
    auto* lossBox = stage.waitForWindow<MessageBox>(QStringLiteral("lossBox"), kLossSeconds);
    stage.shoot(lossBox, QStringLiteral("ldb-lost"));
    lossBox->accept();
    Stage::pass(1);
    stage.shoot(&stage.window(), QStringLiteral("ldb-lost-window"));
    stage.simulator().send(QStringLiteral("cut"));
    auto* portBox =
        stage.waitForWindow<MessageBox>(QStringLiteral("communicationErrorBox"), kLossSeconds);
    std::printf("%s | %s\n", qPrintable(portBox->text()), qPrintable(portBox->informativeText()));
    portBox->accept();
    Stage::pass(1);
    stage.shoot(&stage.window(), QStringLiteral("port-failed-window"));
}

/// Names the installation in force, and makes another one.
void nameInstallations(Stage& stage)
{
    stage.click(QStringLiteral("settingsMenuButton"));
    auto* menu = stage.waitForWindow<SettingsMenu>();
    stage.click(QStringLiteral("installationButton"), menu);
    auto* form = stage.waitForWindow<InstallationForm>();
    auto* name = stage.child<QLineEdit>(QStringLiteral("installationNameEdit"), form);
    name->setText(QStringLiteral("Town hall"));
    stage.click(QStringLiteral("addInstallationButton"), form);
    name->setText(QStringLiteral("School"));
    form->close();
    menu->close();
}

void sites(const Stage::Options& options)
{
    Stage stage(options, kSite);
    stage.start();
    Stage::pass(kRoundSeconds);
    nameInstallations(stage);
    stage.click(QStringLiteral("startButton"));
    for (const char* hexId : {"03", "07", "0A", "1C", "2F"}) {
        stage.simulator().send(QStringLiteral("vanish %1").arg(QLatin1String(hexId)));
    }
    Stage::pass(1);
    stage.click(QStringLiteral("startButton"));
    auto* question =
        stage.waitForWindow<QDialog>(QStringLiteral("installationQuestion"), kLossSeconds);
    // The port of the simulated installation is a temporary file's name.
    auto* text = stage.child<QLabel>(QStringLiteral("installationQuestionLabel"), question);
    text->setText(text->text().replace(stage.portName(), QStringLiteral("ttyUSB0")));
    stage.shoot(question, QStringLiteral("another-installation"));
    question->close();
}

void tracking(const Stage::Options& options, const QStringList& words)
{
    const QString mode = words.value(2);
    Stage stage(options, words.value(1));
    TrackingScene(stage,
                  mode == QLatin1String("commissioning") ? TrackingMode::Commissioning
                                                         : TrackingMode::FaultFinding,
                  words.value(3))
        .run();
}

} // namespace

bool playScene(const Stage::Options& options, const QStringList& words)
{
    const QString name = words.value(0);
    if (name == QLatin1String("overview")) {
        overview(options);
    } else if (name == QLatin1String("editing")) {
        editing(options);
    } else if (name == QLatin1String("transfer")) {
        transfer(options);
    } else if (name == QLatin1String("losses")) {
        losses(options);
    } else if (name == QLatin1String("sites")) {
        sites(options);
    } else if (name == QLatin1String("tracking") && words.size() >= 3) {
        tracking(options, words);
    } else {
        return false;
    }
    return true;
}

#include "app/applicationsettings.h"
#include "app/filedialog.h"
#include "app/logcontrols.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"
#include "views/filelogger.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

QList<QStringList> record(const QString& hexId, const QString& time)
{
    QList<QStringList> rows;
    for (int row = 0; row < 10; ++row) {
        rows.append({hexId, QString::number(row)});
    }
    rows.append({QStringLiteral("2026-11-14: ") + time, QString()});
    return rows;
}

/// The logging group on a window of its own.
struct Group
{
    Group()
    {
        interval.setRange(0, 86400);
        interval.setValue(1);
        startStop.setCheckable(true);
        auto* layout = new QVBoxLayout(&window);
        for (QWidget* widget : std::initializer_list<QWidget*>{&path, &browse, &interval, &selected,
                                                               &all, &startStop}) {
            layout->addWidget(widget);
        }
        controls = new LogControls({&path, &browse, &interval, &selected, &all, &startStop},
                                   &logger, &window);
        QObject::connect(&startStop, &QPushButton::toggled, controls, &LogControls::switchLogging);
    }
    bool editable() const
    {
        return path.isEnabled() && browse.isEnabled() && interval.isEnabled() &&
               selected.isEnabled() && all.isEnabled();
    }
    bool anyEditable() const
    {
        return path.isEnabled() || browse.isEnabled() || interval.isEnabled() ||
               selected.isEnabled() || all.isEnabled();
    }

    QWidget window;
    QLineEdit path;
    QPushButton browse;
    QSpinBox interval;
    QRadioButton selected;
    QRadioButton all;
    QPushButton startStop;
    FileLogger logger;
    LogControls* controls = nullptr;
};

} // namespace

class TestLogControls : public TestCase
{
    Q_OBJECT
private slots:
    void startAndStop();
    void refusedStartFlipsBack();
    void failureDuringRun();
    void mode_data();
    void mode();
    void remembers();
    // Before a folder is chosen, which would be remembered.
    void dialogsOpenOutsideTheWorkingDirectory();
    void browseFillsPath();
};

void TestLogControls::startAndStop()
{
    const Sandbox sandbox;
    Group group;
    const QSignalSpy changed(group.controls, &LogControls::loggingChanged);
    group.path.setText(sandbox.path(QStringLiteral("log.csv")));
    group.interval.setValue(5);

    group.startStop.click();
    QCOMPARE(group.startStop.text(), QStringLiteral("Stop"));
    QVERIFY(!group.anyEditable());
    group.logger.processData(QStringLiteral("01"),
                             record(QStringLiteral("01"), QStringLiteral("10:00:00")));
    group.logger.processData(QStringLiteral("01"),
                             record(QStringLiteral("01"), QStringLiteral("10:00:04")));
    group.logger.processData(QStringLiteral("01"),
                             record(QStringLiteral("01"), QStringLiteral("10:00:05")));

    group.startStop.click();
    QCOMPARE(group.startStop.text(), QStringLiteral("Start"));
    QVERIFY(group.editable());
    QCOMPARE(changed, (QList<QList<QVariant>>{{true}, {false}}));
    const QByteArray log = Sandbox::readFile(group.path.text());
    QCOMPARE(log.count("10:00:0"), 2); // the interval reached the logger
    QVERIFY(!log.contains("10:00:04"));
}

void TestLogControls::refusedStartFlipsBack()
{
    const Sandbox sandbox;
    Group group;
    const QSignalSpy failed(group.controls, &LogControls::startFailed);
    group.path.setText(sandbox.path(QStringLiteral("no/such/folder/log.csv")));
    const ExpectWarning warning("cannot log to");
    group.startStop.click();
    QVERIFY(!group.startStop.isChecked());
    QCOMPARE(group.startStop.text(), QStringLiteral("Start"));
    QVERIFY(group.editable());
    QCOMPARE(failed.size(), 1);
    QVERIFY(!failed.at(0).at(1).toString().isEmpty());
}

void TestLogControls::failureDuringRun()
{
    const Sandbox sandbox;
    Group group;
    const QSignalSpy failed(group.controls, &LogControls::loggingFailed);
    group.path.setText(QStringLiteral("/dev/full"));
    const ExpectWarning warning("logging to \"?/dev/full\"? stopped");
    group.startStop.click();
    QVERIFY(group.startStop.isChecked());
    group.logger.processData(QStringLiteral("01"),
                             record(QStringLiteral("01"), QStringLiteral("10:00:00")));
    QVERIFY(!group.startStop.isChecked());
    QVERIFY(group.editable());
    QCOMPARE(failed.size(), 1);
}

void TestLogControls::mode_data()
{
    QTest::addColumn<bool>("all");
    QTest::addColumn<int>("lines");
    QTest::newRow("all") << true << 2;
    QTest::newRow("selected") << false << 1;
}

void TestLogControls::mode()
{
    QFETCH(bool, all);
    const Sandbox sandbox;
    Group group;
    group.path.setText(sandbox.path(QStringLiteral("log.csv")));
    group.logger.setSelectedHexId(QStringLiteral("02"));
    group.controls->setLoggingAll(all);
    group.startStop.click();
    for (const QString& hexId : {QStringLiteral("01"), QStringLiteral("02")}) {
        group.logger.processData(hexId, record(hexId, QStringLiteral("10:00:00")));
    }
    group.startStop.click();
    QTEST(Sandbox::readFile(group.path.text()).count("10:00:00"), "lines");
}

void TestLogControls::remembers()
{
    const Sandbox sandbox;
    const QString path = sandbox.path(QStringLiteral("log.csv"));
    {
        Group group;
        QVERIFY(group.all.isChecked());
        group.path.setText(path);
        group.interval.setValue(3600);
        group.selected.setChecked(true);
        group.controls->save();
    }
    QCOMPARE(applicationSettings().value(QStringLiteral("log/interval")).toInt(), 3600);
    Group group;
    QCOMPARE(group.path.text(), path);
    QCOMPARE(group.interval.value(), 3600);
    QVERIFY(group.selected.isChecked());
    // The mode remembered is in force before anything is clicked.
    group.logger.setSelectedHexId(QStringLiteral("02"));
    group.startStop.click();
    group.logger.processData(QStringLiteral("01"),
                             record(QStringLiteral("01"), QStringLiteral("10:00:00")));
    group.startStop.click();
    QVERIFY(Sandbox::readFile(path).isEmpty());
}

void TestLogControls::dialogsOpenOutsideTheWorkingDirectory()
{
    const Sandbox sandbox; // is the working directory
    QWidget window;
    filedialog::load(&window, QStringLiteral("Select File"), [](const QString&) {});
    auto* dialog = window.findChild<QFileDialog*>();
    QVERIFY(dialog != nullptr);
    QVERIFY2(dialog->directory() != QDir::current(), qPrintable(dialog->directory().path()));
}

void TestLogControls::browseFillsPath()
{
    const Sandbox sandbox;
    Group group;
    group.path.setText(sandbox.path(QStringLiteral("former.csv")));
    group.controls->browse();
    auto* dialog = group.window.findChild<QFileDialog*>();
    QVERIFY(dialog != nullptr);
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Log File"));
    QCOMPARE(dialog->nameFilters(), QStringList(QStringLiteral("(*.csv)")));
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
    // A log is appended to, so nobody is to be asked about overwriting.
    QVERIFY(dialog->testOption(QFileDialog::DontConfirmOverwrite));
    const QString proposed = dialog->selectedFiles().value(0);
    QVERIFY2(proposed.startsWith(sandbox.path(QString())), qPrintable(proposed));
    QVERIFY2(proposed.endsWith(QLatin1String(".csv")), qPrintable(proposed));

    dialog->selectFile(QStringLiteral("chosen"));
    QMetaObject::invokeMethod(dialog, "accept");
    QCOMPARE(group.path.text(), sandbox.path(QStringLiteral("chosen.csv")));
}

QTEST_MAIN(TestLogControls)

#include "tst_logcontrols.moc"

#include "app/log/logpanel.h"
#include "app/notices/filedialog.h"
#include "app/shared/usersettings.h"
#include "app/window/mainwindow.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"
#include "views/log/filelogger.h"

#include <QtWidgets>

#include <algorithm>

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

/// The logging group of the window.
struct Group
{
    template <typename T>
    T& child(const char* name) const
    {
        return *window.findChild<T*>(QLatin1String(name));
    }
    /// Whether all the choices can be made, or none of them.
    bool editableIs(bool enabled) const
    {
        const QList<const QWidget*> choices{&path, &browse, &interval, &selected, &all};
        return std::all_of(choices.begin(), choices.end(), [enabled](const QWidget* choice) {
            return choice->isEnabled() == enabled;
        });
    }
    void process(const QString& hexId, const QString& time)
    {
        panel.processData(hexId, record(hexId, time));
    }

    MainWindow window;
    QLineEdit& path = child<QLineEdit>("logFilePathText");
    QAbstractButton& browse = child<QAbstractButton>("logFileBrowseButton");
    QSpinBox& interval = child<QSpinBox>("logSpeedSpinBox");
    QRadioButton& selected = child<QRadioButton>("logSelectedRadioButton");
    QRadioButton& all = child<QRadioButton>("logAllRadioButton");
    QAbstractButton& startStop = child<QAbstractButton>("logStartStopButton");
    FileLogger& logger = *window.findChild<FileLogger*>();
    LogPanel& panel = *window.findChild<LogPanel*>();
};

} // namespace

class TestLogPanel : public TestCase
{
    Q_OBJECT
private slots:
    void startAndStop()
    {
        Group group;
        group.path.setText(m_sandbox->path("log.csv"));
        group.interval.setValue(5);

        group.startStop.click();
        QCOMPARE(group.startStop.text(), "Stop");
        QVERIFY(group.editableIs(false));
        QCOMPARE(shownTip(&group.interval), "A log is being written: stop it first.");
        for (const char* time : {"10:00:00", "10:00:04", "10:00:05"}) {
            group.process("01", time);
        }

        group.startStop.click();
        QCOMPARE(group.startStop.text(), "Start");
        QVERIFY(group.editableIs(true));
        QCOMPARE(group.panel.status(), LogPanel::Status::Off);
        const QByteArray log = Sandbox::readFile(group.path.text());
        QCOMPARE(log.count("10:00:0"), 2); // the interval reached the logger
        QVERIFY(!log.contains("10:00:04"));
    }

    void refusedStartFlipsBack()
    {
        Group group;
        group.window.show();
        group.path.setText(m_sandbox->path("no/such/folder/log.csv"));
        const ExpectWarning warning("cannot log to");
        group.startStop.click();
        QVERIFY(!group.startStop.isChecked());
        QCOMPARE(group.startStop.text(), "Start");
        QVERIFY(group.editableIs(true));
        const QString told = group.window.statusBar()->currentMessage();
        QVERIFY2(QRegularExpression("^The log file .*log.csv cannot be opened: .+")
                     .match(told)
                     .hasMatch(),
                 qPrintable(told));
    }

    void remembers()
    {
        const QString path = m_sandbox->path("log.csv");
        {
            Group group;
            QVERIFY(group.all.isChecked());
            group.path.setText(path);
            group.interval.setValue(3600);
            group.selected.setChecked(true);
            group.panel.save();
        }
        QCOMPARE(userSettings().value("log/interval").toInt(), 3600);
        Group group;
        QCOMPARE(group.path.text(), path);
        QCOMPARE(group.interval.value(), 3600);
        QVERIFY(group.selected.isChecked());
        // The mode remembered is in force before anything is clicked.
        group.panel.setSelectedLdb("02");
        group.startStop.click();
        group.process("01", "10:00:00");
        group.process("02", "10:00:01");
        group.startStop.click();
        group.all.click();
        group.startStop.click();
        group.process("01", "10:00:02");
        const QByteArray log = Sandbox::readFile(path);
        QVERIFY(!log.contains("10:00:00") && log.contains("10:00:01") && log.contains("10:00:02"));
    }

    // Before a folder is chosen, which would be remembered.
    void dialogsOpenOutsideTheWorkingDirectory()
    {
        QWidget window;
        filedialog::load(&window, "Select File", [](const QString&) {});
        auto* dialog = window.findChild<QFileDialog*>();
        QVERIFY(dialog != nullptr);
        QVERIFY2(dialog->directory() != QDir::current(), qPrintable(dialog->directory().path()));
    }
};

REGISTER_TEST(TestLogPanel, QApplication)

#include "tst_logpanel.moc"

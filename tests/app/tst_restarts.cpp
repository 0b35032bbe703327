#include "app/notices/messagebox.h"
#include "app/shared/usersettings.h"
#include "app/window/mainwindow.h"
#include "tests/support/processresources.h"
#include "tests/support/sandbox.h"
#include "tests/support/scriptedbus.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include <memory>

namespace {

constexpr int kWarmUpCycles = 10;
constexpr int kCycles = 25;
/// Asks for another number of cycles: 200 take half a minute.
constexpr char kCyclesVariable[] = "SNIFFER_RESTARTS";
/// The heap's own ups and downs are less than half of this.
constexpr qint64 kHeapLimit = 16384;

enum class Ending
{
    Stop,
    LineCut
};

} // namespace

Q_DECLARE_METATYPE(Ending)

/// Run after run leaves nothing behind: no memory, no descriptor, no thread.
class TestRestarts : public TestCase
{
    Q_OBJECT
private slots:
    void init() override;
    void cleanup() override;
    void nothingIsLeftBehind_data();
    void nothingIsLeftBehind();

private:
    void plugIn();
    void startRun();
    void endRun(Ending ending);
    template <typename T>
    T* child(const char* name) const
    {
        T* found = m_window->findChild<T*>(QLatin1String(name));
        Q_ASSERT(found != nullptr);
        return found;
    }
    QPushButton* startButton() const { return child<QPushButton>("startButton"); }

    std::unique_ptr<Sandbox> m_sandbox;
    std::unique_ptr<ScriptedBus> m_bus;
    std::unique_ptr<MainWindow> m_window;
};

void TestRestarts::init()
{
    TestCase::init();
    m_sandbox = std::make_unique<Sandbox>();
    userSettings().setValue(constants::kComPortKey, m_sandbox->path("bus"));
    plugIn();
    m_window = std::make_unique<MainWindow>();
    m_window->show();
}

void TestRestarts::cleanup()
{
    m_window.reset();
    m_bus.reset();
    m_sandbox.reset();
    TestCase::cleanup();
}

/// A bus on a new port under the old name, as an adapter that is plugged in again has it.
void TestRestarts::plugIn()
{
    m_bus.reset();
    m_bus = std::make_unique<ScriptedBus>(QStringList{"03", "0A", "FD"});
    QFile::remove(m_sandbox->path("bus"));
    QVERIFY(QFile::link(m_bus->portName(), m_sandbox->path("bus")));
}

void TestRestarts::startRun()
{
    startButton()->click();
    const auto* found = child<QLabel>("countLabel");
    const auto* model = child<QTableView>("deviceOverviewTableView")->model();
    const QString available = QStringLiteral("Available LDB's: %1.");
    const QString failed = QStringLiteral("Serial communication failed.");
    WAIT_VERIFY(found->text() != available.arg(0) && found->text() != failed);
    // On a machine that stalls, a late answer makes an LDB be found where there is none; its row
    // would come with its loss only.
    constexpr int kEnoughMs = 1000;
    waitUntil([&] { return found->text() == available.arg(model->rowCount()); }, kEnoughMs);
    QCoreApplication::processEvents(); // paints what has come
}

void TestRestarts::endRun(Ending ending)
{
    if (ending == Ending::Stop) {
        startButton()->click();
        m_bus->clearRequests();
    } else {
        m_bus->hangUp();
        WAIT_VERIFY(m_window->findChild<MessageBox*>("communicationErrorBox") != nullptr);
        plugIn();
    }
    QVERIFY(!startButton()->isChecked());
    const auto boxes = m_window->findChildren<MessageBox*>();
    for (MessageBox* box : boxes) {
        box->button(QMessageBox::Ok)->click();
    }
    // Boxes die in the event loop, and so do the signals of the run.
    WAIT_VERIFY(m_window->findChild<MessageBox*>() == nullptr);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TestRestarts::nothingIsLeftBehind_data()
{
    QTest::addColumn<Ending>("ending");
    QTest::newRow("stop") << Ending::Stop;
    QTest::newRow("line cut") << Ending::LineCut;
}

void TestRestarts::nothingIsLeftBehind()
{
    QFETCH(Ending, ending);
    const ExpectWarning warning("^Port |lines of the next kind", ExpectWarning::Need::MayCome);
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue(kCyclesVariable, &isGiven);
    const int cycles = isGiven ? given : kCycles;
    ProcessResources first;
    for (int cycle = 0; cycle < kWarmUpCycles + cycles; ++cycle) {
        if (cycle == kWarmUpCycles) {
            first = ProcessResources::now();
        }
        startRun();
        endRun(ending);
        if (QTest::currentTestFailed()) {
            return;
        }
    }
    const ProcessResources last = ProcessResources::now();
    const auto grown = static_cast<long long>(last.heapBytes - first.heapBytes);
    qInfo("%d cycles: heap %+lld bytes, descriptors %+d, threads %+d", cycles, grown,
          last.descriptors - first.descriptors, last.threads - first.threads);
    QVERIFY(grown < kHeapLimit);
    QVERIFY(last.descriptors <= first.descriptors);
    // Threads of a pool come and go with the machine's load; one left behind would be so each time.
    QVERIFY(last.threads <= first.threads + cycles / 2);
}

REGISTER_TEST(TestRestarts, QApplication)
#include "tst_restarts.moc"

#include "docs/screenshots/stage.h"

#include "app/shared/usersettings.h"

#include <QAbstractButton>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPixmap>
#include <QProgressBar>
#include <QTableView>
#include <QTimer>

namespace {

constexpr int kMillisecondsPerSecond = 1000;
constexpr int kLookMs = 50;
constexpr int kScanSeconds = 120;
constexpr int kAnswerSeconds = 30;
constexpr int kIdColumn = 1;

} // namespace

Stage::Stage(const Options& options, const QString& scenario)
    : m_options(options)
{
    QFile::copy(options.tuningFile, path(constants::kTuningFileName));
    QDir::setCurrent(m_folder.path());
    writeSettings();
    m_simulator = std::make_unique<SimulatorProcess>(
        options.simulator, QStringLiteral("%1/%2.json").arg(options.scenarioFolder, scenario),
        portName());
    m_window = std::make_unique<MainWindow>();
    m_window->show();
    m_window->activateWindow();
}

Stage::~Stage() = default;

void Stage::writeSettings() const
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_folder.path());
    qputenv("XDG_DATA_HOME", m_folder.path().toLocal8Bit()); // what a run keeps of its LDB
    QSettings settings = userSettings();
    settings.setValue(constants::kComPortKey, portName());
    settings.setValue(constants::kLogPathKey, QStringLiteral("ldb-log.csv"));
}

void Stage::start()
{
    click(QStringLiteral("startButton"));
    const auto* progress = child<QProgressBar>(QStringLiteral("progressBar"));
    waitFor(
        "the scan", [progress] { return progress->isVisible(); }, kAnswerSeconds);
    waitFor(
        "the end of the scan", [progress] { return !progress->isVisible(); }, kScanSeconds);
    const auto* name = child<QLineEdit>(QStringLiteral("settingsNameLineEdit"));
    waitFor(
        "the settings", [name] { return !name->text().isEmpty(); }, kAnswerSeconds);
}

void Stage::select(const QString& hexId)
{
    auto* table = child<QTableView>(QStringLiteral("deviceOverviewTableView"));
    const auto* name = child<QLineEdit>(QStringLiteral("settingsNameLineEdit"));
    const QAbstractItemModel* model = table->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        const QModelIndex index = model->index(row, kIdColumn);
        if (index.data().toString() == hexId) {
            const QPointF position = table->visualRect(index).center();
            for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                QMouseEvent event(type, position, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
                QCoreApplication::sendEvent(table->viewport(), &event);
            }
            waitFor(
                "the settings", [name] { return !name->text().isEmpty(); }, kAnswerSeconds);
            return;
        }
    }
    qFatal("LDB %s is not in the overview", qPrintable(hexId));
}

void Stage::click(const QString& button, QWidget* owner)
{
    auto* found = child<QAbstractButton>(button, owner);
    waitFor(
        qPrintable(button), [found] { return found->isEnabled(); }, kAnswerSeconds);
    found->click();
}

void Stage::pass(int seconds)
{
    QEventLoop loop;
    QTimer::singleShot(seconds * kMillisecondsPerSecond, &loop, &QEventLoop::quit);
    loop.exec();
}

void Stage::waitFor(const char* what, const std::function<bool()>& condition, int seconds)
{
    QElapsedTimer time;
    time.start();
    while (!condition()) {
        if (time.hasExpired(qint64{seconds} * kMillisecondsPerSecond)) {
            qFatal("waited %d s in vain for %s", seconds, what);
        }
        QEventLoop loop;
        QTimer::singleShot(kLookMs, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

void Stage::shoot(QWidget* widget, const QString& name)
{
    QCoreApplication::processEvents();
    const QString file = QStringLiteral("%1/%2.png").arg(m_options.outputFolder, name);
    if (!widget->grab().save(file)) {
        qFatal("%s cannot be written", qPrintable(file));
    }
}

#include "benchmarks/badline/windowoperator.h"

#include "app/notices/messagebox.h"
#include "app/window/mainwindow.h"
#include "serial/ldb/generalinformation.h"
#include "views/tables/overviewcolumns.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTimer>

#include <functional>

namespace {

constexpr int kLookMs = 5;
constexpr int kPatienceMs = 120000; // a scan of a silent bus takes half a minute

void await(const char* what, const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > kPatienceMs) {
            qFatal("this does not come: %s", what);
        }
        letRun(kLookMs);
    }
}

template <typename T>
T* child(const QWidget* window, const char* name)
{
    T* found = window->findChild<T*>(QLatin1String(name));
    if (found == nullptr) {
        qFatal("the window has no %s", name);
    }
    return found;
}

} // namespace

void letRun(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

WindowOperator::WindowOperator(MainWindow* window)
    : m_window(window)
    , m_overview(child<QTableView>(window, "deviceOverviewTableView"))
{
}

QPushButton* WindowOperator::button(const char* name) const
{
    return child<QPushButton>(m_window, name);
}

void WindowOperator::startLogging(const QString& path)
{
    child<QLineEdit>(m_window, "logFilePathText")->setText(path);
    child<QSpinBox>(m_window, "logSpeedSpinBox")->setValue(0);
    button("logStartStopButton")->click();
    if (!button("logStartStopButton")->isChecked()) {
        qFatal("the log does not start");
    }
}

void WindowOperator::pressStart()
{
    if (isRunning()) {
        qFatal("the run has not ended");
    }
    button("startButton")->click();
}

void WindowOperator::pressStop()
{
    if (isRunning()) {
        button("startButton")->click();
    }
}

bool WindowOperator::isRunning() const
{
    return button("startButton")->isChecked();
}

void WindowOperator::awaitScan()
{
    const auto* progress = child<QProgressBar>(m_window, "progressBar");
    await("the scan's end",
          [this, progress] { return rows() > 0 && progress->isHidden() && isRunning(); });
}

QWidget* WindowOperator::openBox(const char* name) const
{
    auto* box = m_window->findChild<MessageBox*>(QLatin1String(name));
    return box != nullptr && box->isVisible() ? box : nullptr;
}

bool WindowOperator::closeLossBox()
{
    QWidget* box = openBox("lossBox");
    return box != nullptr && box->close();
}

int WindowOperator::rows() const
{
    return m_overview->model()->rowCount();
}

QHash<QString, QStringList> WindowOperator::shownRows() const
{
    QHash<QString, QStringList> shown;
    const QAbstractItemModel* model = m_overview->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList texts;
        for (int entry = 0; entry < generalinformation::RowCount; ++entry) {
            texts.append(model->index(row, overview::columnOf(entry)).data().toString());
        }
        shown.insert(texts.value(generalinformation::DeviceIdRow), texts);
    }
    return shown;
}

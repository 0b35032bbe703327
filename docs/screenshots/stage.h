#pragma once

#include "app/window/mainwindow.h"
#include "docs/screenshots/simulatorprocess.h"

#include <QApplication>
#include <QTemporaryDir>

#include <functional>
#include <memory>

class QAbstractButton;

/// The main window on a simulated installation, with settings, working directory and port of its
/// own, and what it takes to work it as a user does. Whatever does not come in time, or is not
/// there, ends the program: a manual with a wrong picture is worse than none.
class Stage
{
public:
    struct Options
    {
        QString simulator;      ///< the program
        QString scenarioFolder; ///< of its scenario files
        QString tuningFile;
        QString outputFolder; ///< for the pictures
    };

    /// `scenario` is the name of a scenario file without ".json".
    Stage(const Options& options, const QString& scenario);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    MainWindow& window() { return *m_window; }
    SimulatorProcess& simulator() { return *m_simulator; }
    /// Absolute path of a file that is removed at the end.
    QString path(const QString& fileName) const { return m_folder.filePath(fileName); }
    /// A temporary file's name.
    QString portName() const { return path(QStringLiteral("bus")); }

    /// Clicks Start and waits for the scan to be over.
    void start();
    /// Clicks a row of the overview and waits for its settings.
    void select(const QString& hexId);
    /// Clicks a button of `owner` (the main window when null).
    void click(const QString& button, QWidget* owner = nullptr);

    /// Lets the program run.
    static void pass(int seconds);
    static void waitFor(const char* what, const std::function<bool()>& condition, int seconds);
    /// A visible window of that kind, waited for.
    template <typename Window>
    Window* waitForWindow(const QString& name = {}, int seconds = 10);

    /// Writes a picture of the widget.
    void shoot(QWidget* widget, const QString& name);

    template <typename T>
    T* child(const QString& name, QWidget* owner = nullptr)
    {
        auto* found = (owner == nullptr ? m_window.get() : owner)->findChild<T*>(name);
        if (found == nullptr) {
            qFatal("there is no %s", qPrintable(name));
        }
        return found;
    }

private:
    void writeSettings() const;

    Options m_options;
    QTemporaryDir m_folder;
    std::unique_ptr<SimulatorProcess> m_simulator;
    std::unique_ptr<MainWindow> m_window;
};

/// The first visible top-level window of that kind and, where one is given, of that object name.
template <typename Window>
Window* visibleWindow(const QString& name = {})
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        auto* found = qobject_cast<Window*>(window);
        if (found != nullptr && found->isVisible() &&
            (name.isEmpty() || found->objectName() == name)) {
            return found;
        }
    }
    return nullptr;
}

template <typename Window>
Window* Stage::waitForWindow(const QString& name, int seconds)
{
    waitFor(
        Window::staticMetaObject.className(),
        [&name] { return visibleWindow<Window>(name) != nullptr; }, seconds);
    return visibleWindow<Window>(name);
}

#pragma once

#include <QObject>
#include <QString>

class FileLogger;
class QAbstractButton;
class QLineEdit;
class QSpinBox;

/// The widgets of the logging group. Not owned.
struct LogWidgets
{
    QLineEdit* path = nullptr;
    QAbstractButton* browse = nullptr;
    QSpinBox* interval = nullptr;
    QAbstractButton* selected = nullptr;
    QAbstractButton* all = nullptr;
    QAbstractButton* startStop = nullptr; ///< checkable
};

/// Drives the data logger from the logging group, and remembers the group's values in the per-user
/// settings. GUI thread.
class LogControls : public QObject
{
    Q_OBJECT
public:
    /// Fills the widgets with what was remembered. `logger` and the widgets outlive this object.
    LogControls(const LogWidgets& widgets, FileLogger* logger, QObject* parent);

    void save() const;
    void retranslate();

    /// Asks for the log file; an existing one is appended to.
    void browse();
    /// Logs all LDBs, or the selected one only.
    void setLoggingAll(bool all);
    /// Follows the start button. Where the logger refuses, the button goes back by itself.
    void switchLogging(bool on);

signals:
    void loggingChanged(bool logging);
    /// The logger could not begin.
    void startFailed(const QString& fileName, const QString& reason);
    /// The logger had to end in the middle of a run.
    void loggingFailed(const QString& fileName, const QString& reason);

private:
    void load();
    void processLoggingFailed(const QString& fileName, const QString& reason);

    LogWidgets m_widgets;
    FileLogger* m_logger;
};

#pragma once

#include <QString>
#include <QWidget>

#include <memory>

class FileLogger;
class Notices;

namespace Ui {
class LogPanel;
}

/// The logging group: drives the data logger, tells the user when a log cannot be written, and
/// remembers the group's values in the per-user settings. GUI thread.
class LogPanel : public QWidget
{
    Q_OBJECT
public:
    /// Shows what was remembered.
    explicit LogPanel(QWidget* parent = nullptr);
    ~LogPanel() override;

    /// Once, before anything is logged; `notices` outlives the panel's use.
    void setNotices(Notices* notices) { m_notices = notices; }
    FileLogger* logger() const { return m_logger; }

    void save() const;

signals:
    void loggingChanged(bool logging);

protected:
    void changeEvent(QEvent* event) override;

private slots:
    /// Asks for the log file; an existing one is appended to.
    void on_logFileBrowseButton_clicked();
    /// Where the logger refuses, the button goes back by itself.
    void on_logStartStopButton_toggled(bool checked);

private:
    void load();
    void updateButtonText();
    void processLoggingFailed(const QString& fileName, const QString& reason);

    std::unique_ptr<Ui::LogPanel> m_ui;
    FileLogger* m_logger;
    Notices* m_notices = nullptr;
};

#pragma once

#include "serial/ldb/monitoring.h"

#include <QHash>
#include <QString>
#include <QWidget>

#include <memory>
#include <optional>
#include <utility>

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

    enum class Status
    {
        Off,
        Logging,
        Waiting ///< nothing comes that could be logged
    };
    Status status() const { return m_status; }

    /// The LDB that "Selected" means. A log that runs stays with the one with which it began.
    void setSelectedLdb(const QString& hexId);
    void setMonitoring(const Monitoring& monitoring);

public slots:
    /// Takes an LDB's record for the log.
    void processData(const QString& hexId, const QList<QStringList>& dataList);

signals:
    void statusChanged(LogPanel::Status status);

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
    bool isWanted(const QString& hexId) const;
    void beginLog();
    void updateStatus();
    void updateTexts();
    QString subjectText() const;
    QString statusText() const;
    void processLoggingFailed(const QString& fileName, const QString& reason);

    std::unique_ptr<Ui::LogPanel> m_ui;
    FileLogger* m_logger;
    Notices* m_notices = nullptr;

    Status m_status = Status::Off;
    Monitoring m_monitoring;
    QString m_selectedLdb;
    QString m_loggedLdb; ///< of a log of the selected one that runs
    QHash<QString, QString> m_names;
    std::optional<qint64> m_lastRecord; ///< clock time of the last one wanted
    qint64 m_waitingSince = 0;
    /// The last time without records in this log, from and to.
    std::optional<std::pair<qint64, qint64>> m_gap;
};

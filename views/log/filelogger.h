#pragma once

#include "serial/ldb/recordlog.h"

#include <QDateTime>
#include <QFile>
#include <QObject>
#include <QStringList>

/// Names of log files. Pure functions.
namespace logfilename {

/// The name to offer for a log begun at `now`: dated to the minute, ending in ".csv", without a
/// folder, and allowed on every file system.
QString suggested(const QDateTime& now);

/// The name the user chose, with ".csv" where it has no suffix. An empty name stays empty.
QString withSuffix(const QString& chosen);

} // namespace logfilename

/// Writes records into a ";"-separated UTF-8 file: those of the selected LDB or of all, at most one
/// an LDB and logging period. An existing file is appended to.
///
/// Every line is handed to the operating system as one write before `processData()` returns, so a
/// killed program loses at most the line being written. A file that ends within a line, as after a
/// power cut, keeps that torn line, and the run begins on a fresh one. GUI thread only.
class FileLogger : public QObject
{
    Q_OBJECT
public:
    /// Values of the mode.
    enum Mode : int
    {
        LogSelected = 0,
        LogAll = 1
    };

    using QObject::QObject;

    bool isLogging() const { return m_enabled; }
    /// Why the last start or write failed, as the system says it.
    QString errorString() const { return m_errorString; }

    // Mode, LDB and interval apply to the next record; the file name to the next log.
    void setMode(int mode) { m_mode = mode; }
    void setSelectedHexId(const QString& hexId) { m_selectedHexId = hexId; }
    void setFileName(const QString& fileName) { m_fileName = fileName; }
    /// The logging period in seconds; 0 writes every record.
    void setInterval(int seconds) { m_interval = seconds; }

    /// Starts a new run at the end of the file named, or stops the one under way. False, with
    /// nothing running and one warning line, when the file cannot be opened.
    bool startStop(bool start);

public slots:
    /// Takes an LDB's record; ignored while stopped.
    void processData(const QString& hexId, const QList<QStringList>& dataList);

signals:
    /// A line could not be written, or the file has been removed. Logging has stopped and the file
    /// is closed; it ends with the last line that was written whole.
    void loggingFailed(const QString& fileName, const QString& reason);

private slots:
    void writeDataListToFile(const QString& hexId, const QList<QStringList>& dataList);

private:
    bool start();
    void stop();
    /// False after it has failed; then logging has stopped.
    bool write(const QString& line);
    void fail(const QString& reason);

    bool m_enabled = false;
    QString m_selectedHexId;
    int m_mode = LogAll;
    QString m_fileName;
    int m_interval = 1; ///< seconds
    bool m_headerWritten = false;
    bool m_lastLineTorn = false; ///< the file found ends within a line
    LogPeriod m_period;
    QFile m_file;
    QString m_errorString;
};

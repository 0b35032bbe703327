#include "views/log/filelogger.h"

#include <QByteArray>
#include <QDebug>
#include <QFileInfo>
#include <QThread>

namespace {

/// Whether the file ends in the middle of a line. Moves the position.
bool endsWithinLine(QFile& file)
{
    char last = '\n';
    return file.size() > 0 && file.seek(file.size() - 1) && file.getChar(&last) && last != '\n';
}

} // namespace

QString logfilename::suggested(const QDateTime& now)
{
    return now.toString(QStringLiteral("'ldb-log_'yyyy-MM-dd_hh-mm'.csv'"));
}

QString logfilename::withSuffix(const QString& chosen)
{
    const QFileInfo info(chosen);
    if (info.fileName().isEmpty() || !info.suffix().isEmpty()) {
        return chosen;
    }
    return chosen +
           (chosen.endsWith(QLatin1Char('.')) ? QStringLiteral("csv") : QStringLiteral(".csv"));
}

bool FileLogger::startStop(bool start)
{
    Q_ASSERT(QThread::currentThread() == thread());
    stop();
    return !start || this->start();
}

bool FileLogger::start()
{
    m_headerWritten = false;
    m_period.restart();
    m_file.setFileName(m_fileName);
    // Without a buffer of our own a line reaches the operating system as it is written.
    if (m_fileName.isEmpty() || !m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) {
        m_errorString = m_fileName.isEmpty() ? tr("No file name is given.") : m_file.errorString();
        qWarning().noquote() << "cannot log to" << m_fileName << "-" << m_errorString;
        return false;
    }
    m_errorString.clear();
    m_lastLineTorn = endsWithinLine(m_file);
    m_enabled = true;
    return true;
}

void FileLogger::stop()
{
    m_enabled = false;
    m_file.close();
}

void FileLogger::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const bool isWanted = m_mode == LogAll || (m_mode == LogSelected && hexId == m_selectedHexId);
    if (m_enabled && isWanted) {
        writeDataListToFile(hexId, dataList);
    }
}

void FileLogger::writeDataListToFile(const QString& hexId, const QList<QStringList>& dataList)
{
    if (!m_file.isOpen() || dataList.isEmpty()) {
        return;
    }
    if (!m_file.exists()) {
        // Writing would succeed, into a file that nobody can open any more.
        fail(tr("The file has been removed."));
        return;
    }
    if (m_file.size() == 0 && !m_headerWritten) {
        m_headerWritten = true;
        if (!write(recordlog::headerLine())) {
            return;
        }
    }
    if (m_period.admits(hexId, dataList, m_interval)) {
        write(recordlog::dataLine(dataList));
    }
}

bool FileLogger::write(const QString& line)
{
    const QByteArray bytes = (m_lastLineTorn ? QLatin1Char('\n') + line : line).toUtf8();
    // Always to the end of the file as it is now: others may have added to it, or emptied it.
    const qint64 lineStart = m_file.size();
    if (m_file.pos() != lineStart) {
        m_file.seek(lineStart);
    }
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 count = m_file.write(bytes.constData() + written, bytes.size() - written);
        if (count <= 0) {
            const QString reason = m_file.errorString();
            // Half a number would read as another number.
            m_file.resize(lineStart);
            fail(reason);
            return false;
        }
        written += count;
    }
    m_lastLineTorn = false;
    return true;
}

void FileLogger::fail(const QString& reason)
{
    const QString fileName = m_file.fileName();
    m_errorString = reason;
    stop();
    qWarning().noquote() << "logging to" << fileName << "stopped -" << reason;
    emit loggingFailed(fileName, reason);
}

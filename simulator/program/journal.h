#pragma once

#include <QFile>
#include <QString>

/// A file with one line for every request and every answer on the wire, for holding against what
/// the tool showed. Each line is with the operating system before anything else happens.
/// Columns, separated by tabs: local time, ms since the start, ">" to the boards or "<" from them,
/// the LDB, the bytes in hexadecimal, what they mean.
class Journal
{
public:
    enum class Direction
    {
        Request,
        Answer,
        Remark ///< neither: a command of the trainer, the line cut, ...
    };

    /// Starts the file anew. False when it cannot be written; `errorString()` says why.
    bool open(const QString& path);
    bool isOpen() const { return m_file.isOpen(); }
    QString errorString() const { return m_file.errorString(); }

    /// Does nothing while no file is open. A write that fails closes the journal with a warning.
    void write(qint64 microseconds, Direction direction, const QString& hexId,
               const QByteArray& bytes, const QString& text);

private:
    QFile m_file;
};

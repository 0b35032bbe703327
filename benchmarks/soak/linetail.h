#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

/// Reads a text file that grows, line by line as they become whole.
class LineTail
{
public:
    explicit LineTail(const QString& path)
        : m_file(path)
    {
    }

    /// The lines that have become whole since the last call, without their ends. A file that is
    /// not there yet has none.
    QByteArrayList takeNew()
    {
        if (!m_file.isOpen() && !m_file.open(QIODevice::ReadOnly)) {
            return {};
        }
        QByteArrayList lines = (m_rest + m_file.readAll()).split('\n');
        m_rest = lines.takeLast();
        return lines;
    }

private:
    QFile m_file;
    QByteArray m_rest;
};

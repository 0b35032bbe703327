#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// A temporary working directory for a test: the per-user settings and data go there, and so does
/// the tuning file, which the program looks for in the working directory. All is put back at the
/// end.
class Sandbox
{
public:
    Sandbox();
    ~Sandbox();
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    /// Absolute path of a file in the sandbox.
    QString path(const QString& fileName) const { return m_directory.filePath(fileName); }

    /// Writes a file into the sandbox.
    void writeFile(const QString& fileName, const QByteArray& content) const;
    /// Writes the tuning file, INI text.
    void writeTuning(const QByteArray& ini) const;

    static QByteArray readFile(const QString& absolutePath);

private:
    QTemporaryDir m_directory;
    QString m_formerDirectory;
    QByteArray m_formerDataFolder;
};

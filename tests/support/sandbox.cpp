#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QSettings>

Sandbox::Sandbox()
    : m_formerDirectory(QDir::currentPath())
    , m_formerDataFolder(qgetenv("XDG_DATA_HOME"))
{
    qputenv("XDG_DATA_HOME", m_directory.path().toLocal8Bit());
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_directory.path());
    QDir::setCurrent(m_directory.path());
}

Sandbox::~Sandbox()
{
    QDir::setCurrent(m_formerDirectory);
    if (m_formerDataFolder.isEmpty()) {
        qunsetenv("XDG_DATA_HOME");
    } else {
        qputenv("XDG_DATA_HOME", m_formerDataFolder);
    }
}

void Sandbox::writeFile(const QString& fileName, const QByteArray& content) const
{
    QFile file(path(fileName));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("the sandbox cannot be written");
    }
}

void Sandbox::writeTuning(const QByteArray& ini) const
{
    writeFile(QStringLiteral("settings.ini"), ini);
}

QByteArray Sandbox::readFile(const QString& absolutePath)
{
    QFile file(absolutePath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

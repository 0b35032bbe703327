#include "tests/support/sandbox.h"

#include <QDir>
#include <QFile>
#include <QSettings>

Sandbox::Sandbox()
    : m_formerDirectory(QDir::currentPath())
{
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_directory.path());
    QDir::setCurrent(m_directory.path());
}

Sandbox::~Sandbox()
{
    QDir::setCurrent(m_formerDirectory);
}

void Sandbox::writeFile(const QString& fileName, const QByteArray& content) const
{
    QFile file(fileName); // the sandbox is the working directory
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qFatal("the sandbox cannot be written");
    }
}

QByteArray Sandbox::readFile(const QString& absolutePath)
{
    QFile file(absolutePath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

#include "simulator/program/portlink.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

PortLink::PortLink(const QString& path)
    : m_path(path)
{
}

PortLink::~PortLink()
{
    remove();
}

QString PortLink::pointTo(const QString& portName)
{
    if (m_path.isEmpty()) {
        return {};
    }
    const QFileInfo info(m_path);
    if (info.exists() && !info.isSymLink()) {
        return QStringLiteral("%1 exists and is no link").arg(m_path);
    }
    // Renamed into place, so that nobody finds the name missing for a moment.
    const QByteArray path = QFile::encodeName(m_path);
    const QByteArray fresh = path + ".new";
    unlink(fresh.constData());
    if (symlink(QFile::encodeName(portName).constData(), fresh.constData()) != 0 ||
        rename(fresh.constData(), path.constData()) != 0) {
        const int error = errno;
        unlink(fresh.constData());
        return QStringLiteral("%1: %2").arg(m_path, QString::fromLocal8Bit(std::strerror(error)));
    }
    m_target = portName;
    return {};
}

void PortLink::remove()
{
    if (!m_target.isEmpty() && QFileInfo(m_path).symLinkTarget() == m_target) {
        unlink(QFile::encodeName(m_path).constData());
    }
    m_target.clear();
}

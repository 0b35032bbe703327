#pragma once

#include <QString>

/// A symbolic link that gives a port a name that stays. Removed with this object, unless it points
/// elsewhere by then.
class PortLink
{
public:
    /// An empty path makes no link at all.
    explicit PortLink(const QString& path);
    ~PortLink();
    PortLink(const PortLink&) = delete;
    PortLink& operator=(const PortLink&) = delete;

    /// Points the link at a port. Replaces a link that stands there, but no file of another kind.
    /// Gives what went wrong, or nothing.
    QString pointTo(const QString& portName);
    void remove();

private:
    QString m_path;
    QString m_target;
};

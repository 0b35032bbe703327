#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QString>

/// Diagnostic lines of the serial link, limited per kind so that a dead line cannot flood the log:
/// a few lines of each kind in a period, then one that counts what was left out.
class LimitedLog
{
public:
    enum class Kind
    {
        UnexpectedBytes,
        FailedCheck,
        TimeOut,
        Miss,
        PortError
    };

    LimitedLog();

    void write(Kind kind, const QString& text);

private:
    struct Share
    {
        qint64 periodStart = 0;
        int written = 0;
        int suppressed = 0;
    };
    QElapsedTimer m_clock;
    QHash<int, Share> m_shares;
};

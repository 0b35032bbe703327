#pragma once

#include <QStringList>

#include <array>

/// Diagnostic lines of the conversation, limited per kind so that a dead line cannot flood the log:
/// a few lines of each kind in a period, then one that counts what was left out.
class LimitedLog
{
public:
    enum class Kind
    {
        Exchange, ///< what happened to one
        Miss,
        Lists, ///< LDBs that come and go
    };

    /// The lines to write for this one, if any. `now`: monotonic µs.
    QStringList admit(Kind kind, const QString& text, qint64 now);

private:
    struct Share
    {
        qint64 periodStart = 0;
        int written = 0;
        int suppressed = 0;
    };
    std::array<Share, 3> m_shares;
};

#pragma once

#include "serial/ldb/startplan.h"

#include <QHash>
#include <QSet>

#include <vector>

/// Finds out, by what answers, whether a bus is the one that is remembered. A plain value.
///
/// It is another one when fewer than half of the LDBs remembered answer, or when the names of too
/// many differ. A rename is none: one name in ten may differ, one at least; but of fewer than three
/// LDBs none, for there the others do not vouch for it.
class SiteCheck
{
public:
    enum class Verdict
    {
        Open, ///< not enough has been heard
        Same,
        Another
    };

    explicit SiteCheck(const std::vector<KnownLdb>& remembered = {});

    /// So many of the LDBs remembered have answered, and the others will not.
    void processProbed(int answered);
    /// The name that an LDB tells; what one that is not remembered tells counts for nothing. The
    /// last one counts.
    void processName(const QString& hexId, const QString& name);

    Verdict verdict() const;
    /// The same when nothing more is waited for: never open.
    Verdict lastVerdict() const;

    /// The addresses and names that agree.
    int agreeing() const { return m_told.size() - m_differing.size(); }
    int remembered() const { return m_names.size(); }

private:
    static int tolerated(int names);

    QHash<QString, QString> m_names; ///< by hex id
    QSet<QString> m_told;            ///< those that have told a name
    QSet<QString> m_differing;       ///< those of them that told another one
    int m_answered = -1;             ///< -1 until all have been probed
};

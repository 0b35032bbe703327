#pragma once

#include "serial/ldb/startplan.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <vector>

/// Finds out from the answers whether a bus is the remembered one. A plain value.
///
/// It is another one when fewer than half of the remembered LDBs answer, or when too many names
/// differ. For LDBs are renamed: one name in ten may differ, and always one. With fewer than three
/// LDBs none may, as the others do not vouch for it.
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

    /// All remembered LDBs have been probed, and `answered` of them have answered.
    void processProbed(int answered);
    /// An LDB has told its name. The last one told counts, unless that remembered has been told
    /// before: then it was renamed. That of an LDB that is not remembered does not count.
    void processName(const QString& hexId, const QString& name);

    Verdict verdict() const;
    /// The verdict from what has been heard so far; never `Open`.
    Verdict lastVerdict() const;

    /// The addresses and names that agree.
    int agreeing() const { return m_told.size() - m_differing.size(); }
    int remembered() const { return m_names.size(); }
    /// How many of these are remembered.
    int remembered(const QStringList& hexIds) const;

private:
    static int tolerated(int names);

    QHash<QString, QString> m_names; ///< by hex id
    QSet<QString> m_told;            ///< those that have told a name
    QSet<QString> m_differing;       ///< those of them that told another one
    int m_answered = -1;             ///< -1 until all have been probed
};

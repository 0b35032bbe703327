#include "app/installation/sitecheck.h"

#include <algorithm>

SiteCheck::SiteCheck(const std::vector<KnownLdb>& remembered)
{
    for (const KnownLdb& ldb : remembered) {
        m_names.insert(ldb.hexId, ldb.name);
    }
}

int SiteCheck::tolerated(int names)
{
    constexpr int kVouching = 3;
    constexpr int kOneIn = 10;
    return names < kVouching ? 0 : std::max(1, names / kOneIn);
}

void SiteCheck::processProbed(int answered)
{
    m_answered = answered;
}

void SiteCheck::processName(const QString& hexId, const QString& name)
{
    const auto remembered = m_names.constFind(hexId);
    if (remembered == m_names.constEnd()) {
        return;
    }
    const bool hasAgreed = m_told.contains(hexId) && !m_differing.contains(hexId);
    m_told.insert(hexId);
    if (hasAgreed || *remembered == name || remembered->isNull()) {
        m_differing.remove(hexId);
    } else {
        m_differing.insert(hexId);
    }
}

int SiteCheck::remembered(const QStringList& hexIds) const
{
    return static_cast<int>(
        std::count_if(hexIds.begin(), hexIds.end(),
                      [this](const QString& hexId) { return m_names.contains(hexId); }));
}

SiteCheck::Verdict SiteCheck::verdict() const
{
    const bool isProbed = m_answered >= 0;
    if (isProbed && 2 * m_answered < remembered()) {
        return Verdict::Another;
    }
    if (m_differing.size() > tolerated(isProbed ? m_answered : remembered())) {
        return Verdict::Another;
    }
    return isProbed && m_told.size() >= m_answered ? lastVerdict() : Verdict::Open;
}

SiteCheck::Verdict SiteCheck::lastVerdict() const
{
    const bool isEnough = 2 * m_told.size() >= remembered();
    return isEnough && m_differing.size() <= tolerated(m_told.size()) ? Verdict::Same
                                                                      : Verdict::Another;
}

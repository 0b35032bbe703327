#include "views/quality/qualityfindings.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

constexpr qint64 kTooFew = 100; // exchanges of all LDBs
constexpr qint64 kFewHarms = 5; // any line has as many by chance
constexpr double kMention =
    0.001; // least share worth telling, of the line or of the LDBs that are left
constexpr double kStands = 0.005; // the least share with which an LDB stands out
constexpr double kTimesTheOthers = 3;
constexpr std::size_t kForemostPart = 4; // no more than one in four stands out
// How far a count may stray from the expected one by chance: in roots of the expected count, and in
// counts.
constexpr double kStray = 4;
constexpr double kStrayCounts = 2;
constexpr double kTells = 1; // expected harms an LDB, below which "on all" cannot be said

/// One LDB's share of a harm.
struct Share
{
    QString hexId;
    double asked = 0;
    double harms = 0;

    double value() const { return harms / asked; }
};
using Shares = std::vector<Share>;

Share sumOf(const Shares& shares)
{
    Share sum;
    for (const Share& share : shares) {
        sum.asked += share.asked;
        sum.harms += share.harms;
    }
    return sum;
}

double strayOf(double expected)
{
    return kStray * std::sqrt(expected) + kStrayCounts;
}

/// Whether an LDB has more harm than it would have by chance if it were like the others.
bool standsOut(const Share& share, const Share& others)
{
    const double usual = others.asked > 0 ? others.value() : 0;
    const double expected = share.asked * usual;
    return share.harms >= kFewHarms && share.value() >= kStands &&
           share.value() >= kTimesTheOthers * usual && share.harms > expected + strayOf(expected);
}

bool isAlike(const Shares& shares)
{
    const double usual = sumOf(shares).value();
    return std::all_of(shares.begin(), shares.end(), [usual](const Share& share) {
        const double expected = share.asked * usual;
        return std::abs(share.harms - expected) <= strayOf(expected);
    });
}

/// Removes the LDBs that stand out from the list, the worst first, and gives them.
Shares takeStanding(Shares& shares)
{
    const std::size_t most = std::max<std::size_t>(1, shares.size() / kForemostPart);
    Shares standing;
    while (shares.size() > 1 && standing.size() < most) {
        const Share worst = shares.front();
        if (!standsOut(worst, sumOf(Shares(shares.begin() + 1, shares.end())))) {
            break;
        }
        standing.push_back(worst);
        shares.erase(shares.begin());
    }
    return standing;
}

QStringList namesOf(const Shares& shares)
{
    QStringList names;
    for (const Share& share : shares) {
        names.append(share.hexId);
    }
    return names;
}

void findHarm(const CountsOfLdbs& ldbs, QualityFinding::Harm harm,
              std::vector<QualityFinding>& findings)
{
    using Spread = QualityFinding::Spread;
    Shares shares;
    for (auto ldb = ldbs.begin(); ldb != ldbs.end(); ++ldb) {
        if (ldb->isEnough()) {
            const qint64 harms = harm == QualityFinding::Harm::Damage ? ldb->damaged : ldb->silent;
            shares.push_back(
                {ldb.key(), static_cast<double>(ldb->asked), static_cast<double>(harms)});
        }
    }
    std::stable_sort(shares.begin(), shares.end(), [](const Share& one, const Share& other) {
        return one.value() > other.value();
    });
    const auto isWorthMention = [](const Share& sum) {
        return sum.harms >= kFewHarms && sum.value() >= kMention;
    };
    if (shares.size() == 1) {
        if (isWorthMention(shares.front())) {
            findings.push_back({harm, Spread::OneLdb, namesOf(shares)});
        }
        return;
    }
    const Shares standing = takeStanding(shares);
    const Share rest = sumOf(shares);
    if (!isWorthMention(rest)) {
        if (!standing.empty()) {
            findings.push_back({harm, Spread::Alone, namesOf(standing)});
        }
        return;
    }
    if (!isAlike(shares)) {
        findings.push_back({harm, Spread::Uneven, {}});
    } else if (!standing.empty()) {
        findings.push_back({harm, Spread::Foremost, namesOf(standing)});
    } else {
        const bool canTell = rest.harms >= kTells * static_cast<double>(shares.size());
        findings.push_back({harm, canTell ? Spread::Alike : Spread::Uneven, {}});
    }
}

QString translated(const char* text)
{
    return QCoreApplication::translate("LineQuality", text);
}

bool isLate(const QualityCounts& sum)
{
    return static_cast<double>(sum.unbelieved()) >= kMention * static_cast<double>(sum.asked) &&
           sum.unbelieved() >= kFewHarms;
}

} // namespace

QualityCounts qualityfindings::sumOf(const CountsOfLdbs& ldbs)
{
    QualityCounts sum;
    for (const QualityCounts& counts : ldbs) {
        sum.add(counts);
    }
    return sum;
}

bool qualityfindings::isTooFew(const CountsOfLdbs& ldbs)
{
    const bool isAnyEnough = std::any_of(
        ldbs.begin(), ldbs.end(), [](const QualityCounts& counts) { return counts.isEnough(); });
    return !isAnyEnough || sumOf(ldbs).asked < kTooFew;
}

std::vector<QualityFinding> qualityfindings::find(const CountsOfLdbs& ldbs)
{
    std::vector<QualityFinding> findings;
    if (!isTooFew(ldbs)) {
        findHarm(ldbs, QualityFinding::Harm::Damage, findings);
        findHarm(ldbs, QualityFinding::Harm::Silence, findings);
    }
    return findings;
}

QString qualityfindings::text(const QualityFinding& finding)
{
    using Spread = QualityFinding::Spread;
    const bool isDamage = finding.harm == QualityFinding::Harm::Damage;
    const QString hexIds = finding.hexIds.join(QStringLiteral(", "));
    switch (finding.spread) {
    case Spread::Alone:
        if (finding.hexIds.size() > 1) {
            return translated(
                       isDamage
                           ? QT_TRANSLATE_NOOP("LineQuality", "Damage on LDBs %1 alone: look at "
                                                              "their connections.")
                           : QT_TRANSLATE_NOOP("LineQuality", "Silence of LDBs %1 alone: look at "
                                                              "them and their connections."))
                .arg(hexIds);
        }
        return translated(isDamage
                              ? QT_TRANSLATE_NOOP("LineQuality",
                                                  "Damage on LDB %1 alone: look at its connection.")
                              : QT_TRANSLATE_NOOP(
                                    "LineQuality",
                                    "Silence of LDB %1 alone: look at it and its connection."))
            .arg(hexIds);
    case Spread::Foremost:
        return translated(isDamage
                              ? QT_TRANSLATE_NOOP("LineQuality",
                                                  "Damage on all LDBs, and far more on %1: look at "
                                                  "the connection there first, then at the "
                                                  "adapter and the trunk.")
                              : QT_TRANSLATE_NOOP("LineQuality",
                                                  "Silence of all LDBs, and far more of %1: look "
                                                  "there first, then at the adapter and the "
                                                  "trunk."))
            .arg(hexIds);
    case Spread::Alike:
        return translated(
            isDamage
                ? QT_TRANSLATE_NOOP("LineQuality",
                                    "Damage on all LDBs alike: look at the adapter and the trunk.")
                : QT_TRANSLATE_NOOP(
                      "LineQuality",
                      "Silence of all LDBs alike: look at the adapter and the trunk."));
    case Spread::Uneven:
        return translated(
            isDamage
                ? QT_TRANSLATE_NOOP("LineQuality", "Damage on several LDBs, more on some than on "
                                                   "others: no one place can be named.")
                : QT_TRANSLATE_NOOP("LineQuality", "Silence of several LDBs, more of some than of "
                                                   "others: no one place can be named."));
    case Spread::OneLdb:
        return translated(isDamage
                              ? QT_TRANSLATE_NOOP("LineQuality",
                                                  "Damage on LDB %1. There is no other one to "
                                                  "compare it with, so the place cannot be named.")
                              : QT_TRANSLATE_NOOP("LineQuality",
                                                  "Silence of LDB %1. There is no other one to "
                                                  "compare it with, so the place cannot be named."))
            .arg(hexIds);
    }
    return {};
}

QString qualityfindings::text(const CountsOfLdbs& ldbs)
{
    if (isTooFew(ldbs)) {
        return translated(
            QT_TRANSLATE_NOOP("LineQuality", "Too few exchanges to say anything of the line."));
    }
    QStringList sentences;
    for (const QualityFinding& finding : find(ldbs)) {
        sentences.append(text(finding));
    }
    const QualityCounts sum = sumOf(ldbs);
    if (isLate(sum)) {
        sentences.append(translated(QT_TRANSLATE_NOOP(
            "LineQuality", "Answers came at unusual times, and were not believed.")));
    }
    if (sentences.isEmpty()) {
        sentences.append(
            sum.isGood()
                ? translated(QT_TRANSLATE_NOOP(
                      "LineQuality",
                      "The line is good: no more than one exchange in a thousand was not."))
                : translated(QT_TRANSLATE_NOOP("LineQuality", "Nothing stands out.")));
    }
    return sentences.join(QLatin1Char(' '));
}

#include "serial/ldb/monitoring.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>
#include <array>

namespace {

/// A record is live for so many rounds: one passes until its LDB is asked, one until it is asked
/// again, and one may be slow.
constexpr int kRounds = 3;

struct Unit
{
    qint64 milliseconds;
    const char* text;
};

// From the longest to the shortest.
constexpr std::array kUnits{
    Unit{86400000, QT_TRANSLATE_NOOP("Monitoring", "%1 d")},
    Unit{3600000, QT_TRANSLATE_NOOP("Monitoring", "%1 h")},
    Unit{60000, QT_TRANSLATE_NOOP("Monitoring", "%1 min")},
    Unit{1000, QT_TRANSLATE_NOOP("Monitoring", "%1 s")},
};

QDateTime shown(qint64 time)
{
    return QDateTime::fromMSecsSinceEpoch(time, Qt::UTC);
}

} // namespace

qint64 Monitoring::roundOf(int ldbs, qint64 turn)
{
    return turn * ldbs;
}

qint64 Monitoring::lifetimeOf(int ldbs, qint64 silence, qint64 turn)
{
    return std::clamp(kRounds * (roundOf(ldbs, turn) + silence), kShortestLife, kLongestLife);
}

bool Monitoring::isLive(const QString& hexId, std::optional<qint64> time) const
{
    const bool isPolled = polledAlone.isEmpty() || polledAlone == hexId;
    return isPolling() && isPolled && time && *time >= from && age(*time) <= lifetime;
}

bool Monitoring::isLive(std::optional<qint64> time) const
{
    return polledAlone.isEmpty() && isLive(QString(), time);
}

qint64 Monitoring::age(qint64 time) const
{
    // A record may be younger than the moment at which this was composed.
    return std::max<qint64>(0, now - time);
}

QString Monitoring::ageText(std::optional<qint64> time) const
{
    if (!time) {
        return {};
    }
    const qint64 gone = age(*time);
    const auto unit = std::find_if(kUnits.begin(), kUnits.end() - 1,
                                   [gone](const Unit& each) { return gone >= each.milliseconds; });
    return QCoreApplication::translate("Monitoring", unit->text).arg(gone / unit->milliseconds);
}

QString Monitoring::clockText(qint64 time) const
{
    const bool isToday = shown(time).date() == shown(now).date();
    return shown(time).toString(isToday ? QStringLiteral("hh:mm:ss")
                                        : QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

#include "recording/eventfinder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 kSecond = 1000000;
constexpr qint64 kMinute = 60 * kSecond;

/// So many beginnings within that time are flapping.
constexpr std::size_t kFlappingBegins = 4;
constexpr qint64 kFlappingTime = 3 * kMinute;
/// It has settled when it keeps still for that long.
constexpr qint64 kSettled = kMinute;
/// What never settles is told of so often.
constexpr qint64 kLongestFold = 60 * kMinute;

QString number(qint64 value)
{
    return QString::number(value);
}

} // namespace

std::map<FaultPlace, EventFinder::Level> EventFinder::faultsOf(const LdbStatus& status)
{
    std::map<FaultPlace, Level> faults;
    const auto set = [&faults](FaultPlace place, bool isPresent, bool isRemembered) {
        faults[place] = isPresent ? Level::Present : isRemembered ? Level::Remembered : Level::None;
    };
    // A code that stands for no fault has none of its parts, and of one that counts as remembered
    // none is present.
    const auto parts = [&set](FaultLevel level, int code, FaultPlace place, int present) {
        const bool isPresent = level == FaultLevel::Major && (code & present) != 0;
        const bool isEither = level != FaultLevel::None && (code & (present * 3)) != 0;
        set(place, isPresent, isEither);
    };
    const int loop = static_cast<int>(status.loopState());
    parts(ldbLoopFault(loop), loop, FaultPlace::LoopOpen, static_cast<int>(LdbLoopState::Open));
    parts(ldbLoopFault(loop), loop, FaultPlace::LoopShort, static_cast<int>(LdbLoopState::Short));
    parts(ldbLoopFault(loop), loop, FaultPlace::LoopDcLeakage,
          static_cast<int>(LdbLoopState::DcLeakage));
    const int earth = static_cast<int>(status.earthState());
    parts(ldbEarthFault(earth), earth, FaultPlace::EarthOpen,
          static_cast<int>(LdbEarthState::Open));
    parts(ldbEarthFault(earth), earth, FaultPlace::EarthLeakage,
          static_cast<int>(LdbEarthState::Leakage));
    const FaultLevel amplifier = ldbAmplifierFault(status.amplifier);
    set(FaultPlace::Amplifier, amplifier == FaultLevel::Major, amplifier == FaultLevel::Minor);
    const auto port = [&set](FaultPlace place, quint8 value) {
        const auto state = static_cast<LdbPortShort>(value);
        set(place, state == LdbPortShort::Short, state == LdbPortShort::ShortMemory);
    };
    port(FaultPlace::PrimaryPort, status.primaryPortShort);
    port(FaultPlace::SecondaryPort, status.secondaryPortShort);
    return faults;
}

void EventFinder::heard(qint64 at, const QString& hexId, const LdbStatus& status)
{
    passed(at);
    Ldb& ldb = m_ldbs[hexId];
    if (std::exchange(ldb.isLost, false)) {
        Track& track = ldb.tracks[Loss];
        RecordedEvent event;
        event.at = at;
        event.kind = EventKind::Returned;
        event.hexId = hexId;
        event.since = track.since;
        changed(track, false, event);
    }
    for (const auto& [place, level] : faultsOf(status)) {
        compareFault(at, hexId, ldb, place, level);
    }
    const int mode = static_cast<int>(status.state);
    const int former = std::exchange(ldb.mode, mode);
    m_revision += former == mode ? 0 : 1;
    if (former >= 0 && former != mode) {
        RecordedEvent event;
        event.at = at;
        event.kind = EventKind::ModeChanged;
        event.hexId = hexId;
        event.before = number(former);
        event.after = number(mode);
        changed(ldb.tracks[Mode], true, event);
    }
}

void EventFinder::compareFault(qint64 at, const QString& hexId, Ldb& ldb, FaultPlace place,
                               Level now)
{
    const Level before = std::exchange(ldb.faults[place], now);
    if (before == now) {
        return;
    }
    ++m_revision;
    Track& track = ldb.tracks[static_cast<int>(place)];
    RecordedEvent event;
    event.at = at;
    event.hexId = hexId;
    event.place = place;
    if (now == Level::Present) {
        event.kind = EventKind::FaultBegun;
    } else if (before == Level::Present) {
        event.kind = EventKind::FaultEnded;
        event.since = track.since;
    } else if (now == Level::Remembered) {
        event.kind = EventKind::FaultRemembered;
    } else {
        return; // what was only remembered has been forgotten
    }
    changed(track, now == Level::Present, event);
}

/// Tells it, or folds it.
void EventFinder::changed(Track& track, bool isPresent, const RecordedEvent& event)
{
    const bool isBegin = event.kind != EventKind::FaultEnded && event.kind != EventKind::Returned;
    ++m_revision;
    track.isPresent = isPresent;
    track.lastChange = event.at;
    track.since = isPresent ? event.at : 0;
    if (track.isFolding) {
        track.folded += isBegin ? 1 : 0;
        return;
    }
    if (isBegin) {
        track.begins.push_back(event.at);
        if (track.begins.size() > kFlappingBegins) {
            track.begins.erase(track.begins.begin());
        }
        if (track.begins.size() == kFlappingBegins &&
            event.at - track.begins.front() <= kFlappingTime) {
            track.isFolding = true;
            track.foldedSince = event.at;
            track.folded = 1;
            return;
        }
    }
    m_events.push_back(event);
}

void EventFinder::lost(qint64 at, const QString& hexId)
{
    passed(at);
    Ldb& ldb = m_ldbs[hexId];
    if (!std::exchange(ldb.isLost, true)) {
        RecordedEvent event;
        event.at = at;
        event.kind = EventKind::Lost;
        event.hexId = hexId;
        changed(ldb.tracks[Loss], true, event);
    }
}

void EventFinder::scanEnded(qint64 at, QStringList found)
{
    std::sort(found.begin(), found.end());
    if (std::exchange(m_hasScanned, true) && found != m_found) {
        RecordedEvent event;
        event.at = at;
        event.kind = EventKind::ScanDiffers;
        event.before = m_found.join(QLatin1Char(' '));
        event.after = found.join(QLatin1Char(' '));
        m_events.push_back(event);
    }
    m_revision += m_found == found ? 0 : 1;
    m_found = found;
}

void EventFinder::passed(qint64 at)
{
    for (auto& [hexId, ldb] : m_ldbs) {
        for (auto& [subject, track] : ldb.tracks) {
            if (track.isFolding) {
                settle(at, hexId, subject, track);
            }
        }
    }
}

void EventFinder::settle(qint64 at, const QString& hexId, int subject, Track& track)
{
    const bool hasSettled = at - track.lastChange >= kSettled;
    if (!hasSettled && at - track.foldedSince < kLongestFold) {
        return;
    }
    ++m_revision;
    RecordedEvent event;
    event.at = track.lastChange;
    event.kind = EventKind::Flapped;
    event.hexId = hexId;
    event.since = track.foldedSince;
    event.count = track.folded;
    event.isStill = track.isPresent;
    EventKind folded = EventKind::FaultBegun;
    if (subject == Loss) {
        folded = EventKind::Lost;
    } else if (subject == Mode) {
        folded = EventKind::ModeChanged;
        event.after = number(m_ldbs[hexId].mode);
    } else {
        event.place = static_cast<FaultPlace>(subject);
    }
    event.before = number(static_cast<int>(folded));
    if (event.count > 0) {
        m_events.push_back(event);
    }
    track.folded = 0;
    track.foldedSince = at;
    track.isFolding = !hasSettled;
    if (hasSettled) {
        track.begins.clear();
    }
}

std::vector<RecordedEvent> EventFinder::takeEvents()
{
    return std::exchange(m_events, {});
}

// Times are texts in the JSON: its numbers do not hold microseconds.
QByteArray EventFinder::toJson() const
{
    QJsonArray ldbs;
    for (const auto& [hexId, ldb] : m_ldbs) {
        QJsonObject faults;
        for (const auto& [place, level] : ldb.faults) {
            if (level != Level::None) {
                faults.insert(number(static_cast<int>(place)), static_cast<int>(level));
            }
        }
        QJsonArray tracks;
        for (const auto& [subject, track] : ldb.tracks) {
            if (!track.isPresent && !track.isFolding && track.begins.empty()) {
                continue;
            }
            QJsonArray begins;
            for (const qint64 begin : track.begins) {
                begins.append(number(begin));
            }
            tracks.append(QJsonObject{{QStringLiteral("subject"), subject},
                                      {QStringLiteral("since"), number(track.since)},
                                      {QStringLiteral("isFolding"), track.isFolding},
                                      {QStringLiteral("foldedSince"), number(track.foldedSince)},
                                      {QStringLiteral("folded"), track.folded},
                                      {QStringLiteral("lastChange"), number(track.lastChange)},
                                      {QStringLiteral("isPresent"), track.isPresent},
                                      {QStringLiteral("begins"), begins}});
        }
        ldbs.append(QJsonObject{{QStringLiteral("ldb"), hexId},
                                {QStringLiteral("faults"), faults},
                                {QStringLiteral("isLost"), ldb.isLost},
                                {QStringLiteral("mode"), ldb.mode},
                                {QStringLiteral("tracks"), tracks}});
    }
    QJsonObject all{{QStringLiteral("ldbs"), ldbs}};
    if (m_hasScanned) {
        all.insert(QStringLiteral("found"), QJsonArray::fromStringList(m_found));
    }
    return QJsonDocument(all).toJson(QJsonDocument::Compact);
}

EventFinder EventFinder::fromJson(const QByteArray& json)
{
    EventFinder finder;
    const QJsonObject all = QJsonDocument::fromJson(json).object();
    const auto time = [](const QJsonObject& object, const QString& key) {
        return object.value(key).toString().toLongLong();
    };
    const QJsonArray ldbs = all.value(QStringLiteral("ldbs")).toArray();
    for (const QJsonValue& value : ldbs) {
        const QJsonObject object = value.toObject();
        Ldb& ldb = finder.m_ldbs[object.value(QStringLiteral("ldb")).toString()];
        const QJsonObject faults = object.value(QStringLiteral("faults")).toObject();
        for (auto fault = faults.begin(); fault != faults.end(); ++fault) {
            ldb.faults[static_cast<FaultPlace>(fault.key().toInt())] =
                static_cast<Level>(qBound(0, fault.value().toInt(), 2));
        }
        ldb.isLost = object.value(QStringLiteral("isLost")).toBool();
        ldb.mode = object.value(QStringLiteral("mode")).toInt(-1);
        const QJsonArray tracks = object.value(QStringLiteral("tracks")).toArray();
        for (const QJsonValue& entry : tracks) {
            const QJsonObject kept = entry.toObject();
            Track& track = ldb.tracks[kept.value(QStringLiteral("subject")).toInt()];
            track.since = time(kept, QStringLiteral("since"));
            track.isFolding = kept.value(QStringLiteral("isFolding")).toBool();
            track.foldedSince = time(kept, QStringLiteral("foldedSince"));
            track.folded = kept.value(QStringLiteral("folded")).toInt();
            track.lastChange = time(kept, QStringLiteral("lastChange"));
            track.isPresent = kept.value(QStringLiteral("isPresent")).toBool();
            const QJsonArray begins = kept.value(QStringLiteral("begins")).toArray();
            for (const QJsonValue& begin : begins) {
                track.begins.push_back(begin.toString().toLongLong());
            }
        }
    }
    finder.m_hasScanned = all.contains(QStringLiteral("found"));
    const QJsonArray scanned = all.value(QStringLiteral("found")).toArray();
    for (const QJsonValue& found : scanned) {
        finder.m_found.append(found.toString());
    }
    return finder;
}

#include "recording/eventfinder.h"

#include "serial/ldb/microseconds.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <utility>

namespace {

using microseconds::kMinute;

/// What flapping is: so many begins within a time, either fast, or slowly and for long.
struct Flapping
{
    std::size_t begins;
    qint64 within;
    qint64 settled; ///< flapping is over after that long without a change
};
constexpr Flapping kFast{4, 3 * kMinute, kMinute};
constexpr Flapping kSlow{10, 60 * kMinute, 10 * kMinute};
/// What never settles is told again after that time.
constexpr qint64 kLongestFold = 60 * kMinute;

/// An LDB at work alternates between measuring and quiescent all day: that is no change of mode.
int modeOf(const LdbStatus& status)
{
    const LdbState mode = status.state == LdbState::Measuring ? LdbState::Quiescent : status.state;
    return static_cast<int>(mode);
}

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
    // A code without a meaning says nothing of its parts, and of one that counts as remembered none
    // is present.
    const auto parts = [&set](FaultLevel level, int code, FaultPlace place, int present) {
        if (code == 0 || level != FaultLevel::None) {
            set(place, level == FaultLevel::Major && (code & present) != 0,
                (code & (present * 3)) != 0);
        }
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

void EventFinder::runBegun()
{
    for (auto& [hexId, ldb] : m_ldbs) {
        m_revision += ldb.isFollowed ? 1 : 0;
        ldb.isFollowed = false;
    }
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
    m_revision += std::exchange(ldb.isFollowed, true) ? 0 : 1;
    const int mode = modeOf(status);
    const int former = std::exchange(ldb.mode, mode);
    m_revision += former == mode ? 0 : 1;
    if (former >= 0 && former != mode) {
        RecordedEvent event;
        event.at = at;
        event.kind = EventKind::ModeChanged;
        event.hexId = hexId;
        event.before = number(former);
        event.after = number(mode);
        changed(ldb.tracks[Mode + mode], true, event);
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
    event.isVague = !ldb.isFollowed;
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
    if (isBegin) {
        track.since = event.isVague ? 0 : event.at;
    }
    if (track.isFolding) {
        track.folded += isBegin ? 1 : 0;
        return;
    }
    m_events.push_back(event);
    track.isToldPresent = isPresent;
    if (isBegin) {
        beginFolding(track, event.at);
    }
}

/// Begins to fold where the subject has begun too often.
void EventFinder::beginFolding(Track& track, qint64 at)
{
    track.begins.push_back(at);
    if (track.begins.size() > kSlow.begins) {
        track.begins.erase(track.begins.begin());
    }
    const auto isFlapping = [&track, at](const Flapping& flapping) {
        const std::size_t begins = track.begins.size();
        return begins >= flapping.begins &&
               at - track.begins[begins - flapping.begins] <= flapping.within;
    };
    const bool isFast = isFlapping(kFast);
    track.isFolding = isFast || isFlapping(kSlow);
    track.isSlow = track.isFolding && !isFast;
    track.foldedSince = at;
    track.folded = 0;
}

void EventFinder::lost(qint64 at, const QString& hexId)
{
    passed(at);
    Ldb& ldb = m_ldbs[hexId];
    ldb.isFollowed = false;
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
    const bool hasSettled = at - track.lastChange >= (track.isSlow ? kSlow : kFast).settled;
    if (!hasSettled && at - track.foldedSince < kLongestFold) {
        return;
    }
    ++m_revision;
    tellFolded(hexId, subject, track);
    track.isToldPresent = track.isPresent;
    track.folded = 0;
    track.foldedSince = at;
    track.isFolding = !hasSettled;
    if (hasSettled) {
        track.begins.clear();
    }
}

void EventFinder::tellFolded(const QString& hexId, int subject, const Track& track)
{
    RecordedEvent event;
    event.at = track.lastChange;
    event.hexId = hexId;
    event.since = track.foldedSince;
    const bool isOfFault = subject < Loss;
    event.place = isOfFault ? static_cast<FaultPlace>(subject) : FaultPlace::None;
    if (track.folded > 0) {
        event.kind = EventKind::Flapped;
        event.count = track.folded;
        event.isStill = track.isPresent;
        const EventKind folded = isOfFault         ? EventKind::FaultBegun
                                 : subject == Loss ? EventKind::Lost
                                                   : EventKind::ModeChanged;
        event.before = number(static_cast<int>(folded));
        if (subject >= Mode) {
            event.after = number(subject - Mode);
        }
        m_events.push_back(event);
    } else if (track.isToldPresent && !track.isPresent) {
        // It went, and did not come again.
        event.kind = isOfFault ? EventKind::FaultEnded : EventKind::Returned;
        event.since = track.since;
        m_events.push_back(event);
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
                                      {QStringLiteral("isSlow"), track.isSlow},
                                      {QStringLiteral("foldedSince"), number(track.foldedSince)},
                                      {QStringLiteral("folded"), track.folded},
                                      {QStringLiteral("lastChange"), number(track.lastChange)},
                                      {QStringLiteral("isPresent"), track.isPresent},
                                      {QStringLiteral("isToldPresent"), track.isToldPresent},
                                      {QStringLiteral("begins"), begins}});
        }
        ldbs.append(QJsonObject{{QStringLiteral("ldb"), hexId},
                                {QStringLiteral("faults"), faults},
                                {QStringLiteral("isLost"), ldb.isLost},
                                {QStringLiteral("isFollowed"), ldb.isFollowed},
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
        ldb.isFollowed = object.value(QStringLiteral("isFollowed")).toBool();
        ldb.mode = object.value(QStringLiteral("mode")).toInt(-1);
        const QJsonArray tracks = object.value(QStringLiteral("tracks")).toArray();
        for (const QJsonValue& entry : tracks) {
            const QJsonObject kept = entry.toObject();
            Track& track = ldb.tracks[kept.value(QStringLiteral("subject")).toInt()];
            track.since = time(kept, QStringLiteral("since"));
            track.isFolding = kept.value(QStringLiteral("isFolding")).toBool();
            track.isSlow = kept.value(QStringLiteral("isSlow")).toBool();
            track.foldedSince = time(kept, QStringLiteral("foldedSince"));
            track.folded = kept.value(QStringLiteral("folded")).toInt();
            track.lastChange = time(kept, QStringLiteral("lastChange"));
            track.isPresent = kept.value(QStringLiteral("isPresent")).toBool();
            track.isToldPresent = kept.value(QStringLiteral("isToldPresent")).toBool();
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

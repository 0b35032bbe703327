#include "recording/recordedevent.h"

#include "serial/ldb/ldbstatus.h"

#include <QCoreApplication>

#include <tuple>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RecordedEvent)
};

QString placeText(FaultPlace place)
{
    switch (place) {
    case FaultPlace::LoopOpen:
        return Texts::tr("Loop open");
    case FaultPlace::LoopShort:
        return Texts::tr("Loop short");
    case FaultPlace::LoopDcLeakage:
        return Texts::tr("Loop DC leakage");
    case FaultPlace::EarthOpen:
        return Texts::tr("Earth wire open");
    case FaultPlace::EarthLeakage:
        return Texts::tr("Earth leakage");
    case FaultPlace::Amplifier:
        return Texts::tr("Amplifier disconnected");
    case FaultPlace::PrimaryPort:
        return Texts::tr("Primary port short");
    case FaultPlace::SecondaryPort:
        return Texts::tr("Secondary port short");
    case FaultPlace::None:
        break;
    }
    return {};
}

QString modeText(const QString& code)
{
    return ldbStateText(static_cast<LdbState>(code.toInt()));
}

/// "Loop open" of a fault, "Lost", or the change of the mode.
QString foldedText(const RecordedEvent& event)
{
    switch (static_cast<EventKind>(event.before.toInt())) {
    case EventKind::Lost:
        return Texts::tr("Lost");
    case EventKind::ModeChanged:
        return Texts::tr("Mode %1").arg(modeText(event.after));
    default:
        return placeText(event.place);
    }
}

QString flappedText(const RecordedEvent& event)
{
    QString text = Texts::tr("%1: %n times in %2", nullptr, event.count)
                       .arg(foldedText(event), durationText(event.at - event.since));
    switch (static_cast<EventKind>(event.before.toInt())) {
    case EventKind::ModeChanged:
        return text;
    case EventKind::Lost:
        return event.isStill ? Texts::tr("%1, still lost").arg(text)
                             : Texts::tr("%1, back now").arg(text);
    default:
        return event.isStill ? Texts::tr("%1, still there").arg(text)
                             : Texts::tr("%1, gone now").arg(text);
    }
}

QString afterTime(const RecordedEvent& event, const QString& without, const QString& with)
{
    return event.since == 0 ? without : with.arg(durationText(event.at - event.since));
}

QString scanText(const RecordedEvent& event)
{
    const QStringList before = event.before.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QStringList after = event.after.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QStringList missing;
    QStringList added;
    for (const QString& hexId : before) {
        if (!after.contains(hexId)) {
            missing.append(hexId);
        }
    }
    for (const QString& hexId : after) {
        if (!before.contains(hexId)) {
            added.append(hexId);
        }
    }
    QStringList parts;
    if (!missing.isEmpty()) {
        parts.append(Texts::tr("missing: %1").arg(missing.join(QStringLiteral(", "))));
    }
    if (!added.isEmpty()) {
        parts.append(Texts::tr("new: %1").arg(added.join(QStringLiteral(", "))));
    }
    return Texts::tr("The scan differs from the last one: %1")
        .arg(parts.join(QStringLiteral("; ")));
}

} // namespace

bool RecordedEvent::operator==(const RecordedEvent& other) const
{
    const auto tied = [](const RecordedEvent& event) {
        return std::tie(event.at, event.kind, event.hexId, event.place, event.since, event.count,
                        event.isStill, event.isVague, event.before, event.after, event.text);
    };
    return tied(*this) == tied(other);
}

bool RecordedEvent::isForPeople() const
{
    // Its first name is none that it was given.
    return kind != EventKind::Listed && !(kind == EventKind::Named && before.isEmpty());
}

QString RecordedEvent::description() const
{
    switch (kind) {
    case EventKind::FaultBegun:
        return isVague ? Texts::tr("%1, there already").arg(placeText(place)) : placeText(place);
    case EventKind::FaultEnded:
        if (isVague) {
            return afterTime(
                *this, Texts::tr("%1 gone meanwhile").arg(placeText(place)),
                Texts::tr("%1 gone after %2 at most").arg(placeText(place), QStringLiteral("%1")));
        }
        return afterTime(*this, Texts::tr("%1 gone").arg(placeText(place)),
                         Texts::tr("%1 gone after %2").arg(placeText(place), QStringLiteral("%1")));
    case EventKind::FaultRemembered:
        return isVague ? Texts::tr("%1 in memory, there already").arg(placeText(place))
                       : Texts::tr("%1 came and went").arg(placeText(place));
    case EventKind::Flapped:
        return flappedText(*this);
    case EventKind::ModeChanged:
        return Texts::tr("Mode %1, before %2").arg(modeText(after), modeText(before));
    case EventKind::Lost:
        return Texts::tr("Lost");
    case EventKind::Returned:
        return afterTime(*this, Texts::tr("Back"), Texts::tr("Back after %1"));
    case EventKind::ScanDiffers:
        return scanText(*this);
    case EventKind::RunBegun:
        return Texts::tr("Started on %1").arg(text);
    case EventKind::RunEnded:
        return afterTime(*this, Texts::tr("Stopped"), Texts::tr("Stopped after %1"));
    case EventKind::PortLost:
        return Texts::tr("Port lost: %1").arg(text);
    case EventKind::PortBack:
        return afterTime(*this, Texts::tr("Port back"), Texts::tr("Port back after %1"));
    case EventKind::ActionSent:
    case EventKind::SettingsSaved:
    case EventKind::SettingsImported:
    case EventKind::FaultFinding:
    case EventKind::Mark:
        return text;
    case EventKind::Gap:
        return Texts::tr("Not recorded: %n exchanges in %1", nullptr, count)
            .arg(durationText(at - since));
    case EventKind::ClockSet:
        return Texts::tr("The computer's clock was set");
    case EventKind::Named:
        return Texts::tr("Name \"%1\", before \"%2\"").arg(after, before);
    case EventKind::Listed:
        break;
    }
    return text;
}

bool RecordedEvent::hasValues() const
{
    switch (kind) {
    case EventKind::ActionSent:
    case EventKind::SettingsSaved:
    case EventKind::SettingsImported:
    case EventKind::FaultFinding:
        return !before.isEmpty() || !after.isEmpty();
    default:
        return false;
    }
}

QString durationText(qint64 microseconds)
{
    constexpr qint64 kMicroseconds = 1000000;
    constexpr int kSixty = 60;
    constexpr int kHours = 24;
    const qint64 seconds = microseconds / kMicroseconds;
    const qint64 minutes = seconds / kSixty;
    const qint64 hours = minutes / kSixty;
    if (minutes == 0) {
        return Texts::tr("%1 s").arg(seconds);
    }
    if (hours == 0) {
        return Texts::tr("%1 min %2 s").arg(minutes).arg(seconds % kSixty);
    }
    if (hours < kHours) {
        return Texts::tr("%1 h %2 min").arg(hours).arg(minutes % kSixty);
    }
    return Texts::tr("%1 d %2 h").arg(hours / kHours).arg(hours % kHours);
}

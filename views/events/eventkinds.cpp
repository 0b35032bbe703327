#include "views/events/eventkinds.h"

#include "app/shared/colours.h"

#include <QCoreApplication>

namespace eventkinds {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(EventKinds)
};

/// An event that says that something flapped counts as that something.
EventKind kindOf(const RecordedEvent& event)
{
    return event.kind == EventKind::Flapped ? static_cast<EventKind>(event.before.toInt())
                                            : event.kind;
}

} // namespace

EventGroup groupOf(const RecordedEvent& event)
{
    switch (kindOf(event)) {
    case EventKind::FaultBegun:
    case EventKind::FaultEnded:
    case EventKind::FaultRemembered:
    case EventKind::Flapped:
        return EventGroup::Faults;
    case EventKind::Lost:
    case EventKind::Returned:
    case EventKind::ScanDiffers:
        return EventGroup::Losses;
    case EventKind::ModeChanged:
        return EventGroup::Modes;
    case EventKind::ActionSent:
    case EventKind::SettingsSaved:
    case EventKind::SettingsImported:
    case EventKind::Named:
        return EventGroup::Work;
    case EventKind::FaultFinding:
        return EventGroup::FaultFinding;
    case EventKind::Mark:
        return EventGroup::Marks;
    case EventKind::RunBegun:
    case EventKind::RunEnded:
    case EventKind::PortLost:
    case EventKind::PortBack:
    case EventKind::Gap:
    case EventKind::ClockSet:
    case EventKind::Listed:
        break;
    }
    return EventGroup::Recording;
}

QString textOf(EventGroup group)
{
    switch (group) {
    case EventGroup::Faults:
        return Texts::tr("Faults");
    case EventGroup::Losses:
        return Texts::tr("Losses and scans");
    case EventGroup::Modes:
        return Texts::tr("Modes");
    case EventGroup::Work:
        return Texts::tr("Actions and settings");
    case EventGroup::FaultFinding:
        return Texts::tr("Fault finding");
    case EventGroup::Marks:
        return Texts::tr("Marks");
    case EventGroup::Recording:
        break;
    }
    return Texts::tr("Bus and recording");
}

QColor colourOf(const RecordedEvent& event)
{
    switch (kindOf(event)) {
    case EventKind::FaultBegun:
    case EventKind::FaultRemembered:
    case EventKind::Flapped:
        return colours::kEventFault;
    case EventKind::Lost:
    case EventKind::ScanDiffers:
    case EventKind::PortLost:
    case EventKind::Gap:
        return colours::kEventLoss;
    case EventKind::FaultEnded:
    case EventKind::Returned:
    case EventKind::PortBack:
        return colours::kEventGood;
    case EventKind::ActionSent:
    case EventKind::SettingsSaved:
    case EventKind::SettingsImported:
    case EventKind::Named:
    case EventKind::FaultFinding:
        return colours::kEventWork;
    case EventKind::Mark:
        return colours::kEventMark;
    case EventKind::ModeChanged:
    case EventKind::RunBegun:
    case EventKind::RunEnded:
    case EventKind::ClockSet:
    case EventKind::Listed:
        break;
    }
    return colours::kEventOther;
}

QString lastingId(const RecordedEvent& event)
{
    switch (kindOf(event)) {
    case EventKind::FaultBegun:
    case EventKind::FaultEnded:
        return event.hexId + QLatin1Char('/') + QString::number(static_cast<int>(event.place));
    case EventKind::Lost:
    case EventKind::Returned:
        return event.hexId + QStringLiteral("/lost");
    case EventKind::RunBegun:
    case EventKind::RunEnded:
        return QStringLiteral("run");
    case EventKind::PortLost:
    case EventKind::PortBack:
        return QStringLiteral("port");
    default:
        return {};
    }
}

bool isBegin(const RecordedEvent& event)
{
    return event.kind == EventKind::FaultBegun || event.kind == EventKind::Lost ||
           event.kind == EventKind::RunBegun || event.kind == EventKind::PortLost;
}

} // namespace eventkinds

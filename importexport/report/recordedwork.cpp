#include "importexport/report/recordedwork.h"

#include "serial/ldb/generalinformation.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace recordedwork {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RecordedWork)
};

// In the order of the enumerators.
constexpr const char* kFieldKeys[] = {"name",
                                      "numberOfFims",
                                      "openDetectionDelay",
                                      "generalFaultOutput",
                                      "earthLeakageDetection",
                                      "earthWireOpenDetection",
                                      "startInServiceMode",
                                      "amplifierDetection",
                                      "audioMute"};
static_assert(std::size(kFieldKeys) == kLdbFields.size());
constexpr const char* kOutcomeKeys[] = {"verified", "accepted",   "refused", "not answered",
                                        "differs",  "left alone", "not sent"};

const QString kValue = QStringLiteral("value");
const QString kOutcome = QStringLiteral("outcome");
const QString kCommissioning = QStringLiteral("commissioning");
const QString kPrimary = QStringLiteral("primary");
const QString kSecondary = QStringLiteral("secondary");
const QString kTracked = QStringLiteral("tracked");
const QString kEnd = QStringLiteral("end");
const QString kFims = QStringLiteral("fims");
const QString kLeakages = QStringLiteral("leakages");
const QString kOfEarth = QStringLiteral("earth");
const QString kConfigured = QStringLiteral("configured");

QString keyOf(LdbField field)
{
    return QLatin1String(kFieldKeys[static_cast<std::size_t>(field)]);
}

QString compact(const QJsonObject& object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

QJsonObject objectOf(const QString& text)
{
    return QJsonDocument::fromJson(text.toUtf8()).object();
}

ChangeOutcome outcomeOf(const SettingsOutcome& outcome, LdbField field)
{
    switch (outcome.outcomeOf(field)) {
    case FieldOutcome::Written:
        return ChangeOutcome::Verified;
    case FieldOutcome::Refused:
        return ChangeOutcome::Refused;
    case FieldOutcome::Differs:
        return ChangeOutcome::Differs;
    case FieldOutcome::Overtaken:
        return ChangeOutcome::LeftAlone;
    case FieldOutcome::Unsent:
        return ChangeOutcome::NotSent;
    case FieldOutcome::NotAnswered:
        break;
    }
    const bool isAccepted = !outcome.isReadBack && outcome.isComplete();
    return isAccepted ? ChangeOutcome::Accepted : ChangeOutcome::NotAnswered;
}

QJsonObject toJson(const Finding::Side& side)
{
    QJsonObject object{{kTracked, side.isTracked}, {kFims, side.fims}};
    if (side.isFinished) {
        object[kEnd] = static_cast<int>(side.end);
    }
    return object;
}

Finding::Side sideFrom(const QJsonObject& object)
{
    const int end = object[kEnd].toInt(-1);
    Finding::Side side;
    side.isTracked = object[kTracked].toBool(true);
    side.fims = object[kFims].toInt();
    side.isFinished = end >= 0 && end <= static_cast<int>(Finding::End::Short);
    side.end = side.isFinished ? static_cast<Finding::End>(end) : Finding::End::Connected;
    return side;
}

void put(QJsonObject& object, const QString& key, std::optional<int> number)
{
    if (number) {
        object[key] = *number;
    }
}

std::optional<int> numberFrom(const QJsonObject& object, const QString& key)
{
    return object[key].isDouble() ? std::make_optional(object[key].toInt()) : std::nullopt;
}

QString endText(Finding::End end)
{
    switch (end) {
    case Finding::End::Open:
        return Texts::tr("open");
    case Finding::End::Short:
        return Texts::tr("short");
    case Finding::End::Connected:
        break;
    }
    return Texts::tr("connected");
}

QString sideText(const QString& side, const Finding::Side& found)
{
    if (!found.isTracked) {
        return Texts::tr("%1: not tracked").arg(side);
    }
    if (!found.isFinished) {
        return Texts::tr("%1: %n FIM's counted", nullptr, found.fims).arg(side);
    }
    if (found.end == Finding::End::Connected) {
        return Texts::tr("%1: %n FIM's counted, connected", nullptr, found.fims).arg(side);
    }
    return Texts::tr("%1: %2, approximately at FIM %3")
        .arg(side, endText(found.end))
        .arg(found.fims);
}

} // namespace

std::optional<RecordedEvent> settingsEvent(EventKind kind, const SettingsOutcome& outcome)
{
    QJsonObject before;
    QJsonObject after;
    QStringList texts;
    for (const LdbField field : kLdbFields) {
        const auto has = [field](const std::vector<LdbField>& fields) {
            return std::find(fields.begin(), fields.end(), field) != fields.end();
        };
        if (!has(outcome.fields) && !has(outcome.overtaken)) {
            continue;
        }
        FieldChange change{
            field, {}, fieldVariant(field, outcome.written), outcomeOf(outcome, field)};
        if (outcome.fresh) {
            change.before = fieldVariant(field, *outcome.fresh);
            before[keyOf(field)] = QJsonValue::fromVariant(change.before);
        }
        if (change.before == change.after && change.outcome == ChangeOutcome::Verified) {
            before.remove(keyOf(field));
            continue;
        }
        after[keyOf(field)] = QJsonObject{
            {kValue, QJsonValue::fromVariant(change.after)},
            {kOutcome, QLatin1String(kOutcomeKeys[static_cast<std::size_t>(change.outcome)])}};
        texts.append(Texts::tr("%1: %2 -> %3, %4")
                         .arg(fieldName(field), valueText(field, change.before),
                              valueText(field, change.after), outcomeText(change.outcome)));
    }
    if (after.isEmpty()) {
        return std::nullopt;
    }
    RecordedEvent event;
    event.kind = kind;
    event.hexId = outcome.hexId;
    event.before = compact(before);
    event.after = compact(after);
    event.text = texts.join(QStringLiteral("; "));
    return event;
}

std::vector<FieldChange> changesOf(const RecordedEvent& event)
{
    const QJsonObject before = objectOf(event.before);
    const QJsonObject after = objectOf(event.after);
    std::vector<FieldChange> changes;
    for (const LdbField field : kLdbFields) {
        const QJsonObject changed = after[keyOf(field)].toObject();
        const auto* outcome = std::find_if(
            std::begin(kOutcomeKeys), std::end(kOutcomeKeys), [&changed](const char* key) {
                return changed[kOutcome].toString() == QLatin1String(key);
            });
        if (outcome == std::end(kOutcomeKeys)) {
            continue;
        }
        changes.push_back({field, before[keyOf(field)].toVariant(), changed[kValue].toVariant(),
                           static_cast<ChangeOutcome>(outcome - std::begin(kOutcomeKeys))});
    }
    return changes;
}

QString valueText(LdbField field, const QVariant& value)
{
    LdbSettings settings;
    return value.isValid() && setFieldVariant(field, value, settings)
               ? fieldValue(field, settings)
               : generalinformation::kNoValue;
}

QString outcomeText(ChangeOutcome outcome)
{
    switch (outcome) {
    case ChangeOutcome::Verified:
        return Texts::tr("verified");
    case ChangeOutcome::Accepted:
        return Texts::tr("accepted, not verified");
    case ChangeOutcome::Refused:
        return Texts::tr("refused by the LDB");
    case ChangeOutcome::NotAnswered:
        return Texts::tr("not answered, not verified");
    case ChangeOutcome::Differs:
        return Texts::tr("the LDB has another value");
    case ChangeOutcome::LeftAlone:
        return Texts::tr("left alone");
    case ChangeOutcome::NotSent:
        break;
    }
    return Texts::tr("not sent");
}

RecordedEvent findingEvent(const QString& hexId, qint64 since, const Finding& finding)
{
    QJsonArray leakages;
    for (const Finding::Leakage& leakage : finding.leakages) {
        QJsonObject object{{kOfEarth, leakage.isOfEarth}};
        put(object, kPrimary, leakage.primary);
        put(object, kSecondary, leakage.secondary);
        leakages.append(object);
    }
    QJsonObject object{{kCommissioning, finding.isCommissioning},
                       {kPrimary, toJson(finding.primary)},
                       {kSecondary, toJson(finding.secondary)},
                       {kLeakages, leakages}};
    put(object, kConfigured, finding.configured);
    RecordedEvent event;
    event.kind = EventKind::FaultFinding;
    event.hexId = hexId;
    event.since = since;
    event.after = compact(object);
    event.text = findingTexts(finding).join(QStringLiteral("; "));
    return event;
}

std::optional<Finding> findingOf(const RecordedEvent& event)
{
    const QJsonObject object = objectOf(event.after);
    if (event.kind != EventKind::FaultFinding || !object[kPrimary].isObject() ||
        !object[kSecondary].isObject()) {
        return std::nullopt;
    }
    Finding finding;
    finding.isCommissioning = object[kCommissioning].toBool();
    finding.primary = sideFrom(object[kPrimary].toObject());
    finding.secondary = sideFrom(object[kSecondary].toObject());
    for (const auto& value : object[kLeakages].toArray()) {
        const QJsonObject leakage = value.toObject();
        finding.leakages.push_back({leakage[kOfEarth].toBool(), numberFrom(leakage, kPrimary),
                                    numberFrom(leakage, kSecondary)});
    }
    finding.configured = numberFrom(object, kConfigured);
    return finding;
}

QStringList findingTexts(const Finding& finding)
{
    QStringList texts{
        finding.isCommissioning ? Texts::tr("Commissioning") : Texts::tr("Fault finding"),
        sideText(Texts::tr("Primary side"), finding.primary),
        sideText(Texts::tr("Secondary side"), finding.secondary),
    };
    for (const Finding::Leakage& leakage : finding.leakages) {
        texts.append(leakageText(leakage));
    }
    return texts;
}

QString leakageText(const Finding::Leakage& leakage)
{
    QStringList places;
    if (leakage.primary) {
        places.append(Texts::tr("primary side approximately at FIM %1").arg(*leakage.primary));
    }
    if (leakage.secondary) {
        places.append(Texts::tr("secondary side approximately at FIM %1").arg(*leakage.secondary));
    }
    const QString kind =
        leakage.isOfEarth ? Texts::tr("Earth leakage") : Texts::tr("Loop DC leakage");
    return places.isEmpty() ? kind
                            : QStringLiteral("%1: %2").arg(kind, places.join(QStringLiteral(", ")));
}

} // namespace recordedwork

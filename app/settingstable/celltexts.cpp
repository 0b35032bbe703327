#include "app/settingstable/celltexts.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SettingsTable)
};

QString arrow(const QString& from, const QString& to)
{
    return QStringLiteral("%1 \u2192 %2").arg(from, to);
}

/// In some languages two words for a switch do not fit into a column. A number's unit stands in the
/// head.
QString shortValue(LdbField field, const LdbSettings& settings)
{
    switch (kindOf(field)) {
    case FieldKind::FreeText:
        return fieldValue(field, settings);
    case FieldKind::Number:
        return fieldVariant(field, settings).toString();
    case FieldKind::Switch:
        break;
    }
    return fieldVariant(field, settings).toBool() ? QStringLiteral("\u2611")
                                                  : QStringLiteral("\u2610");
}

bool isCertain(const TableRow& row, LdbField field)
{
    return row.read && row.doubtful.count(field) == 0;
}

QString changeText(const TableRow& row, LdbField field)
{
    const QString present =
        isCertain(row, field) ? shortValue(field, *row.read) : QStringLiteral("?");
    return arrow(present, shortValue(field, row.wanted));
}

} // namespace

QString celltexts::ofOutcome(FieldOutcome outcome)
{
    switch (outcome) {
    case FieldOutcome::Written:
        return Texts::tr("written");
    case FieldOutcome::Refused:
        return Texts::tr("refused");
    case FieldOutcome::NotAnswered:
        return Texts::tr("not answered");
    case FieldOutcome::Differs:
        return Texts::tr("differs");
    case FieldOutcome::Overtaken:
        return Texts::tr("left alone");
    case FieldOutcome::Unsent:
        break;
    }
    return Texts::tr("not sent");
}

QString celltexts::ofCell(const TableRow& row, LdbField field, bool differs)
{
    if (!row.isKnown(field)) {
        return {};
    }
    QString text;
    if (row.isEdited(field)) {
        text = changeText(row, field);
    } else if (!isCertain(row, field)) {
        text = QStringLiteral("?");
    } else if (kindOf(field) != FieldKind::Switch) { // a switch is shown by its box
        text = shortValue(field, *row.read);
    }
    if (differs &&
        !row.isEdited(field)) { // an edit has a mark of its own, and there is no room for both
        text = QStringLiteral("\u2260 %1").arg(text).trimmed();
    }
    const auto outcome = row.outcomes.find(field);
    if (outcome == row.outcomes.end()) {
        return text;
    }
    // What went wrong stands first, where a narrow column does not cut it off.
    return outcome->second == FieldOutcome::Written
               ? QStringLiteral("%1 \u2713").arg(text).trimmed()
               : QStringLiteral("%1: %2").arg(ofOutcome(outcome->second), text);
}

QString celltexts::tip(const TableRow& row, LdbField field, const TableComparison& comparison)
{
    QStringList lines{fieldName(field)};
    if (row.isEdited(field)) {
        lines.append(Texts::tr("To be written: %1").arg(fieldValue(field, row.wanted)));
    }
    if (row.doubtful.count(field) > 0) {
        lines.append(Texts::tr("What the LDB has is not known: it was not read back."));
    } else if (row.read) {
        lines.append(Texts::tr("The LDB has: %1").arg(fieldValue(field, *row.read)));
    }
    const auto outcome = row.outcomes.find(field);
    if (outcome != row.outcomes.end()) {
        lines.append(Texts::tr("The last Write: %1").arg(ofOutcome(outcome->second)));
    }
    const LdbSettings* expected = comparison.expected(row.hexId, field);
    if (expected != nullptr) {
        const QString value = fieldValue(field, *expected);
        switch (comparison.with()) {
        case TableComparison::With::Most:
            lines.append(Texts::tr("Most LDB's have: %1").arg(value));
            break;
        case TableComparison::With::Defaults:
            lines.append(Texts::tr("Factory default: %1").arg(value));
            break;
        case TableComparison::With::Other:
            lines.append(QStringLiteral("%1: %2").arg(comparison.other().name(), value));
            break;
        }
    }
    return lines.join(QLatin1Char('\n'));
}

QString celltexts::ofRow(const TableRow& row)
{
    QStringList parts;
    const auto has = [&row](FieldOutcome wanted) {
        return std::any_of(row.outcomes.begin(), row.outcomes.end(),
                           [wanted](const auto& entry) { return entry.second == wanted; });
    };
    if (!row.isConnected) {
        parts.append(Texts::tr("not connected"));
    }
    switch (row.reading) {
    case TableRow::Reading::Never:
        parts.append(Texts::tr("not read"));
        break;
    case TableRow::Reading::Awaited:
        parts.append(Texts::tr("waits to be read"));
        break;
    case TableRow::Reading::Unanswered:
        parts.append(Texts::tr("did not answer"));
        break;
    case TableRow::Reading::Unsent:
        parts.append(Texts::tr("the connection ended before it was read"));
        break;
    case TableRow::Reading::Read:
        break;
    }
    if (has(FieldOutcome::Overtaken)) {
        parts.append(Texts::tr("changed since it was shown: nothing was written"));
    }
    for (const FieldOutcome outcome :
         {FieldOutcome::Refused, FieldOutcome::NotAnswered, FieldOutcome::Differs,
          FieldOutcome::Unsent, FieldOutcome::Written}) {
        if (has(outcome)) {
            parts.append(ofOutcome(outcome));
        }
    }
    if (!row.edits.empty()) {
        parts.append(Texts::tr("%n to write", nullptr, static_cast<int>(row.edits.size())));
    }
    return parts.join(QStringLiteral("; "));
}

#include "app/ldbsettings/settingstexts.h"

#include <QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LdbSettingsEditor)
};

QString reasonOf(const SettingsOutcome* failed, LdbField field)
{
    return failed != nullptr ? failed->reasonOf(field) : QString();
}

} // namespace

QString settingstexts::ofField(const LdbSettingsEdit& edit, LdbField field,
                               const SettingsOutcome* failed)
{
    if (!edit.isChanged(field)) {
        return {};
    }
    const QString present = fieldValue(field, edit.record());
    if (edit.isOvertaken(field)) {
        return Texts::tr("Changed by somebody else meanwhile. The LDB has: %1").arg(present);
    }
    const QString changed = Texts::tr("Changed. The LDB has: %1").arg(present);
    const QString reason = reasonOf(failed, field);
    return reason.isEmpty() ? changed
                            : changed + QLatin1Char('\n') + Texts::tr("Not saved: %1").arg(reason);
}

QStringList settingstexts::ofAll(const LdbSettingsEdit& edit, const SettingsOutcome* failed)
{
    QStringList lines;
    if (edit.changeCount() > 0) {
        lines.append(Texts::tr("%n unsaved change(s), in bold", nullptr, edit.changeCount()));
    }
    for (const LdbField field : kLdbFields) {
        if (edit.isOvertaken(field) && reasonOf(failed, field).isEmpty()) {
            lines.append(Texts::tr("Changed by somebody else meanwhile: %1 (%2)")
                             .arg(fieldName(field), fieldValue(field, edit.record())));
        }
    }
    if (failed != nullptr) {
        lines.append(failed->texts());
    }
    return lines;
}

QStringList settingstexts::changes(const LdbSettingsEdit& edit)
{
    QStringList fields;
    for (const LdbField field : kLdbFields) {
        if (edit.isChanged(field)) {
            fields.append(
                Texts::tr("%1: %2").arg(fieldName(field), fieldValue(field, edit.values())));
        }
    }
    return fields;
}

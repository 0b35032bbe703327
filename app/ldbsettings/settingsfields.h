#pragma once

#include "app/ldbsettings/ldbsettingsedit.h"
#include "app/shared/enabledcontrols.h"
#include "app/shared/text.h"

#include <QCoreApplication>
#include <QString>

#include <vector>

class QCheckBox;
class QWidget;

namespace Ui {
class LdbSettingsEditor;
}

/// The fields of the settings form: what stands in them, which of them are marked as changed, and
/// which can be used. Decides nothing about the settings. Not the owner of the form, which lives
/// longer. GUI thread.
class SettingsFields
{
    Q_DECLARE_TR_FUNCTIONS(SettingsFields)
public:
    struct Flag
    {
        LdbField field;
        bool LdbSettings::*member;
        QCheckBox* box;
    };

    explicit SettingsFields(const Ui::LdbSettingsEditor& form);

    const std::vector<Flag>& flags() const { return m_flags; }

    /// So that the form keeps its width when a change turns a text bold. Again when the texts are
    /// others.
    void reserveBoldWidths() const;

    void showFirmwareId(const QString& firmwareId) const;
    /// No field tells of a change by this.
    void showValues(const LdbSettingsEdit& edit) const;
    /// Marks what differs from the record, in bold and in words. `failedSave`: the last Save if it
    /// failed, null otherwise.
    void markChanges(const LdbSettingsEdit& edit, const SettingsOutcome* failedSave) const;
    void permit(const LdbSettingsEdit& edit, const Permission& editing) const;
    /// Any control that needs a record; `whyNot`: what else hinders it.
    static void permit(QWidget* widget, const LdbSettingsEdit& edit, const Permission& editing,
                       const Text& whyNot = {});

private:
    const Ui::LdbSettingsEditor& m_form;
    std::vector<Flag> m_flags;
};

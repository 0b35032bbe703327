#include "app/ldbsettings/settingsfields.h"

#include "app/ldbsettings/fieldcontrols.h"
#include "app/ldbsettings/settingstexts.h"
#include "app/shared/whynot.h"
#include "ui_ldbsettingseditor.h"

#include <QSignalBlocker>

#include <initializer_list>

SettingsFields::SettingsFields(const Ui::LdbSettingsEditor& form)
    : m_form(form)
{
    fieldcontrols::limit(form.settingsNameLineEdit);
    fieldcontrols::limit(form.settingsNumberOfFimsSpinBox);
    fieldcontrols::limit(form.settingsOpenDetectionDelaySpinBox);
    m_flags = {
        {LdbField::GeneralFaultOutput, &LdbSettings::generalFaultOutput,
         form.settingsGeneralFaultOutputCheckBox},
        {LdbField::EarthLeakageDetection, &LdbSettings::earthLeakageDetection,
         form.settingsEarthLeakageDetectionCheckBox},
        {LdbField::EarthWireOpenDetection, &LdbSettings::earthWireOpenDetection,
         form.settingsEarthWireOpenDetectionCheckBox},
        {LdbField::StartInServiceMode, &LdbSettings::startInServiceMode,
         form.settingsStartInServiceModeCheckBox},
        {LdbField::AmplifierDetection, &LdbSettings::amplifierDetection,
         form.settingsAmplifierDetectionCheckBox},
        {LdbField::AudioMute, &LdbSettings::audioMute, form.settingsAudioMuteCheckBox},
    };
    reserveBoldWidths();
}

void SettingsFields::reserveBoldWidths() const
{
    for (const Flag& flag : m_flags) {
        fieldcontrols::reserveBoldWidth(flag.box);
    }
    fieldcontrols::reserveBoldWidth(m_form.settingsOpenDetectionDelayCheckBox);
}

void SettingsFields::showFirmwareId(const QString& firmwareId) const
{
    m_form.settingsFirmwareIdLabel->setText(firmwareId);
    // However long the id is, the column keeps its width.
    m_form.settingsFirmwareIdLabel->setToolTip(firmwareId.toHtmlEscaped());
}

void SettingsFields::showValues(const LdbSettingsEdit& edit) const
{
    const LdbSettings& values = edit.values();
    // Only the user's own changes are edits.
    const QSignalBlocker nameBlocker(m_form.settingsNameLineEdit);
    const QSignalBlocker fimsBlocker(m_form.settingsNumberOfFimsSpinBox);
    const QSignalBlocker delayBlocker(m_form.settingsOpenDetectionDelaySpinBox);
    const QSignalBlocker detectionBlocker(m_form.settingsOpenDetectionDelayCheckBox);
    if (m_form.settingsNameLineEdit->text() != values.name) {
        m_form.settingsNameLineEdit->setText(values.name);
    }
    m_form.settingsNumberOfFimsSpinBox->setValue(values.numberOfFims);
    m_form.settingsOpenDetectionDelayCheckBox->setChecked(edit.openDetection());
    m_form.settingsOpenDetectionDelaySpinBox->setSpecialValueText(
        edit.openDetection() ? QString() : QStringLiteral("0"));
    m_form.settingsOpenDetectionDelaySpinBox->setValue(values.openDetectionDelay);
    for (const Flag& flag : m_flags) {
        const QSignalBlocker blocker(flag.box);
        flag.box->setChecked(values.*flag.member);
    }
}

void SettingsFields::markChanges(const LdbSettingsEdit& edit,
                                 const SettingsOutcome* failedSave) const
{
    const auto mark = [&](QWidget* widget, LdbField field, bool isChanged) {
        const QString words =
            isChanged ? settingstexts::ofField(edit, field, failedSave) : QString();
        widget->setAccessibleDescription(words);
        widget->setToolTip(words);
        QFont font = widget->font();
        font.setBold(isChanged);
        widget->setFont(font);
    };
    const auto markField = [&](QWidget* widget, LdbField field) {
        mark(widget, field, edit.isChanged(field));
    };
    markField(m_form.settingsNameLineEdit, LdbField::Name);
    markField(m_form.settingsNumberOfFimsSpinBox, LdbField::NumberOfFims);
    markField(m_form.settingsOpenDetectionDelaySpinBox, LdbField::OpenDetectionDelay);
    mark(m_form.settingsOpenDetectionDelayCheckBox, LdbField::OpenDetectionDelay,
         edit.hasRecord() && edit.openDetection() != edit.record().openDetection());
    for (const Flag& flag : m_flags) {
        markField(flag.box, flag.field);
    }
}

void SettingsFields::permit(const LdbSettingsEdit& edit, const Permission& editing) const
{
    for (QWidget* widget : std::initializer_list<QWidget*>{
             m_form.settingsNameLabel, m_form.settingsNameLineEdit,
             m_form.settingsNumberOfFimsLabel, m_form.settingsNumberOfFimsSpinBox,
             m_form.settingsOpenDetectionDelayCheckBox}) {
        permit(widget, edit, editing);
    }
    for (const Flag& flag : m_flags) {
        permit(flag.box, edit, editing);
    }
    const Text noDelay = edit.openDetection() ? Text() : [] {
        return tr("Tick Enable Open Detection first.");
    };
    permit(m_form.settingsOpenDetectionDelayLabel, edit, editing, noDelay);
    permit(m_form.settingsOpenDetectionDelaySpinBox, edit, editing, noDelay);
}

void SettingsFields::permit(QWidget* widget, const LdbSettingsEdit& edit, const Permission& editing,
                            const Text& whyNot)
{
    if (!editing) {
        WhyNot::permit(widget, editing);
    } else if (!edit.hasRecord()) {
        WhyNot::permit(widget, [] { return tr("The settings have not been read yet."); });
    } else {
        WhyNot::permit(widget, whyNot);
    }
}

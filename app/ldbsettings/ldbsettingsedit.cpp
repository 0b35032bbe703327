#include "app/ldbsettings/ldbsettingsedit.h"

#include <algorithm>

void LdbSettingsEdit::receive(const LdbSettings& record)
{
    if (!m_isSaving) { // what a Save brings into the LDB is nobody else's
        markOvertaken(record);
    }
    take(record);
}

void LdbSettingsEdit::receiveBeforeSave(const LdbSettings& record)
{
    m_overtaken.clear();
    markOvertaken(record);
    take(record);
}

void LdbSettingsEdit::noteWritten(const SettingsOutcome& outcome)
{
    for (const LdbField field : outcome.fields) {
        if (outcome.reasonOf(field).isEmpty()) {
            copyField(field, outcome.written, m_basis);
        }
    }
}

void LdbSettingsEdit::receiveAfterSave(const LdbSettings& record, const LdbSettings& written,
                                       bool isComplete)
{
    m_isSaving = false;
    for (const LdbField field : kLdbFields) {
        if (isSameField(field, m_values, record) ||
            (isComplete && isSameField(field, m_values, written))) {
            m_touched.erase(field);
            m_overtaken.erase(field);
        }
    }
    take(record);
}

void LdbSettingsEdit::markOvertaken(const LdbSettings& record)
{
    for (const LdbField field : m_touched) {
        if (isSameField(field, record, m_values)) {
            m_overtaken.erase(field); // both want the same
        } else if (m_hasRecord && !isSameField(field, record, m_basis)) {
            m_overtaken.insert(field);
        }
    }
}

void LdbSettingsEdit::take(const LdbSettings& record)
{
    m_hasRecord = true;
    m_record = record;
    m_basis = record;
    LdbSettings values = record;
    for (const LdbField field : m_touched) {
        copyField(field, m_values, values);
    }
    m_values = values;
    if (m_touched.count(LdbField::OpenDetectionDelay) == 0) {
        takeDelay();
    }
}

void LdbSettingsEdit::edit(LdbField field, const LdbSettings& values)
{
    copyField(field, values, m_values);
    touchIfChanged(field);
}

void LdbSettingsEdit::setOpenDetection(bool on)
{
    if (on == m_openDetection) {
        return;
    }
    m_openDetection = on;
    if (on) {
        m_values.openDetectionDelay = m_formerDelay;
    } else {
        m_formerDelay = m_values.openDetectionDelay;
        m_values.openDetectionDelay = 0;
    }
    touchIfChanged(LdbField::OpenDetectionDelay);
}

void LdbSettingsEdit::undo()
{
    m_touched.clear();
    m_overtaken.clear();
    if (m_hasRecord) {
        take(m_record);
    }
}

void LdbSettingsEdit::setDefaults()
{
    const LdbSettings defaults = factoryDefaults();
    for (const LdbField field : kLdbFields) {
        if (hasDefault(field)) {
            copyField(field, defaults, m_values);
            // Also where it makes no difference now: the user wants the default there.
            m_touched.insert(field);
        }
    }
    takeDelay();
}

SettingsChange LdbSettingsEdit::change() const
{
    return {m_values, {m_touched.begin(), m_touched.end()}, m_basis};
}

bool LdbSettingsEdit::isChanged(LdbField field) const
{
    return m_hasRecord && !isSameField(field, m_values, m_record);
}

int LdbSettingsEdit::changeCount() const
{
    return static_cast<int>(std::count_if(kLdbFields.begin(), kLdbFields.end(),
                                          [this](LdbField field) { return isChanged(field); }));
}

void LdbSettingsEdit::touchIfChanged(LdbField field)
{
    m_overtaken.erase(field); // the user has seen it and decided anew
    if (m_isSaving || isChanged(field)) {
        m_touched.insert(field);
    } else {
        m_touched.erase(field);
    }
}

void LdbSettingsEdit::takeDelay()
{
    m_openDetection = m_values.openDetection();
    m_formerDelay =
        m_openDetection ? m_values.openDetectionDelay : factoryDefaults().openDetectionDelay;
}

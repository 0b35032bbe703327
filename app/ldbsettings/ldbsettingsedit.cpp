#include "app/ldbsettings/ldbsettingsedit.h"

#include <algorithm>

namespace {

constexpr quint16 kDefaultDelay = 10;

LdbSettings factoryDefaults()
{
    LdbSettings settings;
    settings.generalFaultOutput = true;
    settings.openDetectionDelay = kDefaultDelay;
    settings.earthLeakageDetection = true;
    settings.amplifierDetection = true;
    return settings;
}

} // namespace

void LdbSettingsEdit::receive(const LdbSettings& record)
{
    m_hasRecord = true;
    m_record = record;
    LdbSettings values = record;
    for (const LdbField field : m_touched) {
        copyField(field, m_values, values);
    }
    m_values = values;
    if (m_touched.count(LdbField::OpenDetectionDelay) == 0) {
        takeDelay();
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
        }
    }
    receive(record);
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
    if (m_hasRecord) {
        receive(m_record);
    }
}

void LdbSettingsEdit::setDefaults()
{
    const LdbSettings defaults = factoryDefaults();
    for (const LdbField field : kLdbFields) {
        if (field != LdbField::NumberOfFims) {
            copyField(field, defaults, m_values);
            // Also where it makes no difference now: the user wants the default there.
            m_touched.insert(field);
        }
    }
    takeDelay();
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
    if (m_isSaving || isChanged(field)) {
        m_touched.insert(field);
    } else {
        m_touched.erase(field);
    }
}

void LdbSettingsEdit::takeDelay()
{
    m_openDetection = m_values.openDetection();
    m_formerDelay = m_openDetection ? m_values.openDetectionDelay : kDefaultDelay;
}

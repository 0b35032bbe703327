#include "importexport/settingscomparison.h"

#include <algorithm>

SettingsComparison SettingsComparison::withFile(const QString& hexId, const LdbSettings& present,
                                                const LdbSettings& wanted)
{
    SettingsComparison comparison{hexId, present, present, {}};
    for (const LdbField field : kFileFields) {
        if (!isSameField(field, present, wanted)) {
            copyField(field, wanted, comparison.wanted);
            comparison.fields.push_back(field);
        }
    }
    std::sort(comparison.fields.begin(), comparison.fields.end());
    return comparison;
}

std::vector<LdbParameter> SettingsComparison::parameters() const
{
    std::vector<LdbParameter> found;
    for (const LdbField field : fields) {
        const LdbParameter parameter = parameterOf(field);
        if (std::find(found.begin(), found.end(), parameter) == found.end()) {
            found.push_back(parameter);
        }
    }
    return found;
}

QStringList SettingsComparison::changeTexts() const
{
    QStringList texts;
    for (const LdbField field : fields) {
        texts.append(
            QStringLiteral("%1: %2 \u2192 %3")
                .arg(fieldName(field), fieldValue(field, present), fieldValue(field, wanted)));
    }
    return texts;
}

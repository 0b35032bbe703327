#include "app/settingseditor/ldbnamevalidator.h"

#include "serial/ldbsettings.h"

QValidator::State LdbNameValidator::validate(QString& input, int& position) const
{
    Q_UNUSED(position)
    return isStorableName(input) ? Acceptable : Invalid;
}

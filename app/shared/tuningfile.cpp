#include "app/shared/tuningfile.h"

#include <QDebug>

int tuningNumber(const QSettings& tuning, const QString& key, int defaultNumber,
                 std::optional<int> wrongNumber)
{
    const QVariant value = tuning.value(key, defaultNumber);
    bool isNumber = false;
    const int number = value.toString().toInt(&isNumber);
    if (isNumber) {
        return number;
    }
    const int used = wrongNumber.value_or(defaultNumber);
    const QString group = tuning.group();
    qWarning() << (group.isEmpty() ? key : group + QLatin1Char('/') + key)
               << "is no whole number:" << value.toString() << "- using" << used;
    return used;
}

#include "app/shared/tuningfile.h"

#include <QDebug>

int tuningNumber(const QSettings& tuning, const QString& key, int defaultNumber)
{
    if (!tuning.contains(key)) {
        return defaultNumber;
    }
    const QString text = tuning.value(key).toString();
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    if (!isNumber) {
        qWarning() << key << "is no whole number:" << text << "- using" << defaultNumber;
        return defaultNumber;
    }
    return number;
}

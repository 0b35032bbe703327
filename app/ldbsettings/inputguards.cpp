#include "app/ldbsettings/inputguards.h"

#include "serial/ldb/ldbsettings.h"

#include <QEvent>

QValidator::State LdbNameValidator::validate(QString& input, int& position) const
{
    Q_UNUSED(position)
    return isStorableName(input) ? Acceptable : Invalid;
}

bool WheelGuard::eventFilter(QObject* watched, QEvent* event)
{
    Q_UNUSED(watched)
    if (event->type() != QEvent::Wheel) {
        return false;
    }
    event->ignore(); // whoever scrolls the form gets it
    return true;
}

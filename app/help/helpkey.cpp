#include "app/help/helpkey.h"

#include <QApplication>
#include <QKeyEvent>

#include <utility>

HelpKey::HelpKey(QString folder, QObject* parent)
    : QObject(parent)
    , m_folder(std::move(folder))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType() ||
        QApplication::activePopupWidget() != nullptr ||
        !static_cast<QKeyEvent*>(event)->matches(QKeySequence::HelpContents)) {
        return QObject::eventFilter(watched, event);
    }
    ManualWindow::showIndex(static_cast<QWidget*>(watched), m_folder);
    return true;
}

#include "app/shared/whynot.h"

#include <QHelpEvent>
#include <QToolTip>
#include <QWidget>

WhyNot::WhyNot(QWidget* widget)
    : QObject(widget)
{
    widget->installEventFilter(this);
}

void WhyNot::permit(QWidget* widget, Permission permission)
{
    permit(
        widget, permission ? Text() : [hindrance = permission.hindrance] {
            return hindranceText(hindrance);
        });
}

void WhyNot::permit(QWidget* widget, const Text& reason)
{
    auto* whyNot = widget->findChild<WhyNot*>(QString(), Qt::FindDirectChildrenOnly);
    if (whyNot == nullptr) {
        whyNot = new WhyNot(widget);
    }
    whyNot->m_reason = reason;
    widget->setEnabled(!reason);
}

bool WhyNot::eventFilter(QObject* watched, QEvent* event)
{
    const auto* widget = static_cast<QWidget*>(watched);
    if (event->type() != QEvent::ToolTip || widget->isEnabled() || !m_reason) {
        return false;
    }
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), m_reason(),
                       static_cast<QWidget*>(watched));
    return true;
}

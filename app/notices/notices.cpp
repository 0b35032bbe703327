#include "app/notices/notices.h"

#include <QStatusBar>

Notices::Notices(QStatusBar* bar, QWidget* window)
    : m_bar(bar)
    , m_window(window)
{
}

void Notices::say(const Text& text, int milliseconds)
{
    m_message = text;
    m_milliseconds = milliseconds;
    m_bar->showMessage(text(), milliseconds);
}

void Notices::hush()
{
    m_bar->clearMessage();
}

void Notices::retranslate()
{
    if (m_message && !m_bar->currentMessage().isEmpty()) {
        m_bar->showMessage(m_message(), m_milliseconds);
    }
}

#pragma once

#include "app/notices/messagebox.h"
#include "app/shared/text.h"

class QStatusBar;

/// Tells the user: a message in the status bar, or a box over the window. Every text is composed
/// when it is shown and again when the language changes. GUI thread.
class Notices
{
public:
    /// `bar` and `window` outlive this object.
    Notices(QStatusBar* bar, QWidget* window);

    /// Shows a message for `milliseconds` or, at 0, until another one comes.
    void say(const Text& text, int milliseconds = 0);
    /// Takes the message off.
    void hush();

    /// Opens a box over the window; see `MessageBox::tell`.
    MessageBox* box(QMessageBox::Icon icon, const BoxTexts& texts, const QString& name = {},
                    Qt::WindowModality modality = Qt::WindowModal)
    {
        return MessageBox::tell(m_window, icon, texts, name, modality);
    }
    /// Whether the box of that name is open.
    bool isOpen(const QString& name) const { return MessageBox::find(m_window, name) != nullptr; }

    /// Closes that box where it is open.
    void closeBox(const QString& name)
    {
        if (MessageBox* box = MessageBox::find(m_window, name)) {
            box->close();
        }
    }

    /// Says again in the language in force what the status bar shows. Boxes do so by themselves.
    void retranslate();

private:
    QStatusBar* m_bar;
    QWidget* m_window;
    Text m_message;
    int m_milliseconds = 0;
};

#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>

class QScrollArea;

/// What a message box says.
struct BoxText
{
    QString title;
    QString text;
    QString details; ///< stands below in smaller print; may be empty
};

/// A message box of the program: 500 x 200, one OK button, opened with `open()` so that nothing
/// waits for it, and deleted when closed. It asks `compose` again for its texts when the language
/// changes or `refresh()` is called; more lines than fit are scrolled.
class MessageBox : public QMessageBox
{
    Q_OBJECT
public:
    MessageBox(QMessageBox::Icon icon, std::function<BoxText()> compose, QWidget* parent);

    /// Opens one that nothing more is to be said in.
    static void openNew(QMessageBox::Icon icon, std::function<BoxText()> compose, QWidget* parent);

    void refresh();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeTextsOut();
    void makeTextsScrollable();
    void wrapTexts();

    std::function<BoxText()> m_compose;
    QScrollArea* m_scrollArea = nullptr;
};

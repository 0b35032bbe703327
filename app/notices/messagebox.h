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

using BoxTexts = std::function<BoxText()>;

/// A message box of the program: 500 x 200, one OK button, opened so that nothing waits for it, and
/// deleted when closed. It composes its texts again when the language changes; more lines than fit
/// are scrolled.
class MessageBox : public QMessageBox
{
    Q_OBJECT
public:
    MessageBox(QMessageBox::Icon icon, BoxTexts compose, QWidget* parent);

    /// Opens a box over `parent`. Of one name at most one is open at a time: it takes new texts.
    static void tell(QWidget* parent, QMessageBox::Icon icon, const BoxTexts& compose,
                     const QString& name = {});
    /// The open box of that name over `parent`, or null.
    static MessageBox* find(const QWidget* parent, const QString& name);

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void takeTextsOut();
    void makeTextsScrollable();
    void wrapTexts();

    BoxTexts m_compose;
    QScrollArea* m_scrollArea = nullptr;
};

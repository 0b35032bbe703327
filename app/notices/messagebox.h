#pragma once

#include <QMessageBox>
#include <QStringList>

#include <functional>

class QScrollArea;

/// What a message box says.
struct BoxText
{
    QString title;
    QString text;
    QString details = {};     ///< stands below in smaller print; may be empty
    QStringList choices = {}; ///< buttons of the box's own; the last one refuses
};

using BoxTexts = std::function<BoxText()>;

/// A message box of the program: 500 x 200, opened so that nothing waits for it, and deleted when
/// closed. It composes its texts again when the language changes; more lines than fit are scrolled.
class MessageBox : public QMessageBox
{
    Q_OBJECT
public:
    /// With choices in its texts, it has those instead of `buttons`.
    MessageBox(QMessageBox::Icon icon, BoxTexts compose, QWidget* parent,
               QMessageBox::StandardButtons buttons = QMessageBox::Ok);

    /// The position of the choice that closed it; -1 for another button.
    int choice() const { return m_choices.indexOf(clickedButton()); }

    /// The choice that Enter takes; the last one unless told otherwise.
    void setDefaultChoice(int choice);

    /// Opens a box over `parent`. Of one name at most one is open at a time: it takes new texts.
    /// With `Qt::NonModal` the window below can be used all the same.
    static MessageBox* tell(QWidget* parent, QMessageBox::Icon icon, const BoxTexts& compose,
                            const QString& name = {},
                            Qt::WindowModality modality = Qt::WindowModal);
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
    QList<QAbstractButton*> m_choices;
    QScrollArea* m_scrollArea = nullptr;
};

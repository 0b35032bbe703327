#include "app/notices/messagebox.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr QSize kBoxSize(500, 200);
/// Where a QMessageBox with an icon has its texts: behind the icon and a spacer.
constexpr int kTextColumn = 2;

// The labels of a QMessageBox have no accessors, only these names.
const QString kTextLabel = QStringLiteral("qt_msgbox_label");
const QString kDetailsLabel = QStringLiteral("qt_msgbox_informativelabel");

} // namespace

MessageBox::MessageBox(QMessageBox::Icon icon, BoxTexts compose, QWidget* parent,
                       QMessageBox::StandardButtons buttons)
    : QMessageBox(icon, QString(), QString(), QMessageBox::NoButton, parent)
    , m_compose(std::move(compose))
{
    setAttribute(Qt::WA_DeleteOnClose);
    // What ports and devices say must not be taken for markup.
    setTextFormat(Qt::PlainText);
    const int choices = m_compose().choices.size();
    for (int i = 0; i < choices; ++i) {
        m_choices.append(
            addButton(QString(), i < choices - 1 ? QMessageBox::AcceptRole : RejectRole));
    }
    if (choices == 0) {
        setStandardButtons(buttons);
    } else {
        setEscapeButton(m_choices.last());
        setDefaultButton(qobject_cast<QPushButton*>(m_choices.last()));
    }
    refresh();
}

void MessageBox::setDefaultChoice(int choice)
{
    setDefaultButton(qobject_cast<QPushButton*>(m_choices.value(choice)));
}

MessageBox* MessageBox::tell(QWidget* parent, QMessageBox::Icon icon, const BoxTexts& compose,
                             const QString& name, Qt::WindowModality modality)
{
    MessageBox* box = name.isEmpty() ? nullptr : find(parent, name);
    if (box == nullptr) {
        box = new MessageBox(icon, compose, parent);
        box->setObjectName(name);
    } else {
        box->m_compose = compose;
        box->refresh();
    }
    if (modality == Qt::NonModal) {
        box->setWindowModality(modality); // as it is made, it blocks the whole program
        box->show();
    } else {
        box->open();
    }
    return box;
}

MessageBox* MessageBox::find(const QWidget* parent, const QString& name)
{
    const auto boxes = parent->findChildren<MessageBox*>(name, Qt::FindDirectChildrenOnly);
    for (MessageBox* box : boxes) {
        if (box->isVisible()) { // a closed one waits to be deleted
            return box;
        }
    }
    return nullptr;
}

void MessageBox::refresh()
{
    const BoxText text = m_compose();
    setWindowTitle(text.title);
    for (int i = 0; i < m_choices.size(); ++i) {
        m_choices.at(i)->setText(text.choices.value(i));
    }
    // The base class lays itself out anew when it is given texts, and knows nothing of the area.
    takeTextsOut();
    setText(text.text);
    setInformativeText(text.details);
    makeTextsScrollable();
    setFixedSize(kBoxSize);
}

bool MessageBox::event(QEvent* event)
{
    const bool handled = QMessageBox::event(event);
    // The base class fits its size to its texts at these events, on lines as long as they come.
    if (event->type() == QEvent::Show || event->type() == QEvent::LayoutRequest) {
        wrapTexts();
        setFixedSize(kBoxSize);
        // What the base class has measured on one line must not push the texts under the bar.
        const int bar = m_scrollArea->verticalScrollBar()->sizeHint().width();
        m_scrollArea->widget()->setMaximumWidth(qMax(1, m_scrollArea->width() - bar));
    }
    return handled;
}

void MessageBox::changeEvent(QEvent* event)
{
    QMessageBox::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        refresh();
    }
}

void MessageBox::takeTextsOut()
{
    for (const QString& name : {kTextLabel, kDetailsLabel}) {
        if (auto* label = findChild<QLabel*>(name)) {
            label->setParent(this);
        }
    }
    delete m_scrollArea;
    m_scrollArea = nullptr;
}

void MessageBox::wrapTexts()
{
    for (const QString& name : {kTextLabel, kDetailsLabel}) {
        auto* label = findChild<QLabel*>(name);
        if (label != nullptr && !label->wordWrap()) {
            label->setWordWrap(true);
        }
    }
}

void MessageBox::makeTextsScrollable()
{
    auto* grid = qobject_cast<QGridLayout*>(layout());
    if (grid == nullptr) {
        return;
    }
    auto* content = new QWidget;
    auto* lines = new QVBoxLayout(content);
    lines->setContentsMargins(0, 0, 0, 0);
    for (const QString& name : {kTextLabel, kDetailsLabel}) {
        if (auto* label = findChild<QLabel*>(name)) {
            grid->removeWidget(label);
            lines->addWidget(label);
        }
    }
    lines->addStretch();
    wrapTexts();

    m_scrollArea = new QScrollArea(this);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setWidget(content);
    grid->addWidget(m_scrollArea, 0, kTextColumn, 2, 1);
}

#include "views/tables/namesearch.h"

#include "views/tables/overviewcolumns.h"
#include "views/tables/overviewfilter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTableView>

namespace {

QString withoutBlanks(QString text)
{
    return text.remove(QLatin1Char(' '));
}

} // namespace

NameSearch::NameSearch(QTableView* view, OverviewFilter* rows)
    : QObject(view)
    , m_view(view)
    , m_rows(rows)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(QApplication::keyboardInputInterval());
    connect(&m_pause, &QTimer::timeout, this, [this] { m_typed.clear(); });
    view->installEventFilter(this);
}

bool NameSearch::eventFilter(QObject* watched, QEvent* event)
{
    return (event->type() == QEvent::KeyPress && take(*static_cast<QKeyEvent*>(event))) ||
           QObject::eventFilter(watched, event);
}

/// Whether the key was a letter of a name.
bool NameSearch::take(const QKeyEvent& key)
{
    constexpr Qt::KeyboardModifiers kCommands =
        Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString letter = key.text();
    if ((key.modifiers() & kCommands) != 0 || letter.isEmpty() || !letter.at(0).isPrint() ||
        letter.at(0).isSpace()) {
        return false;
    }
    const bool isBegin = m_typed.isEmpty();
    m_typed += letter;
    m_pause.start();
    find(isBegin);
    return true;
}

void NameSearch::find(bool isBegin)
{
    const int rows = m_rows->rowCount();
    const QModelIndex current = m_view->currentIndex();
    // A new name is looked for after the current row, so that its letter leads on to the next one.
    const int first = current.isValid() ? current.row() + (isBegin ? 1 : 0) : 0;
    for (int step = 0; step < rows; ++step) {
        const int row = (first + step) % rows;
        const QModelIndex tickCell = m_rows->index(row, overview::TickColumn);
        const QString name = withoutBlanks(tickCell.data(overview::OwnNameRole).toString());
        if (name.startsWith(m_typed, Qt::CaseInsensitive)) {
            m_view->setCurrentIndex(m_rows->index(row, overview::NameColumn));
            return;
        }
    }
}

#pragma once

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>
#include <QtTest>

/// The texts of a column of a model, from the top.
inline QStringList columnTexts(const QAbstractItemModel& model, int column = 0)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        texts << model.index(row, column).data().toString();
    }
    return texts;
}

/// Clicks at a cell of a view with the left button.
inline void clickCell(const QAbstractItemView& view, int row, int column = 0)
{
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier,
                      view.visualRect(view.model()->index(row, column)).center());
}

/// What is shown when the mouse rests on a widget; empty for nothing.
inline QString shownTip(QWidget* widget)
{
    const QString none = QStringLiteral("nothing shown");
    const QPoint middle = widget->rect().center();
    QToolTip::showText(QPoint(), none);
    QHelpEvent event(QEvent::ToolTip, middle, widget->mapToGlobal(middle));
    QCoreApplication::sendEvent(widget, &event);
    return QToolTip::text() == none ? QString() : QToolTip::text();
}

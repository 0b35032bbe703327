#pragma once

#include "views/events/eventhistory.h"

#include <QWidget>

#include <functional>

class EventBar;
class EventModel;
class QPlainTextEdit;
class QTableView;

/// The list of events, newest first: the recorded ones and new ones as they come. The user chooses
/// which are shown; Enter or a double click goes to an event's moment. GUI thread.
class EventList : public QWidget
{
    Q_OBJECT
public:
    /// `now`: UTC, ms since 1970.
    explicit EventList(std::function<qint64()> now, QWidget* parent = nullptr);

    /// Lists another recording, or none without a function.
    void read(EventHistory::Ask ask);
    /// Adds an event that has just been recorded. What is read may hold it, too.
    void add(const RecordedEvent& event);
    /// Why no mark can be made; empty where one can.
    void setMarkHindrance(const QString& reason);

    /// What is listed, as a CSV file has it, in the language in force.
    QString csv() const;

    /// Keeps in the per-user settings which events are shown.
    void save() const;
    /// Of some rows.
    QSize sizeHint() const override;
    /// Takes the keyboard into the list.
    void takeFocus();

signals:
    /// The moment (UTC, µs since 1970) of an event, and whose it is; empty: no LDB's.
    void momentWanted(qint64 at, const QString& hexId);
    void markWanted();
    void exportWanted();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpTable();
    void filter();
    void showCounts();
    void showDetails();
    void fitColumns();
    void measure(int first, int last);
    void goTo(const QModelIndex& index);

    EventModel* m_model;
    EventHistory* m_history;
    EventBar* m_bar;
    QTableView* m_table;
    QPlainTextEdit* m_details;
    int m_widest = 0; ///< text of an event, pixels
};

#pragma once

#include "views/events/eventfilter.h"

#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>

class QBoxLayout;
class QComboBox;
class QDateTimeEdit;
class QLabel;
class QLineEdit;
class QPushButton;

/// Stands above the list of events: which of them are shown, how many of all, and what can be done
/// with them. One line where there is room, else two. GUI thread.
class EventBar : public QWidget
{
    Q_OBJECT
public:
    /// From which time events are shown.
    enum class Period : int
    {
        All,
        Hour,
        Day,
        Week,
        Own ///< from one moment to another
    };

    /// `now`: UTC, ms since 1970.
    explicit EventBar(std::function<qint64()> now, QWidget* parent = nullptr);

    /// What the user has chosen, as of now.
    EventFilter filter() const;
    /// Lets the user choose among these LDBs; the one chosen stays.
    void setHexIds(const QStringList& hexIds);
    void setCounts(int shown, int all, const QString& remark);
    /// Why a mark cannot be made; empty where it can.
    void setMarkHindrance(const QString& reason);

    /// Reads and writes what the user has chosen, in the user settings.
    void load();
    void save() const;

    QSize minimumSizeHint() const override;

signals:
    /// `filter()` may have changed.
    void chosen();
    /// The user goes on to the list.
    void left();
    void markWanted();
    void exportWanted();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeLayout();
    void fillGroups();
    void fillPeriods();
    void retranslate();
    void showPeriod();
    void fold();
    Period period() const;

    std::function<qint64()> m_now;
    QLineEdit* m_text;
    QComboBox* m_ldb;
    QComboBox* m_group;
    QComboBox* m_period;
    QDateTimeEdit* m_from;
    QDateTimeEdit* m_to;
    QLabel* m_count;
    QPushButton* m_mark;
    QPushButton* m_export;
    QWidget* m_first;
    QWidget* m_second;
    QBoxLayout* m_lines;
    QTimer m_passing; ///< "the last hour" moves on
    QString m_markHindrance;
};

#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

class EventList;
class Notices;
class QAction;
class QDockWidget;
class QMainWindow;
class QStatusBar;
class QWidget;
class RecordingControl;

/// The list of events in the window: its dock, what it reads, marks and export. GUI thread.
class EventDesk : public QObject
{
    Q_OBJECT
public:
    struct Surroundings
    {
        QWidget* window;
        QWidget* tables; ///< what the list is docked beside, and shares its space with
        RecordingControl* control;
        Notices* notices;
        QStatusBar* bar; ///< gets a button
    };

    /// The surroundings outlive this object. `now`: UTC, ms since 1970.
    EventDesk(const Surroundings& around, const std::function<qint64()>& now, QObject* parent);

    /// Tells which moment is shown (UTC, µs since 1970); nothing while it is the present.
    void setShown(std::function<std::optional<qint64>()> shown) { m_shown = std::move(shown); }
    /// Shows the list, or hides it.
    QAction* showAction() const { return m_show; }

signals:
    /// The user wants to see that moment, and of an LDB's event that LDB; empty: of no LDB.
    void momentWanted(qint64 at, const QString& hexId);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeDock();
    void makeButton(QStatusBar* bar);
    void load();
    void save() const;
    void retranslate();
    void showOrHide();
    void read();
    bool isOwnRecording() const;
    void updateMarks();
    void askForMark();
    void setMark(qint64 at, const QString& text);
    void askForFile();
    void write(const QString& path);

    Surroundings m_around;
    std::function<std::optional<qint64>()> m_shown;
    QMainWindow* m_room; ///< stands in place of the tables and holds them, so that the list can
                         ///< dock around them
    EventList* m_list;   ///< in the dock
    QDockWidget* m_dock;
    QAction* m_show;
    QString m_markHindrance;
    bool m_isRead = false; ///< the list has been read, or is being read
};

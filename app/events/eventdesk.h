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
class RecordingControl;

/// The list of events in the window: its dock, what it reads, marks and export. GUI thread.
class EventDesk : public QObject
{
    Q_OBJECT
public:
    struct Surroundings
    {
        QMainWindow* window;
        RecordingControl* control;
        Notices* notices;
    };

    /// Made before the window's state is restored; the surroundings outlive this object. `now`:
    /// UTC, ms since 1970.
    EventDesk(const Surroundings& around, const std::function<qint64()>& now, QObject* parent);

    /// Tells which moment is shown (UTC, µs since 1970); nothing while it is the present.
    void setShown(std::function<std::optional<qint64>()> shown) { m_shown = std::move(shown); }
    /// Shows the list, or hides it.
    QAction* showAction() const { return m_show; }

signals:
    /// The user wants to see that moment.
    void momentWanted(qint64 at);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeDock();
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
    EventList* m_list; ///< in the dock
    QDockWidget* m_dock;
    QAction* m_show;
    QString m_markHindrance;
    bool m_isRead = false; ///< what is recorded is listed, or on its way
};

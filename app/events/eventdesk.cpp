#include "app/events/eventdesk.h"

#include "app/notices/filedialog.h"
#include "app/notices/notices.h"
#include "app/recording/recordingcontrol.h"
#include "app/shared/usersettings.h"
#include "app/shared/wholefile.h"
#include "views/events/eventlist.h"
#include "views/events/markdialog.h"

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QDockWidget>
#include <QEvent>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLayout>
#include <QMainWindow>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QShortcut>
#include <QStatusBar>
#include <QThread>
#include <QToolButton>

#include <utility>

EventDesk::EventDesk(const Surroundings& around, const std::function<qint64()>& now,
                     QObject* parent)
    : QObject(parent)
    , m_around(around)
    , m_shown([] { return std::nullopt; })
    , m_room(new QMainWindow(nullptr, Qt::Widget))
    , m_list(new EventList(now))
    , m_dock(new QDockWidget)
    , m_show(new QAction(around.window))
{
    makeDock();
    makeButton(around.bar);
    Recorder* recorder = around.control->recorder();
    RecordingAccess* access = around.control->access();
    connect(recorder, &Recorder::eventRecorded, this, [this](const RecordedEvent& event) {
        if (m_isRead && isOwnRecording()) {
            m_list->add(event);
        }
    });
    connect(recorder, &Recorder::changed, this, &EventDesk::updateMarks);
    connect(access, &RecordingAccess::pathChanged, this, [this] {
        m_isRead = false;
        updateMarks();
        read();
    });
    connect(m_list, &EventList::momentWanted, this, &EventDesk::momentWanted);
    connect(m_list, &EventList::markWanted, this, &EventDesk::askForMark);
    connect(m_list, &EventList::exportWanted, this, &EventDesk::askForFile);
    connect(new QShortcut(Qt::Key_M, around.window), &QShortcut::activated, this,
            &EventDesk::askForMark);
    connect(m_show, &QAction::triggered, this, &EventDesk::showOrHide);
    around.window->installEventFilter(this);
    load();
    retranslate();
}

/// The list docks at the tables only: on a small screen there is no room below the panels at the
/// left.
void EventDesk::makeDock()
{
    QLayout* layout = m_around.tables->parentWidget()->layout();
    delete layout->replaceWidget(m_around.tables, m_room);
    m_room->setObjectName(QStringLiteral("eventRoom"));
    m_room->setCentralWidget(m_around.tables);
    m_room->setContextMenuPolicy(Qt::NoContextMenu);
    m_dock->setObjectName(QStringLiteral("eventDock"));
    m_dock->setWidget(m_list);
    m_room->addDockWidget(Qt::BottomDockWidgetArea, m_dock);
    m_dock->hide();
    connect(m_dock, &QDockWidget::visibilityChanged, this, [this] {
        m_show->setChecked(!m_dock->isHidden());
        read();
    });
}

void EventDesk::makeButton(QStatusBar* bar)
{
    m_show->setCheckable(true);
    m_show->setShortcut(QKeySequence(QStringLiteral("Ctrl+E")));
    m_around.window->addAction(m_show);
    auto* button = new QToolButton;
    button->setObjectName(QStringLiteral("eventsButton"));
    button->setDefaultAction(m_show);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    bar->insertPermanentWidget(0, button);
}

void EventDesk::load()
{
    const QSettings settings = userSettings();
    // A dock that was left on another screen may be out of sight.
    if (settings.value(constants::kScreenGeometryKey).toRect() ==
        QGuiApplication::primaryScreen()->virtualGeometry()) {
        m_room->restoreState(settings.value(constants::kEventsDockKey).toByteArray());
    }
    m_show->setChecked(!m_dock->isHidden());
}

void EventDesk::save() const
{
    m_list->save();
    userSettings().setValue(constants::kEventsDockKey, m_room->saveState());
}

void EventDesk::retranslate()
{
    m_dock->setWindowTitle(tr("Events"));
    m_show->setText(tr("Events"));
    m_show->setToolTip(tr("Show or hide what has happened: faults, losses, actions, marks "
                          "(Ctrl+E)"));
    updateMarks();
}

/// Takes the keyboard to the list.
void EventDesk::showOrHide()
{
    const bool isWanted = m_dock->isHidden();
    m_dock->setVisible(isWanted);
    m_show->setChecked(isWanted);
    if (isWanted) {
        m_dock->raise();
        m_list->takeFocus();
    }
}

bool EventDesk::isOwnRecording() const
{
    return m_around.control->access()->path() == m_around.control->folder();
}

/// Reads nothing before the user sees the list.
void EventDesk::read()
{
    if (m_isRead || !m_dock->isVisible()) {
        return;
    }
    m_isRead = true;
    RecordingAccess* access = m_around.control->access();
    if (access->path().isEmpty()) {
        m_list->read(nullptr);
        return;
    }
    m_list->read([access, list = QPointer<EventList>(m_list)](TimeSpan span, int limit,
                                                              EventHistory::Answer answer) {
        access->ask(
            list, [span, limit](RecordingReader& reader) { return reader.events(span, limit); },
            std::move(answer));
    });
}

void EventDesk::updateMarks()
{
    const Recorder::Options& options = m_around.control->recorder()->options();
    QString reason;
    if (!isOwnRecording()) {
        reason = tr("This recording is only read: no mark can be set in it.");
    } else if (!options.isEnabled) {
        reason = tr("Recording is turned off: no mark can be set.");
    } else if (options.folder.isEmpty()) {
        reason = tr("Nothing has been recorded yet: start the bus first.");
    }
    m_list->setMarkHindrance(reason);
    m_markHindrance = reason;
}

void EventDesk::askForMark()
{
    Q_ASSERT(QThread::currentThread() == thread());
    updateMarks();
    if (!m_markHindrance.isEmpty()) {
        m_around.notices->say([reason = m_markHindrance] { return reason; });
        return;
    }
    const qint64 at = m_shown().value_or(m_around.control->recorder()->moment());
    auto* dialog = new MarkDialog(
        at,
        [self = QPointer<EventDesk>(this), at](const QString& text) {
            if (self != nullptr) {
                self->setMark(at, text);
            }
        },
        m_around.window);
    dialog->open();
}

void EventDesk::setMark(qint64 at, const QString& text)
{
    RecordedEvent mark;
    mark.at = at;
    mark.kind = EventKind::Mark;
    mark.text = text;
    m_around.control->recorder()->note(mark);
    m_around.control->recorder()->flush();
}

void EventDesk::askForFile()
{
    const QString name = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd_HH-mm"));
    filedialog::save(m_around.window, tr("Export Events"),
                     QDir::home().filePath(QStringLiteral("events_%1.csv").arg(name)), false,
                     [self = QPointer<EventDesk>(this)](const QString& path) {
                         if (self != nullptr) {
                             self->write(path);
                         }
                     });
}

void EventDesk::write(const QString& path)
{
    const QString reason = WholeFile::write(path, m_list->csv().toUtf8());
    if (reason.isEmpty()) {
        m_around.notices->say([path] { return tr("Events exported to %1").arg(path); });
        return;
    }
    m_around.notices->box(QMessageBox::Warning, [path, reason] {
        return BoxText{tr("Export Events"), tr("The events could not be exported to %1").arg(path),
                       reason};
    });
}

bool EventDesk::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Close) {
        save();
    } else if (event->type() == QEvent::LanguageChange) {
        retranslate();
    }
    return QObject::eventFilter(watched, event);
}

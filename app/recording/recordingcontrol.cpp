#include "app/recording/recordingcontrol.h"

#include "app/installation/installationcontrol.h"
#include "app/notices/notices.h"
#include "app/shared/constants.h"
#include "app/shared/usersettings.h"
#include "serial/link/seriallink.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace {

/// The installation that was used last of all.
QString lastUsed(const Installations& store)
{
    const auto installations = store.read().installations;
    const auto last = std::max_element(installations.begin(), installations.end(),
                                       [](const Installation& left, const Installation& right) {
                                           return left.lastUsed < right.lastUsed;
                                       });
    return last != installations.end() ? last->id : QString();
}

bool isInVirtualTime(const PortSource& ports)
{
    return ports.thread == PortSource::Thread::OfLink;
}

} // namespace

RecordingControl::RecordingControl(const Surroundings& around, const PortSource& ports,
                                   QObject* parent)
    : QObject(parent)
    , m_around(around)
    , m_recorder(constants::kApplicationVersion, ports.wallTime,
                 isInVirtualTime(ports) ? Recorder::Thread::Callers : Recorder::Thread::Own)
    , m_access(isInVirtualTime(ports) ? RecordingAccess::Thread::Callers
                                      : RecordingAccess::Thread::Own)
{
    connect(&m_recorder, &Recorder::noticeGiven, this, &RecordingControl::tell);
    connect(&m_access, &RecordingAccess::noticeGiven, this, &RecordingControl::tell);
    connect(around.installation, &InstallationControl::replaced, this,
            &RecordingControl::followInstallation);
    connect(around.installation, &InstallationControl::gaveWay, this, [this](const QString& id) {
        // When it is not read any more, either.
        m_access.ask(
            this, [](RecordingReader&) { return true; },
            [this, id](bool) { m_recorder.takeOver(folderOf(id)); });
    });
    connect(&m_recorder, &Recorder::tookOver, this, [this](const QString& folder) {
        const Installations& store = m_around.installation->store();
        for (const Installation& installation : store.read().installations) {
            if (installation.id != m_installation && folderOf(installation.id) == folder) {
                store.removeBare(installation.id);
            }
        }
    });
    m_installation = lastUsed(around.installation->store());
    followInstallation();
    followPort();
    followLink();
}

RecordingControl::~RecordingControl() = default;

void RecordingControl::followInstallation()
{
    const QString id = m_around.installation->current().id;
    m_installation = id.isEmpty() ? m_installation : id;
    loadPreferences();
}

void RecordingControl::loadPreferences()
{
    QSettings settings = userSettings();
    const Recorder::Options former = m_recorder.options();
    Recorder::Options options;
    options.isEnabled = settings.value(constants::kRecordingKey, true).toBool();
    options.limits.days =
        qMax(1, settings.value(constants::kRecordingDaysKey, options.limits.days).toInt());
    const qint64 megabytes =
        settings.value(constants::kRecordingMegabytesKey, options.limits.bytes / kMegabyte)
            .toLongLong();
    options.limits.bytes = qMax(1LL, megabytes) * kMegabyte;
    if (!m_installation.isEmpty()) {
        options.folder = folderOf(m_installation);
    }
    m_folder = options.folder;
    if (!(options == former)) {
        m_recorder.setOptions(options);
    }
    m_access.setPath(m_opened.isEmpty() ? m_folder : m_opened);
}

QString RecordingControl::folderOf(const QString& installation) const
{
    const QString chosen = userSettings().value(constants::kRecordingFolderKey).toString();
    return chosen.isEmpty() ? QDir(m_around.installation->store().folderOf(installation))
                                  .filePath(QStringLiteral("recordings"))
                            : QDir(chosen).filePath(installation);
}

void RecordingControl::open(const QString& path)
{
    m_opened = path;
    m_access.setPath(path);
}

/// Called before `followLink`, so that an event of the port comes before the run that it begins.
void RecordingControl::followPort()
{
    SerialLink* link = m_around.link;
    connect(link, &SerialLink::portFailed, this, [this](const QString& portName) {
        if (!std::exchange(m_isOpen, false)) {
            return; // it was not open
        }
        RecordedEvent event;
        event.at = m_recorder.moment();
        event.kind = EventKind::PortLost;
        event.text = portName;
        m_lostAt = event.at;
        m_recorder.note(event);
    });
    connect(link, &SerialLink::stopped, this, [this] { m_isOpen = false; });
}

void RecordingControl::followLink()
{
    SerialLink* link = m_around.link;
    Recorder* recorder = &m_recorder;
    // Not when it is started: a port that is waited for is tried again and again.
    connect(link, &SerialLink::opened, this, [this] {
        m_isOpen = true;
        m_recorder.beginRun(m_around.link->portName());
        if (const qint64 lostAt = std::exchange(m_lostAt, 0)) {
            RecordedEvent event;
            event.kind = EventKind::PortBack;
            event.since = lostAt;
            event.text = m_around.link->portName();
            m_recorder.note(event);
        }
    });
    connect(link, &SerialLink::started, this, [this] { m_isScanning = false; });
    connect(link, &SerialLink::stopped, recorder, &Recorder::endRun);
    connect(link, &SerialLink::roundBegun, recorder, &Recorder::beginRound);
    connect(link, &SerialLink::roundEnded, recorder, &Recorder::endRound);
    connect(link, &SerialLink::exchanged, recorder, &Recorder::takeExchange);
    connect(link, &SerialLink::generalInformationUpdated, recorder, &Recorder::takeRecord);
    connect(link, &SerialLink::extraInformationUpdated, recorder, &Recorder::takeRecord);
    connect(link, &SerialLink::ldbListChanged, this, [this](const QStringList& hexIds) {
        if (!m_isScanning) {
            m_recorder.setList(hexIds);
        }
    });
    connect(link, &SerialLink::ldbListInitializationStateChange, this, [this](bool isScanning) {
        const bool wasScanning = std::exchange(m_isScanning, isScanning);
        if (isScanning) {
            return;
        }
        // The scan's own messages have covered it; behind what takes them off.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (m_recorder.isOutage()) {
                    tell(m_outage);
                }
            },
            Qt::QueuedConnection);
        m_recorder.setList(m_around.link->knownLdbs());
        if (wasScanning && m_around.link->isRunning()) {
            m_recorder.endScan(m_around.link->connectedLdbs());
        }
    });
}

QString RecordingControl::outageText() const
{
    return m_recorder.isOutage() ? m_outage.text() : QString();
}

void RecordingControl::tell(const RecordingNotice& notice)
{
    if (notice.isOutage()) {
        m_outage = notice;
    }
    m_around.notices->say([notice] { return notice.text(); });
}

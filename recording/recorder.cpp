#include "recording/recorder.h"

#include "recording/recordwriter.h"

#include <QCoreApplication>
#include <QDebug>

#include <utility>

namespace {

/// Together with the time of writing, a row is on the disk within a second.
constexpr int kHandOverMs = 900;
/// A disk that takes longer than this at the end has failed.
constexpr int kEndMs = 10000;

} // namespace

/// The writer in its thread: takes what the recorder posts, and posts back what came of it.
class RecordWriterHost : public QObject
{
public:
    RecordWriterHost(Recorder* recorder, const QString& programVersion, bool isSynced)
        : m_recorder(recorder)
        , m_writer({QString(), programVersion, {}, isSynced})
    {
    }

    void take(const RecorderInputs& inputs)
    {
        Q_ASSERT(QThread::currentThread() == thread());
        m_writer.take(inputs);
        tell(static_cast<int>(inputs.size()));
    }
    void setPlace(const QString& folder, const recordingfolder::Limits& limits)
    {
        Q_ASSERT(QThread::currentThread() == thread());
        m_writer.setPlace(folder, limits);
        tell(0);
    }
    void takeOver(const QString& folder)
    {
        Q_ASSERT(QThread::currentThread() == thread());
        m_writer.takeOver(folder);
        QMetaObject::invokeMethod(
            m_recorder, [recorder = m_recorder, folder] { emit recorder->tookOver(folder); },
            Qt::QueuedConnection);
    }
    void finish()
    {
        Q_ASSERT(QThread::currentThread() == thread());
        m_writer.finish();
        tell(0);
    }

private:
    void tell(int inputs)
    {
        // The recorder may be posted to: it ends this thread before it goes.
        QMetaObject::invokeMethod(
            m_recorder,
            [recorder = m_recorder, inputs, notices = m_writer.takeNotices(),
             events = m_writer.takeEvents(),
             path = m_writer.path()] { recorder->processWritten(inputs, notices, events, path); },
            Qt::QueuedConnection);
    }

    Recorder* m_recorder;
    RecordWriter m_writer;
};

Recorder::Recorder(const QString& programVersion, std::function<qint64()> wallTime, Thread thread,
                   QObject* parent)
    : QObject(parent)
    , m_collector(std::move(wallTime))
    , m_host(new RecordWriterHost(this, programVersion, thread == Thread::Own))
    , m_hasThread(thread == Thread::Own)
{
    m_options.isEnabled = false; // until it is told where
    m_handOver.setSingleShot(true);
    m_handOver.setInterval(kHandOverMs);
    connect(&m_handOver, &QTimer::timeout, this, &Recorder::flush);
    if (m_hasThread) {
        m_thread.setObjectName(QStringLiteral("recording"));
        m_host->moveToThread(&m_thread);
        connect(&m_thread, &QThread::finished, m_host, &QObject::deleteLater);
        m_thread.start();
    }
}

Recorder::~Recorder()
{
    endRun();
    flush();
    QMetaObject::invokeMethod(
        m_host, [host = m_host] { host->finish(); }, Qt::QueuedConnection);
    if (!m_hasThread) {
        QCoreApplication::sendPostedEvents(m_host, QEvent::MetaCall);
        delete m_host;
        return;
    }
    // Behind what was posted before.
    QMetaObject::invokeMethod(
        m_host, [thread = &m_thread] { thread->quit(); }, Qt::QueuedConnection);
    if (!m_thread.wait(kEndMs)) {
        qWarning() << "the recording could not be ended: the disk does not answer";
        m_thread.terminate();
        m_thread.wait();
    }
}

void Recorder::setOptions(const Options& options)
{
    Q_ASSERT(QThread::currentThread() == thread());
    // A run that is on ends in the former folder and begins in the new one.
    const bool wasRunning = m_isRunning;
    endRun();
    flush();
    const auto placeOf = [](const Options& of) {
        return of.isEnabled ? of.folder : QString();
    };
    const QString place = placeOf(options);
    m_isOutage = m_isOutage && place == placeOf(m_options);
    m_options = options;
    QMetaObject::invokeMethod(
        m_host, [host = m_host, place, limits = options.limits] { host->setPlace(place, limits); },
        Qt::QueuedConnection);
    if (wasRunning) {
        beginRun(m_port);
        setList(m_list);
    }
    emit changed();
}

void Recorder::takeOver(const QString& folder)
{
    Q_ASSERT(QThread::currentThread() == thread());
    QMetaObject::invokeMethod(
        m_host, [host = m_host, folder] { host->takeOver(folder); }, Qt::QueuedConnection);
}

void Recorder::flush()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_handOver.stop();
    RecorderInputs inputs = m_collector.take();
    if (inputs.empty()) {
        return;
    }
    m_unwritten += static_cast<int>(inputs.size());
    m_collector.setUnwritten(m_unwritten);
    QMetaObject::invokeMethod(
        m_host, [host = m_host, inputs = std::move(inputs)] { host->take(inputs); },
        Qt::QueuedConnection);
}

void Recorder::processWritten(int inputs, const std::vector<RecordingNotice>& notices,
                              const std::vector<RecordedEvent>& events, const QString& path)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_unwritten -= inputs;
    m_collector.setUnwritten(m_unwritten);
    bool isChanged = std::exchange(m_filePath, path) != path;
    for (const RecordingNotice& notice : notices) {
        if (notice.isOutage() || notice.kind == RecordingNotice::Kind::GoesOn) {
            m_isOutage = notice.isOutage();
            isChanged = true;
        }
        qInfo().noquote() << "recording:" << notice.text();
        emit noticeGiven(notice);
    }
    for (const RecordedEvent& event : events) {
        emit eventRecorded(event);
    }
    if (isChanged) {
        emit changed();
    }
}

/// What is told now is handed over within a second.
bool Recorder::isTaking()
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (m_options.isEnabled && !m_handOver.isActive()) {
        m_handOver.start();
    }
    return m_options.isEnabled;
}

void Recorder::note(const RecordedEvent& event)
{
    if (isTaking()) {
        m_collector.event(event);
    }
}

void Recorder::beginRun(const QString& port)
{
    m_isRunning = true;
    m_port = port;
    if (isTaking()) {
        m_collector.runBegun(port);
    }
    emit changed();
}

void Recorder::endRun()
{
    if (std::exchange(m_isRunning, false) && isTaking()) {
        m_collector.runEnded();
        flush();
    }
    emit changed();
}

void Recorder::beginRound(const QDateTime& wall)
{
    if (isTaking()) {
        m_collector.roundBegun(wall);
    }
}

void Recorder::endRound()
{
    if (isTaking()) {
        m_collector.roundEnded();
    }
}

void Recorder::takeExchange(const Exchange& exchange)
{
    if (isTaking()) {
        m_collector.exchanged(exchange);
    }
}

void Recorder::takeRecord(const QString& hexId, const QList<QStringList>& rows)
{
    if (isTaking()) {
        m_collector.record(hexId, rows);
    }
}

void Recorder::setList(const QStringList& hexIds)
{
    m_list = hexIds;
    if (isTaking()) {
        m_collector.listChanged(hexIds);
    }
}

void Recorder::endScan(const QStringList& found)
{
    if (isTaking()) {
        m_collector.scanEnded(found);
    }
}

#include "recording/recordingaccess.h"

#include <QCoreApplication>

#include <algorithm>

/// Lives in the reading thread; owns the reader and hands its results over.
class RecordingAccessHost : public QObject
{
public:
    explicit RecordingAccessHost(RecordingAccess* access)
        : m_access(access)
    {
    }

    void setPath(const QString& path)
    {
        Q_ASSERT(QThread::currentThread() == thread());
        m_path = path;
        m_reader.reset();
    }

    void read(const RecordingAccess::Reading& read)
    {
        Q_ASSERT(QThread::currentThread() == thread());
        if (QThread::currentThread()->isInterruptionRequested()) {
            return; // the program ends
        }
        if (m_reader) {
            m_reader->refresh();
        } else {
            m_reader = std::make_unique<RecordingReader>(m_path);
        }
        const std::shared_ptr<void> value = read(*m_reader);
        // It may be posted to: it ends this thread before it goes.
        QMetaObject::invokeMethod(
            m_access,
            [access = m_access, value, notices = m_reader->takeNotices()] {
                access->processRead(value, notices);
            },
            Qt::QueuedConnection);
    }

private:
    RecordingAccess* m_access;
    QString m_path;
    std::unique_ptr<RecordingReader> m_reader;
};

RecordingAccess::RecordingAccess(Thread thread, QObject* parent)
    : QObject(parent)
    , m_host(new RecordingAccessHost(this))
    , m_hasThread(thread == Thread::Own)
{
    if (m_hasThread) {
        m_thread.setObjectName(QStringLiteral("reading"));
        m_host->moveToThread(&m_thread);
        connect(&m_thread, &QThread::finished, m_host, &QObject::deleteLater);
        m_thread.start(QThread::LowPriority);
    }
}

RecordingAccess::~RecordingAccess()
{
    if (!m_hasThread) {
        delete m_host;
        return;
    }
    m_thread.requestInterruption();
    m_thread.quit();
    m_thread.wait();
}

void RecordingAccess::setPath(const QString& path)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (path == m_path) {
        return;
    }
    m_path = path;
    m_told.clear();
    for (Asked& asked : m_asked) {
        asked.isOfFormerPath = true;
    }
    QMetaObject::invokeMethod(
        m_host, [host = m_host, path] { host->setPath(path); }, Qt::QueuedConnection);
    emit pathChanged();
}

void RecordingAccess::post(Reading read, QObject* context, std::function<void(void*)> answer)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_asked.push_back({context, false, std::move(answer)});
    QMetaObject::invokeMethod(
        m_host, [host = m_host, read = std::move(read)] { host->read(read); },
        Qt::QueuedConnection);
}

void RecordingAccess::processRead(const std::shared_ptr<void>& value,
                                  const std::vector<RecordingNotice>& notices)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const Asked asked = std::move(m_asked.front());
    m_asked.pop_front();
    if (asked.isOfFormerPath) {
        return;
    }
    // The answer may set another path.
    const QPointer<RecordingAccess> self(this);
    if (asked.context) {
        asked.answer(value.get());
    }
    for (const RecordingNotice& notice : notices) {
        if (self && std::find(m_told.begin(), m_told.end(), notice) == m_told.end()) {
            m_told.push_back(notice);
            emit noticeGiven(notice);
        }
    }
}

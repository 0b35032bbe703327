#pragma once

#include "recording/recordingnotice.h"
#include "recording/recordingreader.h"

#include <QObject>
#include <QPointer>
#include <QThread>

#include <deque>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

class RecordingAccessHost;

/// Reads a recording in a thread of its own for whoever shows it, so that nobody waits for the
/// disk. GUI thread only.
class RecordingAccess : public QObject
{
    Q_OBJECT
public:
    enum class Thread
    {
        Own,
        Callers ///< for virtual time: reads when the event loop comes to it
    };
    explicit RecordingAccess(Thread thread = Thread::Own, QObject* parent = nullptr);
    /// Waits for the reading that is under way; nothing else is read.
    ~RecordingAccess() override;

    /// A file or a folder of days; empty for none. What was asked of the former path is no longer
    /// answered.
    void setPath(const QString& path);
    QString path() const { return m_path; }

    /// Calls `read` in the reading thread with the reader of the path, then `answer` in this thread
    /// with the result of `read`, from the event loop. Answers come in the order of the questions.
    /// There is none if `context` has died by then, or the path has changed.
    ///
    /// `read` holds by value what it needs. The reader sees what has been committed by then. Ask in
    /// pieces for what takes long: all others wait meanwhile.
    template <typename Read, typename Answer>
    void ask(QObject* context, Read read, Answer answer)
    {
        using Value = std::decay_t<std::invoke_result_t<Read&, RecordingReader&>>;
        post(
            [read = std::move(read)](RecordingReader& reader) mutable -> std::shared_ptr<void> {
                return std::make_shared<Value>(read(reader));
            },
            context,
            [answer = std::move(answer)](void* value) mutable {
                answer(std::move(*static_cast<Value*>(value)));
            });
    }

signals:
    void pathChanged();
    /// What could not be read. Each is told once a path.
    void noticeGiven(const RecordingNotice& notice);

private:
    friend class RecordingAccessHost;
    using Reading = std::function<std::shared_ptr<void>(RecordingReader& reader)>;
    struct Asked
    {
        QPointer<QObject> context;
        bool isOfFormerPath = false;
        std::function<void(void*)> answer;
    };

    void post(Reading read, QObject* context, std::function<void(void*)> answer);
    void processRead(const std::shared_ptr<void>& value,
                     const std::vector<RecordingNotice>& notices);

    QString m_path;
    QThread m_thread;
    RecordingAccessHost* m_host; ///< in the thread, which deletes it
    bool m_hasThread;
    std::deque<Asked> m_asked; ///< not answered yet, in order
    std::vector<RecordingNotice> m_told;
};

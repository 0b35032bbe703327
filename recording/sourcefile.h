#pragma once

#include "recording/recordingnotice.h"
#include "recording/recordingschema.h"

#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

/// One file of a recording, opened to be read and asked in SQL. What is damaged in it ends what is
/// read of it, with a notice; it never ends the program. Used in the thread that made it.
class SourceFile
{
public:
    explicit SourceFile(QString path);
    ~SourceFile();
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    QString path() const { return m_path; }
    /// Opens it, if it is not. False when nothing can be read of it.
    bool open();
    bool isOpen() const { return m_connection != nullptr; }
    void close();

    /// A copy of the whole in a file that does not exist yet; an empty text, or why not.
    QString copyTo(const QString& path);

    std::vector<RecordingNotice> takeNotices() { return std::exchange(m_notices, {}); }

protected:
    /// The values are bound in their order. Nothing, and a notice, where the file cannot answer.
    std::optional<QSqlQuery> ask(const QString& statement, const QVariantList& values);
    /// Whether there is another row; a notice where damage ends them.
    bool next(QSqlQuery& query);
    /// Gives that notice, once a file.
    void sayDamaged(const QString& reason = {});

    /// The LDB of a column; empty where it names none.
    static QString hexIdOf(const QVariant& value);

private:
    bool openAs(const QString& name, const QString& options);
    bool say(RecordingNotice::Kind kind, const QString& reason = {});

    QString m_path;
    std::unique_ptr<recordingschema::Connection> m_connection;
    bool m_isUnreadable = false;
    bool m_isDamageTold = false;
    std::vector<RecordingNotice> m_notices;
};

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

/// One file of a recording, opened to be read and asked in SQL. Damage ends the reading, with a
/// notice; it never ends the program. Used in the thread that made it.
class SourceFile
{
public:
    explicit SourceFile(QString path);
    ~SourceFile();
    SourceFile(const SourceFile&) = delete;
    SourceFile& operator=(const SourceFile&) = delete;

    QString path() const { return m_path; }
    /// Opens it, if it is not open. False when nothing can be read of it.
    bool open();
    bool isOpen() const { return m_connection != nullptr; }
    void close();

    /// Copies it into a file that does not exist yet; gives an empty text, or why it could not.
    QString copyTo(const QString& path);

    std::vector<RecordingNotice> takeNotices() { return std::exchange(m_notices, {}); }

protected:
    /// Binds the values in their order. Gives nothing, and a notice, where the file cannot answer.
    std::optional<QSqlQuery> ask(const QString& statement, const QVariantList& values);
    /// Goes to the next row, if there is one. Gives a notice where damage ends the rows.
    bool next(QSqlQuery& query);
    /// Tells of the damage, once a file.
    void sayDamaged(const QString& reason = {});

    /// The LDB that a column names; empty where it names none.
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

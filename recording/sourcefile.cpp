#include "recording/sourcefile.h"

#include "serial/ldb/busaddress.h"

#include <QFileInfo>
#include <QSqlError>
#include <QUrl>
#include <QVariant>

using recordingschema::Fit;

namespace {

constexpr int kLastLdb = 255;

} // namespace

SourceFile::SourceFile(QString path)
    : m_path(std::move(path))
{
}

SourceFile::~SourceFile() = default;

bool SourceFile::open()
{
    if (isOpen() || m_isUnreadable) {
        return isOpen();
    }
    if (!openAs(m_path, QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=1000")) &&
        !m_isUnreadable) {
        // A program that died has left it open, on a medium that cannot be written to.
        const QString name = QString::fromLatin1(QUrl::fromLocalFile(m_path).toEncoded());
        if (openAs(name + QStringLiteral("?immutable=1"),
                   QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_OPEN_URI")) &&
            QFileInfo(m_path + QStringLiteral("-wal")).size() > 0) {
            say(RecordingNotice::Kind::LatestMissing);
        }
    }
    if (!isOpen() && !m_isUnreadable) {
        m_isUnreadable = true;
        say(RecordingNotice::Kind::CannotRead);
    }
    return isOpen();
}

/// False when it cannot be opened. A file that will never be readable is told of, and marked.
bool SourceFile::openAs(const QString& name, const QString& options)
{
    auto connection = std::make_unique<recordingschema::Connection>();
    QSqlDatabase& database = connection->database();
    database.setDatabaseName(name);
    database.setConnectOptions(options);
    if (!database.open()) {
        return false;
    }
    QString reason;
    switch (recordingschema::examine(database, &reason)) {
    case Fit::Fits:
        m_connection = std::move(connection);
        return true;
    case Fit::Newer:
        m_isUnreadable = true;
        return say(RecordingNotice::Kind::NewerToRead);
    case Fit::Foreign:
        m_isUnreadable = true;
        return say(RecordingNotice::Kind::CannotRead);
    case Fit::Empty:      // being made just now
    case Fit::Unreadable: // as it seems, this way
    case Fit::NotNow:
        break;
    }
    return false;
}

void SourceFile::close()
{
    m_connection.reset();
}

/// Always false.
bool SourceFile::say(RecordingNotice::Kind kind, const QString& reason)
{
    m_notices.push_back({kind, m_path, reason});
    return false;
}

std::optional<QSqlQuery> SourceFile::ask(const QString& statement, const QVariantList& values)
{
    if (!open()) {
        return std::nullopt;
    }
    QSqlQuery query(m_connection->database());
    query.setForwardOnly(true);
    bool isDone = query.prepare(statement);
    for (const QVariant& value : values) {
        query.addBindValue(value);
    }
    isDone = isDone && query.exec();
    if (!isDone) {
        sayDamaged(query.lastError().databaseText());
        return std::nullopt;
    }
    return query;
}

bool SourceFile::next(QSqlQuery& query)
{
    if (query.next()) {
        return true;
    }
    if (query.lastError().isValid()) {
        sayDamaged(query.lastError().databaseText());
    }
    return false;
}

/// Once a file.
void SourceFile::sayDamaged(const QString& reason)
{
    if (!std::exchange(m_isDamageTold, true)) {
        say(RecordingNotice::Kind::DamagedPart, reason);
    }
}

QString SourceFile::hexIdOf(const QVariant& value)
{
    const int address = value.toInt();
    return value.isNull() || address < 0 || address > kLastLdb ? QString()
                                                               : busaddress::toHexId(address);
}

QString SourceFile::copyTo(const QString& path)
{
    if (!open()) {
        return m_path;
    }
    QSqlQuery query(m_connection->database());
    query.prepare(QStringLiteral("VACUUM INTO ?"));
    query.addBindValue(path);
    return query.exec() ? QString() : query.lastError().databaseText();
}

#include "recording/recordingschema.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QVariant>

#include <algorithm>
#include <atomic>
#include <iterator>

namespace recordingschema {

namespace {

// The key is a time in µs, and there is no second index: appended rows fill their pages, and a span
// is a range of keys.
constexpr const char* kTables[] = {
    "CREATE TABLE exchanges(at INTEGER PRIMARY KEY, ldb INTEGER, kind INTEGER, outcome INTEGER,"
    " flight INTEGER, request BLOB, answer BLOB)",
    "CREATE TABLE rounds(at INTEGER PRIMARY KEY, wall INTEGER, offset INTEGER, single INTEGER)",
    "CREATE TABLE minutes(minute INTEGER, ldb INTEGER, asked INTEGER, good INTEGER,"
    " damaged INTEGER, silent INTEGER, told INTEGER, least INTEGER, sum INTEGER, most INTEGER,"
    " PRIMARY KEY(minute, ldb)) WITHOUT ROWID",
    "CREATE TABLE events(id INTEGER PRIMARY KEY, at INTEGER, kind INTEGER, ldb INTEGER,"
    " place INTEGER, since INTEGER, count INTEGER, still INTEGER, before TEXT, after TEXT,"
    " text TEXT)",
    "CREATE TABLE runs(begun INTEGER PRIMARY KEY, until INTEGER, ended INTEGER,"
    " continued INTEGER, port TEXT, found TEXT, names TEXT)",
    "CREATE TABLE about(key TEXT PRIMARY KEY, value TEXT) WITHOUT ROWID"};

/// The lowest byte of a result code is the kind of error; the others are details.
constexpr int kPrimaryCode = 0xFF;
constexpr int kError = 1;
constexpr int kCorrupt = 11;
constexpr int kFull = 13;
constexpr int kNotADatabase = 26;

int pragma(QSqlQuery& query, const QString& name)
{
    return query.exec(QStringLiteral("PRAGMA ") + name) && query.next() ? query.value(0).toInt()
                                                                        : -1;
}

} // namespace

Fit examine(const QSqlDatabase& database, QString* reason)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    if (!query.exec(QStringLiteral("SELECT count(*) FROM sqlite_master")) || !query.next()) {
        *reason = query.lastError().databaseText();
        const Failure failure = failureOf(query.lastError());
        return failure == Failure::System || failure == Failure::DiskFull ? Fit::NotNow
                                                                          : Fit::Unreadable;
    }
    const bool isEmpty = query.value(0).toInt() == 0;
    const int version = pragma(query, QStringLiteral("user_version"));
    const int id = pragma(query, QStringLiteral("application_id"));
    if (isEmpty && version == 0 && id == 0) {
        return Fit::Empty;
    }
    if (id != kApplicationId || version < 1) {
        return Fit::Foreign;
    }
    if (version > kVersion) {
        return Fit::Newer;
    }
    // Compared here, as a column with another name would show only at the first statement that uses
    // it.
    QStringList tables;
    if (query.exec(QStringLiteral("SELECT sql FROM sqlite_master WHERE type='table'"))) {
        while (query.next()) {
            tables.append(query.value(0).toString());
        }
    }
    const bool isWhole =
        std::all_of(std::begin(kTables), std::end(kTables),
                    [&](const char* table) { return tables.contains(QLatin1String(table)); });
    return isWhole ? Fit::Fits : Fit::Unreadable;
}

QSqlError create(const QSqlDatabase& database, const QString& programVersion)
{
    QSqlQuery query(database);
    QStringList statements{QStringLiteral("BEGIN IMMEDIATE")};
    for (const char* table : kTables) {
        statements.append(QLatin1String(table));
    }
    statements.append(QStringLiteral("PRAGMA application_id=%1").arg(kApplicationId));
    statements.append(QStringLiteral("PRAGMA user_version=%1").arg(kVersion));
    for (const QString& statement : qAsConst(statements)) {
        if (!query.exec(statement)) {
            return query.lastError();
        }
    }
    query.prepare(QStringLiteral("INSERT INTO about VALUES('program', ?)"));
    query.addBindValue(programVersion);
    if (!query.exec() || !query.exec(QStringLiteral("COMMIT"))) {
        return query.lastError();
    }
    return {};
}

Connection::Connection()
{
    static std::atomic<int> count{0};
    m_name = QStringLiteral("recording %1").arg(++count);
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
}

Connection::~Connection()
{
    m_database.close();
    m_database = QSqlDatabase(); // a connection that is still referred to cannot be removed
    QSqlDatabase::removeDatabase(m_name);
}

Failure failureOf(const QSqlError& error)
{
    if (!error.isValid()) {
        return Failure::None;
    }
    switch (error.nativeErrorCode().toInt() & kPrimaryCode) {
    case kFull:
        return Failure::DiskFull;
    case kCorrupt:
    case kNotADatabase:
        return Failure::Damaged;
    case kError:
        return Failure::Other;
    default:
        return Failure::System;
    }
}

} // namespace recordingschema

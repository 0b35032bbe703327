#include "recording/recordingfile.h"

#include "serial/ldb/busaddress.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QSqlError>
#include <QVariant>

using recordingschema::Failure;
using recordingschema::Fit;

namespace {

constexpr qint64 kMinute = recordingschema::kMinute;

QVariant ldbValue(const QString& hexId)
{
    return hexId.isEmpty() ? QVariant() : QVariant(busaddress::fromHexId(hexId));
}

/// NULL takes no room.
QVariant orNull(const QByteArray& bytes)
{
    return bytes.isEmpty() ? QVariant() : QVariant(bytes);
}
QVariant orNull(const QString& text)
{
    return text.isEmpty() ? QVariant() : QVariant(text);
}

QString jsonText(const QHash<QString, QString>& names)
{
    QJsonObject object;
    for (auto name = names.begin(); name != names.end(); ++name) {
        object.insert(name.key(), name.value());
    }
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace

struct RecordingFile::Queries
{
    explicit Queries(const QSqlDatabase& database)
        : any(database)
        , transmission(database)
        , round(database)
        , minute(database)
        , event(database)
        , run(database)
        , finder(database)
    {
    }

    QSqlQuery any;
    QSqlQuery transmission;
    QSqlQuery round;
    QSqlQuery minute;
    QSqlQuery event;
    QSqlQuery run;
    QSqlQuery finder;
};

RecordingFile::RecordingFile(bool isSynced)
    : m_isSynced(isSynced)
{
}

RecordingFile::~RecordingFile()
{
    close();
}

RecordingFile::Opening RecordingFile::open(const QString& path, const QString& programVersion)
{
    close();
    m_path = path;
    m_failure = Failure::None;
    m_errorString.clear();
    const QString folder = QFileInfo(path).path();
    if (!QDir().mkpath(folder)) {
        m_errorString = folder;
        return Opening::Failed;
    }
    m_lock = std::make_unique<QLockFile>(path + QStringLiteral(".lock"));
    m_lock->setStaleLockTime(0); // stale only when its program is gone
    Opening result = Opening::Failed;
    if (m_lock->tryLock()) {
        result = openLocked(programVersion);
    } else if (m_lock->error() == QLockFile::LockFailedError) {
        result = Opening::InUse;
    }
    if (result != Opening::Done) {
        m_queries.reset();
        m_connection.reset();
        m_lock.reset();
    }
    return result;
}

RecordingFile::Opening RecordingFile::openLocked(const QString& programVersion)
{
    m_connection = std::make_unique<recordingschema::Connection>();
    QSqlDatabase& database = m_connection->database();
    database.setDatabaseName(m_path);
    // Readers delay only the closing of the file.
    database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=500"));
    if (!database.open()) {
        fail(database.lastError());
        return Opening::Failed;
    }
    const Fit fit = recordingschema::examine(database, &m_errorString);
    if (fit == Fit::NotNow) {
        return Opening::Failed;
    }
    if (fit == Fit::Newer) {
        return Opening::Newer;
    }
    if (fit != Fit::Empty && fit != Fit::Fits) {
        return Opening::Damaged;
    }
    m_queries = std::make_unique<Queries>(database);
    // What is written after a damaged place may never be found again.
    if (fit == Fit::Fits && !isSound()) {
        return m_failure == Failure::Damaged ? Opening::Damaged : Opening::Failed;
    }
    // The disk has it when a commit returns, and so after a power cut.
    bool isDone = run("PRAGMA journal_mode=WAL") &&
                  run(m_isSynced ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=OFF");
    if (isDone && fit == Fit::Empty) {
        const QSqlError error = recordingschema::create(database, programVersion);
        isDone = !error.isValid() || fail(error);
    }
    if (isDone && prepare()) {
        return Opening::Done;
    }
    return m_failure == Failure::Damaged ? Opening::Damaged : Opening::Failed;
}

bool RecordingFile::isSound()
{
    QSqlQuery& query = m_queries->any;
    if (!query.exec(QStringLiteral("PRAGMA quick_check(1)")) || !query.next()) {
        return failInside(query.lastError());
    }
    const QString verdict = query.value(0).toString();
    query.finish();
    if (verdict != QLatin1String("ok")) {
        m_failure = Failure::Damaged;
        m_errorString = verdict;
        return false;
    }
    return true;
}

bool RecordingFile::prepare()
{
    const std::pair<QSqlQuery*, const char*> statements[] = {
        {&m_queries->transmission, "INSERT OR IGNORE INTO exchanges VALUES(?,?,?,?,?,?,?)"},
        {&m_queries->round, "INSERT OR REPLACE INTO rounds VALUES(?,?,?,?)"},
        {&m_queries->minute,
         "INSERT INTO minutes VALUES(?,?,?,?,?,?,?,?,?,?)"
         " ON CONFLICT(minute,ldb) DO UPDATE SET asked=asked+excluded.asked,"
         " good=good+excluded.good, damaged=damaged+excluded.damaged,"
         " silent=silent+excluded.silent, told=told+excluded.told,"
         " least=CASE WHEN good=0 THEN excluded.least WHEN excluded.good=0 THEN least"
         " ELSE min(least,excluded.least) END,"
         " sum=sum+excluded.sum, most=max(most,excluded.most)"},
        {&m_queries->event,
         "INSERT INTO events(at,kind,ldb,place,since,count,still,before,after,text)"
         " VALUES(?,?,?,?,?,?,?,?,?,?)"},
        {&m_queries->run, "INSERT OR REPLACE INTO runs VALUES(?,?,?,?,?,?,?)"},
        {&m_queries->finder, "INSERT OR REPLACE INTO about VALUES('finder',?)"}};
    for (const auto& [query, statement] : statements) {
        if (!query->prepare(QLatin1String(statement))) {
            return failInside(query->lastError());
        }
    }
    QSqlQuery& any = m_queries->any;
    if (!any.exec(QStringLiteral("SELECT max(at) FROM exchanges")) || !any.next()) {
        return failInside(any.lastError());
    }
    m_lastAt = any.value(0).toLongLong();
    any.finish();
    return true;
}

bool RecordingFile::run(QSqlQuery& query)
{
    return query.exec() || fail(query.lastError());
}

bool RecordingFile::run(const char* statement)
{
    QSqlQuery& query = m_queries->any;
    const bool isDone = query.exec(QLatin1String(statement)) || fail(query.lastError());
    query.finish();
    return isDone;
}

/// Notes why; always false.
bool RecordingFile::fail(const QSqlError& error)
{
    m_failure = recordingschema::failureOf(error);
    m_errorString = error.text();
    return false;
}

/// As `fail`, for statements at which a sound file of this version gives no error but the disk's.
bool RecordingFile::failInside(const QSqlError& error)
{
    fail(error);
    if (m_failure == Failure::Other) {
        m_failure = Failure::Damaged;
    }
    return false;
}

bool RecordingFile::write(const FileRows& rows)
{
    const qint64 lastAt = m_lastAt;
    m_failure = Failure::None;
    m_errorString.clear();
    bool isDone = run("BEGIN IMMEDIATE");
    for (auto row = rows.begin(); isDone && row != rows.end(); ++row) {
        isDone = std::visit([this](const auto& value) { return insert(value); }, *row);
    }
    isDone = isDone && run("COMMIT");
    if (!isDone) {
        const Failure failure = m_failure;
        const QString reason = m_errorString;
        run("ROLLBACK");
        m_failure = failure;
        m_errorString = reason;
        m_lastAt = lastAt;
    }
    return isDone;
}

bool RecordingFile::insert(const filerow::Transmission& row)
{
    QSqlQuery& query = m_queries->transmission;
    for (qint64 at = row.at;; ++at) {
        query.bindValue(0, at);
        query.bindValue(1, row.ldb);
        query.bindValue(2, row.kind);
        query.bindValue(3, row.outcome);
        query.bindValue(4, row.flight < 0 ? QVariant() : QVariant(row.flight));
        query.bindValue(5, orNull(row.request));
        query.bindValue(6, orNull(row.answer));
        if (!run(query)) {
            return false;
        }
        if (query.numRowsAffected() > 0) {
            m_lastAt = qMax(m_lastAt, at);
            return true;
        }
    }
}

bool RecordingFile::insert(const filerow::Round& row)
{
    QSqlQuery& query = m_queries->round;
    query.bindValue(0, row.at);
    query.bindValue(1, row.wall);
    query.bindValue(2, row.offset);
    query.bindValue(3, (row.isSingle ? filerow::kSingleFlag : 0) |
                           (row.isBreak ? filerow::kBreakFlag : 0));
    return run(query);
}

bool RecordingFile::insert(const RecordedMinute& row)
{
    QSqlQuery& query = m_queries->minute;
    query.bindValue(0, row.at / kMinute);
    query.bindValue(1, ldbValue(row.hexId));
    query.bindValue(2, row.asked);
    query.bindValue(3, row.good);
    query.bindValue(4, row.damaged);
    query.bindValue(5, row.silent);
    query.bindValue(6, row.told);
    query.bindValue(7, row.leastFlight);
    query.bindValue(8, row.sumOfFlights);
    query.bindValue(9, row.mostFlight);
    return run(query);
}

bool RecordingFile::insert(const RecordedEvent& row)
{
    QSqlQuery& query = m_queries->event;
    query.bindValue(0, row.at);
    query.bindValue(1, static_cast<int>(row.kind));
    query.bindValue(2, ldbValue(row.hexId));
    query.bindValue(3, static_cast<int>(row.place));
    query.bindValue(4, row.since);
    query.bindValue(5, row.count);
    query.bindValue(6, (row.isStill ? filerow::kStillFlag : 0) |
                           (row.isVague ? filerow::kVagueFlag : 0));
    query.bindValue(7, orNull(row.before));
    query.bindValue(8, orNull(row.after));
    query.bindValue(9, orNull(row.text));
    return run(query);
}

bool RecordingFile::insert(const filerow::Run& row)
{
    QSqlQuery& query = m_queries->run;
    query.bindValue(0, row.run.begun);
    query.bindValue(1, row.run.until);
    query.bindValue(2, row.run.isEnded ? 1 : 0);
    query.bindValue(3, row.isContinued ? 1 : 0);
    query.bindValue(4, row.run.port);
    query.bindValue(5, row.run.found.join(QLatin1Char(' ')));
    query.bindValue(6, jsonText(row.run.names));
    return run(query);
}

bool RecordingFile::insert(const filerow::FinderState& row)
{
    m_queries->finder.bindValue(0, QString::fromUtf8(row.json));
    return run(m_queries->finder);
}

bool RecordingFile::isThere() const
{
    return QFileInfo::exists(m_path);
}

QByteArray RecordingFile::finderState()
{
    QSqlQuery& query = m_queries->any;
    QByteArray state;
    if (query.exec(QStringLiteral("SELECT value FROM about WHERE key='finder'")) && query.next()) {
        state = query.value(0).toString().toUtf8();
    }
    query.finish();
    return state;
}

void RecordingFile::close()
{
    if (!isOpen()) {
        return;
    }
    const auto queries = std::exchange(m_queries, nullptr);
    queries->transmission.clear();
    queries->round.clear();
    queries->minute.clear();
    queries->event.clear();
    queries->run.clear();
    queries->finder.clear();
    if (isThere()) {
        // A reader at work keeps the file as it is; the next start of the recorder tries again.
        queries->any.exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)"));
        queries->any.finish();
        queries->any.exec(QStringLiteral("PRAGMA journal_mode=DELETE"));
    }
    queries->any.clear();
    m_connection.reset();
    m_lock.reset();
}

#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QString>

/// The layout of a recording's file.
namespace recordingschema {

constexpr int kVersion = 1;
constexpr qint64 kMinute = 60 * 1000000LL; ///< what a row of the table `minutes` spans, µs
constexpr int kApplicationId = 0x4C444252; ///< "LDBR"

enum class Fit
{
    Empty, ///< no tables: a new file
    Fits,
    Newer,   ///< a later version of the program has made it
    Foreign, ///< something else's
    Unreadable,
    NotNow ///< the disk or another program does not let us
};

/// What this version can do with a file. `reason` gets what SQLite says of an unreadable one.
Fit examine(const QSqlDatabase& database, QString* reason);

/// Makes the tables of a new file; the error is not valid when that is done.
QSqlError create(const QSqlDatabase& database, const QString& programVersion);

/// A database connection of its own, not opened yet; it lives as long as this object.
class Connection
{
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    QSqlDatabase& database() { return m_database; }

private:
    QString m_name;
    QSqlDatabase m_database;
};

/// Why something failed, as far as the difference matters.
enum class Failure
{
    None,
    DiskFull,
    Damaged,
    System, ///< the disk or another program does not let us
    Other
};
Failure failureOf(const QSqlError& error);

} // namespace recordingschema

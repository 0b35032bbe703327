#include "benchmarks/soak/logaudit.h"

#include "serial/framecodec.h"
#include "serial/generalinformation.h"

#include <algorithm>
#include <cstdio>

using namespace generalinformation;

namespace {

// Columns of the journal.
constexpr int kTimeColumn = 0;
constexpr int kSinceColumn = 1;
constexpr int kMarkColumn = 2;
constexpr int kHexIdColumn = 3;
constexpr int kBytesColumn = 4;
constexpr int kTextColumn = 5;

// Values of a log line: those of all rows, then nothing behind the last separator.
constexpr int kLogValues = RowCount + 1;
constexpr int kSecondsLength = 19; // "2026-03-04 10:00:00"

/// What the system still had to hand over when the line was cut.
constexpr double kCutMs = 100;
constexpr std::size_t kRecentStatuses = 2000;
constexpr int kComplaintsPrinted = 40;

/// The values of a log line between the name and the timestamp.
QByteArray logFields(const QList<QStringList>& rows)
{
    QByteArrayList values;
    for (int row = ModeRow; row < TimestampRow; ++row) {
        const bool isMeasurement = row >= PrimaryVoltageRow && row <= SecondaryCurrentRow;
        values.append(
            field(rows, static_cast<Row>(row), isMeasurement ? ValueColumn : TextColumn).toUtf8());
    }
    return values.join(';');
}

QList<QStringList> rowsOf(const QString& hexId, const QString& name, const LdbStatus& status)
{
    return buildRows(hexId, name, status, {}, {});
}

QString key(const QString& hexId, const QByteArray& fields)
{
    return hexId + QLatin1Char(' ') + QString::fromUtf8(fields);
}

} // namespace

LogAudit::LogAudit(const QHash<QString, QString>& names)
    : m_names(names)
{
}

void LogAudit::takeJournalLine(const QByteArray& line)
{
    const QByteArrayList columns = line.split('\t');
    const QByteArray mark = columns.value(kMarkColumn);
    if (mark == ">") {
        takeRequest(QString::fromLatin1(columns.value(kHexIdColumn)),
                    QByteArray::fromHex(columns.value(kBytesColumn)));
    } else if (mark == "<") {
        takeAnswer(columns);
    } else if (columns.value(kTextColumn) == "line cut") {
        m_cutMs = columns.value(kSinceColumn).toDouble();
        m_isWaiting = false;
    }
}

void LogAudit::takeRequest(const QString& hexId, const QByteArray& frame)
{
    // What is asked follows the sender and the receiver behind the SOH.
    constexpr int kQuestion = 5;
    const QByteArray question = frame.mid(kQuestion, 6);
    const bool isStatus = question == "737803";
    const bool isPolling = isStatus || question == "737202" || question == "737804";
    m_findings.unanswered += m_isWaiting ? 1 : 0;
    m_findings.exchanges += isPolling ? 1 : 0;
    m_isWaiting = isPolling;
    if (isStatus && frame != m_request) {
        m_answered.remove(hexId);
    }
    m_request = frame;
}

void LogAudit::takeAnswer(const QByteArrayList& columns)
{
    m_isWaiting = false;
    const QByteArray text = columns.value(kTextColumn);
    const bool isLate = text.contains("[late");
    m_findings.late += isLate ? 1 : 0;
    if (text.contains("[garbled]")) {
        ++m_findings.garbled;
        return;
    }
    QByteArray body = QByteArray::fromHex(columns.value(kBytesColumn));
    if (!framecodec::responseValidation(body)) {
        return;
    }
    const LdbStatusDecoding decoded = decodeLdbStatus(body);
    if (!decoded.valid) {
        return; // the answer to something else
    }
    const QString hexId = QString::fromLatin1(columns.value(kHexIdColumn));
    const Status status{columns.value(kSinceColumn).toDouble(),
                        columns.value(kTimeColumn).left(kSecondsLength),
                        body,
                        logFields(rowsOf(hexId, {}, decoded.status)),
                        isLate,
                        m_answered.contains(hexId)};
    m_answered.insert(hexId);
    ++m_findings.sent;
    m_open[hexId].push_back(status);
    m_recent.push_back(key(hexId, status.fields));
    if (m_recent.size() > kRecentStatuses) {
        m_recent.pop_front();
    }
}

void LogAudit::takeLogLine(const QByteArray& line, const QStringList& shown)
{
    ++m_findings.lines;
    const QByteArrayList values = line.split(';');
    const QString hexId = QString::fromUtf8(values.value(DeviceIdRow));
    if (values.size() != kLogValues) {
        complain(hexId, QStringLiteral("a torn line: ") + QString::fromUtf8(line));
        return;
    }
    const QByteArray fields = values.mid(ModeRow, TimestampRow - ModeRow).join(';');
    const QString name = QString::fromUtf8(values.at(NameRow));
    if (name == ldbStateText(LdbState::Disconnected)) {
        checkLost(hexId, fields);
        return;
    }
    m_lost.remove(hexId);
    checkName(hexId, name);
    std::deque<Status>& open = m_open[hexId];
    // A round is stamped before its requests are sent; the log has a colon behind the date. Boards
    // whose loop is off send the same values again and again.
    const QByteArray stamp = QByteArray(values.at(TimestampRow)).replace(": ", " ");
    const auto sent = std::find_if(open.begin(), open.end(), [&](const Status& status) {
        return status.fields == fields && status.time >= stamp;
    });
    if (sent == open.end()) {
        complain(hexId, explain(hexId, fields));
        return;
    }
    checkTime(hexId, stamp);
    checkShown(hexId, *sent, shown);
    std::for_each(open.begin(), sent, [this](const Status& status) { passOver(status); });
    open.erase(open.begin(), sent + 1);
}

void LogAudit::checkLost(const QString& hexId, const QByteArray& fields)
{
    ++m_findings.lostLines;
    if (fields != logFields(rowsOf(hexId, {}, LdbStatus::disconnected()))) {
        complain(hexId, QStringLiteral("lost, but with values: ") + QString::fromUtf8(fields));
    }
    if (!m_lost.contains(hexId)) {
        m_lost.insert(hexId);
        ++m_findings.losses;
        const bool isOnBus = m_names.contains(hexId) && !m_absent.contains(hexId);
        m_findings.falseLosses += isOnBus ? 1 : 0;
    }
}

void LogAudit::checkName(const QString& hexId, const QString& name)
{
    // Until its name has been asked for, an LDB has none.
    const bool isRight =
        name.isEmpty() ? !m_named.contains(hexId) : name == m_names.value(hexId, QString());
    if (!isRight) {
        complain(hexId, QStringLiteral("is called \"%1\"").arg(name));
    }
    if (!name.isEmpty()) {
        m_named.insert(hexId);
    }
}

void LogAudit::checkTime(const QString& hexId, const QByteArray& stamp)
{
    if (stamp < m_lastStamp) {
        complain(hexId, QStringLiteral("stamped %1, after %2")
                            .arg(QString::fromUtf8(stamp), QString::fromUtf8(m_lastStamp)));
    }
    m_lastStamp = stamp;
}

void LogAudit::checkShown(const QString& hexId, const Status& status, const QStringList& shown)
{
    if (shown.isEmpty()) {
        return;
    }
    ++m_findings.shown;
    const QList<QStringList> rows =
        rowsOf(hexId, m_names.value(hexId), decodeLdbStatus(status.body).status);
    for (int row = DeviceIdRow; row < TimestampRow; ++row) {
        const bool isUnnamed = row == NameRow && !m_named.contains(hexId);
        const QString expected = isUnnamed ? QString() : text(rows, static_cast<Row>(row));
        if (shown.value(row) != expected) {
            complain(hexId,
                     QStringLiteral("shows \"%1\" for \"%2\"").arg(shown.value(row), expected));
        }
    }
}

void LogAudit::passOver(const Status& status)
{
    if (status.isSecond) {
        ++m_findings.surplus;
    } else if (status.isLate) {
        ++m_findings.lateNotTaken;
    } else if (m_cutMs > 0 && status.sentMs > m_cutMs - kCutMs) {
        ++m_findings.takenByCut;
    } else {
        ++m_findings.promptNotTaken;
    }
}

void LogAudit::endRun()
{
    for (const auto& open : qAsConst(m_open)) {
        std::for_each(open.begin(), open.end(), [this](const Status& status) { passOver(status); });
    }
    m_open.clear();
    m_named.clear();
    m_lost.clear();
    m_absent.clear();
    m_answered.clear();
    m_request.clear();
    m_cutMs = 0;
}

void LogAudit::complain(const QString& hexId, const QString& what)
{
    if (++m_findings.wrong <= kComplaintsPrinted) {
        std::printf("WRONG  %s  %s\n", qPrintable(hexId), qPrintable(what));
        std::fflush(stdout);
    }
}

/// Where the values of a line that is not the LDB's next answer can come from.
QString LogAudit::explain(const QString& hexId, const QByteArray& fields) const
{
    const QString values = QString::fromUtf8(fields);
    if (std::find(m_recent.begin(), m_recent.end(), key(hexId, fields)) != m_recent.end()) {
        return QStringLiteral("logged twice, out of order or before it was sent: ") + values;
    }
    const auto other =
        std::find_if(m_recent.begin(), m_recent.end(), [&values](const QString& recent) {
            return recent.endsWith(QLatin1Char(' ') + values);
        });
    return other == m_recent.end()
               ? QStringLiteral("nobody has sent: ") + values
               : QStringLiteral("logged what %1 has sent: %2").arg(other->left(2), values);
}

#include "benchmarks/badline/logaudit.h"

#include "serial/ldb/generalinformation.h"
#include "serial/link/serialtuning.h"

#include <QDateTime>

#include <algorithm>

using namespace generalinformation;

namespace {

// Values of a log line: those of all rows, then nothing behind the last separator.
constexpr int kLogValues = RowCount + 1;
/// From an answer's end to its line, on a machine that has other things to do.
constexpr qint64 kLatestMs = 2000;
constexpr qint64 kStampMs = 1000; ///< a stamp's resolution

/// The values of a log line between the name and the timestamp.
QByteArray logFields(const QList<QStringList>& rows)
{
    QByteArrayList values;
    for (int row = ModeRow; row < TimestampRow; ++row) {
        const bool isMeasurement = row >= PrimaryVoltageRow && row <= SecondaryCurrentRow;
        const QString value =
            field(rows, static_cast<Row>(row), isMeasurement ? ValueColumn : TextColumn);
        values.append(value == kNoValue ? QByteArray() : value.toUtf8());
    }
    return values.join(';');
}

QByteArray logFields(const QString& hexId, const LdbStatus& status)
{
    return logFields(buildRows(hexId, {}, status, {}, {}));
}

class Audit
{
public:
    Audit(const BusBook& book, const QHash<QString, QString>& names, qint64 until);

    void takeLine(const LoggedLine& line);
    LogFindings finish();

private:
    /// The sound statuses of one LDB, and how far the log has come with them.
    struct Course
    {
        const std::vector<BusBook::Sent>* sent = nullptr;
        QByteArrayList fields;
        int next = 0;
    };

    void takeLoss(const QString& hexId, const QByteArray& fields, qint64 seenAt);
    void checkName(const QString& hexId, const QString& name, qint64 seenAt);
    void checkStamp(const QString& hexId, qint64 stamp, const Course& course, qint64 seenAt);
    void checkShown(const QString& hexId, const LdbStatus& status, const LoggedLine& line);
    void passOver(const QString& hexId, const Course& course, int index);
    QString explain(const QString& hexId, const QByteArray& fields) const;
    QString describe(const QString& hexId, const QString& what, qint64 wall) const;
    void complain(const QString& hexId, const QString& what, qint64 wall)
    {
        m_findings.wrong.append(describe(hexId, what, wall));
    }
    void miss(const QString& hexId, const QString& what, qint64 wall)
    {
        m_findings.missing.append(describe(hexId, what, wall));
    }

    const BusBook& m_book;
    const QHash<QString, QString>& m_names;
    const qint64 m_until;
    const int m_forgivenMisses = SerialTuning::load().disconnectedCount;
    QHash<QString, Course> m_courses;
    QStringList m_named; ///< whose name has been logged
    qint64 m_lastStamp = 0;
    LogFindings m_findings;
};

Audit::Audit(const BusBook& book, const QHash<QString, QString>& names, qint64 until)
    : m_book(book)
    , m_names(names)
    , m_until(until)
{
    for (auto sent = book.sent.begin(); sent != book.sent.end(); ++sent) {
        Course course{&sent.value(), {}, 0};
        for (const BusBook::Sent& one : sent.value()) {
            course.fields.append(logFields(sent.key(), one.status));
        }
        m_courses.insert(sent.key(), course);
    }
}

void Audit::takeLine(const LoggedLine& line)
{
    const QByteArrayList values = line.text.split(';');
    const QString hexId = QString::fromUtf8(values.value(DeviceIdRow));
    if (values.size() != kLogValues || !m_courses.contains(hexId)) {
        complain(hexId, QStringLiteral("a torn line: ") + QString::fromUtf8(line.text),
                 line.seenAt);
        return;
    }
    const QByteArray fields = values.mid(ModeRow, TimestampRow - ModeRow).join(';');
    const QString name = QString::fromUtf8(values.at(NameRow));
    if (QString::fromUtf8(values.at(ModeRow)) == ldbStateText(LdbState::Disconnected)) {
        takeLoss(hexId, fields, line.seenAt);
        return;
    }
    ++m_findings.records;
    m_findings.stillLost.removeAll(hexId);
    checkName(hexId, name, line.seenAt);
    // A round is stamped before its requests are sent.
    const qint64 stamp =
        QDateTime::fromString(QString::fromUtf8(values.at(TimestampRow)), kSecondsFormat)
            .toMSecsSinceEpoch();
    Course& course = m_courses[hexId];
    checkStamp(hexId, stamp, course, line.seenAt);
    int found = course.next;
    const auto isIt = [&](int index) {
        const qint64 wall = (*course.sent)[static_cast<std::size_t>(index)].wall;
        return course.fields.at(index) == fields && wall >= stamp && wall <= line.seenAt;
    };
    while (found < course.fields.size() && !isIt(found)) {
        ++found;
    }
    if (found == course.fields.size()) {
        complain(hexId, explain(hexId, fields), line.seenAt);
        return;
    }
    for (; course.next < found; ++course.next) {
        passOver(hexId, course, course.next);
    }
    ++course.next;
    const BusBook::Sent& sent = (*course.sent)[static_cast<std::size_t>(found)];
    const qint64 took = line.seenAt - sent.wall;
    m_findings.latest = std::max(m_findings.latest, took);
    if (took > kLatestMs) {
        miss(hexId, QStringLiteral("logged %1 ms after it was sent").arg(took), line.seenAt);
    }
    checkShown(hexId, sent.status, line);
}

void Audit::takeLoss(const QString& hexId, const QByteArray& fields, qint64 seenAt)
{
    if (fields != logFields(hexId, LdbStatus::disconnected())) {
        complain(hexId, QStringLiteral("lost, but with values: ") + QString::fromUtf8(fields),
                 seenAt);
    }
    if (m_findings.stillLost.contains(hexId)) {
        return;
    }
    m_findings.stillLost.append(hexId);
    m_findings.losses.append(hexId);
    const int harmed = m_book.harmedInARow(hexId, seenAt);
    if (harmed <= m_forgivenMisses) {
        ++m_findings.falseLosses;
        complain(hexId, QStringLiteral("told as lost after %1 harmed questions").arg(harmed),
                 seenAt);
    }
}

void Audit::checkName(const QString& hexId, const QString& name, qint64 seenAt)
{
    // Until its name has been asked for, an LDB has none.
    const bool isRight = name.isEmpty() ? !m_named.contains(hexId) : name == m_names.value(hexId);
    if (!isRight) {
        complain(hexId, QStringLiteral("is called \"%1\"").arg(name), seenAt);
    }
    if (!name.isEmpty() && !m_named.contains(hexId)) {
        m_named.append(hexId);
    }
}

void Audit::checkStamp(const QString& hexId, qint64 stamp, const Course& course, qint64 seenAt)
{
    const bool isBehindFormer =
        course.next == 0 ||
        (*course.sent)[static_cast<std::size_t>(course.next) - 1].wall < stamp + kStampMs;
    if (stamp < m_lastStamp || !isBehindFormer) {
        complain(hexId, QStringLiteral("stamped before its former record"), seenAt);
    }
    m_lastStamp = std::max(m_lastStamp, stamp);
}

void Audit::checkShown(const QString& hexId, const LdbStatus& status, const LoggedLine& line)
{
    if (line.shown.isEmpty()) {
        return;
    }
    ++m_findings.shown;
    const QList<QStringList> rows = buildRows(hexId, m_names.value(hexId), status, {}, {});
    for (int row = DeviceIdRow; row < TimestampRow; ++row) {
        const bool isUnnamed = row == NameRow && !m_named.contains(hexId);
        const QString expected = isUnnamed ? QString() : text(rows, static_cast<Row>(row));
        if (line.shown.value(row) != expected) {
            complain(hexId,
                     QStringLiteral("shows \"%1\" for \"%2\"").arg(line.shown.value(row), expected),
                     line.seenAt);
        }
    }
}

void Audit::passOver(const QString& hexId, const Course& course, int index)
{
    const BusBook::Sent& sent = (*course.sent)[static_cast<std::size_t>(index)];
    if (sent.wall >= m_until) {
        return;
    }
    if (sent.isAmongStrays) {
        ++m_findings.leftOut;
    } else {
        miss(hexId,
             QStringLiteral("is not in the log: ") + QString::fromUtf8(course.fields.at(index)),
             sent.wall);
    }
}

/// Where the values of a line that is not the LDB's next answer can come from.
QString Audit::explain(const QString& hexId, const QByteArray& fields) const
{
    const QString values = QString::fromUtf8(fields);
    if (m_courses.value(hexId).fields.contains(fields)) {
        return QStringLiteral("logged twice, out of order or before it was sent: ") + values;
    }
    for (auto other = m_courses.begin(); other != m_courses.end(); ++other) {
        if (other->fields.contains(fields)) {
            return QStringLiteral("logged what %1 has sent: %2").arg(other.key(), values);
        }
    }
    return QStringLiteral("nobody has sent this undamaged: ") + values;
}

QString Audit::describe(const QString& hexId, const QString& what, qint64 wall) const
{
    return QStringLiteral("%1  %2\n%3").arg(hexId, what, QString::fromUtf8(m_book.excerpt(wall)));
}

LogFindings Audit::finish()
{
    for (auto course = m_courses.begin(); course != m_courses.end(); ++course) {
        for (int index = course->next; index < course->fields.size(); ++index) {
            passOver(course.key(), *course, index);
        }
    }
    return m_findings;
}

} // namespace

LogFindings auditLog(const std::vector<LoggedLine>& log, const BusBook& book,
                     const QHash<QString, QString>& names, qint64 until)
{
    Audit audit(book, names, until);
    for (const LoggedLine& line : log) {
        audit.takeLine(line);
    }
    return audit.finish();
}

#include "serial/ldb/recordlog.h"

#include "serial/ldb/busaddress.h"
#include "serial/ldb/generalinformation.h"

#include <QCoreApplication>
#include <QDateTime>

#include <iterator>

using namespace generalinformation;

namespace {

constexpr QLatin1Char kSeparator(';');
constexpr QLatin1Char kLineEnd('\n');

// In the order of the rows.
constexpr const char* kHeaderTexts[] = {
    QT_TRANSLATE_NOOP("FileLogger", "Device Id"),
    QT_TRANSLATE_NOOP("FileLogger", "Name"),
    QT_TRANSLATE_NOOP("FileLogger", "Mode"),
    QT_TRANSLATE_NOOP("FileLogger", "Loop"),
    QT_TRANSLATE_NOOP("FileLogger", "Primary Port (V)"),
    QT_TRANSLATE_NOOP("FileLogger", "Primary Port (mA)"),
    QT_TRANSLATE_NOOP("FileLogger", "Secondary Port (V)"),
    QT_TRANSLATE_NOOP("FileLogger", "Secondary Port (mA)"),
    QT_TRANSLATE_NOOP("FileLogger", "Earth"),
    QT_TRANSLATE_NOOP("FileLogger", "Amplifier"),
    QT_TRANSLATE_NOOP("FileLogger", "Timestamp"),
};
static_assert(std::size(kHeaderTexts) == RowCount);

/// Rows that are logged as bare numbers: their unit stands in the header.
bool isMeasurement(int row)
{
    return row >= PrimaryVoltageRow && row <= SecondaryCurrentRow;
}

/// What stands in the file for a row.
QString fieldText(int row, const QStringList& entry)
{
    if (entry.value(TextColumn) == kNoValue) {
        return {};
    }
    return entry.value(isMeasurement(row) ? ValueColumn : TextColumn);
}

} // namespace

namespace recordlog {

QString headerLine()
{
    QStringList texts;
    for (const char* text : kHeaderTexts) {
        texts << QCoreApplication::translate("FileLogger", text);
    }
    return texts.join(kSeparator) + kLineEnd;
}

QString dataLine(const QList<QStringList>& dataList)
{
    QString line;
    for (int row = 0; row < dataList.size(); ++row) {
        // Unlike the header, a data line ends with a separator: readers of these files expect it.
        const QString text = row == NameRow ? ownName(dataList) : fieldText(row, dataList.at(row));
        line += text.simplified() + kSeparator;
    }
    return line + kLineEnd;
}

} // namespace recordlog

bool LogPeriod::admits(int id, std::optional<qint64> time, int interval)
{
    const bool isFirst = !m_start;
    if (isFirst) {
        open(id, time);
    }
    const qint64 elapsed = m_start && time ? *time - *m_start : 0;
    if (elapsed >= interval) {
        open(id, time);
        return true;
    }
    if (elapsed != 0 || m_loggedIds.contains(id)) {
        return isFirst;
    }
    m_loggedIds.append(id);
    return true;
}

bool LogPeriod::admits(const QString& hexId, const QList<QStringList>& dataList, int interval)
{
    return admits(busaddress::fromHexId(hexId), secondsOf(text(dataList, TimestampRow)), interval);
}

void LogPeriod::open(int id, std::optional<qint64> time)
{
    m_start = time;
    m_loggedIds = {id};
}

std::optional<qint64> LogPeriod::secondsOf(const QString& timestamp)
{
    if (timestamp != m_timestamp) {
        const QDateTime time = QDateTime::fromString(timestamp, kSecondsFormat);
        m_timestampSeconds =
            time.isValid() ? std::make_optional(time.toSecsSinceEpoch()) : std::nullopt;
        m_timestamp = timestamp;
    }
    return m_timestampSeconds;
}

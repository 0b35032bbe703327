#include "serial/ldb/generalinformation.h"

#include "serial/ldb/busaddress.h"

#include <QCoreApplication>

namespace generalinformation {

const QString kNoValue = QStringLiteral("–");
const QString kSecondsFormat = QStringLiteral("yyyy-MM-dd: hh:mm:ss");
const QString kMillisecondsFormat = QStringLiteral("yyyy-MM-dd: hh:mm:ss:zzz");

namespace {

constexpr double kMillivoltsPerVolt = 1000.0;
constexpr double kRawPerMilliampere = 100.0;
constexpr int kSignificantDigits = 6;
// Kept at zero: readers of the rows expect every row to have a machine value.
const QString kNameValue = QStringLiteral("0");

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(GeneralInformation)
};

QStringList codeRow(const QString& text, int code)
{
    return {text, QString::number(code)};
}

QStringList voltageRow(quint16 millivolts, quint16 auxiliary)
{
    const double volts = millivolts / kMillivoltsPerVolt;
    return {QString::number(volts, 'f', 1) + QStringLiteral(" V"),
            QString::number(volts, 'g', kSignificantDigits), QString::number(millivolts),
            QString::number(auxiliary)};
}

QStringList currentRow(quint16 rawCurrent)
{
    const auto raw = static_cast<qint16>(rawCurrent);
    const double milliamperes = raw / kRawPerMilliampere;
    return {QString::number(milliamperes, 'f', 1) + QStringLiteral(" mA"),
            QString::number(milliamperes, 'g', kSignificantDigits), QString::number(raw)};
}

/// Both rows of a port that has no measurements.
QList<QStringList> shortedRows(const QString& text)
{
    const QString marker = QString::number(kMissingMeasurement);
    const QStringList row{text, marker, marker};
    return {row, row};
}

/// The voltage and the current row of one port.
QList<QStringList> portRows(quint8 portShort, quint16 millivolts, quint16 auxiliary,
                            quint16 rawCurrent)
{
    switch (static_cast<LdbPortShort>(portShort)) {
    case LdbPortShort::Short:
        return shortedRows(Texts::tr("Short"));
    case LdbPortShort::ShortMemory:
        return shortedRows(Texts::tr("Short(memory)"));
    case LdbPortShort::None:
        break;
    }
    return {voltageRow(millivolts, auxiliary), currentRow(rawCurrent)};
}

/// "Disconnected", and of whom.
QString lostName(const QString& name)
{
    const QString state = ldbStateText(LdbState::Disconnected);
    return name.trimmed().isEmpty() ? state : QStringLiteral("%1 (%2)").arg(state, name);
}

/// What cannot be known of an LDB that does not answer. The codes stay: colours go by them.
void takeValuesOut(QList<QStringList>& rows)
{
    for (const Row row :
         {PrimaryVoltageRow, PrimaryCurrentRow, SecondaryVoltageRow, SecondaryCurrentRow}) {
        rows[row] = QStringList{kNoValue};
    }
    for (const Row row : {LoopRow, EarthRow, AmplifierRow}) {
        rows[row][TextColumn] = kNoValue;
    }
}

} // namespace

QList<QStringList> buildRows(const QString& hexId, const QString& deviceName,
                             const LdbStatus& status, const QString& timestampSeconds,
                             const QString& timestampMilliseconds)
{
    QList<QStringList> rows;
    rows.reserve(RowCount);
    const bool isLost = status.state == LdbState::Disconnected;
    rows << codeRow(hexId, busaddress::fromHexId(hexId))
         << QStringList{isLost ? lostName(deviceName) : deviceName, kNameValue, deviceName}
         << codeRow(ldbStateText(status.state), static_cast<int>(status.state))
         << codeRow(ldbLoopStateText(status.loopState()), static_cast<int>(status.loopState()))
         << portRows(status.primaryPortShort, status.primaryVoltage, status.primaryAuxiliary,
                     status.primaryCurrent)
         << portRows(status.secondaryPortShort, status.secondaryVoltage, status.secondaryAuxiliary,
                     status.secondaryCurrent)
         << codeRow(ldbEarthStateText(status.earthState()), static_cast<int>(status.earthState()))
         << codeRow(ldbAmplifierText(status.amplifier), status.amplifier)
         << QStringList{timestampSeconds, timestampMilliseconds};
    if (isLost) {
        takeValuesOut(rows);
    }
    return rows;
}

QList<QStringList> awaitedRows(const QString& hexId, const QString& deviceName)
{
    constexpr int kNoState = -1;
    QList<QStringList> rows;
    rows.reserve(RowCount);
    rows << codeRow(hexId, busaddress::fromHexId(hexId))
         << QStringList{deviceName, kNameValue, deviceName}
         << codeRow(Texts::tr("Not heard yet"), kNoState);
    for (int row = LoopRow; row <= AmplifierRow; ++row) {
        rows << QStringList{kNoValue};
    }
    rows << QStringList{QString(), QString()};
    return rows;
}

QString field(const QList<QStringList>& rows, Row row, Column column)
{
    return rows.value(row).value(column);
}

QString text(const QList<QStringList>& rows, Row row)
{
    return field(rows, row, TextColumn);
}

int integer(const QList<QStringList>& rows, Row row, Column column)
{
    return field(rows, row, column).toInt();
}

double number(const QList<QStringList>& rows, Row row, Column column)
{
    return field(rows, row, column).toDouble();
}

QString ownName(const QList<QStringList>& rows)
{
    const QStringList row = rows.value(NameRow);
    return row.value(row.size() > OwnNameColumn ? OwnNameColumn : TextColumn);
}

bool hasValue(const QList<QStringList>& rows, Row row)
{
    return text(rows, row) != kNoValue;
}

bool isLost(const QList<QStringList>& rows)
{
    return static_cast<LdbState>(integer(rows, ModeRow)) == LdbState::Disconnected;
}

QDateTime timestamp(const QList<QStringList>& rows)
{
    return QDateTime::fromString(field(rows, TimestampRow, MillisecondsColumn),
                                 kMillisecondsFormat);
}

namespace {

/// Without the offset to UTC: a record does not tell whether it is of summer time, and an hour that
/// the clock shows twice must not make its age an hour wrong.
qint64 asShown(QDateTime time)
{
    time.setTimeSpec(Qt::UTC);
    return time.toMSecsSinceEpoch();
}

} // namespace

qint64 clockTime(qint64 moment)
{
    return asShown(QDateTime::fromMSecsSinceEpoch(moment));
}

std::optional<qint64> clockTime(const QList<QStringList>& rows)
{
    const QDateTime time = timestamp(rows);
    return time.isValid() ? std::make_optional(asShown(time)) : std::nullopt;
}

} // namespace generalinformation

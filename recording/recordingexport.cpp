#include "recording/recordingexport.h"

#include "recording/pcapng.h"
#include "recording/recordingreader.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/microseconds.h"
#include "serial/ldb/recordlog.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QIODevice>

#include <algorithm>
#include <utility>

namespace recordingexport {

namespace {

constexpr qint64 kMicroseconds = 1000000;
constexpr QLatin1Char kSeparator(';');

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RecordingExport)
};

/// Writes all pieces; an empty text, or what one of them gave.
QString inPieces(RecordingReader& reader, TimeSpan span, QIODevice& device, const GoesOn& goesOn,
                 const Piece& write)
{
    span = readable(reader, span);
    qint64 from = span.from;
    do {
        QString reason = write(reader, {from, qMin(from + kPiece, span.to)}, device);
        if (!reason.isEmpty()) {
            return reason;
        }
        from += kPiece;
        const double share =
            static_cast<double>(from - span.from) / static_cast<double>(span.to - span.from);
        if (goesOn && from < span.to && !goesOn(share)) {
            break;
        }
    } while (from < span.to);
    return {};
}

QString put(QIODevice& device, const QByteArray& bytes)
{
    return device.write(bytes) == bytes.size() ? QString() : device.errorString();
}

/// A field that a spreadsheet takes as one, whatever is in it.
QString quoted(QString text)
{
    return QLatin1Char('"') + text.replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
           QLatin1Char('"');
}

} // namespace

TimeSpan readable(const RecordingReader& reader, TimeSpan span)
{
    const auto extent = reader.extent();
    return extent ? TimeSpan{qMax(span.from, extent->from), qMin(span.to, extent->to)}
                  : TimeSpan{span.from, span.from};
}

Piece logPiece(const LogChoice& choice)
{
    return [choice, period = LogPeriod(),
            hasHeader = false](RecordingReader& reader, TimeSpan piece, QIODevice& device) mutable {
        QByteArray lines;
        for (const RecordedRecord& record : reader.records(choice.hexId, piece)) {
            if (record.isExtra) {
                continue;
            }
            if (!std::exchange(hasHeader, true)) {
                lines += recordlog::headerLine().toUtf8();
            }
            if (period.admits(record.hexId, record.rows, choice.interval)) {
                lines += recordlog::dataLine(record.rows).toUtf8();
            }
        }
        return put(device, lines);
    };
}

QString writeLog(RecordingReader& reader, TimeSpan span, const LogChoice& choice, QIODevice& device,
                 const GoesOn& goesOn)
{
    return inPieces(reader, span, device, goesOn, logPiece(choice));
}

Piece capturePiece()
{
    return [hasHeader = false](RecordingReader& reader, TimeSpan piece, QIODevice& device) mutable {
        std::vector<pcapng::Packet> packets;
        // A gap stands before what comes at its end.
        for (const RecordedEvent& event : reader.events(piece)) {
            if (event.kind == EventKind::Gap) {
                packets.push_back({event.at, pcapng::Event::Lost, {}});
            }
        }
        for (const Exchange& exchange : reader.exchanges({}, piece)) {
            packets.push_back({exchange.sentAt, pcapng::Event::Sent, exchange.request});
            if (!exchange.answer.isEmpty()) {
                packets.push_back({exchange.sentAt + qMax<qint64>(exchange.flight, 0),
                                   pcapng::Event::Received, exchange.answer});
            }
        }
        std::stable_sort(packets.begin(), packets.end(),
                         [](const auto& left, const auto& right) { return left.at < right.at; });
        QByteArray bytes = std::exchange(hasHeader, true) ? QByteArray() : pcapng::header();
        for (const pcapng::Packet& packet : packets) {
            bytes += pcapng::block(packet);
        }
        return put(device, bytes);
    };
}

QString writeCapture(RecordingReader& reader, TimeSpan span, QIODevice& device,
                     const GoesOn& goesOn)
{
    return inPieces(reader, span, device, goesOn, capturePiece());
}

QString eventHeader()
{
    return QStringList{Texts::tr("Time"),  Texts::tr("LDB"),    Texts::tr("Duration [s]"),
                       Texts::tr("Event"), Texts::tr("Before"), Texts::tr("After")}
               .join(kSeparator) +
           QLatin1Char('\n');
}

QString eventLine(const RecordedEvent& event)
{
    const QString time =
        microseconds::localTime(event.at).toString(generalinformation::kMillisecondsFormat);
    const QString seconds =
        event.since == 0 ? QString() : QString::number((event.at - event.since) / kMicroseconds);
    const bool hasValues = event.hasValues();
    return QStringList{time,
                       event.hexId,
                       seconds,
                       quoted(event.description()),
                       hasValues ? quoted(event.before) : QString(),
                       hasValues ? quoted(event.after) : QString()}
               .join(kSeparator) +
           QLatin1Char('\n');
}

Piece eventsPiece()
{
    return [hasHeader = false](RecordingReader& reader, TimeSpan piece, QIODevice& device) mutable {
        QString lines = std::exchange(hasHeader, true) ? QString() : eventHeader();
        for (const RecordedEvent& event : reader.events(piece)) {
            lines += eventLine(event);
        }
        return put(device, lines.toUtf8());
    };
}

QString writeEvents(RecordingReader& reader, TimeSpan span, QIODevice& device)
{
    return eventsPiece()(reader, span, device);
}

} // namespace recordingexport

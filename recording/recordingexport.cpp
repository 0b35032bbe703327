#include "recording/recordingexport.h"

#include "recording/pcapng.h"
#include "recording/recordingreader.h"
#include "serial/ldb/generalinformation.h"
#include "serial/ldb/recordlog.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QIODevice>

#include <algorithm>

namespace recordingexport {

namespace {

/// What of a span is in the memory at a time: ten minutes.
constexpr qint64 kPiece = 600LL * 1000000;
constexpr qint64 kMicrosecondsPerMillisecond = 1000;
constexpr qint64 kMicroseconds = 1000000;
constexpr QLatin1Char kSeparator(';');

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RecordingExport)
};

/// Calls `write` with each piece; an empty text, or what `write` gave.
QString inPieces(RecordingReader& reader, TimeSpan span, const GoesOn& goesOn,
                 const std::function<QString(TimeSpan)>& write)
{
    const auto extent = reader.extent();
    if (!extent) {
        return {};
    }
    span = {qMax(span.from, extent->from), qMin(span.to, extent->to)};
    for (qint64 from = span.from; from < span.to; from += kPiece) {
        const QString reason = write({from, qMin(from + kPiece, span.to)});
        if (!reason.isEmpty()) {
            return reason;
        }
        const double share = static_cast<double>(from + kPiece - span.from) /
                             static_cast<double>(span.to - span.from);
        if (goesOn && !goesOn(qMin(share, 1.0))) {
            break;
        }
    }
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

QString writeLog(RecordingReader& reader, TimeSpan span, const LogChoice& choice, QIODevice& device,
                 const GoesOn& goesOn)
{
    LogPeriod period;
    bool hasHeader = false;
    return inPieces(reader, span, goesOn, [&](TimeSpan piece) {
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
    });
}

QString writeCapture(RecordingReader& reader, TimeSpan span, QIODevice& device,
                     const GoesOn& goesOn)
{
    const QString reason = put(device, pcapng::header());
    if (!reason.isEmpty()) {
        return reason;
    }
    return inPieces(reader, span, goesOn, [&](TimeSpan piece) {
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
        QByteArray bytes;
        for (const pcapng::Packet& packet : packets) {
            bytes += pcapng::block(packet);
        }
        return put(device, bytes);
    });
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
    const QString time = QDateTime::fromMSecsSinceEpoch(event.at / kMicrosecondsPerMillisecond)
                             .toString(generalinformation::kMillisecondsFormat);
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

QString writeEvents(RecordingReader& reader, TimeSpan span, QIODevice& device)
{
    QString lines = eventHeader();
    for (const RecordedEvent& event : reader.events(span)) {
        lines += eventLine(event);
    }
    return put(device, lines.toUtf8());
}

} // namespace recordingexport

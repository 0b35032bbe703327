#include "app/recording/evidencewriter.h"

#include "app/shared/wholefile.h"
#include "recording/recordingaccess.h"

#include <QDir>

#include <utility>

/// What goes from step to step.
struct EvidenceWriter::Work
{
    EvidenceOrder order;
    bool isBegun = false;
    // Of a file:
    std::unique_ptr<WholeFile> file;
    recordingexport::Piece piece;
    TimeSpan span; ///< the part that is recorded
    qint64 done = 0;
    // Of a copy:
    QStringList paths;
    int copied = 0;
};

namespace {

recordingexport::Piece pieceOf(const EvidenceOrder& order)
{
    switch (order.kind) {
    case EvidenceOrder::Kind::Log:
        return recordingexport::logPiece(order.log);
    case EvidenceOrder::Kind::Capture:
        return recordingexport::capturePiece();
    case EvidenceOrder::Kind::Events:
        return recordingexport::eventsPiece();
    case EvidenceOrder::Kind::Copy:
        break;
    }
    return {};
}

} // namespace

EvidenceWriter::EvidenceWriter(RecordingAccess* access, QObject* parent)
    : QObject(parent)
    , m_access(access)
{
    // What was asked of the former path is not answered.
    connect(access, &RecordingAccess::pathChanged, this,
            [this] { end(Outcome::Failed, tr("Another installation is in use now.")); });
}

EvidenceWriter::~EvidenceWriter() = default;

void EvidenceWriter::begin(const EvidenceOrder& order)
{
    if (isOn()) {
        return;
    }
    m_isStopping = false;
    m_work = std::make_shared<Work>();
    m_work->order = order;
    emit progressed(0.0);
    goOn();
}

void EvidenceWriter::stop()
{
    m_isStopping = true;
}

void EvidenceWriter::goOn()
{
    m_access->ask(
        this,
        [work = m_work](RecordingReader& reader) {
            return work->order.kind == EvidenceOrder::Kind::Copy ? copy(*work, reader)
                                                                 : write(*work, reader);
        },
        [this](const Step& step) { take(step); });
}

EvidenceWriter::Step EvidenceWriter::write(Work& work, RecordingReader& reader)
{
    if (!std::exchange(work.isBegun, true)) {
        work.file = std::make_unique<WholeFile>(work.order.path);
        if (!work.file->open()) {
            return {0.0, true, work.file->finish()};
        }
        work.piece = pieceOf(work.order);
        work.span = recordingexport::readable(reader, work.order.span);
        work.done = work.span.from;
    }
    const qint64 to = qMin(work.done + recordingexport::kPiece, work.span.to);
    const QString reason = work.piece(reader, {work.done, to}, *work.file);
    if (!reason.isEmpty()) {
        return {0.0, true, reason};
    }
    work.done = to;
    if (to < work.span.to) {
        return {static_cast<double>(to - work.span.from) /
                    static_cast<double>(work.span.to - work.span.from),
                false,
                {}};
    }
    return {1.0, true, work.file->finish()};
}

EvidenceWriter::Step EvidenceWriter::copy(Work& work, RecordingReader& reader)
{
    if (!std::exchange(work.isBegun, true)) {
        work.paths = reader.filesIn(work.order.span);
        if (!QDir().mkpath(work.order.path)) {
            return {0.0, true, QDir::toNativeSeparators(work.order.path)};
        }
    }
    if (work.copied < work.paths.size()) {
        const QString reason = reader.copyFile(work.paths.at(work.copied), work.order.path);
        if (!reason.isEmpty()) {
            return {0.0, true, reason};
        }
        ++work.copied;
    }
    const int count = work.paths.size();
    return {count == 0 ? 1.0 : static_cast<double>(work.copied) / count, work.copied >= count, {}};
}

void EvidenceWriter::take(const Step& step)
{
    if (!isOn()) {
        return;
    }
    if (step.isDone) {
        end(step.reason.isEmpty() ? Outcome::Done : Outcome::Failed, step.reason);
    } else if (m_isStopping) {
        end(Outcome::Stopped, {});
    } else {
        emit progressed(step.share);
        goOn();
    }
}

void EvidenceWriter::end(Outcome outcome, const QString& reason)
{
    if (std::exchange(m_work, nullptr)) { // drops a file that is not whole
        emit ended(outcome, reason);
    }
}

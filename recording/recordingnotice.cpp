#include "recording/recordingnotice.h"

#include <QCoreApplication>
#include <QDir>
#include <QStringList>

namespace {

constexpr const char* kContext = "RecordingNotice";

// In the order of the kinds.
constexpr const char* kTexts[] = {
    QT_TRANSLATE_NOOP("RecordingNotice", "Recording goes on."),
    QT_TRANSLATE_NOOP("RecordingNotice", "Nothing is recorded: the disk is full. Recording goes on "
                                         "as soon as there is room."),
    QT_TRANSLATE_NOOP("RecordingNotice", "Nothing is recorded: the file cannot be written. "
                                         "Recording goes on as soon as it can."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "The recording has been removed. A new one has been begun."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "The recording is damaged. Recording goes on in another file."),
    QT_TRANSLATE_NOOP("RecordingNotice", "The recording is of a later version of this program. "
                                         "Recording goes on in another file."),
    QT_TRANSLATE_NOOP("RecordingNotice", "Another window records into the same file. This one "
                                         "records into a file of its own."),
    QT_TRANSLATE_NOOP("RecordingNotice", "The computer's clock has been set back. Recording goes "
                                         "on in another file."),
    QT_TRANSLATE_NOOP("RecordingNotice", "The recording cannot be read."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "The recording is damaged. What can be read of it is shown."),
    QT_TRANSLATE_NOOP("RecordingNotice", "The recording is of a later version of this program. It "
                                         "cannot be read."),
    QT_TRANSLATE_NOOP("RecordingNotice", "The recording was not closed and cannot be written to. "
                                         "Its last seconds are not shown."),
};

} // namespace

QString RecordingNotice::text() const
{
    // The path last: it may be longer than the status bar.
    QStringList details{QDir::toNativeSeparators(path)};
    if (!reason.isEmpty()) {
        details.append(reason);
    }
    return QStringLiteral("%1 (%2)").arg(
        QCoreApplication::translate(kContext, kTexts[static_cast<int>(kind)]),
        details.join(QStringLiteral(": ")));
}

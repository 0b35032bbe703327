#include "recording/recordingnotice.h"

#include <QCoreApplication>
#include <QDir>

namespace {

constexpr const char* kContext = "RecordingNotice";

// In the order of the kinds.
constexpr const char* kTexts[] = {
    QT_TRANSLATE_NOOP("RecordingNotice", "Recording goes on, into %1."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "Nothing is recorded: the disk with %1 is full. Recording goes on as soon as "
                      "there is room."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "Nothing is recorded: %1 cannot be written. Recording goes on as soon as it "
                      "can."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "The recording %1 has been removed. A new one has been begun."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "The recording %1 is damaged. Recording goes on in another file."),
    QT_TRANSLATE_NOOP("RecordingNotice", "The recording %1 is of a later version of this program. "
                                         "Recording goes on in another file."),
    QT_TRANSLATE_NOOP("RecordingNotice", "Another window records into %1. This one records into a "
                                         "file of its own."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "The computer's clock has been set back. Recording goes on in another file "
                      "than %1."),
    QT_TRANSLATE_NOOP("RecordingNotice", "The recording %1 cannot be read."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "The recording %1 is damaged. What can be read of it is shown."),
    QT_TRANSLATE_NOOP("RecordingNotice", "The recording %1 is of a later version of this program. "
                                         "It cannot be read."),
    QT_TRANSLATE_NOOP("RecordingNotice",
                      "The recording %1 was not closed and cannot be written to. Its last seconds "
                      "are not shown."),
};

} // namespace

QString RecordingNotice::text() const
{
    QString text = QCoreApplication::translate(kContext, kTexts[static_cast<int>(kind)])
                       .arg(QDir::toNativeSeparators(path));
    if (!reason.isEmpty()) {
        text += QStringLiteral(" (%1)").arg(reason);
    }
    return text;
}

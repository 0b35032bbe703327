#include "tracking/audiomuteend.h"

#include <QCoreApplication>
#include <QDebug>
#include <QMessageBox>

#include <utility>

void AudioMuteEnd::send(const std::shared_ptr<TrackedLdb>& ldb, bool wasMuted, QWidget* boxParent)
{
    // Owned by the application until it deletes itself.
    auto* end = new AudioMuteEnd(ldb, wasMuted, boxParent);
    ldb->send(TrackedLdb::Command::EndAudioMute, end,
              [end](TrackedLdb::Answer answer) { end->finish(answer); });
}

AudioMuteEnd::AudioMuteEnd(std::shared_ptr<TrackedLdb> ldb, bool wasMuted, QWidget* boxParent)
    : QObject(QCoreApplication::instance())
    , m_ldb(std::move(ldb))
    , m_boxParent(boxParent)
    , m_wasMuted(wasMuted)
{
}

AudioMuteEnd::~AudioMuteEnd()
{
    finish(TrackedLdb::Answer::None); // the program ends before the reply came
}

void AudioMuteEnd::finish(TrackedLdb::Answer answer)
{
    if (m_finished) {
        return;
    }
    m_finished = true;
    if (answer != TrackedLdb::Answer::Accepted && m_wasMuted) {
        tellStillMuted();
    }
    deleteLater();
}

void AudioMuteEnd::tellStillMuted()
{
    qWarning() << "The audio mute of LDB" << m_ldb->hexId() << "could not be ended";
    if (!m_boxParent || !m_boxParent->isVisible()) {
        return; // the program is closing
    }
    auto* box = new QMessageBox(
        QMessageBox::Warning, tr("Attention"),
        tr("The audio mute of LDB %1 could not be ended: the LDB cannot be reached.\n"
           "The audio of this LDB stays muted.")
            .arg(m_ldb->hexId()),
        QMessageBox::Ok, m_boxParent);
    box->setObjectName(QStringLiteral("stillMutedBox"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

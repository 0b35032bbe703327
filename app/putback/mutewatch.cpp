#include "app/putback/mutewatch.h"

#include "serial/link/seriallink.h"

MuteWatch::MuteWatch(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
{
    connect(link, &SerialLink::audioMuteTold, this, &MuteWatch::set);
    connect(link, &SerialLink::started, this, [this] {
        const QSet<QString> muted = m_muted;
        m_due = muted;
        for (const QString& hexId : muted) {
            set(hexId, false);
        }
    });
    connect(link, &SerialLink::ldbStateUpdated, this, [this](const QString& hexId, LdbState state) {
        const bool canAnswer = state != LdbState::Booting && state != LdbState::Disconnected;
        if (state == LdbState::Booting && m_muted.contains(hexId)) {
            m_due.insert(hexId);
        } else if (canAnswer && m_due.remove(hexId)) {
            ask(hexId);
        }
    });
}

void MuteWatch::set(const QString& hexId, bool isMuted)
{
    if (isMuted != m_muted.contains(hexId)) {
        if (isMuted) {
            m_muted.insert(hexId);
        } else {
            m_muted.remove(hexId);
        }
        emit changed(hexId, isMuted);
    }
}

/// The link tells what it hears.
void MuteWatch::ask(const QString& hexId)
{
    m_link->ask(std::make_unique<RequestCommand>(hexId, LdbParameter::Settings), this,
                [](const Reply&) {});
}

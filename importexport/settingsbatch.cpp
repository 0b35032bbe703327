#include "importexport/settingsbatch.h"

#include <QPointer>
#include <QThread>

#include <utility>

SettingsBatch::SettingsBatch(SerialLink* link, std::vector<LdbChange> changes, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_changes(std::move(changes))
{
    for (LdbChange& change : m_changes) {
        Q_ASSERT(change.change.basis);
        change.change.isStrict = true;
    }
}

SettingsBatch::~SettingsBatch() = default;

void SettingsBatch::start()
{
    Q_ASSERT(QThread::currentThread() == thread());
    QMetaObject::invokeMethod(this, &SettingsBatch::proceed, Qt::QueuedConnection);
}

void SettingsBatch::stop()
{
    m_isStopping = true;
    QMetaObject::invokeMethod(this, &SettingsBatch::proceed, Qt::QueuedConnection);
}

QStringList SettingsBatch::left() const
{
    QStringList hexIds;
    for (std::size_t index = m_next; index < m_changes.size(); ++index) {
        hexIds.append(m_changes[index].hexId);
    }
    return hexIds;
}

void SettingsBatch::proceed()
{
    if (m_writer || m_hasEnded) {
        return;
    }
    if (m_isStopping || m_isCut || m_next == m_changes.size()) {
        m_hasEnded = true;
        emit finished();
        return;
    }
    const LdbChange& next = m_changes[m_next++];
    m_writer = std::make_unique<SettingsWriter>(m_link, next.hexId, next.change,
                                                SettingsWriter::ReadBack::Always);
    connect(m_writer.get(), &SettingsWriter::finished, this, &SettingsBatch::processWritten);
    const QPointer<SettingsBatch> alive(this);
    emit ldbBegun(next.hexId);
    if (alive) {
        m_writer->start();
    }
}

void SettingsBatch::processWritten()
{
    const SettingsOutcome outcome = m_writer->outcome();
    m_writer.release()->deleteLater(); // it is the sender
    m_isCut = outcome.isCut() || outcome.isReadBackCut;
    const QPointer<SettingsBatch> alive(this);
    emit ldbDone(outcome);
    if (alive) {
        emit progressChanged(static_cast<int>(m_changes.size() - m_next), count());
    }
    if (alive) {
        proceed();
    }
}

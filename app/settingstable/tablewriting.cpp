#include "app/settingstable/tablewriting.h"

#include "app/settingstable/settingstablemodel.h"

#include <QThread>

#include <algorithm>
#include <utility>

namespace {

bool isSameChange(const LdbChange& a, const LdbChange& b)
{
    return a.hexId == b.hexId && a.change.fields == b.change.fields &&
           std::all_of(a.change.fields.begin(), a.change.fields.end(), [&](LdbField field) {
               return isSameField(field, a.change.values, b.change.values);
           });
}

} // namespace

TableWriting::TableWriting(Writer writer, std::function<qint64()> wallTime,
                           SettingsTableModel* model, QObject* parent)
    : QObject(parent)
    , m_writer(std::move(writer))
    , m_wallTime(std::move(wallTime))
    , m_model(model)
{
}

QString TableWriting::keepFormer(const std::vector<LdbChange>& changes,
                                 FormerSettings::Occasion occasion, const QString& note) const
{
    FormerSettings former{QDateTime::fromMSecsSinceEpoch(m_wallTime()), occasion, note, {}};
    for (const LdbChange& change : changes) {
        former.ldbs.push_back(*change.change.basis);
    }
    return m_former.keep(former);
}

bool TableWriting::write(const std::vector<LdbChange>& changes)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (isOn() || changes.empty()) {
        return false;
    }
    m_batch = m_writer(changes);
    if (!m_batch) {
        return false;
    }
    m_confirmed = changes;
    m_open.clear();
    m_silent.clear();
    connect(m_batch, &SettingsBatch::ldbDone, this, [this](const SettingsOutcome& outcome) {
        // What was not read again is not done either: it is not known to be in the LDB. And the
        // silence just before the end may have been the end already.
        if (outcome.isCut() || outcome.isReadBackCut) {
            m_open.append(std::exchange(m_silent, {}));
            m_open.append(outcome.hexId);
        }
        m_silent =
            outcome.unread == Reply::Kind::Silent ? QStringList(outcome.hexId) : QStringList();
        m_model->takeOutcome(outcome, QDateTime::fromMSecsSinceEpoch(m_wallTime()));
    });
    connect(m_batch, &SettingsBatch::progressChanged, this, &TableWriting::progressChanged);
    connect(m_batch, &SettingsBatch::finished, this, &TableWriting::end);
    m_model->setLocked(true);
    emit changed();
    emit progressChanged(m_batch->count(), m_batch->count());
    return true;
}

void TableWriting::stop()
{
    if (isOn()) {
        m_batch->stop();
    }
}

void TableWriting::end()
{
    if (m_batch->isCut()) {
        m_open.append(m_batch->left());
    }
    m_batch.clear();
    m_model->setLocked(false);
    emit changed();
}

std::vector<LdbChange> TableWriting::open() const
{
    std::vector<LdbChange> open;
    for (const LdbChange& change : m_model->changes()) {
        const bool isConfirmed =
            m_open.contains(change.hexId) &&
            std::any_of(m_confirmed.begin(), m_confirmed.end(), [&change](const auto& confirmed) {
                return isSameChange(confirmed, change);
            });
        if (isConfirmed) {
            open.push_back(change);
        }
    }
    return open;
}

#include "app/putback/putback.h"

#include "app/notices/notices.h"
#include "app/putback/ldbputback.h"
#include "importexport/settingswriter.h"
#include "serial/ldb/generalinformation.h"
#include "serial/link/seriallink.h"
#include "tracking/faultfinding/fimtracking.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace {

/// An LDB that was asked for a factory reset shows it in its next records.
constexpr int kSettleMs = 5000;
constexpr int kRetryMs = 10000;

QString key(const KeptLdb& kept, const QString& hexId)
{
    return kept.hexId + QLatin1Char('@') + hexId + QLatin1Char(' ') + kept.name;
}

bool isSettled(LdbState state)
{
    switch (state) {
    case LdbState::Booting:
    case LdbState::FactoryResetExecuting:
    case LdbState::Disconnected:
        return false;
    default:
        return true;
    }
}

bool isBoth(const KeptLdb& a, const KeptLdb& b)
{
    return match(a, b.hexId, b.name) == KeptMatch::Both;
}

} // namespace

PutBack::PutBack(SerialLink* link, Notices* notices, QWidget* window, KeptLdbs kept,
                 QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_notices(notices)
    , m_window(window)
    , m_file(std::move(kept))
{
    connect(link, &SerialLink::generalInformationUpdated, this, &PutBack::processRecord);
    connect(link, &SerialLink::started, this, &PutBack::processLink);
    connect(link, &SerialLink::stopped, this, &PutBack::processLink);
    load();
}

PutBack::~PutBack() = default;

void PutBack::setKept(const KeptLdbs& kept)
{
    dropAll();
    m_file = kept;
    load();
    emit pendingChanged();
}

void PutBack::hold(bool isHeld)
{
    if (std::exchange(m_isHeld, isHeld) != isHeld && isHeld) {
        dropAll();
        emit pendingChanged();
    }
}

void PutBack::follow(FimTracking* tracking)
{
    m_tracking = tracking;
    const QString hexId = tracking->hexId();
    connect(tracking, &FimTracking::runBegins, this, [this, hexId] { processRunBegins(hexId); });
    connect(tracking, &FimTracking::runEnds, this, &PutBack::processRunEnds);
    connect(tracking, &FimTracking::takeOverWanted, this,
            [this, hexId](int fimCount) { takeOver(hexId, fimCount); });
    connect(tracking, &QObject::destroyed, this, [this, hexId] {
        m_tracking.clear(); // a widget tells of its end before it is known to be gone
        const LdbPutBack* task = m_tasks.value(hexId);
        if (task && task->isAsking()) {
            drop(hexId); // its box has gone with the window: the next record has it asked again
        }
    });
}

bool PutBack::isPending(const QString& hexId) const
{
    if (hexId.isEmpty()) {
        return false;
    }
    if (hexId == m_hexIdOfRun) {
        return true;
    }
    if (const LdbPutBack* task = m_tasks.value(hexId)) {
        return !task->isMuteSettled();
    }
    return !m_failed.contains(hexId) &&
           std::any_of(m_kept.begin(), m_kept.end(), [&](const KeptLdb& kept) {
               return kept.hexId == hexId && kept.audioMute &&
                      !m_answered.contains(key(kept, hexId));
           });
}

/// Each is asked once a run of the link.
void PutBack::processLink()
{
    dropAll();
    m_same.clear();
    m_answered.clear();
    m_failed.clear();
    load();
    tellProblem();
    emit pendingChanged();
}

QStringList PutBack::beingPutBack() const
{
    QStringList hexIds;
    for (const LdbPutBack* task : m_tasks) {
        if (!task->isAsking()) {
            hexIds.append(task->hexId());
        }
    }
    return hexIds;
}

/// Waits for a run: before, nobody may be there to read it.
void PutBack::tellProblem()
{
    if (!m_link->isRunning() || m_problem.isEmpty()) {
        return;
    }
    m_notices->box(
        QMessageBox::Warning,
        [problem = std::exchange(m_problem, QString())] {
            return putbacktexts::unreadable(problem);
        },
        QStringLiteral("unreadableKeptBox"));
}

void PutBack::load()
{
    m_kept = m_file.all(&m_problem);
    for (const KeptLdb& kept : m_unwritten) {
        const bool isThere = std::any_of(m_kept.begin(), m_kept.end(),
                                         [&](const KeptLdb& other) { return isBoth(other, kept); });
        if (!isThere) {
            m_kept.push_back(kept);
        }
    }
}

void PutBack::processRunBegins(const QString& hexId)
{
    m_hexIdOfRun = hexId;
    drop(hexId);
    emit pendingChanged();
}

void PutBack::processRunEnds(const KeptLdb& former, bool isMuted)
{
    const QString hexId = std::exchange(m_hexIdOfRun, QString());
    if (!former.isEmpty() && !m_file.find(former.hexId, former.name)) {
        m_unwritten.push_back(former);
    }
    load();
    m_failed.remove(hexId);
    if (former.isEmpty()) {
        emit pendingChanged();
        return;
    }
    m_same.insert(key(former, hexId));
    m_answered.remove(key(former, hexId));
    if (!isMuted) {
        wait(hexId, kSettleMs);
    } else if (m_link->isRunning() && !m_isHeld) {
        begin(former, hexId); // no reset is on its way any more
    } else {
        tellStillMuted(hexId);
    }
    emit pendingChanged();
}

void PutBack::processRecord(const QString& hexId, const QList<QStringList>& rows)
{
    using namespace generalinformation;
    if (m_isHeld || m_kept.empty() || hexId == m_hexIdOfRun || m_tasks.contains(hexId) ||
        isWaiting(hexId) || !isSettled(static_cast<LdbState>(integer(rows, ModeRow)))) {
        return;
    }
    const auto meant = std::find_if(m_kept.begin(), m_kept.end(), [&](const KeptLdb& kept) {
        return isMeant(kept, hexId, text(rows, NameRow));
    });
    if (meant != m_kept.end()) {
        begin(KeptLdb(*meant), hexId);
    }
}

/// By what its record tells; its settings will tell it for certain.
bool PutBack::isMeant(const KeptLdb& kept, const QString& hexId, const QString& name) const
{
    if (m_answered.contains(key(kept, hexId))) {
        return false;
    }
    if (kept.hexId == hexId) {
        return true;
    }
    // An LDB of that name alone counts only when none at the address can be the one that is meant.
    const bool isAddressFree =
        !m_link->knownLdbs().contains(kept.hexId) || m_answered.contains(key(kept, kept.hexId));
    return isAddressFree && match(kept, hexId, name) == KeptMatch::NameOnly;
}

void PutBack::begin(const KeptLdb& kept, const QString& hexId)
{
    const LdbPutBack::Tools tools{m_link, m_notices, m_file, [this]() -> QWidget* {
                                      const bool isThere = m_tracking && m_tracking->isVisible();
                                      return isThere ? m_tracking.data() : m_window;
                                  }};
    const bool isSame = m_same.contains(key(kept, hexId));
    auto* task = new LdbPutBack(tools, kept, hexId, isSame, this);
    m_tasks.insert(hexId, task);
    connect(task, &LdbPutBack::muteSettled, this, [this, hexId] {
        m_failed.remove(hexId);
        load();
        emit pendingChanged();
        emit settingsChanged(hexId);
    });
    connect(task, &LdbPutBack::settingsWritten, this,
            [this, hexId] { emit settingsChanged(hexId); });
    connect(task, &LdbPutBack::finished, this, [this, task, kept](LdbPutBack::End how) {
        const QString at = task->hexId();
        if (how == LdbPutBack::End::Answered) {
            m_answered.insert(key(kept, at));
        } else if (how == LdbPutBack::End::Failed) {
            wait(at, kRetryMs);
            if (kept.audioMute == false && !m_failed.contains(at)) {
                tellStillMuted(at);
            }
            m_failed.insert(at);
        }
        end(task);
        emit pendingChanged();
        if (how == LdbPutBack::End::Failed) {
            emit settingsChanged(at); // the user sees what is in the LDB, and may change it
        }
    });
    task->start();
}

void PutBack::end(LdbPutBack* task)
{
    for (KeptLdb& kept : m_unwritten) {
        if (isBoth(kept, task->kept())) {
            kept = task->kept();
        }
    }
    m_unwritten.erase(std::remove_if(m_unwritten.begin(), m_unwritten.end(),
                                     [](const KeptLdb& kept) { return kept.isEmpty(); }),
                      m_unwritten.end());
    m_tasks.remove(task->hexId());
    task->deleteLater(); // it is telling
    load();
}

void PutBack::drop(const QString& hexId)
{
    delete m_tasks.take(hexId);
}

void PutBack::dropAll()
{
    const QStringList hexIds = m_tasks.keys();
    for (const QString& hexId : hexIds) {
        drop(hexId);
    }
}

void PutBack::tellStillMuted(const QString& hexId)
{
    m_notices->box(
        QMessageBox::Warning, [hexId] { return putbacktexts::staysMuted(hexId); },
        QStringLiteral("stillMutedBox"));
}

void PutBack::wait(const QString& hexId, int milliseconds)
{
    QTimer*& timer = m_waits[hexId];
    if (!timer) {
        timer = new QTimer(this);
        timer->setSingleShot(true);
    }
    timer->start(milliseconds);
}

bool PutBack::isWaiting(const QString& hexId) const
{
    const QTimer* timer = m_waits.value(hexId);
    return timer && timer->isActive();
}

void PutBack::takeOver(const QString& hexId, int fimCount)
{
    LdbSettings settings;
    settings.numberOfFims = static_cast<quint16>(fimCount);
    auto* writer = new SettingsWriter(m_link, hexId, settings,
                                      std::vector<LdbParameter>{LdbParameter::NumberOfFims},
                                      SettingsWriter::ReadBack::Always, this);
    connect(writer, &SettingsWriter::finished, this, [this, writer, hexId, fimCount] {
        const SettingsOutcome& outcome = writer->outcome();
        if (outcome.isGood()) {
            adoptFims(hexId, static_cast<quint16>(fimCount));
        }
        if (m_tracking) {
            m_tracking->processTakenOver(fimCount, outcome.isGood() ? QString() : outcome.text());
        }
        writer->deleteLater();
        emit settingsChanged(hexId);
    });
    writer->start();
}

/// The former number is not wanted back.
void PutBack::adoptFims(const QString& hexId, quint16 fimCount)
{
    if (LdbPutBack* task = m_tasks.value(hexId)) {
        task->adoptFims(fimCount);
    }
    for (KeptLdb kept : m_kept) {
        if (kept.settings && m_same.contains(key(kept, hexId))) {
            kept.settings->numberOfFims = fimCount;
            if (m_file.find(kept.hexId, kept.name)) {
                m_file.keep(kept);
            }
        }
    }
    for (KeptLdb& kept : m_unwritten) {
        if (kept.settings && m_same.contains(key(kept, hexId))) {
            kept.settings->numberOfFims = fimCount;
        }
    }
    load();
}

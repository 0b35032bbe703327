#include "app/installation/installationcontrol.h"

#include "app/shared/usersettings.h"
#include "serial/link/seriallink.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

/// The check decides with the names heard so far when no LDB has told its name first for that long,
/// ms. A round with all names takes longer on a large site.
constexpr int kPatience = 30000;
/// How long changes are gathered before they are stored, ms.
constexpr int kSaveAfter = 2000;

bool mayStartKnown()
{
    return userSettings().value(constants::kKnownStartKey, true).toBool();
}

} // namespace

InstallationControl::InstallationControl(SerialLink* link, Installations store,
                                         std::function<qint64()> wallTime, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_store(std::move(store))
    , m_wallTime(std::move(wallTime))
{
    connect(link, &SerialLink::nameTold, this, &InstallationControl::processName);
    connect(link, &SerialLink::knownProbed, this,
            [this](int answered, int) { processProbed(answered); });
    connect(link, &SerialLink::ldbListInitializationStateChange, this,
            &InstallationControl::processScan);
    connect(link, &SerialLink::ldbDisconnected, this, &InstallationControl::processLoss);
    // Queued: the end of the window lets go of an LDB, too, when half of who listens is gone.
    connect(link, &SerialLink::polledAloneChanged, this, &InstallationControl::settledChanged,
            Qt::QueuedConnection);
    connect(link, &SerialLink::stopped, this, &InstallationControl::processStop);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, [this] {
        if (m_state == State::Checking) {
            decide(m_check.lastVerdict());
        }
        endCheck();
    });
    m_saving.setSingleShot(true);
    connect(&m_saving, &QTimer::timeout, this, &InstallationControl::save);
}

InstallationControl::~InstallationControl()
{
    if (m_saving.isActive()) {
        save();
    }
}

bool InstallationControl::isCertain() const
{
    return isSettled() && m_check.remembered() == 0 && !isInDoubt();
}

bool InstallationControl::mayTellLosses() const
{
    const bool isScanChecked = m_isScanning || m_hasScanned;
    return isCertain() || (isSettled() && !isInDoubt() && !isScanChecked);
}

/// While one is polled alone, the others are silent because nobody asks them.
bool InstallationControl::isInDoubt() const
{
    return m_isDoubtful && m_link->polledAlone().isEmpty();
}

std::vector<Installation> InstallationControl::all()
{
    Installations::Listing listing = m_store.read();
    for (const QString& path : qAsConst(listing.damaged)) {
        emit failed(tr("A damaged file of an installation was moved aside: %1")
                        .arg(QDir::toNativeSeparators(path)));
    }
    return std::move(listing.installations);
}

StartPlan InstallationControl::planFor(const PortIdentity& port)
{
    const std::vector<Installation> installations = all();
    const Installation* last = lastUsedOn(port, installations);
    beginRun(port);
    m_isNew = last == nullptr;
    m_isCompared = false;
    setCurrent(m_isNew ? Installation() : *last);
    if (m_isNew) {
        useOn(port);
    }
    return checkCurrent();
}

StartPlan InstallationControl::planAgain(const PortIdentity& port, bool isLongAway)
{
    if (!m_mayResume) {
        return planFor(port);
    }
    const QStringList connected = m_link->connectedLdbs();
    beginRun(port);
    if (isLongAway) {
        return checkCurrent();
    }
    m_resumed = connected;
    m_isDoubtful = !connected.isEmpty();
    useOn(port);
    m_check = SiteCheck(m_current.ldbs);
    m_check.processProbed(m_check.remembered()); // all of them, unless they are lost
    setState(State::Settled);
    m_patience.start(kPatience);
    return {StartPlan::Kind::Resume, {}};
}

void InstallationControl::beginRun(const PortIdentity& port)
{
    m_port = port;
    m_told.clear();
    m_isScanning = false;
    m_hasScanned = false;
    m_isChosen = false;
    m_isDoubtful = false;
}

/// Assumes the remembered installation, and checks it against what answers.
StartPlan InstallationControl::checkCurrent()
{
    const bool isKnown = !m_current.ldbs.empty();
    m_check = SiteCheck(m_current.ldbs);
    setState(isKnown ? State::Checking : State::Settled);
    emit changed();
    if (!isKnown || !mayStartKnown()) {
        return {};
    }
    return {StartPlan::Kind::Known, m_current.ldbs};
}

void InstallationControl::choose(const QString& id, const PortIdentity& port)
{
    const std::vector<Installation> installations = all();
    const auto chosen =
        std::find_if(installations.begin(), installations.end(),
                     [&](const Installation& installation) { return installation.id == id; });
    if (!id.isEmpty() && chosen == installations.end()) {
        return;
    }
    const Installation former = m_current;
    if (id.isEmpty() || id != m_current.id) {
        save();
        setCurrent(id.isEmpty() ? Installation() : *chosen);
    }
    if (m_isNew && former.id != m_current.id && former.title() == former.id) {
        m_store.removeBare(former.id); // it was made at this start only until one is chosen
        emit gaveWay(former.id);
    }
    m_isNew = false;
    m_check = SiteCheck();
    m_port = port;
    useOn(port);
    m_isDoubtful = false;
    if (m_link->isRunning()) {
        m_isChosen = !m_hasScanned || m_isScanning;
        setState(State::Settled);
        // Those of it that are silent are lost.
        m_link->expect(m_current.ldbs);
        remember(m_told.keys());
        if (m_hasScanned) {
            rememberFound(m_link->connectedLdbs());
        } else if (!m_isScanning) {
            emit scanWanted();
        }
    }
    save();
    emit changed();
}

QString InstallationControl::add(Installation installation)
{
    installation.id = m_store.freeId();
    if (installation.id == m_current.id) {
        save(); // it has no folder yet
        installation.id = m_store.freeId();
    }
    store(installation);
    return installation.id;
}

void InstallationControl::describe(const Installation& described)
{
    change(described.id, [&](Installation& installation) {
        installation.name = described.name;
        installation.place = described.place;
        installation.notes = described.notes;
    });
}

void InstallationControl::forget(const QString& id, const QStringList& hexIds)
{
    change(id, [&](Installation& installation) {
        for (const QString& hexId : hexIds) {
            installation.forget(hexId);
            m_told.remove(hexId);
        }
    });
}

void InstallationControl::change(const QString& id,
                                 const std::function<void(Installation&)>& change)
{
    if (id == m_current.id) {
        change(m_current);
        save();
        emit changed();
        return;
    }
    std::vector<Installation> installations = all();
    for (Installation& installation : installations) {
        if (installation.id == id) {
            change(installation);
            store(installation);
        }
    }
}

void InstallationControl::store(const Installation& installation)
{
    const QString reason = m_store.save(installation);
    if (!reason.isEmpty() && std::exchange(m_failure, reason) != reason) {
        emit failed(reason);
    }
}

/// Gives an installation without an id one.
void InstallationControl::setCurrent(const Installation& installation)
{
    const QString former = m_current.id;
    m_current = installation;
    if (m_current.id.isEmpty()) {
        m_current.id = m_store.freeId();
    }
    if (m_current.id != former) {
        emit replaced();
    }
}

void InstallationControl::setState(State state)
{
    m_patience.stop();
    m_state = state;
    emit settledChanged();
}

void InstallationControl::useOn(const PortIdentity& port)
{
    m_current.port = port;
    m_current.lastUsed = QDateTime::fromMSecsSinceEpoch(m_wallTime(), Qt::UTC);
    if (!m_current.ldbs.empty()) {
        m_saving.start(kSaveAfter);
    }
}

/// Comes when the name is certain: a name other than the known one has been told twice by then,
/// also after a cut.
void InstallationControl::processName(const QString& hexId, const QString& name)
{
    if (!m_told.contains(hexId) && m_patience.isActive()) {
        m_patience.start(kPatience);
    }
    m_told.insert(hexId, name.isNull() ? QStringLiteral("") : name);
    if (m_isDoubtful && 2 * answeringLdbs() >= m_resumed.size()) {
        m_isDoubtful = false;
        emit settledChanged();
    }
    m_check.processName(hexId, name);
    if (m_state == State::Checking || (isSettled() && m_check.remembered() > 0)) {
        decide(m_check.verdict());
    }
    remember({hexId});
    if (m_isNew && !m_isCompared && m_hasScanned && isSettled() &&
        namedLdbs() >= m_link->connectedLdbs().size()) {
        recognise();
    }
}

/// A bus that goes on and loses most of its LDBs may be another one: a scan shows who is there.
void InstallationControl::processLoss()
{
    if (isInDoubt() && !m_hasScanned && !m_isScanning) {
        emit scanWanted();
    }
}

/// Of those that a run which goes on should hear.
int InstallationControl::answeringLdbs() const
{
    return static_cast<int>(
        std::count_if(m_resumed.begin(), m_resumed.end(),
                      [this](const QString& hexId) { return m_told.contains(hexId); }));
}

/// Remembers the LDBs with the names that they have told. Does nothing while it may be another bus.
void InstallationControl::remember(const QStringList& hexIds)
{
    if (!isCertain()) {
        return;
    }
    bool isChanged = false;
    for (const QString& hexId : hexIds) {
        isChanged = m_current.remember({hexId, m_told.value(hexId)}) || isChanged;
    }
    if (isChanged) {
        m_saving.start(kSaveAfter);
        emit changed();
    }
}

void InstallationControl::processScan(bool isOn)
{
    // A run without a scan also tells that no scan is on.
    const bool wasOn = std::exchange(m_isScanning, isOn);
    if (isOn) {
        processScanBegin();
    } else if (wasOn && m_link->isRunning()) {
        processScanEnd();
    }
}

/// A bus that is scanned while it is monitored is held against what is remembered, too: somebody
/// may have plugged the line in elsewhere.
void InstallationControl::processScanBegin()
{
    m_told.clear(); // the names are asked for anew
    m_patience.stop();
    if (isSettled() && m_check.remembered() == 0 && !m_isChosen) {
        m_check = SiteCheck(m_current.ldbs);
    }
    emit settledChanged();
}

void InstallationControl::processScanEnd()
{
    m_hasScanned = true;
    m_isChosen = false;
    m_isDoubtful = false;
    if (m_state == State::Checking) {
        const QStringList known = m_link->connectedLdbs();
        const auto answered =
            std::count_if(m_current.ldbs.begin(), m_current.ldbs.end(),
                          [&](const KnownLdb& ldb) { return known.contains(ldb.hexId); });
        processProbed(static_cast<int>(answered));
    } else if (isSettled()) {
        processRescan();
    }
}

/// Silence alone tells nothing of a bus that was the right one a moment ago: it is another one when
/// others answer in place of most of its LDBs, or by their names.
void InstallationControl::processRescan()
{
    const QStringList known = m_link->connectedLdbs();
    if (m_check.remembered() == 0) {
        rememberFound(known);
        return;
    }
    const int answered = m_check.remembered(known);
    if (2 * answered < m_check.remembered() && known.size() > answered) {
        decide(SiteCheck::Verdict::Another);
        return;
    }
    // The names of those that are there decide.
    std::vector<KnownLdb> there;
    std::copy_if(m_current.ldbs.begin(), m_current.ldbs.end(), std::back_inserter(there),
                 [&known](const KnownLdb& ldb) { return known.contains(ldb.hexId); });
    m_check = SiteCheck(there);
    m_check.processProbed(answered);
    m_patience.start(kPatience);
    emit settledChanged();
}

/// Also LDBs that have not told their names: otherwise one that is silent at the next start would
/// make a small site look like another one.
void InstallationControl::rememberFound(const QStringList& hexIds)
{
    for (const QString& hexId : hexIds) {
        const bool isKnown = std::any_of(m_current.ldbs.begin(), m_current.ldbs.end(),
                                         [&](const KnownLdb& ldb) { return ldb.hexId == hexId; });
        if (!isKnown) {
            m_current.remember({hexId, QString()});
            m_saving.start(kSaveAfter);
        }
    }
}

int InstallationControl::namedLdbs() const
{
    return static_cast<int>(std::count_if(m_current.ldbs.begin(), m_current.ldbs.end(),
                                          [](const KnownLdb& ldb) { return !ldb.name.isNull(); }));
}

void InstallationControl::processProbed(int answered)
{
    if (m_state == State::Checking) {
        m_check.processProbed(answered);
        m_patience.start(kPatience);
        decide(m_check.verdict());
    }
}

void InstallationControl::processStop()
{
    m_mayResume = isSettled() && !m_isScanning;
    setState(State::Idle);
    if (m_saving.isActive()) {
        save();
    }
}

void InstallationControl::decide(SiteCheck::Verdict verdict)
{
    switch (verdict) {
    case SiteCheck::Verdict::Open:
        break;
    case SiteCheck::Verdict::Same:
        useOn(m_port);
        setState(State::Settled);
        if (m_hasScanned) {
            m_link->expect(m_current.ldbs); // what a scan does not find is not forgotten
        }
        endCheck();
        break;
    case SiteCheck::Verdict::Another:
        m_check = SiteCheck();
        setState(State::Asking);
        if (!m_hasScanned) {
            emit scanWanted();
        }
        m_link->expect({}); // nobody of before
        emit anotherFound();
        break;
    }
}

void InstallationControl::endCheck()
{
    if (m_check.remembered() > 0) {
        m_check = SiteCheck();
        emit settledChanged();
        remember(m_told.keys());
        if (m_hasScanned) {
            rememberFound(m_link->connectedLdbs());
        }
    }
}

/// Once in a run on a port that was never used: looks which installation has the LDBs that answer.
void InstallationControl::recognise()
{
    m_isCompared = true;
    int most = 0;
    QString id;
    const std::vector<Installation> installations = all();
    for (const Installation& installation : installations) {
        SiteCheck check(installation.ldbs);
        for (const KnownLdb& ldb : m_current.ldbs) {
            if (!ldb.name.isNull()) {
                check.processName(ldb.hexId, ldb.name);
            }
        }
        if (installation.id != m_current.id && check.agreeing() > most &&
            check.lastVerdict() == SiteCheck::Verdict::Same) {
            most = check.agreeing();
            id = installation.id;
        }
    }
    if (!id.isEmpty()) {
        emit recognised(id);
    }
}

void InstallationControl::save()
{
    m_saving.stop();
    const bool isKept = !m_current.ldbs.empty() || m_current.title() != m_current.id;
    if (m_current.id.isEmpty() || !isKept) {
        return;
    }
    store(m_current);
}

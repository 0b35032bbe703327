#include "importexport/settingsimport.h"

#include "importexport/settingsbatch.h"
#include "importexport/settingsreader.h"
#include "serial/link/seriallink.h"

#include <algorithm>

SettingsImport::SettingsImport(SerialLink* link)
    : LdbTransfer(link)
{
}

SettingsImport::~SettingsImport() = default;

bool SettingsImport::begin(const QString& filePath)
{
    if (!m_link->isRunning()) {
        fail(QT_TR_NOOP("No LDB's are connected."));
        return false;
    }
    Text error;
    m_content = ImportPlan::load(filePath, error);
    if (error) {
        m_failures.push_back(error);
        return false;
    }
    m_bus.known = m_link->knownLdbs();
    m_bus.connected = m_link->connectedLdbs();
    m_reader = std::make_unique<SettingsReader>(m_link, m_bus.connected);
    connect(m_reader.get(), &SettingsReader::progressChanged, this,
            &SettingsImport::progressChanged);
    connect(m_reader.get(), &SettingsReader::finished, this, &SettingsImport::processRead);
    m_reader->start();
    return true;
}

void SettingsImport::processRead()
{
    m_bus.settings = m_reader->records();
    m_phase = Phase::Planned;
    planWith(IdReading::Hexadecimal);
    if (m_linkEnded) {
        write(); // which tells of each line that it was not written
    } else {
        emit planned();
    }
}

void SettingsImport::planWith(IdReading reading)
{
    if (m_phase == Phase::Planned) {
        m_plan = ImportPlan::make(m_content, reading, m_bus);
        m_ldbCount = m_plan.lineCount;
    }
}

void SettingsImport::write()
{
    std::vector<LdbChange> changes;
    for (const ImportPlan::Entry& entry : m_plan.entries) {
        const SettingsComparison& comparison = entry.comparison;
        if (!comparison.isSame()) {
            changes.push_back(
                {entry.line.hexId, {comparison.wanted, comparison.fields, comparison.present}});
        }
    }
    write(std::move(changes));
}

SettingsBatch* SettingsImport::write(std::vector<LdbChange> changes)
{
    if (m_phase != Phase::Planned) {
        return nullptr;
    }
    m_phase = Phase::Writing;
    m_failures = m_plan.problems;
    m_someFailed = m_plan.hasWrongLines;
    for (const ImportPlan::Entry& entry : m_plan.entries) {
        const QString& hexId = entry.line.hexId;
        const bool isWritten =
            std::any_of(changes.begin(), changes.end(),
                        [&hexId](const LdbChange& change) { return change.hexId == hexId; });
        if (entry.comparison.isSame()) {
            m_done.append(hexId);
        } else if (!isWritten) {
            m_failures.push_back(ImportPlan::lineText(entry.line, m_plan.reading, [] {
                return tr("was left out of what was confirmed: not written");
            }));
        }
    }
    m_batch = std::make_unique<SettingsBatch>(m_link, std::move(changes));
    connect(m_batch.get(), &SettingsBatch::ldbDone, this, &SettingsImport::processWritten);
    connect(m_batch.get(), &SettingsBatch::progressChanged, this, &SettingsImport::progressChanged);
    // Queued: whoever follows the writing hears of its end before it is gone.
    connect(m_batch.get(), &SettingsBatch::finished, this, &SettingsImport::processBatchEnd,
            Qt::QueuedConnection);
    expectReplies(m_batch->count());
    // From the event loop: who said yes may be about to close what he was asked with.
    m_batch->start();
    return m_batch.get();
}

QStringList SettingsImport::leftLdbs() const
{
    return m_batch ? m_batch->left() : QStringList();
}

void SettingsImport::proceed()
{
    if (m_phase == Phase::Writing) {
        m_batch->stop();
    } else if (m_isStopping) {
        m_reader.reset();
        endWith(Status::ImportFailed);
    }
}

void SettingsImport::processWritten(const SettingsOutcome& outcome)
{
    if (!outcome.isUntouched()) {
        m_touched.append(outcome.hexId);
    }
    if (outcome.isGood()) {
        m_done.append(outcome.hexId);
    } else if (outcome.overtaken.empty()) {
        failChange(outcome.hexId, [outcome] { return outcome.text(); });
    } else {
        failChange(outcome.hexId,
                   [] { return tr("its settings have changed since they were shown"); });
    }
}

void SettingsImport::processBatchEnd()
{
    if (m_batch->isCut()) {
        for (const QString& hexId : m_batch->left()) {
            failChange(hexId, [] { return tr("the connection ended before it was written"); });
        }
    }
    endWith(status());
}

void SettingsImport::endWith(Status status)
{
    if (m_phase != Phase::Ended) {
        m_phase = Phase::Ended;
        end(status);
    }
}

LdbTransfer::Status SettingsImport::status() const
{
    if (m_plan.hasUnconnected) {
        return Status::ImportFailedNotAllConnected;
    }
    const bool nothingToDo = m_plan.entries.empty() && !m_plan.hasMissingLines;
    if (m_someFailed || nothingToDo) {
        return Status::ImportFailed;
    }
    return m_plan.hasMissingLines ? Status::ImportFailedSettingsMissing : Status::ImportFinished;
}

void SettingsImport::failChange(const QString& hexId, const Text& what)
{
    m_someFailed = true;
    const auto entry =
        std::find_if(m_plan.entries.begin(), m_plan.entries.end(),
                     [&hexId](const auto& other) { return other.line.hexId == hexId; });
    if (entry != m_plan.entries.end()) {
        m_failures.push_back(ImportPlan::lineText(entry->line, m_plan.reading, what));
    } else { // the user has added it to what the file has
        m_failures.emplace_back([hexId, what] {
            return tr("LDB %1 (address %2): %3")
                .arg(hexId, QString::number(busaddress::fromHexId(hexId)), what());
        });
    }
}

#include "importexport/settingsimport.h"

#include "importexport/settingsreader.h"
#include "importexport/settingswriter.h"
#include "serial/link/seriallink.h"

#include <QFile>
#include <QPointer>

namespace {

// One LDB is written while the next one is read.
constexpr std::size_t kLdbsAhead = 1;

// A file of 253 LDBs has some 25 kB; whatever is far longer was chosen by mistake.
constexpr qint64 kMaxFileSize = 1024LL * 1024LL;

/// To read it again, to write what differs, and to store that.
int commandsFor(const ImportPlan::Entry& entry)
{
    return 2 + static_cast<int>(entry.comparison.parameters().size());
}

} // namespace

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
    if (!readFile(filePath)) {
        return false;
    }
    m_bus.known = m_link->knownLdbs();
    m_bus.connected = m_link->connectedLdbs();
    m_reader = std::make_unique<SettingsReader>(m_link, m_bus.connected);
    connect(m_reader.get(), &SettingsReader::progressChanged, this,
            &SettingsImport::progressChanged);
    connect(m_reader.get(), &SettingsReader::finished, this, &SettingsImport::processRead);
    connect(m_link, &SerialLink::stopped, this, [this] {
        // What is planned for one run is not written in another.
        if (m_phase == Phase::Planned) {
            write();
        }
    });
    m_reader->start();
    return true;
}

bool SettingsImport::readFile(const QString& filePath)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(QT_TR_NOOP("The file cannot be opened: %1"), file.errorString());
        return false;
    }
    m_content = file.read(kMaxFileSize + 1);
    if (file.error() != QFileDevice::NoError) {
        fail(QT_TR_NOOP("The file cannot be read: %1"), file.errorString());
        return false;
    }
    if (m_content.size() > kMaxFileSize) {
        fail(QT_TR_NOOP("The file is too long for a settings file."));
        return false;
    }
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
    if (m_phase != Phase::Planned) {
        return;
    }
    m_phase = Phase::Writing;
    m_failures = m_plan.problems;
    m_someFailed = m_plan.hasWrongLines;
    int commands = 0;
    for (const ImportPlan::Entry& entry : m_plan.entries) {
        if (entry.comparison.isSame()) {
            m_done.append(entry.line.hexId);
        } else {
            m_toWrite.push_back(entry);
            commands += commandsFor(entry);
        }
    }
    // The receiver of the plan may be about to close what it has asked with.
    QMetaObject::invokeMethod(this, &SettingsImport::proceed, Qt::QueuedConnection);
    expectReplies(commands);
}

QStringList SettingsImport::leftLdbs() const
{
    QStringList left;
    for (std::size_t index = m_nextToWrite; index < m_toWrite.size(); ++index) {
        left.append(m_toWrite[index].line.hexId);
    }
    return left;
}

void SettingsImport::proceed()
{
    if (m_phase == Phase::Writing) {
        checkNext();
        writeNext();
    } else if (m_isStopping) {
        m_reader.reset();
        endWith(Status::ImportFailed);
    }
}

/// Reads the next LDB a second time: between the preview and the writing, which the user may leave
/// open for long, somebody else may have changed it. So the writer has no need to read it again.
void SettingsImport::checkNext()
{
    while (m_linkEnded && m_nextToCheck < m_toWrite.size()) {
        failUnsent(m_toWrite[m_nextToCheck++], 0);
        m_isFresh.push_back(false);
    }
    if (m_isStopping || m_isChecking || m_nextToCheck == m_toWrite.size() ||
        m_nextToCheck >= m_nextToWrite + kLdbsAhead) {
        return;
    }
    m_isChecking = true;
    const ImportPlan::Entry& entry = m_toWrite[m_nextToCheck];
    m_link->ask(std::make_unique<RequestCommand>(entry.line.hexId, LdbParameter::Settings), this,
                [this, &entry](const Reply& reply) { processCheck(entry, reply); });
}

void SettingsImport::processCheck(const ImportPlan::Entry& entry, const Reply& reply)
{
    m_isChecking = false;
    if (reply.kind() == Reply::Kind::Unsent) {
        m_linkEnded = true;
    } else {
        ++m_nextToCheck;
        const auto record = decodeLdbSettings(reply.answer(), entry.line.hexId);
        m_isFresh.push_back(record && differingFields(*record, entry.comparison.present).empty());
        --m_repliesLeft;
        if (!m_isFresh.back()) {
            m_repliesLeft -= commandsFor(entry) - 1;
            failEntry(entry, record ? QT_TR_NOOP("its settings have changed since they were shown")
                             : m_link->isConnected(entry.line.hexId)
                                 ? QT_TR_NOOP("its present settings could not be read")
                                 : QT_TR_NOOP("no LDB with this address is connected"));
        }
    }
    const QPointer<SettingsImport> alive(this);
    tellProgress();
    if (alive) {
        proceed();
    }
}

void SettingsImport::writeNext()
{
    if (m_writer || m_phase != Phase::Writing) {
        return;
    }
    while (!m_isStopping && m_nextToWrite < m_nextToCheck &&
           (m_linkEnded || !m_isFresh[m_nextToWrite])) {
        if (m_isFresh[m_nextToWrite]) {
            failUnsent(m_toWrite[m_nextToWrite], 1);
        }
        ++m_nextToWrite; // and what is not as the plan said has been told
        checkNext();
    }
    if (m_isStopping || m_nextToWrite == m_toWrite.size()) {
        endWith(status());
        return;
    }
    if (m_nextToWrite == m_nextToCheck) {
        return;
    }
    const ImportPlan::Entry& entry = m_toWrite[m_nextToWrite++];
    m_writer = std::make_unique<SettingsWriter>(m_link, entry.line.hexId, entry.comparison.wanted,
                                                entry.comparison.parameters(),
                                                SettingsWriter::ReadBack::WhenSilent);
    connect(m_writer.get(), &SettingsWriter::replied, this, [this] {
        --m_repliesLeft;
        tellProgress();
    });
    connect(m_writer.get(), &SettingsWriter::finished, this,
            [this, &entry] { processWritten(entry); });
    m_writer->start();
    checkNext();
}

void SettingsImport::processWritten(const ImportPlan::Entry& entry)
{
    const SettingsOutcome outcome = m_writer->outcome();
    if (!outcome.isUntouched()) {
        m_touched.append(entry.line.hexId);
    }
    m_linkEnded = m_linkEnded || outcome.isCut();
    if (outcome.isGood()) {
        m_done.append(entry.line.hexId);
    } else {
        failEntry(entry, [outcome] { return outcome.text(); });
    }
    m_writer.release()->deleteLater(); // it is the sender
    proceed();
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

void SettingsImport::failUnsent(const ImportPlan::Entry& entry, int commandsSent)
{
    m_repliesLeft -= commandsFor(entry) - commandsSent;
    failEntry(entry, QT_TR_NOOP("the connection ended before it was written"));
}

void SettingsImport::failEntry(const ImportPlan::Entry& entry, const Text& what)
{
    m_someFailed = true;
    m_failures.push_back(ImportPlan::lineText(entry.line, m_plan.reading, what));
}

void SettingsImport::failEntry(const ImportPlan::Entry& entry, const char* what)
{
    failEntry(entry, [what] { return tr(what); });
}

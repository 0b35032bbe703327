#include "importexport/settingsexport.h"

#include "importexport/settingscsv.h"
#include "serial/seriallink.h"

#include <QTextCodec>

#include <algorithm>

namespace {

// Enough that the processor never waits for this thread between two LDBs.
constexpr int kLdbsAhead = 8;

// Positions of an LDB's two commands.
constexpr int kSettingsCommand = 0;
constexpr int kFirmwareCommand = 1;

std::vector<std::unique_ptr<ISerialCommand>> readCommands(const QString& hexId)
{
    std::vector<std::unique_ptr<ISerialCommand>> commands;
    commands.push_back(std::make_unique<RequestCommand>(hexId, LdbParameter::Settings));
    commands.push_back(std::make_unique<ExecuteCommand>(hexId, LdbAction::FirmwareId));
    return commands;
}

} // namespace

SettingsExport::SettingsExport(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_batch(link, kLdbsAhead)
    , m_stream(&m_file)
{
    connect(&m_batch, &CommandBatch::answered, this, &SettingsExport::processExportDeviceSettings);
    connect(&m_batch, &CommandBatch::ldbDone, this, &SettingsExport::processLdbDone);
    connect(&m_batch, &CommandBatch::finished, this, &SettingsExport::finish);
    connect(&m_batch, &CommandBatch::aborted, this, &SettingsExport::abort);
}

bool SettingsExport::begin(const QString& filePath)
{
    const QStringList ldbs = m_link->isRunning() ? m_link->knownLdbs() : QStringList();
    if (ldbs.isEmpty()) {
        m_failures.append(tr("No LDB's are connected."));
        return false;
    }
    if (!openFile(filePath)) {
        return false;
    }
    m_entries.reserve(static_cast<std::size_t>(ldbs.size()));
    for (const QString& hexId : ldbs) {
        Entry entry;
        entry.hexId = hexId;
        m_entries.push_back(entry);
        m_batch.add(hexId, readCommands(hexId));
    }
    m_batch.start();
    emit progressChanged(m_batch.commandsLeft(), m_batch.commandCount());
    return true;
}

bool SettingsExport::openFile(const QString& filePath)
{
    m_file.setFileName(filePath);
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        m_failures.append(tr("The file cannot be opened: %1").arg(m_file.errorString()));
        return false;
    }
    m_stream << settingscsv::fileHead();
    flushFile();
    return !m_writeFailed;
}

void SettingsExport::flushFile()
{
    m_stream.flush();
    const bool written = m_stream.status() == QTextStream::Ok && m_file.flush();
    if (!written && !m_writeFailed) {
        m_writeFailed = true;
        m_failures.append(tr("The file cannot be written: %1").arg(m_file.errorString()));
    }
}

void SettingsExport::processExportDeviceSettings(const QString& hexId, int command,
                                                 const Reply& reply)
{
    Entry& entry = entryOf(hexId);
    entry.isSilent = entry.isSilent || reply.kind() == Reply::Kind::Silent;
    if (command == kSettingsCommand) {
        const std::optional<LdbSettings> settings = decodeLdbSettings(reply.answer());
        if (settings && busaddress::toHexId(settings->address) == hexId) {
            entry.settings = settings;
        }
    } else if (command == kFirmwareCommand) {
        entry.firmwareId = decodeFirmwareId(reply.answer()).value_or(QString());
    }
    emit progressChanged(m_batch.commandsLeft(), m_batch.commandCount());
}

void SettingsExport::processLdbDone(const QString& hexId)
{
    entryOf(hexId).isDone = true;
    writeEntriesInTurn();
}

void SettingsExport::writeEntriesInTurn()
{
    // An answer that another requester had asked for already may come before its turn.
    while (m_nextToWrite < m_entries.size() && m_entries[m_nextToWrite].isDone) {
        writeEntry(m_entries[m_nextToWrite++]);
    }
}

void SettingsExport::writeEntry(const Entry& entry)
{
    if (!m_link->isConnected(entry.hexId)) {
        addFailure(entry.hexId, tr("not connected"));
    } else if (entry.isSilent) {
        addFailure(entry.hexId, tr("no answer"));
    } else if (!entry.settings) {
        addFailure(entry.hexId, tr("no valid settings received"));
    } else if (entry.firmwareId.isEmpty()) {
        addFailure(entry.hexId, tr("no valid firmware id received"));
    }
    if (!entry.settings) {
        return;
    }
    const QString line = settingscsv::settingsLine(*entry.settings, entry.firmwareId);
    if (!QTextCodec::codecForLocale()->canEncode(line)) {
        addFailure(entry.hexId, tr("the name has characters that the file cannot hold"));
    }
    m_stream << line;
    flushFile();
}

void SettingsExport::abort()
{
    for (; m_nextToWrite < m_entries.size(); ++m_nextToWrite) {
        const Entry& entry = m_entries[m_nextToWrite];
        if (entry.isDone) {
            writeEntry(entry);
        } else {
            addFailure(entry.hexId, tr("the connection ended before its answer"));
        }
    }
    finish();
}

void SettingsExport::finish()
{
    m_file.close();
    emit finished();
}

SettingsExport::Entry& SettingsExport::entryOf(const QString& hexId)
{
    return *std::find_if(m_entries.begin(), m_entries.end(),
                         [&hexId](const Entry& entry) { return entry.hexId == hexId; });
}

void SettingsExport::addFailure(const QString& hexId, const QString& what)
{
    m_failures.append(
        tr("LDB %1 (address %2): %3").arg(hexId, QString::number(hexId.toInt(nullptr, 16)), what));
}

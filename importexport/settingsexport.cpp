#include "importexport/settingsexport.h"

#include "importexport/settingscsv.h"
#include "serial/link/seriallink.h"

#include <QPointer>
#include <QTextCodec>

#include <utility>

namespace {

// Enough that the processor never waits for this thread between two LDBs.
constexpr std::size_t kLdbsAhead = 8;
constexpr int kCommandsAnLdb = 2;

} // namespace

bool SettingsExport::begin(const QString& filePath)
{
    const QStringList ldbs = m_link->isRunning() ? m_link->knownLdbs() : QStringList();
    if (ldbs.isEmpty()) {
        fail(QT_TR_NOOP("No LDB's are connected."));
        return false;
    }
    if (!openFile(filePath)) {
        return false;
    }
    for (const QString& hexId : ldbs) {
        m_entries.push_back({hexId, kCommandsAnLdb, std::nullopt, QString()});
    }
    m_ldbCount = ldbs.size();
    QMetaObject::invokeMethod(this, &SettingsExport::proceed, Qt::QueuedConnection);
    expectReplies(kCommandsAnLdb * m_ldbCount);
    return true;
}

bool SettingsExport::openFile(const QString& filePath)
{
    m_file.setFileName(filePath);
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        fail(QT_TR_NOOP("The file cannot be opened: %1"), m_file.errorString());
        return false;
    }
    m_stream << settingscsv::fileHead();
    flushFile();
    return !m_writeFailed;
}

QStringList SettingsExport::leftLdbs() const
{
    QStringList left;
    for (std::size_t index = m_nextToAsk; index < m_entries.size(); ++index) {
        left.append(m_entries[index].hexId);
    }
    return left;
}

void SettingsExport::flushFile()
{
    m_stream.flush();
    const bool written = m_stream.status() == QTextStream::Ok && m_file.flush();
    if (!written && !std::exchange(m_writeFailed, true)) {
        fail(QT_TR_NOOP("The file cannot be written: %1"), m_file.errorString());
    }
}

void SettingsExport::proceed()
{
    while (!m_isStopping && m_nextToAsk < m_entries.size() &&
           m_nextToAsk - m_nextToWrite < kLdbsAhead) {
        const std::size_t index = m_nextToAsk++;
        Entry& entry = m_entries[index];
        if (m_linkEnded || !m_link->isConnected(entry.hexId)) {
            entry.isCut = m_linkEnded;
            m_repliesLeft -= std::exchange(entry.repliesLeft, 0);
            writeEntriesInTurn();
            continue;
        }
        ask(index, std::make_unique<RequestCommand>(entry.hexId, LdbParameter::Settings),
            [](Entry& asked, const QByteArray& answer) {
                asked.settings = decodeLdbSettings(answer, asked.hexId);
            });
        ask(index, std::make_unique<ExecuteCommand>(entry.hexId, LdbAction::FirmwareId),
            [](Entry& asked, const QByteArray& answer) {
                asked.firmwareId = decodeFirmwareId(answer).value_or(QString());
            });
    }
    const std::size_t last = m_isStopping ? m_nextToAsk : m_entries.size();
    if (m_nextToWrite == last && !std::exchange(m_hasEnded, true)) {
        m_file.close();
        end(m_failures.empty() ? Status::ExportFinished : Status::ExportFailed);
    }
}

void SettingsExport::ask(std::size_t index, std::unique_ptr<ISerialCommand> command,
                         void (*take)(Entry& entry, const QByteArray& answer))
{
    m_link->ask(std::move(command), this, [this, index, take](const Reply& reply) {
        Entry& entry = m_entries[index];
        entry.isCut = entry.isCut || reply.kind() == Reply::Kind::Unsent;
        m_linkEnded = m_linkEnded || entry.isCut;
        take(entry, reply.answer());
        --entry.repliesLeft;
        --m_repliesLeft;
        writeEntriesInTurn();
        const QPointer<SettingsExport> alive(this);
        tellProgress();
        if (alive) {
            proceed();
        }
    });
}

void SettingsExport::writeEntriesInTurn()
{
    // An answer that another requester had asked for already may come before its turn.
    while (m_nextToWrite < m_nextToAsk && m_entries[m_nextToWrite].repliesLeft == 0) {
        writeEntry(m_entries[m_nextToWrite++]);
    }
}

void SettingsExport::writeEntry(const Entry& entry)
{
    if (entry.isCut) {
        failLdb(entry.hexId, QT_TR_NOOP("the connection ended before its answer"));
    } else if (!m_link->isConnected(entry.hexId)) {
        failLdb(entry.hexId, QT_TR_NOOP("not connected"));
    } else if (!entry.settings || entry.firmwareId.isEmpty()) {
        failLdb(entry.hexId, QT_TR_NOOP("no answer"));
    }
    if (!entry.settings) {
        return;
    }
    const QString line = settingscsv::settingsLine(*entry.settings, entry.firmwareId);
    if (!QTextCodec::codecForLocale()->canEncode(line)) {
        failLdb(entry.hexId, QT_TR_NOOP("the name has characters that the file cannot hold"));
    }
    m_stream << line;
    flushFile();
    m_done.append(entry.hexId);
}

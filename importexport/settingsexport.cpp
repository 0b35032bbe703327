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
constexpr int kIdBase = 16;

} // namespace

SettingsExport::SettingsExport(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_stream(&m_file)
{
    // What begins after it is another run.
    connect(link, &SerialLink::stopped, this, [this] { m_linkEnded = true; });
}

bool SettingsExport::begin(const QString& filePath)
{
    const QStringList ldbs = m_link->isRunning() ? m_link->knownLdbs() : QStringList();
    if (ldbs.isEmpty()) {
        m_failures.emplace_back([] { return tr("No LDB's are connected."); });
        return false;
    }
    if (!openFile(filePath)) {
        return false;
    }
    for (const QString& hexId : ldbs) {
        Entry entry;
        entry.hexId = hexId;
        entry.repliesLeft = kCommandsAnLdb;
        m_entries.push_back(entry);
    }
    m_repliesLeft = kCommandsAnLdb * ldbCount();
    QMetaObject::invokeMethod(this, &SettingsExport::askNext, Qt::QueuedConnection);
    tellProgress();
    return true;
}

bool SettingsExport::openFile(const QString& filePath)
{
    m_file.setFileName(filePath);
    if (!m_file.open(QIODevice::ReadWrite | QIODevice::Truncate)) {
        m_failures.emplace_back([reason = m_file.errorString()] {
            return tr("The file cannot be opened: %1").arg(reason);
        });
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
        m_failures.emplace_back([reason = m_file.errorString()] {
            return tr("The file cannot be written: %1").arg(reason);
        });
    }
}

/// Keeps some LDBs' commands at the processor: other users of the bus get their turn between them.
void SettingsExport::askNext()
{
    while (m_nextToAsk < m_entries.size() && m_nextToAsk - m_nextToWrite < kLdbsAhead) {
        const std::size_t index = m_nextToAsk++;
        Entry& entry = m_entries[index];
        if (m_linkEnded || !m_link->isConnected(entry.hexId)) {
            entry.isCut = m_linkEnded;
            m_repliesLeft -= std::exchange(entry.repliesLeft, 0);
            writeEntriesInTurn();
            continue;
        }
        ask(index, std::make_unique<RequestCommand>(entry.hexId, LdbParameter::Settings),
            &SettingsExport::takeSettings);
        ask(index, std::make_unique<ExecuteCommand>(entry.hexId, LdbAction::FirmwareId),
            &SettingsExport::takeFirmware);
    }
    if (m_nextToWrite == m_entries.size()) {
        finish();
    }
}

void SettingsExport::ask(std::size_t index, std::unique_ptr<ISerialCommand> command,
                         void (SettingsExport::*take)(Entry& entry, const QByteArray& answer))
{
    m_link->ask(std::move(command), this, [this, index, take](const Reply& reply) {
        Entry& entry = m_entries[index];
        entry.isSilent = entry.isSilent || reply.kind() == Reply::Kind::Silent;
        entry.isCut = entry.isCut || reply.kind() == Reply::Kind::Unsent;
        m_linkEnded = m_linkEnded || entry.isCut;
        (this->*take)(entry, reply.answer());
        --entry.repliesLeft;
        --m_repliesLeft;
        writeEntriesInTurn();
        const QPointer<SettingsExport> alive(this);
        tellProgress();
        if (alive) {
            askNext();
        }
    });
}

void SettingsExport::takeSettings(Entry& entry, const QByteArray& answer)
{
    entry.settings = decodeLdbSettings(answer, entry.hexId);
}

void SettingsExport::takeFirmware(Entry& entry, const QByteArray& answer)
{
    entry.firmwareId = decodeFirmwareId(answer).value_or(QString());
}

void SettingsExport::tellProgress()
{
    emit progressChanged(m_repliesLeft, kCommandsAnLdb * ldbCount());
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
        addFailure(entry, QT_TR_NOOP("the connection ended before its answer"));
    } else if (!m_link->isConnected(entry.hexId)) {
        addFailure(entry, QT_TR_NOOP("not connected"));
    } else if (entry.isSilent) {
        addFailure(entry, QT_TR_NOOP("no answer"));
    } else if (!entry.settings) {
        addFailure(entry, QT_TR_NOOP("no valid settings received"));
    } else if (entry.firmwareId.isEmpty()) {
        addFailure(entry, QT_TR_NOOP("no valid firmware id received"));
    }
    if (!entry.settings) {
        return;
    }
    const QString line = settingscsv::settingsLine(*entry.settings, entry.firmwareId);
    if (!QTextCodec::codecForLocale()->canEncode(line)) {
        addFailure(entry, QT_TR_NOOP("the name has characters that the file cannot hold"));
    }
    m_stream << line;
    flushFile();
    ++m_writtenLines;
}

void SettingsExport::finish()
{
    m_file.close();
    emit finished();
}

void SettingsExport::addFailure(const Entry& entry, const char* what)
{
    m_failures.emplace_back([hexId = entry.hexId, what] {
        return tr("LDB %1 (address %2): %3")
            .arg(hexId, QString::number(hexId.toInt(nullptr, kIdBase)), tr(what));
    });
}

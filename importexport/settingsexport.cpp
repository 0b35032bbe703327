#include "importexport/settingsexport.h"

#include "serial/link/seriallink.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

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
    m_entries.resize(static_cast<std::size_t>(ldbs.size()));
    for (std::size_t index = 0; index < m_entries.size(); ++index) {
        m_entries[index].reading.hexId = ldbs.at(static_cast<int>(index));
    }
    m_ldbCount = ldbs.size();
    m_reader = std::make_unique<SettingsReader>(
        m_link, ldbs, SettingsReader::Extent::SettingsAndFirmware, SettingsReader::Lost::Skip);
    connect(m_reader.get(), &SettingsReader::ldbRead, this, &SettingsExport::take);
    connect(m_reader.get(), &SettingsReader::finished, this, &SettingsExport::processEnd);
    QMetaObject::invokeMethod(m_reader.get(), &SettingsReader::start, Qt::QueuedConnection);
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
    m_writer = std::make_unique<SettingsFileWriter>(&m_file);
    noteWritten(m_writer->writeHead());
    return !m_writeFailed;
}

QStringList SettingsExport::leftLdbs() const
{
    QStringList left;
    for (const Entry& entry : m_entries) {
        if (!entry.isRead) {
            left.append(entry.reading.hexId);
        }
    }
    return left;
}

void SettingsExport::proceed()
{
    if (m_reader) {
        m_reader->stop();
    }
}

void SettingsExport::take(const LdbReading& reading)
{
    const auto entry = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry& each) {
        return each.reading.hexId == reading.hexId;
    });
    entry->reading = reading;
    entry->isRead = true;
    // One that another requester had asked already may come before its turn.
    while (m_nextToWrite < m_entries.size() && m_entries[m_nextToWrite].isRead) {
        writeEntry(m_entries[m_nextToWrite++].reading);
    }
    m_repliesLeft -= kCommandsAnLdb;
    tellProgress();
}

void SettingsExport::processEnd()
{
    m_file.close();
    end(m_failures.empty() ? Status::ExportFinished : Status::ExportFailed);
}

void SettingsExport::noteWritten(bool isWritten)
{
    if (!isWritten && !std::exchange(m_writeFailed, true)) {
        fail(QT_TR_NOOP("The file cannot be written: %1"), m_file.errorString());
    }
}

void SettingsExport::writeEntry(const LdbReading& reading)
{
    if (reading.isUnsent) {
        failLdb(reading.hexId, QT_TR_NOOP("the connection ended before its answer"));
    } else if (!m_link->isConnected(reading.hexId)) {
        failLdb(reading.hexId, QT_TR_NOOP("not connected"));
    } else if (!reading.settings || reading.firmwareId.isEmpty()) {
        failLdb(reading.hexId, QT_TR_NOOP("no answer"));
    }
    if (!reading.settings) {
        return;
    }
    if (!SettingsFileWriter::canHold(*reading.settings, reading.firmwareId)) {
        failLdb(reading.hexId, QT_TR_NOOP("the name has characters that the file cannot hold"));
    }
    noteWritten(m_writer->writeLine(*reading.settings, reading.firmwareId));
    m_done.append(reading.hexId);
}

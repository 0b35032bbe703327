#include "importexport/settingsimport.h"

#include "importexport/settingswriter.h"
#include "serial/link/seriallink.h"

#include <QFile>

namespace {

// One LDB is written while the next one's commands wait.
constexpr int kLdbsAhead = 2;
constexpr int kCommandsAnLdb = 5;

// A file of 253 LDBs has some 25 kB; whatever is far longer was chosen by mistake.
constexpr qint64 kMaxFileSize = 1024LL * 1024LL;

/// A file does not carry the audio mute.
const std::vector<LdbParameter> kParametersOfAFile = {LdbParameter::Name, LdbParameter::Flags,
                                                      LdbParameter::OpenDetectionDelay,
                                                      LdbParameter::NumberOfFims};

} // namespace

bool SettingsImport::begin(const QString& filePath)
{
    if (!m_link->isRunning()) {
        fail(QT_TR_NOOP("No LDB's are connected."));
        return false;
    }
    m_withoutLine = m_link->connectedLdbs();
    if (!readFile(filePath)) {
        return false;
    }
    QMetaObject::invokeMethod(this, &SettingsImport::writeNext, Qt::QueuedConnection);
    expectReplies(kCommandsAnLdb * static_cast<int>(m_lines.size()));
    return true;
}

bool SettingsImport::readFile(const QString& filePath)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(QT_TR_NOOP("The file cannot be opened: %1"), file.errorString());
        return false;
    }
    const QByteArray content = file.read(kMaxFileSize + 1);
    if (file.error() != QFileDevice::NoError) {
        fail(QT_TR_NOOP("The file cannot be read: %1"), file.errorString());
        return false;
    }
    if (content.size() > kMaxFileSize) {
        fail(QT_TR_NOOP("The file is too long for a settings file."));
        return false;
    }
    const std::vector<DeviceSettingsLine> lines = DeviceSettingsFile::read(content);
    m_ldbCount = static_cast<int>(lines.size());
    for (const DeviceSettingsLine& line : lines) {
        takeLine(line);
    }
    for (const DeviceSettingsLine& line : lines) {
        m_withoutLine.removeAll(line.hexId);
    }
    for (const QString& hexId : qAsConst(m_withoutLine)) {
        failLdb(hexId, QT_TR_NOOP("no line in the file"));
    }
    return true;
}

void SettingsImport::takeLine(const DeviceSettingsLine& line)
{
    if (!m_link->isConnected(line.hexId)) {
        m_someNotConnected = true;
        failUnwritten(line, QT_TR_NOOP("no LDB with this address is connected"));
    } else if (!line.settings) {
        failLine(line, line.error);
    } else {
        m_lines.push_back(line);
    }
}

void SettingsImport::writeNext()
{
    while (m_writing < kLdbsAhead && m_nextToWrite < m_lines.size()) {
        const DeviceSettingsLine& line = m_lines[m_nextToWrite++];
        if (!m_linkEnded && m_link->isConnected(line.hexId)) {
            processImportDeviceSettings(line);
            continue;
        }
        m_repliesLeft -= kCommandsAnLdb;
        failUnwritten(line, m_linkEnded ? QT_TR_NOOP("the connection ended before it was written")
                                        : QT_TR_NOOP("no LDB with this address is connected"));
    }
    if (m_writing == 0) {
        emit finished(status());
    }
}

void SettingsImport::processImportDeviceSettings(const DeviceSettingsLine& line)
{
    auto* writer = new SettingsWriter(m_link, line.hexId, *line.settings, kParametersOfAFile,
                                      SettingsWriter::ReadBack::WhenSilent, this);
    connect(writer, &SettingsWriter::replied, this, [this] {
        --m_repliesLeft;
        tellProgress();
    });
    connect(writer, &SettingsWriter::finished, this,
            [this, line, writer] { processWritten(line, writer); });
    ++m_writing;
    writer->start();
}

void SettingsImport::processWritten(const DeviceSettingsLine& line, SettingsWriter* writer)
{
    const SettingsOutcome& outcome = writer->outcome();
    if (!outcome.isUntouched()) {
        m_touched.append(line.hexId);
    }
    m_linkEnded = m_linkEnded || outcome.isCut();
    if (outcome.isGood()) {
        ++m_doneCount;
    } else {
        failLine(line, [outcome] { return outcome.text(); });
    }
    writer->deleteLater();
    --m_writing;
    writeNext();
}

LdbTransfer::Status SettingsImport::status() const
{
    if (m_someNotConnected) {
        return Status::ImportFailedNotAllConnected;
    }
    const bool nothingToDo = m_lines.empty() && m_withoutLine.isEmpty();
    if (m_someFailed || nothingToDo) {
        return Status::ImportFailed;
    }
    return m_withoutLine.isEmpty() ? Status::ImportFinished : Status::ImportFailedSettingsMissing;
}

void SettingsImport::failLine(const DeviceSettingsLine& line, const Text& what)
{
    m_someFailed = true;
    m_failures.emplace_back([number = line.number, id = line.idText, address = line.address, what] {
        return tr("Line %1: ID %2 (read as %2 hexadecimal, address %3): %4")
            .arg(QString::number(number), id, QString::number(address), what());
    });
}

void SettingsImport::failUnwritten(const DeviceSettingsLine& line, const char* what)
{
    failLine(line, [what] { return tr(what); });
}

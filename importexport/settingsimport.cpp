#include "importexport/settingsimport.h"

#include "serial/link/seriallink.h"

#include <QFile>
#include <QPointer>

#include <algorithm>

namespace {

// One LDB is written while the next one's commands wait.
constexpr int kLdbsAhead = 2;
constexpr int kCommandsAnLdb = 5;
constexpr int kIdBase = 16;

// A file of 253 LDBs has some 25 kB; whatever is far longer was chosen by mistake.
constexpr qint64 kMaxFileSize = 1024LL * 1024LL;

} // namespace

SettingsImport::SettingsImport(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
{
    // What begins after it is another run, perhaps on another bus.
    connect(link, &SerialLink::stopped, this, [this] { m_linkEnded = true; });
}

bool SettingsImport::begin(const QString& filePath)
{
    if (!m_link->isRunning()) {
        m_failures.emplace_back([] { return tr("No LDB's are connected."); });
        return false;
    }
    m_connected = m_link->connectedLdbs();
    if (!readFile(filePath)) {
        return false;
    }
    m_repliesLeft = commandCount();
    QMetaObject::invokeMethod(this, &SettingsImport::writeNext, Qt::QueuedConnection);
    tellProgress();
    return true;
}

bool SettingsImport::readFile(const QString& filePath)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        m_failures.emplace_back([reason = file.errorString()] {
            return tr("The file cannot be opened: %1").arg(reason);
        });
        return false;
    }
    const QByteArray content = file.read(kMaxFileSize + 1);
    if (file.error() != QFileDevice::NoError) {
        m_failures.emplace_back([reason = file.errorString()] {
            return tr("The file cannot be read: %1").arg(reason);
        });
        return false;
    }
    if (content.size() > kMaxFileSize) {
        m_failures.emplace_back([] { return tr("The file is too long for a settings file."); });
        return false;
    }
    const std::vector<DeviceSettingsLine> lines = DeviceSettingsFile::read(content);
    m_lineCount = static_cast<int>(lines.size());
    for (const DeviceSettingsLine& line : lines) {
        takeLine(line);
    }
    noteMissingLines(lines);
    return true;
}

void SettingsImport::takeLine(const DeviceSettingsLine& line)
{
    if (!m_connected.contains(line.hexId)) {
        m_someNotConnected = true;
        failUnwritten(line, QT_TR_NOOP("no LDB with this address is connected"));
    } else if (!line.settings) {
        m_someFailed = true;
        addFailure(line, line.error);
    } else {
        m_lines.push_back(line);
    }
}

void SettingsImport::noteMissingLines(const std::vector<DeviceSettingsLine>& lines)
{
    for (const QString& hexId : qAsConst(m_connected)) {
        const bool hasLine =
            std::any_of(lines.begin(), lines.end(),
                        [&hexId](const DeviceSettingsLine& line) { return line.hexId == hexId; });
        if (!hasLine) {
            m_someMissing = true;
            m_failures.emplace_back([hexId] {
                return tr("LDB %1 (address %2): no line in the file")
                    .arg(hexId, QString::number(hexId.toInt(nullptr, kIdBase)));
            });
        }
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
        m_someFailed = true;
        m_repliesLeft -= kCommandsAnLdb;
        failUnwritten(line, m_linkEnded ? QT_TR_NOOP("the connection ended before it was written")
                                        : QT_TR_NOOP("no LDB with this address is connected"));
    }
    if (m_writing == 0) {
        emit finished(outcome());
    }
}

void SettingsImport::processImportDeviceSettings(const DeviceSettingsLine& line)
{
    auto* writer =
        new SettingsWriter(m_link, line.hexId, *line.settings, SettingsWriter::AudioMute::LeftAlone,
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
        m_someFailed = true;
        addFailure(line, [outcome] { return outcome.text(); });
    }
    writer->deleteLater();
    --m_writing;
    writeNext();
}

int SettingsImport::commandCount() const
{
    return kCommandsAnLdb * static_cast<int>(m_lines.size());
}

void SettingsImport::tellProgress()
{
    emit progressChanged(m_repliesLeft, commandCount());
}

SettingsImport::Outcome SettingsImport::outcome() const
{
    if (m_someNotConnected) {
        return Outcome::NotAllConnected;
    }
    const bool nothingToDo = m_lines.empty() && !m_someMissing;
    if (m_someFailed || nothingToDo) {
        return Outcome::Failed;
    }
    return m_someMissing ? Outcome::SettingsMissing : Outcome::Finished;
}

void SettingsImport::failUnwritten(const DeviceSettingsLine& line, const char* what)
{
    addFailure(line, [what] { return tr(what); });
}

void SettingsImport::addFailure(const DeviceSettingsLine& line, const Text& what)
{
    m_failures.emplace_back([number = line.number, id = line.idText, address = line.address, what] {
        return tr("Line %1: ID %2 (read as %2 hexadecimal, address %3): %4")
            .arg(QString::number(number), id, QString::number(address), what());
    });
}

#include "importexport/settingsimport.h"

#include "importexport/settingscsv.h"
#include "serial/ldbsettingscommands.h"
#include "serial/seriallink.h"

#include <QFile>

#include <algorithm>

namespace {

// One LDB is written while the next one's commands wait.
constexpr int kLdbsAhead = 2;

// A file of 253 LDBs has some 25 kB; whatever is far longer was chosen by mistake.
constexpr qint64 kMaxFileSize = 1024LL * 1024LL;

QString parameterTitle(LdbParameter parameter)
{
    using namespace settingscsv;
    switch (parameter) {
    case LdbParameter::Name:
        return columnTitle(NameColumn);
    case LdbParameter::OpenDetectionDelay:
        return columnTitle(OpenDetectionDelayColumn);
    case LdbParameter::NumberOfFims:
        return columnTitle(NumberOfFimsColumn);
    default:
        return SettingsImport::tr("the 0/1 columns");
    }
}

/// What the command at this position writes.
QString commandTitle(int command)
{
    const std::vector<LdbParameter> parameters = writtenParameters(AudioMuteChange::LeftAlone);
    const auto position = static_cast<std::size_t>(command);
    return position < parameters.size() ? parameterTitle(parameters[position])
                                        : SettingsImport::tr("storing the settings");
}

} // namespace

SettingsImport::SettingsImport(SerialLink* link, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_batch(link, kLdbsAhead)
{
    connect(&m_batch, &CommandBatch::answered, this, &SettingsImport::processImportProgress);
    connect(&m_batch, &CommandBatch::ldbDone, this, &SettingsImport::processLdbDone);
    connect(&m_batch, &CommandBatch::finished, this, &SettingsImport::finish);
    connect(&m_batch, &CommandBatch::aborted, this, &SettingsImport::abort);
}

bool SettingsImport::begin(const QString& filePath)
{
    if (!m_link->isRunning()) {
        m_failures.append(tr("No LDB's are connected."));
        return false;
    }
    m_connected = m_link->connectedLdbs();
    if (!readFile(filePath)) {
        return false;
    }
    m_batch.start();
    emit progressChanged(m_batch.commandsLeft(), m_batch.commandCount());
    return true;
}

bool SettingsImport::readFile(const QString& filePath)
{
    QFile file(filePath);
    if (!file.open(QIODevice::ReadOnly)) {
        m_failures.append(tr("The file cannot be opened: %1").arg(file.errorString()));
        return false;
    }
    const QByteArray content = file.read(kMaxFileSize + 1);
    if (file.error() != QFileDevice::NoError) {
        m_failures.append(tr("The file cannot be read: %1").arg(file.errorString()));
        return false;
    }
    if (content.size() > kMaxFileSize) {
        m_failures.append(tr("The file is too long for a settings file."));
        return false;
    }
    const std::vector<DeviceSettingsLine> lines = DeviceSettingsFile::read(content);
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
        addFailure(line, tr("no LDB with this address is connected"));
    } else if (!line.settings) {
        m_someFailed = true;
        addFailure(line, line.error);
    } else {
        processImportDeviceSettings(line);
    }
}

void SettingsImport::processImportDeviceSettings(const DeviceSettingsLine& line)
{
    m_batch.add(line.hexId,
                settingsCommands(line.hexId, *line.settings, AudioMuteChange::LeftAlone));
    Ldb ldb;
    ldb.line = line;
    m_ldbs.emplace(line.hexId, ldb);
}

void SettingsImport::noteMissingLines(const std::vector<DeviceSettingsLine>& lines)
{
    for (const QString& hexId : qAsConst(m_connected)) {
        const bool hasLine =
            std::any_of(lines.begin(), lines.end(),
                        [&hexId](const DeviceSettingsLine& line) { return line.hexId == hexId; });
        if (!hasLine) {
            m_someMissing = true;
            m_failures.append(tr("LDB %1 (address %2): no line in the file")
                                  .arg(hexId, QString::number(hexId.toInt(nullptr, 16))));
        }
    }
}

void SettingsImport::processImportProgress(const QString& hexId, int command, const Reply& reply)
{
    if (!reply.isAccepted()) {
        const QString how =
            reply.kind() == Reply::Kind::Silent ? tr("%1 unanswered") : tr("%1 refused");
        m_ldbs[hexId].notWritten.append(how.arg(commandTitle(command)));
    }
    emit progressChanged(m_batch.commandsLeft(), m_batch.commandCount());
}

void SettingsImport::processLdbDone(const QString& hexId)
{
    Ldb& ldb = m_ldbs[hexId];
    ldb.isDone = true;
    if (!ldb.notWritten.isEmpty()) {
        m_someFailed = true;
        addFailure(ldb.line, ldb.notWritten.join(QStringLiteral(", ")));
    }
}

void SettingsImport::abort()
{
    m_someFailed = true;
    for (const auto& [hexId, ldb] : m_ldbs) {
        if (!ldb.isDone) {
            addFailure(ldb.line, tr("the connection ended before it was written"));
        }
    }
    finish();
}

void SettingsImport::finish()
{
    emit finished(outcome());
}

SettingsImport::Outcome SettingsImport::outcome() const
{
    if (m_someNotConnected) {
        return Outcome::NotAllConnected;
    }
    const bool nothingToDo = m_ldbs.empty() && !m_someMissing;
    if (m_someFailed || nothingToDo) {
        return Outcome::Failed;
    }
    return m_someMissing ? Outcome::SettingsMissing : Outcome::Finished;
}

void SettingsImport::addFailure(const DeviceSettingsLine& line, const QString& what)
{
    m_failures.append(
        tr("Line %1: ID %2 (read as %2 hexadecimal, address %3): %4")
            .arg(QString::number(line.number), line.idText, QString::number(line.address), what));
}

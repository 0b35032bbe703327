#include "importexport/settingswriter.h"

#include "serial/link/seriallink.h"

#include <QPointer>
#include <QThread>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

namespace {

/// The parameters that make up an LDB's stored settings, in the order in which they are written.
constexpr std::array<LdbParameter, 5> kWritableParameters = {
    LdbParameter::Name, LdbParameter::Flags, LdbParameter::OpenDetectionDelay,
    LdbParameter::AudioMute, LdbParameter::NumberOfFims};

QByteArray encoded(LdbParameter parameter, const LdbSettings& settings)
{
    switch (parameter) {
    case LdbParameter::Name:
        return encodeName(settings);
    case LdbParameter::NumberOfFims:
        return encodeSwappedWord(settings.numberOfFims);
    case LdbParameter::Flags:
        return encodeFlags(settings);
    case LdbParameter::AudioMute:
        return encodeAudioMute(settings.audioMute);
    case LdbParameter::OpenDetectionDelay:
        return encodeSwappedWord(settings.openDetectionDelay);
    case LdbParameter::Settings:
        break;
    }
    return {};
}

QString howText(Reply::Kind how)
{
    switch (how) {
    case Reply::Kind::Silent:
        return SettingsWriter::tr("no answer");
    case Reply::Kind::Unsent:
        return SettingsWriter::tr("not sent");
    case Reply::Kind::Refused:
    case Reply::Kind::Answered:
    case Reply::Kind::Accepted:
        break;
    }
    return SettingsWriter::tr("refused");
}

/// A thing, and in brackets what there is to say about it.
QString withNote(const QString& thing, const QString& note)
{
    return SettingsWriter::tr("%1 (%2)").arg(thing, note);
}

bool isUnsent(const SettingsOutcome::Failure& failure)
{
    return failure.how == Reply::Kind::Unsent;
}

bool contains(const std::vector<LdbField>& fields, LdbField field)
{
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

bool holdsOneOf(LdbParameter parameter, const std::vector<LdbField>& fields)
{
    return std::any_of(fields.begin(), fields.end(),
                       [parameter](LdbField field) { return parameterOf(field) == parameter; });
}

/// All that these parameters hold.
std::vector<LdbField> fieldsOf(const std::vector<LdbParameter>& parameters)
{
    std::vector<LdbField> fields;
    std::copy_if(kLdbFields.begin(), kLdbFields.end(), std::back_inserter(fields),
                 [&parameters](LdbField field) {
                     return std::find(parameters.begin(), parameters.end(), parameterOf(field)) !=
                            parameters.end();
                 });
    return fields;
}

QStringList valuesOf(const std::vector<LdbField>& fields, const LdbSettings& settings)
{
    QStringList texts;
    for (const LdbField field : fields) {
        texts.append(withNote(fieldName(field), fieldValue(field, settings)));
    }
    return texts;
}

} // namespace

bool SettingsOutcome::isGood() const
{
    return isComplete() && !isRenamed && overtaken.empty() &&
           (!isReadBack || (record && differences().empty()));
}

bool SettingsOutcome::isStored() const
{
    return isHandedOver && std::none_of(failures.begin(), failures.end(),
                                        [](const auto& failure) { return !failure.parameter; });
}

bool SettingsOutcome::isUntouched() const
{
    return !isHandedOver || (failures.size() > parameters.size() &&
                             std::all_of(failures.begin(), failures.end(), isUnsent));
}

bool SettingsOutcome::isCut() const
{
    return unread == Reply::Kind::Unsent || std::any_of(failures.begin(), failures.end(), isUnsent);
}

std::vector<LdbField> SettingsOutcome::differences() const
{
    std::vector<LdbField> found;
    for (const LdbField field : kLdbFields) {
        if (record && contains(fields, field) && !isSameField(field, written, *record)) {
            found.push_back(field);
        }
    }
    return found;
}

QString SettingsOutcome::reasonOf(LdbField field) const
{
    if (isRenamed && contains(overtaken, field)) {
        return SettingsWriter::tr("the LDB has another name than before");
    }
    if (contains(overtaken, field)) {
        return SettingsWriter::tr("changed by somebody else meanwhile");
    }
    if (!contains(fields, field)) {
        return {};
    }
    if (unread) {
        return howText(*unread);
    }
    for (const Failure& failure : failures) {
        if (failure.parameter == parameterOf(field)) {
            return howText(failure.how);
        }
    }
    return contains(differences(), field)
               ? SettingsWriter::tr("the LDB reports another value than written")
               : QString();
}

bool SettingsOutcome::isSent(LdbParameter parameter) const
{
    return std::find(parameters.begin(), parameters.end(), parameter) != parameters.end() &&
           std::none_of(failures.begin(), failures.end(), [parameter](const Failure& failure) {
               return failure.parameter == parameter && isUnsent(failure);
           });
}

FieldOutcome SettingsOutcome::outcomeOf(LdbField field) const
{
    const auto ofReply = [](Reply::Kind how) {
        switch (how) {
        case Reply::Kind::Unsent:
            return FieldOutcome::Unsent;
        case Reply::Kind::Refused:
            return FieldOutcome::Refused;
        case Reply::Kind::Silent:
        case Reply::Kind::Answered:
        case Reply::Kind::Accepted:
            break;
        }
        return FieldOutcome::NotAnswered;
    };
    if (unread) {
        return ofReply(*unread);
    }
    if (!contains(fields, field)) {
        return FieldOutcome::Overtaken;
    }
    const bool isThere = record && isSameField(field, written, *record);
    for (const Failure& failure : failures) {
        if (failure.parameter == parameterOf(field) && !isThere) {
            return ofReply(failure.how);
        }
        if (!failure.parameter && isSent(parameterOf(field))) {
            // What is there but not stored is lost at the LDB's next reset.
            return failure.how == Reply::Kind::Refused ? FieldOutcome::Refused
                                                       : FieldOutcome::NotAnswered;
        }
        if (!failure.parameter) {
            return ofReply(failure.how);
        }
    }
    if (isThere) {
        return FieldOutcome::Written;
    }
    return record ? FieldOutcome::Differs : FieldOutcome::NotAnswered;
}

QStringList SettingsOutcome::texts() const
{
    const QString separator = QStringLiteral(", ");
    if (isCut() && isUntouched()) {
        return {SettingsWriter::tr("the connection ended before it was written")};
    }
    if (unread) {
        return {SettingsWriter::tr(
                    "nothing was written, as the settings could not be read just before (%1)")
                    .arg(howText(*unread))};
    }
    if (isRenamed) {
        return {SettingsWriter::tr(
                    "nothing was written, as the LDB is now called \"%1\": it may be another one")
                    .arg(fresh->name)};
    }
    QStringList parts;
    QStringList notWritten;
    for (const Failure& failure : failures) {
        if (!failure.parameter) {
            notWritten.append(withNote(SettingsWriter::tr("storing"), howText(failure.how)));
            continue;
        }
        for (const LdbField field : fields) {
            if (parameterOf(field) == *failure.parameter) {
                notWritten.append(withNote(fieldName(field), howText(failure.how)));
            }
        }
    }
    if (!notWritten.isEmpty()) {
        parts.append(SettingsWriter::tr("not written: %1").arg(notWritten.join(separator)));
    }
    if (!overtaken.empty()) {
        parts.append(
            SettingsWriter::tr("not written, as somebody else has changed it meanwhile: %1")
                .arg(valuesOf(overtaken, *fresh).join(separator)));
    }
    if (isCut()) {
        parts.append(SettingsWriter::tr("the connection ended before everything was written"));
    } else if (isReadBack && !record) {
        parts.append(SettingsWriter::tr("the settings could not be read again"));
    } else if (record && !differences().empty()) {
        parts.append(SettingsWriter::tr("the LDB reports other values than written: %1")
                         .arg(valuesOf(differences(), *record).join(separator)));
    }
    return parts;
}

SettingsWriter::SettingsWriter(SerialLink* link, const QString& hexId, SettingsChange change,
                               ReadBack readBack, QObject* parent)
    : QObject(parent)
    , m_link(link)
    , m_change(std::move(change))
    , m_readBack(readBack)
    , m_rebootTimer(this)
{
    m_outcome.hexId = hexId;
    m_outcome.written = m_change.values;
    m_outcome.fields = m_change.fields;
    m_rebootTimer.setSingleShot(true);
    connect(&m_rebootTimer, &QTimer::timeout, this, &SettingsWriter::readAgain);
    connect(link, &SerialLink::stopped, this, &SettingsWriter::endRebootWait);
    connect(link, &SerialLink::ldbStateUpdated, this, [this](const QString& told, LdbState state) {
        if (told == m_outcome.hexId && state != LdbState::Booting &&
            state != LdbState::Disconnected) {
            endRebootWait();
        }
    });
}

SettingsWriter::SettingsWriter(SerialLink* link, const QString& hexId, const LdbSettings& settings,
                               const std::vector<LdbParameter>& parameters, ReadBack readBack,
                               QObject* parent)
    : SettingsWriter(link, hexId, SettingsChange{settings, fieldsOf(parameters)}, readBack, parent)
{
}

void SettingsWriter::start()
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_isWriting = true;
    if (isReadFirst()) {
        m_link->ask(std::make_unique<RequestCommand>(m_outcome.hexId, LdbParameter::Settings), this,
                    [this](const Reply& reply) { processFresh(reply); });
        return;
    }
    handOver();
}

bool SettingsWriter::isReadFirst() const
{
    const auto flags =
        std::count_if(m_change.fields.begin(), m_change.fields.end(),
                      [](LdbField field) { return parameterOf(field) == LdbParameter::Flags; });
    const auto allFlags = std::count_if(kLdbFields.begin(), kLdbFields.end(), [](LdbField field) {
        return parameterOf(field) == LdbParameter::Flags;
    });
    return m_change.basis || (flags > 0 && flags < allFlags);
}

void SettingsWriter::processFresh(const Reply& reply)
{
    const std::optional<LdbSettings> fresh = decodeLdbSettings(reply.answer(), m_outcome.hexId);
    if (!fresh) {
        m_outcome.unread = reply.kind();
        processWritten();
        return;
    }
    compare(*fresh);
    const QPointer<SettingsWriter> alive(this);
    emit compared();
    if (!alive) {
        return;
    }
    if (m_outcome.isRenamed || (m_outcome.fields.empty() && !m_outcome.overtaken.empty())) {
        processWritten(); // there is nothing that the user would want stored
    } else {
        handOver();
    }
}

void SettingsWriter::compare(const LdbSettings& fresh)
{
    m_outcome.fresh = fresh;
    m_outcome.written = fresh;
    m_outcome.fields.clear();
    const bool isNameAsKnown =
        !m_change.basis || isSameField(LdbField::Name, *m_change.basis, fresh);
    const bool isNameAsWanted = contains(m_change.fields, LdbField::Name) &&
                                isSameField(LdbField::Name, m_change.values, fresh);
    if (!isNameAsKnown && !isNameAsWanted) {
        m_outcome.isRenamed = true;
        m_outcome.overtaken = m_change.fields;
        return;
    }
    for (const LdbField field : m_change.fields) {
        const bool isThere = isSameField(field, m_change.values, fresh);
        if (!isThere && m_change.basis && !isSameField(field, *m_change.basis, fresh)) {
            m_outcome.overtaken.push_back(field);
            continue;
        }
        m_outcome.fields.push_back(field);
        copyField(field, m_change.values, m_outcome.written);
    }
    if (m_change.isStrict) {
        refuseChanged(fresh);
    }
}

void SettingsWriter::refuseChanged(const LdbSettings& fresh)
{
    std::vector<LdbField> changed;
    for (const LdbField field : kLdbFields) {
        const bool isWritten = contains(m_outcome.fields, field);
        if (!isSameField(field, *m_change.basis, fresh) &&
            !(isWritten && isSameField(field, m_change.values, fresh))) {
            changed.push_back(field);
        }
    }
    if (!changed.empty()) {
        m_outcome.fields.clear();
        m_outcome.overtaken = changed;
    }
}

void SettingsWriter::handOver()
{
    std::vector<LdbField> toWrite;
    for (const LdbField field : m_outcome.fields) {
        if (!m_outcome.fresh || !isSameField(field, m_outcome.written, *m_outcome.fresh)) {
            toWrite.push_back(field);
        }
    }
    for (const LdbParameter parameter : kWritableParameters) {
        if (holdsOneOf(parameter, toWrite)) {
            m_outcome.parameters.push_back(parameter);
        }
    }
    m_outcome.isHandedOver = true;
    m_left = static_cast<int>(m_outcome.parameters.size()) + 1;
    const QString& hexId = m_outcome.hexId;
    for (const LdbParameter parameter : m_outcome.parameters) {
        m_link->ask(std::make_unique<ChangeCommand>(hexId, parameter,
                                                    encoded(parameter, m_outcome.written)),
                    this,
                    [this, parameter](const Reply& reply) { processReply(parameter, reply); });
    }
    m_link->ask(std::make_unique<ExecuteCommand>(hexId, LdbAction::StoreSettings), this,
                [this](const Reply& reply) { processReply(std::nullopt, reply); });
}

void SettingsWriter::processReply(std::optional<LdbParameter> parameter, const Reply& reply)
{
    if (!reply.isAccepted()) {
        m_outcome.failures.push_back({parameter, reply.kind()});
    }
    const QPointer<SettingsWriter> alive(this);
    const bool isLast = --m_left == 0;
    emit replied();
    if (alive && isLast) {
        processWritten();
    }
}

void SettingsWriter::processWritten()
{
    const bool isUnsure =
        std::any_of(m_outcome.failures.begin(), m_outcome.failures.end(), [](const auto& failure) {
            return failure.parameter && failure.how == Reply::Kind::Silent;
        });
    const bool isToBeRead = m_outcome.isHandedOver && !m_outcome.isCut() &&
                            (isUnsure || m_readBack == ReadBack::Always);
    m_isWriting = false;
    if (isToBeRead) {
        readRecord();
    }
    const QPointer<SettingsWriter> alive(this);
    emit written();
    if (alive && !isToBeRead) {
        emit finished();
    }
}

void SettingsWriter::readRecord()
{
    m_link->ask(std::make_unique<RequestCommand>(m_outcome.hexId, LdbParameter::Settings), this,
                [this](const Reply& reply) { processRecord(reply); });
}

void SettingsWriter::endRebootWait()
{
    if (m_rebootTimer.isActive()) {
        m_rebootTimer.stop();
        readAgain();
    }
}

void SettingsWriter::readAgain()
{
    m_isSecondReading = true;
    readRecord();
}

void SettingsWriter::processRecord(const Reply& reply)
{
    m_outcome.record = decodeLdbSettings(reply.answer(), m_outcome.hexId);
    const std::vector<LdbField> different = m_outcome.differences();
    const bool isSame = m_outcome.record && different.empty();
    const bool mayBeRebooting = reply.kind() == Reply::Kind::Silent ||
                                (reply.kind() != Reply::Kind::Unsent &&
                                 m_link->stateOf(m_outcome.hexId) == LdbState::Booting);
    if (!isSame && mayBeRebooting && !m_isSecondReading) {
        m_rebootTimer.start(kRebootLimitMs);
        return;
    }
    m_outcome.isReadBack = true;
    m_outcome.isReadBackCut = reply.kind() == Reply::Kind::Unsent;
    if (m_outcome.record) {
        // The silence is explained: the LDB did what it was told.
        auto& failures = m_outcome.failures;
        const auto isThere = [&different](const SettingsOutcome::Failure& failure) {
            return failure.parameter && failure.how == Reply::Kind::Silent &&
                   !holdsOneOf(*failure.parameter, different);
        };
        failures.erase(std::remove_if(failures.begin(), failures.end(), isThere), failures.end());
    }
    emit finished();
}

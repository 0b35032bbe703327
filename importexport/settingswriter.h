#pragma once

#include "importexport/ldbfields.h"
#include "serial/ldb/reply.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <optional>
#include <vector>

class SerialLink;

/// What is to be written into one LDB.
struct SettingsChange
{
    LdbSettings values;
    std::vector<LdbField> fields; ///< those of the values that are written
    /// The record on which the user decided. With it, the LDB is read just before, and a field that
    /// somebody else has changed since is left alone; all of them are where its name has changed.
    std::optional<LdbSettings> basis = {};
    /// Nothing is written where any field, also one that is not, is neither as in the basis nor as
    /// wanted: what was shown has changed, or it is another LDB.
    bool isStrict = false;
};

/// What became of one field that was to be written.
enum class FieldOutcome
{
    Written,     ///< read back, and stored
    Refused,     ///< by the LDB
    NotAnswered, ///< also: it is not known whether it was stored
    Differs,     ///< the LDB has accepted it, and has another value
    Overtaken,   ///< left alone, for somebody else has changed it meanwhile
    Unsent       ///< the run ended first
};

/// What became of settings that were written into one LDB.
struct SettingsOutcome
{
    struct Failure
    {
        std::optional<LdbParameter> parameter; ///< nothing for the storing
        Reply::Kind how;
    };

    QString hexId;
    LdbSettings
        written; ///< with what the LDB had just before in the fields that were not asked for
    std::vector<LdbField> fields;    ///< those that the LDB is to have as in `written`
    std::vector<LdbField> overtaken; ///< asked for, but changed by somebody else meanwhile
    /// It has another name than the user saw, so it may be another LDB: nothing is written.
    bool isRenamed = false;
    std::vector<LdbParameter> parameters; ///< those written, in order
    std::optional<LdbSettings> fresh;     ///< what the LDB had just before, where it was read
    std::optional<Reply::Kind> unread;    ///< why it could not be read; then nothing is written
    bool isHandedOver = false;            ///< commands that change the LDB were given to the link
    /// What is not in the LDB, or not known to be.
    std::vector<Failure> failures;
    bool isReadBack = false;           ///< the LDB was asked for its record at the end
    bool isReadBackCut = false;        ///< but the run ended before it could answer
    std::optional<LdbSettings> record; ///< what the LDB has now, where it was read back

    /// The LDB has accepted everything that was sent, or the record shows that it has it.
    bool isComplete() const { return !unread && failures.empty(); }
    /// The LDB has all that was asked for.
    bool isGood() const;
    /// The LDB keeps what it has accepted.
    bool isStored() const;
    /// Not one command that changes the LDB went out.
    bool isUntouched() const;
    /// The run ended before all was sent.
    bool isCut() const;
    /// The written fields of which the LDB has another value.
    std::vector<LdbField> differences() const;
    /// The parameter was sent to the LDB, whatever came of it.
    bool isSent(LdbParameter parameter) const;
    /// Of a field that was asked for. Only what was read back is `Written`.
    FieldOutcome outcomeOf(LdbField field) const;
    /// Why the LDB does not have this field as it was asked for; empty when it has.
    QString reasonOf(LdbField field) const;
    /// What was not written and why, each a line or all in one; empty for a good outcome.
    QStringList texts() const;
    QString text() const { return texts().join(QStringLiteral("; ")); }
};

/// Writes settings into one LDB: the parameters that hold the changed fields, in order, then the
/// action that stores them, without which the LDB loses them at its next reset. Where a basis is
/// given, or only some of the flags that share a parameter, the record is read first; if that
/// fails, nothing is written. At the end the record is read back where that is wanted or a
/// parameter was met with silence. All commands that change the LDB are handed over together:
/// destroying the writer leaves no LDB half written. GUI thread; receivers may destroy it from any
/// of its signals.
class SettingsWriter : public QObject
{
    Q_OBJECT
public:
    enum class ReadBack
    {
        Always,
        WhenSilent ///< only to learn what became of parameters that nothing came back to
    };

    /// How long a rebooting LDB is waited for before its record is read the second time.
    static constexpr int kRebootLimitMs = 15000;

    /// `link` outlives the writer.
    SettingsWriter(SerialLink* link, const QString& hexId, SettingsChange change, ReadBack readBack,
                   QObject* parent = nullptr);

    /// Writes these parameters as the settings have them, in their usual order whatever the order
    /// here, and without reading the LDB before.
    SettingsWriter(SerialLink* link, const QString& hexId, const LdbSettings& settings,
                   const std::vector<LdbParameter>& parameters, ReadBack readBack,
                   QObject* parent = nullptr);

    /// Begins; once.
    void start();

    /// From the start until `written()`.
    bool isWriting() const { return m_isWriting; }
    /// Complete once `finished()` is told.
    const SettingsOutcome& outcome() const { return m_outcome; }

signals:
    /// The record was read before the writing: `outcome().fresh`.
    void compared();
    /// One more command that changes the LDB has its reply.
    void replied();
    /// The last one has; the outcome is known but for the record.
    void written();
    /// The end, once.
    void finished();

private:
    bool isReadFirst() const;
    void processFresh(const Reply& reply);
    void compare(const LdbSettings& fresh);
    void refuseChanged(const LdbSettings& fresh);
    void handOver();
    void processReply(std::optional<LdbParameter> parameter, const Reply& reply);
    void processWritten();
    void readRecord();
    void endRebootWait();
    void readAgain();
    void processRecord(const Reply& reply);

    SerialLink* m_link;
    const SettingsChange m_change;
    const ReadBack m_readBack;
    SettingsOutcome m_outcome;
    QTimer m_rebootTimer;
    int m_left = 0;
    bool m_isWriting = false;
    bool m_isSecondReading = false;
};

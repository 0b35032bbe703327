#pragma once

#include "importexport/ldbfields.h"
#include "serial/ldb/reply.h"

#include <QObject>
#include <QStringList>
#include <QTimer>

#include <optional>
#include <vector>

class SerialLink;

/// What became of settings that were written into one LDB.
struct SettingsOutcome
{
    struct Failure
    {
        std::optional<LdbParameter> parameter; ///< nothing for the storing
        Reply::Kind how;
    };

    QString hexId;
    LdbSettings written;
    std::vector<LdbParameter> parameters; ///< those written, in order
    /// What is not in the LDB, or not known to be.
    std::vector<Failure> failures;
    bool isReadBack = false;           ///< the LDB was asked for its record at the end
    std::optional<LdbSettings> record; ///< what the LDB has now, where it was read back

    /// The LDB has accepted everything, or the record shows that it has it.
    bool isComplete() const { return failures.empty(); }
    bool isGood() const;
    /// Not one command went out.
    bool isUntouched() const;
    /// The run ended before all was sent.
    bool isCut() const;
    /// The written fields of which the LDB has another value.
    std::vector<LdbField> differences() const;
    /// What was not written and why; empty for a good outcome.
    QString text() const;
};

/// Writes settings into one LDB: its parameters in order, then the action that stores them, without
/// which the LDB loses them at its next reset. Then it reads the record back where that is wanted
/// or a parameter was met with silence. All commands are handed over together: destroying the
/// writer leaves no LDB half written. GUI thread; receivers may destroy it from any of its signals.
class SettingsWriter : public QObject
{
    Q_OBJECT
public:
    enum class AudioMute
    {
        Written,
        LeftAlone ///< for settings out of a file, which does not carry it
    };
    enum class ReadBack
    {
        Always,
        WhenSilent ///< only to learn what became of parameters that nothing came back to
    };

    /// How long a rebooting LDB is waited for before its record is read the second time.
    static constexpr int kRebootLimitMs = 15000;

    /// `link` outlives the writer.
    SettingsWriter(SerialLink* link, const QString& hexId, const LdbSettings& settings,
                   AudioMute audioMute, ReadBack readBack, QObject* parent = nullptr);

    /// Writes these parameters alone, in their usual order whatever the order here.
    SettingsWriter(SerialLink* link, const QString& hexId, const LdbSettings& settings,
                   const std::vector<LdbParameter>& parameters, ReadBack readBack,
                   QObject* parent = nullptr);

    /// Hands the commands over; once.
    void start();

    int commandCount() const { return static_cast<int>(m_outcome.parameters.size()) + 1; }
    bool isWriting() const { return m_left > 0; }
    /// Complete once `finished()` is told.
    const SettingsOutcome& outcome() const { return m_outcome; }

signals:
    /// One more command has its reply.
    void replied();
    /// The last one has; the outcome is known but for the record.
    void written();
    /// The end, once.
    void finished();

private:
    void processReply(std::optional<LdbParameter> parameter, const Reply& reply);
    void processWritten();
    void readRecord();
    void endRebootWait();
    void readAgain();
    void processRecord(const Reply& reply);

    SerialLink* m_link;
    const ReadBack m_readBack;
    SettingsOutcome m_outcome;
    QTimer m_rebootTimer;
    int m_left = 0;
    bool m_isSecondReading = false;
};

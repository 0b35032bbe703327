#pragma once

#include "importexport/importplan.h"
#include "importexport/ldbtransfer.h"

#include <memory>

class SettingsBatch;
class SettingsReader;
struct LdbChange;
struct SettingsOutcome;

/// Checks a whole settings file against what the LDBs have, waits for a yes to the plan, and writes
/// what differs into each LDB; one that is not as the plan said any more is left alone. The plan
/// outlives a run: what is planned can be written in the next one. Of several things that are true
/// at the end it tells the first of these: an LDB of the file is not connected; a wrong line, a
/// refusal, silence, or nothing to do though no line was missing; a connected LDB has no line.
class SettingsImport : public LdbTransfer
{
    Q_DECLARE_TR_FUNCTIONS(LdbTransfer)
public:
    explicit SettingsImport(SerialLink* link);
    ~SettingsImport() override;

    bool begin(const QString& filePath) override;

    /// Complete once `planned()` is told.
    const ImportPlan& plan() const { return m_plan; }
    /// Plans anew, with the IDs read so. Only while the plan waits for its yes.
    void planWith(IdReading reading);
    /// What the LDBs had; complete like the plan.
    const BusSnapshot& bus() const { return m_bus; }
    /// The yes to the plan, once.
    void write();
    /// The yes to what the user made of it. Gives the writing, which lives to the end; null where
    /// nothing waits for a yes.
    SettingsBatch* write(std::vector<LdbChange> changes);

    QStringList leftLdbs() const override;

protected:
    void proceed() override;

private:
    enum class Phase
    {
        Reading,
        Planned,
        Writing,
        Ended
    };

    void processRead();
    void processWritten(const SettingsOutcome& outcome);
    void processBatchEnd();
    void endWith(Status status);
    Status status() const;
    void failChange(const QString& hexId, const Text& what);

    Phase m_phase = Phase::Reading;
    QByteArray m_content;
    BusSnapshot m_bus;
    ImportPlan m_plan;
    std::unique_ptr<SettingsReader> m_reader;
    std::unique_ptr<SettingsBatch> m_batch;
    bool m_someFailed = false;
};

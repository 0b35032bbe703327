#pragma once

#include "importexport/importplan.h"
#include "importexport/ldbtransfer.h"

#include <memory>

class Reply;
class SettingsReader;
class SettingsWriter;

/// Checks a whole settings file against what the LDBs have, waits for a yes to the plan, and writes
/// what differs into each LDB. Right before that it reads the LDB again, and leaves it alone where
/// it is not as the plan said. Of several things that are true at the end it tells the first of
/// these: an LDB of the file is not connected; a wrong line, a refusal, silence, or nothing to do
/// though no line was missing; a connected LDB has no line.
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
    /// The yes, once.
    void write();

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

    bool readFile(const QString& filePath);
    void processRead();
    void checkNext();
    void processCheck(const ImportPlan::Entry& entry, const Reply& reply);
    void writeNext();
    void processWritten(const ImportPlan::Entry& entry);
    void endWith(Status status);
    Status status() const;
    /// The link has ended before the rest of its commands.
    void failUnsent(const ImportPlan::Entry& entry, int commandsSent);
    void failEntry(const ImportPlan::Entry& entry, const Text& what);
    void failEntry(const ImportPlan::Entry& entry, const char* what);

    Phase m_phase = Phase::Reading;
    QByteArray m_content;
    BusSnapshot m_bus;
    ImportPlan m_plan;
    std::unique_ptr<SettingsReader> m_reader;
    std::vector<ImportPlan::Entry> m_toWrite;
    std::size_t m_nextToCheck = 0;
    std::size_t m_nextToWrite = 0; ///< less than the one above by those checked
    bool m_isChecking = false;
    std::vector<bool> m_isFresh; ///< as the plan said, of those checked
    std::unique_ptr<SettingsWriter> m_writer;
    bool m_someFailed = false;
};

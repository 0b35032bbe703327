#pragma once

#include "importexport/settingswriter.h"

#include <memory>

/// What is to be written into one of several LDBs.
struct LdbChange
{
    QString hexId;
    SettingsChange change;
};

/// Writes settings into many LDBs, one after the other. Each is read just before, and left alone
/// where it is not as its basis says; only what differs is written, and all is read back. GUI
/// thread; receivers may destroy it from any of its signals, which leaves no LDB half written.
class SettingsBatch : public QObject
{
    Q_OBJECT
public:
    /// `link` outlives the batch. Every change has a basis, and is taken for a strict one.
    SettingsBatch(SerialLink* link, std::vector<LdbChange> changes, QObject* parent = nullptr);
    ~SettingsBatch() override;

    /// Begins, from the event loop; once.
    void start();
    /// Ends after the LDB under way; `finished()` comes from the event loop.
    void stop();

    /// The LDBs not begun.
    QStringList left() const;
    /// The run ended, or there was none, before all was written.
    bool isCut() const { return m_isCut; }
    int count() const { return static_cast<int>(m_changes.size()); }

signals:
    void ldbBegun(const QString& hexId);
    void ldbDone(const SettingsOutcome& outcome);
    /// LDBs still to be written, and all of them.
    void progressChanged(int left, int total);
    /// The end, once: all written, stopped, or cut.
    void finished();

private:
    void proceed();
    void processWritten();

    SerialLink* m_link;
    std::vector<LdbChange> m_changes;
    std::size_t m_next = 0;
    std::unique_ptr<SettingsWriter> m_writer; ///< of the LDB under way
    bool m_isStopping = false;
    bool m_isCut = false;
    bool m_hasEnded = false;
};

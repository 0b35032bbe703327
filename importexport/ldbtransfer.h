#pragma once

#include "app/shared/text.h"
#include "importexport/importexportdevicesettings.h"

class SerialLink;

/// One export or import, LDB by LDB. Destroying it ends it between two LDBs, and nothing more is
/// told. GUI thread only; receivers may destroy it from any of its signals.
class LdbTransfer : public QObject
{
    Q_OBJECT
public:
    using Status = ImportExportDeviceSettings::ImportExportStatus;

    /// `link` outlives this object.
    explicit LdbTransfer(SerialLink* link);

    /// Begins. False when that is not possible, which `failures()` explains; then nothing else
    /// comes.
    virtual bool begin(const QString& filePath) = 0;

    /// Begins no further LDB. `stopped()` comes, and not `finished()`, as soon as none is under
    /// way: perhaps before this returns.
    void stop();

    /// What went wrong so far, a sentence each, naming the line or the LDB.
    const std::vector<Text>& failures() const { return m_failures; }
    /// How many LDBs were done completely, of how many.
    int doneCount() const { return m_done.size(); }
    int ldbCount() const { return m_ldbCount; }
    /// The LDBs to which settings were sent.
    const QStringList& touchedLdbs() const { return m_touched; }
    /// The LDBs done completely, and those not begun.
    const QStringList& doneLdbs() const { return m_done; }
    virtual QStringList leftLdbs() const = 0;

signals:
    /// Commands still to be answered, and all of them.
    void progressChanged(int left, int total);
    /// The end, once: every LDB asked, or the link gone.
    void finished(ImportExportDeviceSettings::ImportExportStatus status);
    /// The end, in its place, after `stop()`.
    void stopped();
    /// Nothing has been written yet: the transfer waits for a yes to what it would do.
    void planned();

protected:
    /// Goes on where an LDB could be begun, and tells the end when all are done, or stopped.
    virtual void proceed() = 0;
    /// Tells the end.
    void end(Status status);

    /// Sets out with so many commands.
    void expectReplies(int commands);
    void tellProgress();
    /// Notes what went wrong: a text of this class, with a place for `reason` unless that is empty.
    void fail(const char* text, const QString& reason = QString());
    void failLdb(const QString& hexId, const char* what);

    SerialLink* m_link;
    bool m_linkEnded = false; ///< what begins after it is another run, perhaps on another bus
    int m_repliesLeft = 0;
    bool m_isStopping = false;
    int m_ldbCount = 0;
    QStringList m_done;
    QStringList m_touched;
    std::vector<Text> m_failures;

private:
    int m_commands = 0;
};

#pragma once

#include "recording/recorder.h"
#include "recording/recordingaccess.h"
#include "serial/link/portsource.h"

#include <QObject>

class InstallationControl;
class Notices;
class SerialLink;

/// Records what the link tells, at the place of the installation in force, as the preferences say;
/// and gives access to what is recorded there. GUI thread.
class RecordingControl : public QObject
{
    Q_OBJECT
public:
    struct Surroundings
    {
        SerialLink* link;
        const InstallationControl* installation;
        Notices* notices;
    };

    /// The surroundings outlive this object. It ends when what it was told is on the disk.
    RecordingControl(const Surroundings& around, const PortSource& ports, QObject* parent);
    ~RecordingControl() override;

    Recorder* recorder() { return &m_recorder; }
    RecordingAccess* access() { return &m_access; }

    /// Where the recordings of the installation in force are; before the first start, of the one
    /// last used. Empty when there has never been one.
    QString folder() const { return m_folder; }

    /// Looks back at this file or folder from now on, wherever new things are recorded.
    void open(const QString& path);
    /// Why nothing is recorded, in the language in force; empty while something is.
    QString outageText() const;

    static constexpr qint64 kMegabyte = 1LL << 20; ///< the unit the unit of the size that is set

public slots:
    /// Takes what the user has set.
    void loadPreferences();

private:
    void followLink();
    void followPort();
    void followInstallation();
    /// Where an installation's recordings are, as the preferences say.
    QString folderOf(const QString& installation) const;
    void tell(const RecordingNotice& notice);

    Surroundings m_around;
    Recorder m_recorder;
    RecordingAccess m_access;
    QString m_installation; ///< id
    QString m_folder;
    QString m_opened;          ///< empty: the folder
    RecordingNotice m_outage;  ///< the last one
    bool m_isScanning = false; ///< the list is not whole
    bool m_isOpen = false;     ///< the port
    qint64 m_lostAt = 0;       ///< when the port was lost; 0: it is not, or has come back
};

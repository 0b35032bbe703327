#pragma once

#include <QObject>
#include <QSet>
#include <QString>

class SerialLink;

/// Which LDBs are muted, as far as they have told since the link was started: by their settings,
/// whoever read them. A muted LDB that has rebooted is asked, since a mute that was not stored is
/// gone then; and one that was muted in the run before, as it need not be selected again. GUI
/// thread.
class MuteWatch : public QObject
{
    Q_OBJECT
public:
    /// `link` outlives this object.
    explicit MuteWatch(SerialLink* link, QObject* parent = nullptr);

signals:
    void changed(const QString& hexId, bool isMuted);

private:
    void set(const QString& hexId, bool isMuted);
    void ask(const QString& hexId);

    SerialLink* m_link;
    QSet<QString> m_muted;
    QSet<QString> m_due; ///< those to be asked when they can answer
};

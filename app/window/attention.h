#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>

class AlarmSound;
class QWidget;

/// What is wrong with each LDB, to tell what is new. A plain value.
class KnownFaults
{
public:
    /// Takes an LDB's record; whether it tells of a fault or a loss that the last one did not.
    bool update(const QString& hexId, const QList<QStringList>& dataList);

private:
    QHash<QString, unsigned> m_faults; ///< sums of flags
};

/// Calls a user who is elsewhere: a new fault or loss makes the taskbar show the window and, if the
/// user wants to hear warnings, sounds. GUI thread.
class Attention : public QObject
{
    Q_OBJECT
public:
    /// `window` outlives this object and owns it.
    explicit Attention(QWidget* window);

public slots:
    void processData(const QString& hexId, const QList<QStringList>& dataList);

signals:
    /// A new fault or loss, wherever the user is.
    void faultTold(const QString& hexId, const QList<QStringList>& dataList);
    /// The user was called.
    void called();

private:
    bool isUserElsewhere() const;

    QWidget* m_window;
    AlarmSound* m_sound;
    KnownFaults m_faults;
};

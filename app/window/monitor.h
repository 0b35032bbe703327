#pragma once

#include "serial/ldb/buspace.h"
#include "serial/ldb/monitoring.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

class SerialLink;

/// Composes what is monitored, from what the link tells: the one place that decides it. Knows no
/// widgets. GUI thread.
class Monitor : public QObject
{
    Q_OBJECT
public:
    /// `wallTime`: ms since 1970 UTC, the clock of the link's ports. Both outlive this object.
    Monitor(const SerialLink* link, std::function<qint64()> wallTime, QObject* parent = nullptr);

    /// As it is now.
    Monitoring monitoring() const;

signals:
    /// Also once a second, as values get older.
    void changed(const Monitoring& monitoring);

private:
    void begin();
    void processScan(bool isOn);
    void poll();
    void processFailure(const QString& portName);
    void end();
    void pause(Monitoring::State state);
    void processExchange(const Exchange& exchange);
    void processRecord(const QList<QStringList>& dataList);
    qint64 now() const;
    /// Now. Where the clock has been set back, as on the night when summer time ends, all that is
    /// remembered goes with it: else nothing would be live until it has caught up, and silence
    /// would be told of no more.
    qint64 followClock();
    int awaitedLdbs() const;
    void tell();

    const SerialLink* m_link;
    const std::function<qint64()> m_wallTime;
    QTimer m_timer;
    Monitoring::State m_state = Monitoring::State::NotStarted;
    std::optional<qint64> m_since; ///< not monitored since
    qint64 m_from = 0;             ///< the last scan began
    qint64 m_polledSince = 0;      ///< the last scan ended
    std::optional<qint64> m_lastAnswer;
    qint64 m_latest = 0; ///< time seen on the clock
    BusPace m_pace;
    QString m_failedPort;
    bool m_isOpen = false; ///< the port, in this run
    bool m_isScanning = false;
};

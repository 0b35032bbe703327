#include "app/lookback/shownsource.h"

#include <QThread>

#include <iterator>

ShownSource::ShownSource(RecordSource* live, QObject* parent)
    : RecordSource(parent)
    , m_live(live)
{
    followLive();
}

void ShownSource::followLive()
{
    connect(m_live, &RecordSource::roundBegun, this, [this](const QDateTime& wall) {
        m_round = wall;
        m_isRoundOn = true;
        if (isLive()) {
            emit roundBegun(wall);
        }
    });
    connect(m_live, &RecordSource::roundEnded, this, [this] {
        m_hadRound = m_hadRound || m_isRoundOn;
        m_isRoundOn = false;
        if (isLive()) {
            emit roundEnded();
        }
    });
    connect(m_live, &RecordSource::generalInformationUpdated, this,
            [this](const QString& hexId, const QList<QStringList>& rows) {
                keep(hexId, rows, false);
                if (isLive()) {
                    emit generalInformationUpdated(hexId, rows);
                }
            });
    connect(m_live, &RecordSource::extraInformationUpdated, this,
            [this](const QString& hexId, const QList<QStringList>& rows) {
                keep(hexId, rows, true);
                if (isLive()) {
                    emit extraInformationUpdated(hexId, rows);
                }
            });
    connect(m_live, &RecordSource::awaitedChanged, this, [this](const QString& hexId) {
        if (isLive()) {
            emit awaitedChanged(hexId);
        }
    });
    connect(m_live, &RecordSource::ldbListChanged, this, [this](const QStringList& hexIds) {
        if (isLive()) {
            emit ldbListChanged(hexIds);
        }
    });
}

void ShownSource::keep(const QString& hexId, const QList<QStringList>& rows, bool isExtra)
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_latest.insert(hexId, {rows, isExtra});
}

void ShownSource::setWhole(bool isWhole)
{
    if (!isWhole) {
        m_hadRound = false;
        m_isRoundOn = false;
    }
}

void ShownSource::keepKnown()
{
    const QStringList known = m_live->knownLdbs();
    for (auto record = m_latest.begin(); record != m_latest.end();) {
        record = known.contains(record.key()) ? std::next(record) : m_latest.erase(record);
    }
}

void ShownSource::show(RecordSource* past)
{
    Q_ASSERT(QThread::currentThread() == thread());
    if (past == m_past) {
        return;
    }
    if (m_past != nullptr) {
        m_past->disconnect(this);
    }
    m_past = past;
    if (m_past == nullptr) {
        tellPresent();
        return;
    }
    connect(m_past, &RecordSource::replaced, this, &RecordSource::replaced);
    connect(m_past, &RecordSource::roundBegun, this, &RecordSource::roundBegun);
    connect(m_past, &RecordSource::roundEnded, this, &RecordSource::roundEnded);
    connect(m_past, &RecordSource::generalInformationUpdated, this,
            &RecordSource::generalInformationUpdated);
    connect(m_past, &RecordSource::extraInformationUpdated, this,
            &RecordSource::extraInformationUpdated);
    connect(m_past, &RecordSource::awaitedChanged, this, &RecordSource::awaitedChanged);
    connect(m_past, &RecordSource::ldbListChanged, this, &RecordSource::ldbListChanged);
}

/// Tells what still matters, in the order in which the link told it.
void ShownSource::tellPresent()
{
    QStringList hexIds = m_live->knownLdbs();
    for (auto record = m_latest.begin(); record != m_latest.end(); ++record) {
        if (!hexIds.contains(record.key())) {
            hexIds.append(record.key()); // a scan is on: it may be found again
        }
    }
    emit replaced(hexIds);
    if (m_hadRound) {
        emit roundBegun(m_round);
    }
    for (const QString& hexId : qAsConst(hexIds)) {
        const auto record = m_latest.constFind(hexId);
        if (record == m_latest.constEnd()) {
            emit awaitedChanged(hexId);
        } else if (record->isExtra) {
            emit extraInformationUpdated(hexId, record->rows);
        } else {
            emit generalInformationUpdated(hexId, record->rows);
        }
    }
    if (m_hadRound) {
        emit roundEnded();
    }
    if (m_isRoundOn) {
        emit roundBegun(m_round);
    }
}

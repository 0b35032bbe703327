#pragma once

#include "app/shared/text.h"
#include "history/formersettings.h"
#include "importexport/settingsbatch.h"

#include <QObject>
#include <QPointer>

#include <functional>

class SettingsTableModel;

/// Writes what the user has confirmed, and brings the outcome into the table. Keeps the former
/// settings on disk before anything is sent. What a lost link leaves open can be written in the
/// next run. GUI thread.
class TableWriting : public QObject
{
    Q_OBJECT
public:
    /// Begins to write, and gives the writing, which lives until it ends; null where that is not
    /// possible now.
    using Writer = std::function<SettingsBatch*(std::vector<LdbChange>)>;

    /// `wallTime` as everywhere: ms since 1970 UTC. All outlive this object.
    TableWriting(Writer writer, std::function<qint64()> wallTime, SettingsTableModel* model,
                 QObject* parent = nullptr);

    void setFormerSettings(const FormerSettingsStore& store) { m_former = store; }
    const FormerSettingsStore& formerSettings() const { return m_former; }

    bool isOn() const { return m_batch != nullptr; }
    /// Keeps the former settings; gives an empty text, or why that failed.
    QString keepFormer(const std::vector<LdbChange>& changes, FormerSettings::Occasion occasion,
                       const QString& note) const;
    /// Whether it has begun.
    bool write(const std::vector<LdbChange>& changes);
    void stop();

    /// What a lost link has left open, as it was confirmed; without what the user has changed
    /// since.
    std::vector<LdbChange> open() const;

signals:
    void progressChanged(int left, int total);
    /// A writing begins, or has ended.
    void changed();

private:
    void end();

    Writer m_writer;
    std::function<qint64()> m_wallTime;
    SettingsTableModel* m_model;
    FormerSettingsStore m_former;
    QPointer<SettingsBatch> m_batch; ///< the writing that is on
    std::vector<LdbChange> m_confirmed;
    QStringList m_open; ///< of those
};

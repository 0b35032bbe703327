#pragma once

#include "app/settingstable/tablefile.h"
#include "app/shared/text.h"

#include <QDateTime>
#include <QObject>

#include <functional>
#include <vector>

class FileBar;
class SettingsTransfer;

/// The file that is imported into the table: its values are edits, and a bar above the table says
/// so until they are written or discarded. GUI thread.
class TableImport : public QObject
{
    Q_OBJECT
public:
    /// What it works with lives longer, except the bar, which may go first.
    /// `isPending`: whether fault finding has something to put back in an LDB.
    TableImport(SettingsTransfer* transfer, SettingsTableModel* model, FileBar* bar,
                std::function<bool(const QString& hexId)> isPending, QObject* parent);

    bool isOn() const { return m_isOn; }
    /// Of the file, without its folder.
    QString name() const { return m_file.name(); }

    void take(const TableFile& file);
    /// Takes the file whose import the transfer has planned, with what that has read from the LDBs.
    void takePlan(const QDateTime& now);
    /// Its values have been written.
    void end();
    /// Its values are no longer edits.
    void refuse();

    /// Shows the bar, in the language in force, or hides it.
    void show();
    /// What a write of the table leaves out, a sentence each.
    std::vector<Text> leftOut() const;

signals:
    void detailsWanted();

private:
    void readOtherwise();
    void discard();

    SettingsTransfer* m_transfer;
    SettingsTableModel* m_model;
    FileBar* m_bar;
    std::function<bool(const QString&)> m_isPending;
    TableFile m_file; ///< where one is open
    bool m_isOn = false;
};

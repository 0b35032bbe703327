#pragma once

#include "views/lamps/lampcauses.h"

#include <QObject>

class QListWidget;
class QListWidgetItem;

/// The lists of the four tool box pages. Not owned; they must outlive what is given them.
struct LampPageLists
{
    QListWidget* serviceMode = nullptr;   ///< lamp A
    QListWidget* earthFault = nullptr;    ///< lamp B
    QListWidget* openShortLeak = nullptr; ///< lamp C
    QListWidget* settings = nullptr;      ///< lamp D
};

/// Fills the four pages that name the LDBs behind each lamp: one entry an LDB with id, name and
/// condition, in the order of the addresses. Follows every record at once, where the lamps wait for
/// the end of a round. GUI thread only.
class LampPages : public QObject
{
    Q_OBJECT
public:
    explicit LampPages(const LampPageLists& lists, QObject* parent = nullptr);

public slots:
    /// Takes one LDB's general-information rows. Entries change where they stand: the entry that
    /// the user is on stays current and selected as long as its LDB raises the lamp.
    void processData(const QString& hexId, const QList<QStringList>& dataList);
    /// Empties all pages, as when polling stops or the LDBs are scanned anew.
    void reset();
    /// The entries themselves follow with the LDBs' next records.
    void retranslate();

signals:
    /// An entry was clicked, or Enter pressed on it. A double click may tell it twice.
    void ldbActivated(const QString& hexId);

private:
    QListWidget* list(Lamp lamp) const { return m_lists[static_cast<std::size_t>(lamp)]; }
    void fill(Lamp lamp);
    void activate(const QListWidgetItem* item);

    LampCauses m_causes;
    std::array<QListWidget*, kLamps.size()> m_lists{};
};

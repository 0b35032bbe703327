#pragma once

#include "views/header/proxymodelhierachicalheader.h"

#include <QStringList>

class QStandardItem;

/// Which rows of the overview are shown, and which come first, beside what its header sorts by. The
/// ticked row is always shown. GUI thread.
class OverviewFilter : public ProxyModelHierachicalHeader
{
    Q_OBJECT
public:
    /// What the user has chosen.
    struct Choice
    {
        /// Words, all of which a row must have somewhere in its id, name, mode or conditions, in
        /// any case. None: all rows are shown.
        QString text;
        bool onlyFaults = false;  ///< only rows of faulty LDBs (`isFaulty`) are shown
        bool faultsFirst = false; ///< those come first, in whichever order the header sorts
    };
    struct Counts
    {
        int shown = 0;
        int all = 0;          ///< known LDBs; some may not have a row yet
        int hidden = 0;       ///< rows that are not shown
        int hiddenFaults = 0; ///< those of them that are of faulty LDBs
    };

    using ProxyModelHierachicalHeader::ProxyModelHierachicalHeader;

    void setSourceModel(QAbstractItemModel* model) override;

    const Choice& choice() const { return m_choice; }
    void setChoice(const Choice& choice);

    /// How many LDBs are known.
    void setKnown(int ldbs);

    Counts counts() const;
    /// The ticked row as shown; invalid where none is ticked.
    QModelIndex tickedRow() const;

    /// Notes in a row's tick cell what its record tells the filter.
    static void note(QStandardItem& tickCell, const QList<QStringList>& record);

signals:
    /// Another choice is in force.
    void choiceChanged();
    /// `counts()` may have changed.
    void countsChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    void processChange(const QModelIndex& first, const QVector<int>& roles);
    bool hasWords(int sourceRow) const;

    Choice m_choice;
    QStringList m_words; ///< of the text chosen
    int m_known = 0;
};

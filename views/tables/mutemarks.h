#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <QObject>
#include <QSet>
#include <QString>

/// Marks muted LDBs in the overview and in the details, beside the name: a picture, and words for
/// whoever points at it or has it read out. It puts them into the views' models, so that the tables
/// need not know of it. GUI thread.
class MuteMarks : public QObject
{
    Q_OBJECT
public:
    /// The models that the views show; they outlive this object.
    MuteMarks(QAbstractItemModel* overview, QAbstractItemModel* details, QObject* parent = nullptr);

    void setMuted(const QString& hexId, bool isMuted);
    /// The LDB whose details are shown.
    void setSelectedLdb(const QString& hexId);

    /// Which LDBs are muted is known of the present alone: nothing is marked while another moment
    /// is shown.
    void setHidden(bool isHidden);

    /// In the language in force.
    void retranslate();

private:
    void processChange(const QModelIndex& first, const QModelIndex& last);
    void markRow(int row);
    void markDetails();
    void mark(QAbstractItemModel* model, const QModelIndex& cell, bool isMuted);

    QAbstractItemModel* m_overview;
    QAbstractItemModel* m_details;
    bool isMarked(const QString& hexId) const { return !m_isHidden && m_muted.contains(hexId); }

    QSet<QString> m_muted;
    bool m_isHidden = false;
    QString m_selected;
    QIcon m_picture;
};

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

    /// In the language in force.
    void retranslate();

private:
    void processChange(const QModelIndex& first, const QModelIndex& last);
    void markRow(int row);
    void markDetails();
    void mark(QAbstractItemModel* model, const QModelIndex& cell, bool isMuted);

    QAbstractItemModel* m_overview;
    QAbstractItemModel* m_details;
    QSet<QString> m_muted;
    QString m_selected;
    QIcon m_picture;
};

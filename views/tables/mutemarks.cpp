#include "views/tables/mutemarks.h"

#include "serial/ldb/generalinformation.h"
#include "views/tables/devicedetailtable.h"
#include "views/tables/overviewcolumns.h"

#include <QAbstractProxyModel>
#include <QPainter>
#include <QPixmap>

namespace {

constexpr int kSize = 16;

/// A loudspeaker that is struck out.
QIcon draw()
{
    constexpr qreal kScale = 4; // sharp on any screen
    QPixmap pixmap(QSize(kSize, kSize) * kScale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(kScale, kScale);
    painter.setPen(QPen(Qt::white, 1.0));
    painter.setBrush(Qt::black);
    painter.drawPolygon(QPolygonF({{2, 6}, {5, 6}, {9, 2}, {9, 14}, {5, 10}, {2, 10}}));
    painter.setPen(QPen(QColor(0xb3261e), 2.0, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(2, 14), QPointF(14, 2));
    return QIcon(pixmap);
}

/// The rows themselves, of which the view may hide some.
QAbstractItemModel* sourceOf(QAbstractItemModel* model)
{
    const auto* proxy = qobject_cast<const QAbstractProxyModel*>(model);
    return proxy == nullptr ? model : proxy->sourceModel();
}

} // namespace

MuteMarks::MuteMarks(QAbstractItemModel* overview, QAbstractItemModel* details, QObject* parent)
    : QObject(parent)
    , m_overview(sourceOf(overview))
    , m_details(details)
    , m_picture(draw())
{
    connect(m_overview, &QAbstractItemModel::dataChanged, this, &MuteMarks::processChange);
}

void MuteMarks::setMuted(const QString& hexId, bool isMuted)
{
    if (isMuted) {
        m_muted.insert(hexId);
    } else {
        m_muted.remove(hexId);
    }
    for (int row = 0; row < m_overview->rowCount(); ++row) {
        if (m_overview->index(row, overview::IdColumn).data().toString() == hexId) {
            markRow(row);
        }
    }
    markDetails();
}

void MuteMarks::setSelectedLdb(const QString& hexId)
{
    m_selected = hexId;
    markDetails();
}

void MuteMarks::setHidden(bool isHidden)
{
    m_isHidden = isHidden;
    retranslate();
}

void MuteMarks::retranslate()
{
    for (int row = 0; row < m_overview->rowCount(); ++row) {
        markRow(row);
    }
    markDetails();
}

/// A row that is new after a scan lacks its mark.
void MuteMarks::processChange(const QModelIndex& first, const QModelIndex& last)
{
    const bool isName =
        first.column() <= overview::NameColumn && last.column() >= overview::NameColumn;
    for (int row = first.row(); isName && !m_muted.isEmpty() && row <= last.row(); ++row) {
        if (m_overview->index(row, overview::NameColumn).data(Qt::DecorationRole).isNull()) {
            markRow(row);
        }
    }
}

void MuteMarks::markRow(int row)
{
    const QString hexId = m_overview->index(row, overview::IdColumn).data().toString();
    mark(m_overview, m_overview->index(row, overview::NameColumn), isMarked(hexId));
}

void MuteMarks::markDetails()
{
    mark(m_details, m_details->index(generalinformation::NameRow, DeviceDetailTable::ValueColumn),
         isMarked(m_selected));
}

void MuteMarks::mark(QAbstractItemModel* model, const QModelIndex& cell, bool isMuted)
{
    if (!isMuted && cell.data(Qt::DecorationRole).isNull()) {
        return; // as most are
    }
    const QString words = isMuted ? tr("The audio of this LDB is muted.") : QString();
    model->setData(cell, words, Qt::ToolTipRole);
    model->setData(cell, words, Qt::AccessibleDescriptionRole);
    model->setData(cell, isMuted ? QVariant(m_picture) : QVariant(), Qt::DecorationRole);
}

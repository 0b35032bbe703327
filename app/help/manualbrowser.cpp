#include "app/help/manualbrowser.h"

#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <QTextTable>
#include <QtMath>

namespace {

constexpr int kDocumentMargin = 14;
/// What a picture inside a numbered step has less than the page.
constexpr int kListIndent = 50;
constexpr int kMinPictureWidth = 200;
/// A document takes a picture's pixels for those of such a screen.
constexpr qreal kPictureDpi = 96;
constexpr qreal kCellPadding = 5;
constexpr qreal kGapBeforeHeading = 16;
constexpr qreal kGapAfterHeading = 6;
constexpr qreal kGapAfterTable = 10;

} // namespace

ManualBrowser::ManualBrowser(QWidget* parent)
    : QTextBrowser(parent)
{
    setOpenExternalLinks(true);
    document()->setDocumentMargin(kDocumentMargin);
    // The bar would come and go with the pictures' size, which follows the width it leaves.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    connect(this, &QTextBrowser::sourceChanged, this, &ManualBrowser::formatPage);
}

int ManualBrowser::pictureWidth() const
{
    return qMax(kMinPictureWidth, viewport()->width() - 2 * kDocumentMargin - kListIndent);
}

QVariant ManualBrowser::loadResource(int type, const QUrl& name)
{
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource || resource.type() != QVariant::ByteArray) {
        return resource;
    }
    m_pictureWidth = pictureWidth();
    const int widest = qFloor(m_pictureWidth * qMin(1.0, kPictureDpi / logicalDpiX()));
    return narrowed(QImage::fromData(resource.toByteArray()), widest, devicePixelRatioF());
}

QImage ManualBrowser::narrowed(const QImage& picture, int widest, qreal ratio)
{
    if (picture.width() <= widest) {
        return picture;
    }
    // No more pixels than the screen has, and no made-up ones.
    const int pixels = qMin(picture.width(), qFloor(widest * ratio));
    QImage result = picture.scaledToWidth(pixels, Qt::SmoothTransformation);
    result.setDevicePixelRatio(static_cast<qreal>(pixels) / widest);
    return result;
}

void ManualBrowser::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    if (m_pictureWidth == 0 || m_pictureWidth == pictureWidth()) {
        return;
    }
    const int position = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(position);
}

/// Markdown says nothing of the looks of tables, nor of the room between headings and text.
void ManualBrowser::formatPage()
{
    const QList<QTextFrame*> frames = document()->rootFrame()->childFrames();
    for (QTextFrame* frame : frames) {
        if (auto* table = qobject_cast<QTextTable*>(frame)) {
            QTextTableFormat format = table->format();
            format.setCellPadding(kCellPadding);
            format.setCellSpacing(0);
            format.setBorder(1);
            format.setBorderCollapse(true);
            format.setBorderBrush(palette().mid());
            format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            format.setBottomMargin(kGapAfterTable);
            table->setFormat(format);
        }
    }
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 0) {
            QTextBlockFormat format = block.blockFormat();
            format.setTopMargin(kGapBeforeHeading);
            format.setBottomMargin(kGapAfterHeading);
            QTextCursor(block).setBlockFormat(format);
        }
    }
}

#include "importexport/report/reportpages.h"

#include "importexport/report/documentbuilder.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QCoreApplication>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(VisitReport)
};

// In 0.1 mm.
constexpr double kSide = 150;
constexpr double kTop = 220;
constexpr double kBottom = 200;
constexpr double kHeadLine = 100;
constexpr double kMarginText = 40;
constexpr int kMarginTextSize = 26;
constexpr double kPerInch = 254;
constexpr int kPdfResolution = 600;

QPageSize pageSize(ReportPages::Paper paper)
{
    return QPageSize(paper == ReportPages::Paper::A4 ? QPageSize::A4 : QPageSize::Letter);
}

} // namespace

ReportPages::ReportPages(ReportContents contents, Paper paper)
    : m_contents(std::move(contents))
    , m_paper(paper)
{
    const QSizeF paperSize = this->paperSize();
    const QSizeF body(paperSize.width() - 2 * kSide, paperSize.height() - kTop - kBottom);
    m_document = DocumentBuilder(m_contents, body).build();
}

ReportPages::~ReportPages() = default;

int ReportPages::count() const
{
    return m_document->pageCount();
}

QSizeF ReportPages::paperSize() const
{
    constexpr double kPerMillimetre = 10;
    return pageSize(m_paper).size(QPageSize::Millimeter) * kPerMillimetre;
}

void ReportPages::paint(QPainter& painter, int page) const
{
    paintMargins(painter, page);
    const QSizeF body = m_document->pageSize();
    const QRectF shown(0, page * body.height(), body.width(), body.height());
    painter.save();
    painter.translate(kSide, kTop - shown.top());
    painter.setClipRect(shown);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = shown;
    context.palette.setColor(QPalette::Text, Qt::black);
    m_document->documentLayout()->draw(&painter, context);
    painter.restore();
}

void ReportPages::paintMargins(QPainter& painter, int page) const
{
    const QSizeF paper = paperSize();
    painter.save();
    QFont font;
    font.setPixelSize(kMarginTextSize);
    painter.setFont(font);
    painter.setPen(QPen(Qt::black, 2));
    const double width = paper.width() - 2 * kSide;
    const QRectF head(kSide, kHeadLine, width, kMarginText);
    const double titleWidth =
        painter.fontMetrics().horizontalAdvance(m_contents.title) + kMarginText;
    painter.drawText(head, Qt::AlignRight | Qt::AlignVCenter, m_contents.title);
    painter.drawText(head, Qt::AlignLeft | Qt::AlignVCenter,
                     painter.fontMetrics().elidedText(m_contents.subject, Qt::ElideRight,
                                                      static_cast<int>(width - titleWidth)));
    painter.drawLine(QPointF(kSide, head.bottom() + 8), QPointF(kSide + width, head.bottom() + 8));
    painter.drawText(QRectF(kSide, paper.height() - kHeadLine - kMarginText, width, kMarginText),
                     Qt::AlignRight | Qt::AlignVCenter,
                     Texts::tr("Page %1 of %2").arg(page + 1).arg(count()));
    painter.restore();
}

QImage ReportPages::image(int page, int width) const
{
    const QSizeF paper = paperSize();
    const double scale = width / paper.width();
    QImage image(width, qRound(paper.height() * scale), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    painter.scale(scale, scale);
    paint(painter, page);
    return image;
}

bool ReportPages::print(QPagedPaintDevice& device) const
{
    QPainter painter;
    if (!painter.begin(&device)) {
        return false;
    }
    const double scale = device.logicalDpiX() / kPerInch;
    painter.scale(scale, scale);
    for (int page = 0; page < count(); ++page) {
        if (page > 0 && !device.newPage()) {
            return false;
        }
        paint(painter, page);
    }
    return painter.end();
}

QByteArray ReportPages::pdf() const
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setPageSize(pageSize(m_paper));
        writer.setPageMargins({0, 0, 0, 0});
        writer.setResolution(kPdfResolution);
        writer.setTitle(m_contents.subject.isEmpty()
                            ? m_contents.title
                            : QStringLiteral("%1: %2").arg(m_contents.title, m_contents.subject));
        if (!print(writer)) {
            return {};
        }
    }
    return bytes;
}

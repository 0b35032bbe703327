#include "app/report/reportpreview.h"

#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>

namespace {

constexpr int kGap = 12; // around each page
constexpr int kLeastWidth = 200;
constexpr int kMostPages = 12; // kept as pictures

} // namespace

ReportPreview::ReportPreview(QWidget* parent)
    : QAbstractScrollArea(parent)
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
}

void ReportPreview::setPages(int count, QSizeF paper)
{
    m_count = count;
    m_paper = paper;
    m_images.clear();
    m_asked.clear();
    layOut();
}

void ReportPreview::setText(const QString& text)
{
    m_text = text;
    viewport()->update();
}

void ReportPreview::showPage(int page, const QImage& image)
{
    m_asked.remove(page);
    if (m_images.size() >= kMostPages) {
        m_images.clear(); // those in sight are asked for again
    }
    m_images.insert(page, image);
    viewport()->update();
}

int ReportPreview::pageWidth() const
{
    return qMax(kLeastWidth, viewport()->width() - 2 * kGap);
}

int ReportPreview::pageHeight() const
{
    return m_paper.width() > 0 ? qRound(pageWidth() * m_paper.height() / m_paper.width()) : 0;
}

QRect ReportPreview::pageRect(int page) const
{
    const int top = kGap + page * (pageHeight() + kGap) - verticalScrollBar()->value();
    return {kGap, top, pageWidth(), pageHeight()};
}

void ReportPreview::layOut()
{
    const int height = kGap + m_count * (pageHeight() + kGap);
    verticalScrollBar()->setRange(0, qMax(0, height - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(fontMetrics().lineSpacing() * 3);
    viewport()->update();
}

void ReportPreview::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        m_images.clear();
        m_asked.clear();
    }
    layOut();
}

void ReportPreview::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), palette().color(QPalette::Mid));
    if (m_count == 0) {
        painter.drawText(viewport()->rect().adjusted(kGap, kGap, -kGap, -kGap),
                         Qt::AlignCenter | Qt::TextWordWrap, m_text);
        return;
    }
    for (int page = 0; page < m_count; ++page) {
        const QRect rect = pageRect(page);
        if (!rect.intersects(viewport()->rect())) {
            continue;
        }
        painter.fillRect(rect, Qt::white);
        const auto image = m_images.constFind(page);
        if (image != m_images.constEnd()) {
            painter.drawImage(rect, *image);
        } else if (!m_asked.contains(page)) {
            m_asked.insert(page);
            emit pageWanted(page, qRound(rect.width() * devicePixelRatioF()));
        }
        painter.setPen(palette().color(QPalette::Dark));
        painter.drawRect(rect.adjusted(0, 0, -1, -1));
    }
}

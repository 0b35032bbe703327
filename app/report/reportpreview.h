#pragma once

#include <QAbstractScrollArea>
#include <QHash>
#include <QImage>
#include <QSet>
#include <QSizeF>

/// Shows the pages of a document below one another, as wide as it is itself. It has no document: it
/// asks for the pages that are in sight. GUI thread.
class ReportPreview : public QAbstractScrollArea
{
    Q_OBJECT
public:
    explicit ReportPreview(QWidget* parent = nullptr);

    /// Another document, with pages of this shape; it stays scrolled where it is. Without pages it
    /// shows `text`.
    void setPages(int count, QSizeF paper);
    void setText(const QString& text);
    void showPage(int page, const QImage& image);

signals:
    /// `width` in pixels of the screen.
    void pageWanted(int page, int width);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int pageWidth() const;
    int pageHeight() const;
    QRect pageRect(int page) const;
    void layOut();

    int m_count = 0;
    QSizeF m_paper;
    QString m_text;
    QHash<int, QImage> m_images;
    QSet<int> m_asked;
};

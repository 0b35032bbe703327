#pragma once

#include <QImage>
#include <QTextBrowser>

/// Shows the manual's Markdown pages: pictures never wider than the view, tables ruled, room around
/// headings.
class ManualBrowser : public QTextBrowser
{
    Q_OBJECT
public:
    explicit ManualBrowser(QWidget* parent = nullptr);

    /// Pictures come scaled down to the width that is there for them.
    QVariant loadResource(int type, const QUrl& name) override;
    /// The picture, shown no wider than `widest` logical pixels on a screen that has `ratio` pixels
    /// for one of those.
    static QImage narrowed(const QImage& picture, int widest, qreal ratio);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void formatPage();
    /// Logical pixels between the margins.
    int pictureWidth() const;

    int m_pictureWidth = 0; ///< for which the page shown was laid out
};

#pragma once

#include "importexport/report/reportcontents.h"

#include <QByteArray>
#include <QImage>
#include <QSizeF>
#include <QTextDocument>

#include <memory>

class QPagedPaintDevice;
class QPainter;

/// The document on pages: no row of a table is cut, tables repeat their heads, and every page has
/// its number. Lengths are in 0.1 mm of paper. Used in the thread that made it, which may be any.
class ReportPages
{
public:
    enum class Paper
    {
        A4,
        Letter
    };
    ReportPages(ReportContents contents, Paper paper);
    ~ReportPages();
    ReportPages(const ReportPages&) = delete;
    ReportPages& operator=(const ReportPages&) = delete;

    int count() const;
    QSizeF paperSize() const;
    /// Draws a page, counted from 0; the painter's origin is the paper's corner.
    void paint(QPainter& painter, int page) const;
    /// A page, `width` pixels wide.
    QImage image(int page, int width) const;
    /// Prints all pages; the device must have the same paper. False when it did not take them.
    bool print(QPagedPaintDevice& device) const;
    QByteArray pdf() const;

    /// Its pages are the bodies of the report's pages.
    const QTextDocument& document() const { return *m_document; }

private:
    void paintMargins(QPainter& painter, int page) const;

    ReportContents m_contents;
    Paper m_paper;
    std::unique_ptr<QTextDocument> m_document;
};

#pragma once

#include "importexport/report/reportcontents.h"

#include <QTextCursor>
#include <QTextDocument>

#include <memory>
#include <set>
#include <utility>
#include <vector>

class QTextTable;

/// Lays a report out: first without pages, to learn how high everything is, then with breaks where
/// a page is full. Lengths are in 0.1 mm.
class DocumentBuilder
{
public:
    /// `body`: the part of each page to be filled.
    DocumentBuilder(const ReportContents& contents, QSizeF body);

    std::unique_ptr<QTextDocument> build();

private:
    /// A part, or one row of a table.
    using Place = std::pair<std::size_t, int>;
    using Breaks = std::set<Place>;
    /// Something that must not be parted, in the document without pages.
    struct Unit
    {
        Place place;
        double top = 0;
        double bottom = 0; ///< the lower edge of what must be on the same page
        double head = 0;   ///< height of the head that is repeated above it
        bool isHeading = false;
    };

    std::unique_ptr<QTextDocument> layOut(const Breaks& breaks, bool hasPages);
    std::vector<Unit> measure(const QTextDocument& document) const;
    Breaks breaksFor(std::vector<Unit> units) const;

    void put(const reportpart::Heading& heading);
    void put(const reportpart::Paragraph& paragraph);
    void put(const reportpart::Table& table);
    void put(const reportpart::Picture& picture);
    void put(const reportpart::Signatures& signatures);
    void fit(const reportpart::Table& table);
    void putRows(const reportpart::Table& table, std::size_t from, std::size_t to);
    void beginBlock(double above, double below);
    bool isBreak(int row) const { return m_breaks.count({m_part, row}) > 0; }

    const ReportContents& m_contents;
    QSizeF m_body;
    // Of the layout under way:
    Breaks m_breaks;
    QTextDocument* m_document = nullptr;
    QTextCursor m_cursor;
    std::size_t m_part = 0;
    std::vector<double> m_widths; ///< of the table's columns, per cent
    int m_headSize = 0;           ///< of the table's titles
    struct Placed
    {
        Place place;
        int position = 0; ///< in the document
        QTextTable* table = nullptr;
        int row = -1; ///< in that table
        double margin = 0;
        bool isHeading = false;
    };
    std::vector<Placed> m_placed;
};

#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

/// A document's contents, before it has pages: what its writers share. Plain values.
namespace reportpart {

struct Heading
{
    QString text;
    int level = 1; ///< 0: the document's title
};
struct Paragraph
{
    QString text;
};
struct Cell
{
    enum class Tone
    {
        Plain,
        Bad, ///< a fault that is there, or what went wrong
        Warned
    };
    // A text alone is a plain cell.
    // NOLINTNEXTLINE(google-explicit-constructor)
    Cell(QString shown = {}, Tone itsTone = Tone::Plain)
        : text(std::move(shown))
        , tone(itsTone)
    {
    }
    QString text;
    Tone tone;
};
struct Column
{
    QString title;
    int width = 1; ///< share of the page's width, against the other columns
};
struct Table
{
    std::vector<Column> columns; ///< without any title: a table without a head
    std::vector<std::vector<Cell>> rows;
    bool hasHead() const;
};
struct Picture
{
    QImage image; ///< as wide as the page
    QString caption;
};
/// Lines to be written on by hand, side by side.
struct Signatures
{
    QStringList captions;
};

} // namespace reportpart

using ReportPart = std::variant<reportpart::Heading, reportpart::Paragraph, reportpart::Table,
                                reportpart::Picture, reportpart::Signatures>;

struct ReportContents
{
    QString title;
    QString subject; ///< stands at the head of each page
    std::vector<ReportPart> parts;
};

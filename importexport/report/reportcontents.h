#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

/// The contents of a document before it has pages. Plain values.
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
    int width = 1;            ///< share of the page's width, relative to the other columns
    bool isInOneLine = false; ///< where the page has room for it
};
struct Table
{
    std::vector<Column> columns; ///< if none has a title, the table has no head
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
    QString language; ///< its code: "fr"
    QString subject;  ///< stands at the head of each page
    std::vector<ReportPart> parts;
};

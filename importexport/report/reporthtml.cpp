#include "importexport/report/reporthtml.h"

#include <QBuffer>

namespace {

using namespace reportpart;

const QString kStyle = QStringLiteral(
    "body{font-family:sans-serif;max-width:60em;margin:2em auto;padding:0 1em;color:#000;"
    "background:#fff}"
    "table{border-collapse:collapse;width:100%;margin:.5em 0 1em}"
    "th,td{border:1px solid #bbb;padding:.2em .4em;text-align:left;vertical-align:top;"
    "white-space:pre-line;overflow-wrap:anywhere}"
    "th{background:#eee}.bad{font-weight:bold;color:#b3261e}.warned{color:#a04000}"
    "img{max-width:100%}.signatures{display:flex;gap:2em;margin-top:4em}"
    ".signatures div{flex:1;border-top:1px solid #000;padding-top:.3em}"
    "@media print{thead{display:table-header-group}tr{page-break-inside:avoid}}");

QString element(const QString& name, const QString& text)
{
    return QStringLiteral("<%1>%2</%1>\n").arg(name, text.toHtmlEscaped());
}

QString htmlOfPart(const Heading& heading)
{
    return element(QStringLiteral("h%1").arg(heading.level + 1), heading.text);
}

QString htmlOfPart(const Paragraph& paragraph)
{
    return element(QStringLiteral("p"), paragraph.text);
}

QString htmlOfCell(const Cell& cell)
{
    switch (cell.tone) {
    case Cell::Tone::Bad:
        return QStringLiteral("<td class=\"bad\">%1</td>").arg(cell.text.toHtmlEscaped());
    case Cell::Tone::Warned:
        return QStringLiteral("<td class=\"warned\">%1</td>").arg(cell.text.toHtmlEscaped());
    case Cell::Tone::Plain:
        break;
    }
    return QStringLiteral("<td>%1</td>").arg(cell.text.toHtmlEscaped());
}

QString htmlOfPart(const Table& table)
{
    QString html = QStringLiteral("<table>\n");
    if (table.hasHead()) {
        html += QStringLiteral("<thead><tr>");
        for (const Column& column : table.columns) {
            html += QStringLiteral("<th scope=\"col\">%1</th>").arg(column.title.toHtmlEscaped());
        }
        html += QStringLiteral("</tr></thead>\n");
    }
    html += QStringLiteral("<tbody>\n");
    for (const auto& row : table.rows) {
        html += QStringLiteral("<tr>");
        for (const Cell& cell : row) {
            html += htmlOfCell(cell);
        }
        html += QStringLiteral("</tr>\n");
    }
    return html + QStringLiteral("</tbody></table>\n");
}

QString htmlOfPart(const Picture& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.image.save(&buffer, "PNG");
    return QStringLiteral("<p><img src=\"data:image/png;base64,") +
           QString::fromLatin1(bytes.toBase64()) +
           QStringLiteral("\" alt=\"%1\"></p>\n").arg(picture.caption.toHtmlEscaped()) +
           element(QStringLiteral("p"), picture.caption);
}

QString htmlOfPart(const Signatures& signatures)
{
    QString html = QStringLiteral("<div class=\"signatures\">");
    for (const QString& caption : signatures.captions) {
        html += QStringLiteral("<div>%1</div>").arg(caption.toHtmlEscaped());
    }
    return html + QStringLiteral("</div>\n");
}

} // namespace

QByteArray htmlOf(const ReportContents& contents, const QString& language)
{
    QString html = QStringLiteral("<!DOCTYPE html>\n<html lang=\"") + language +
                   QStringLiteral("\">\n<head><meta charset=\"utf-8\">\n") +
                   element(QStringLiteral("title"), contents.title) + QStringLiteral("<style>") +
                   kStyle + QStringLiteral("</style></head>\n<body>\n");
    for (const ReportPart& part : contents.parts) {
        html += std::visit([](const auto& of) { return htmlOfPart(of); }, part);
    }
    return (html + QStringLiteral("</body></html>\n")).toUtf8();
}

#include "tracking/plot/plotexport.h"

#include "app/shared/wholefile.h"
#include "tracking/plot/plot.h"
#include "tracking/plot/plotreading.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <qwt_plot_renderer.h>

#include <cmath>

namespace {

constexpr int kPixelRatio = 2; // so that a picture can be enlarged in a report
constexpr double kMmPerInch = 25.4;
constexpr int kSignificantDigits = 6;
constexpr qint64 kMsPerSecond = 1000;
constexpr qint64 kMsPerHour = 3600000;

/// Local times as text. Asks for the offset to UTC once an hour of the values: for each of a day's
/// records that would take longer than all the rest.
class LocalTimes
{
public:
    /// "2026-11-23 14:03:20.123;+01:00"
    QByteArray text(double time)
    {
        const qint64 moment = std::llround(time);
        if (moment / kMsPerHour != m_hour) {
            m_hour = moment / kMsPerHour;
            m_offset = QDateTime::fromMSecsSinceEpoch(moment).offsetFromUtc();
            // The same moment, told as a time of a place that has always had this offset.
            m_offsetText = QDateTime::fromMSecsSinceEpoch(moment, Qt::OffsetFromUTC, m_offset)
                               .toString(QStringLiteral("t"))
                               .mid(QStringLiteral("UTC").size())
                               .toUtf8();
            if (m_offsetText.isEmpty()) {
                m_offsetText = QByteArrayLiteral("+00:00");
            }
        }
        const QDateTime shown =
            QDateTime::fromMSecsSinceEpoch(moment + m_offset * kMsPerSecond, Qt::UTC);
        QByteArray text = shown.toString(Qt::ISODateWithMs).toLatin1();
        text.chop(1); // the letter that says UTC
        return text.replace('T', ' ') + ';' + m_offsetText;
    }

private:
    qint64 m_hour = -1;
    int m_offset = 0; // s
    QByteArray m_offsetText;
};

/// Whose values, and of which time.
QString heading(const Plot& plot)
{
    const QwtInterval shown = plot.view().shownTime();
    const bool isOneDay = plotreading::isSameDay(shown.minValue(), shown.maxValue());
    const QString span = QCoreApplication::translate("PlotExport", "%1 to %2")
                             .arg(plotreading::clockText(shown.minValue(), true),
                                  plotreading::clockText(shown.maxValue(), !isOneDay));
    return plot.caption().isEmpty() ? span : plot.caption() + QStringLiteral(", ") + span;
}

/// The chart with a heading for as long as it is drawn into a picture.
class HeadedChart
{
public:
    explicit HeadedChart(const Plot& plot)
        : m_chart(plot.chart())
        , m_former(m_chart->title())
    {
        QwtText title(heading(plot), QwtText::PlainText);
        title.setFont(plot.font());
        m_chart->setTitle(title);
    }
    ~HeadedChart() { m_chart->setTitle(m_former); }
    HeadedChart(const HeadedChart&) = delete;
    HeadedChart& operator=(const HeadedChart&) = delete;

private:
    QwtPlot* m_chart;
    QwtText m_former;
};

QByteArray png(const Plot& plot)
{
    const HeadedChart headed(plot);
    QImage image(plot.chart()->size() * kPixelRatio, QImage::Format_RGB32);
    image.setDevicePixelRatio(kPixelRatio);
    image.fill(plot.palette().color(QPalette::Window));
    QPainter painter(&image);
    QwtPlotRenderer().render(plot.chart(), &painter, plot.chart()->rect());
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "PNG") ? bytes : QByteArray();
}

QByteArray svg(const Plot& plot)
{
    // Only the plotting library knows how to write one, and only into a file.
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("plot.svg")));
    const HeadedChart headed(plot);
    const double mmPerPixel = kMmPerInch / plot.logicalDpiX();
    QwtPlotRenderer().renderDocument(plot.chart(), file.fileName(), QStringLiteral("svg"),
                                     QSizeF(plot.chart()->size()) * mmPerPixel, plot.logicalDpiX());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

QString plotexport::suffix(Kind kind)
{
    switch (kind) {
    case Kind::Png:
        return QStringLiteral("png");
    case Kind::Svg:
        return QStringLiteral("svg");
    case Kind::Values:
        break;
    }
    return QStringLiteral("csv");
}

QString plotexport::fileName(const Plot& plot, Kind kind)
{
    const auto end = std::llround(plot.view().shownTime().maxValue());
    const QString time =
        QDateTime::fromMSecsSinceEpoch(end).toString(QStringLiteral("yyyy-MM-dd hhmm"));
    const QString caption =
        plot.caption().isEmpty() ? QString() : plot.caption() + QLatin1Char(' ');
    return caption + time + QLatin1Char('.') + suffix(kind);
}

QByteArray plotexport::values(const Plot& plot)
{
    const PlotHistory& history = plot.history();
    const std::vector<PlotCurveInfo> curves = plot.curves();
    QByteArray text = "Time;UTC offset";
    for (const PlotCurveInfo& curve : curves) {
        text += ';' + curve.name.toUtf8() + " (" + curve.unit.toUtf8() + ')';
    }
    text += '\n';
    const QwtInterval shown = plot.view().shownTime();
    const int end = history.firstAfter(shown.maxValue());
    LocalTimes times;
    for (int i = history.firstNotBefore(shown.minValue()); i < end; ++i) {
        text += times.text(history.times()[i]);
        for (const PlotCurveInfo& curve : curves) {
            const double value = history.values(curve.number)[i];
            text += ';';
            if (PlotHistory::isDrawable(value)) {
                text += QByteArray::number(value, 'g', kSignificantDigits);
            }
        }
        text += '\n';
    }
    return text;
}

QByteArray plotexport::content(const Plot& plot, Kind kind)
{
    switch (kind) {
    case Kind::Png:
        return png(plot);
    case Kind::Svg:
        return svg(plot);
    case Kind::Values:
        break;
    }
    return values(plot);
}

QString plotexport::write(const Plot& plot, Kind kind, const QString& path)
{
    const QByteArray bytes = content(plot, kind);
    if (bytes.isEmpty()) {
        return QCoreApplication::translate("PlotExport", "The picture cannot be made.");
    }
    return WholeFile::write(path, bytes);
}

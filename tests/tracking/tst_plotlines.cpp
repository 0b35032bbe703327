#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"
#include "tracking/plot/polylinebuilder.h"

#include <QtWidgets>

#include <cmath>
#include <random>

namespace {

/// Builds from text: numbers are the y of points one step of x apart, "-" is a missing value.
PolylineBuilder built(const QString& text, double step)
{
    PolylineBuilder builder;
    double x = 0.5;
    for (const QString& word : text.split(' ')) {
        if (word == "-") {
            builder.breakRun();
        } else {
            builder.add({x, word.toDouble()});
        }
        x += step;
    }
    builder.finish();
    return builder;
}

QString textOf(const PolylineBuilder& builder)
{
    QStringList lines;
    int start = 0;
    for (const int end : builder.lineEnds()) {
        QStringList line;
        for (; start < end; ++start) {
            line << QString::number(builder.points().at(start).y());
        }
        lines << line.join(' ');
    }
    return lines.join(" | ");
}

} // namespace

class TestPlotLines : public TestCase
{
    Q_OBJECT
private slots:
    void partsRunsAtGaps_data()
    {
        const Table<QString, double, QString, int, int> row("points", "step", "lines", "lonePoints",
                                                            "bars");
        row("a gap", "1 2 - 3 4", 10, "1 2 | 3 4", 0, 0);
        row("alone between gaps", "1 2 - 3 - 4 5", 10, "1 2 | 4 5", 1, 0);
        row("a single point", "1", 10, "", 1, 0);
        row("alone in one pixel, twice", "1 - 1", 0.1, "", 1, 0);
        row("a gap within a pixel", "1 9 - 50 50", 0.1, "1 9 | 50 50", 0, 0);
        row("low zigzag stays a line", "1 2 0 1 1", 0.1, "1 2 0 1", 0, 0);
        row("high zigzag becomes a bar", "1 9 0 1", 0.1, "", 0, 1);
        row("monotonous climb stays a line", "0 20 40 60", 0.1, "0 60", 0, 0);
        row("a bar between gaps", "5 5 - 1 9 0 1", 0.05, "5 5", 0, 1);
    }

    void partsRunsAtGaps()
    {
        QFETCH(QString, points);
        QFETCH(double, step);
        const PolylineBuilder builder = built(points, step);
        QTEST(textOf(builder), "lines");
        QTEST(builder.lonePoints().size(), "lonePoints");
        QTEST(builder.bars().size(), "bars");
    }

    void keepsEveryPeak_data()
    {
        const Table<double> row("amplitude");
        row("flat", 0.0);
        row("thin", 2.0);
        row("between line and bar", 8.0);
        row("tall", 180.0);
    }

    void keepsEveryPeak()
    {
        QFETCH(double, amplitude);
        constexpr int kWidth = 100;
        constexpr int kHeight = 200;
        constexpr int kPoints = 3000;
        constexpr int kSpike = 1517;
        std::mt19937 engine(7);
        std::uniform_real_distribution<double> noise(-amplitude / 2.0, amplitude / 2.0);

        PolylineBuilder builder;
        QVector<int> tops(kWidth, kHeight);
        QVector<int> bottoms(kWidth, -1);
        for (int i = 0; i < kPoints; ++i) {
            const double x = i * static_cast<double>(kWidth) / kPoints;
            const double y = i == kSpike ? 3.0 : 100.0 + noise(engine);
            builder.add({x, y});
            const int column = static_cast<int>(x);
            tops[column] = qMin(tops[column], static_cast<int>(std::floor(y)));
            bottoms[column] = qMax(bottoms[column], static_cast<int>(std::floor(y)));
        }
        builder.finish();
        // At most four points a column, and the two ends of a line that joins bars.
        QVERIFY(builder.points().size() + builder.bars().size() <= 6 * kWidth);

        QImage image(kWidth, kHeight, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setPen(QPen(Qt::white, 1.0));
        int start = 0;
        for (const int end : builder.lineEnds()) {
            painter.drawPolyline(builder.points().constData() + start, end - start);
            start = end;
        }
        painter.setBrush(Qt::white);
        painter.setPen(Qt::NoPen);
        painter.drawRects(mergedBars(builder.bars()));
        painter.end();

        for (int column = 0; column < kWidth; ++column) {
            // A line ends within a pixel of its point, depending on how it is rounded.
            const auto isLitNear = [&](int y) {
                for (int near = qMax(y - 1, 0); near <= qMin(y + 1, kHeight - 1); ++near) {
                    if (image.pixelColor(column, near) == Qt::white) {
                        return true;
                    }
                }
                return false;
            };
            QVERIFY2(isLitNear(tops.at(column)), qPrintable(QString::number(column)));
            QVERIFY2(isLitNear(bottoms.at(column)), qPrintable(QString::number(column)));
        }
    }
};

REGISTER_TEST(TestPlotLines, QApplication)
#include "tst_plotlines.moc"

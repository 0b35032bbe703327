#include "importexport/report/faultspans.h"
#include "importexport/report/reporthtml.h"
#include "importexport/report/reportpages.h"
#include "importexport/report/visitcollector.h"
#include "importexport/report/visitcontents.h"
#include "recording/recordingreader.h"
#include "tests/importexport/reportedvisit.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <QProcess>

namespace {
VisitReport collect(const QString& folder, const ReportRequest& request)
{
    RecordingReader reader(folder);
    VisitCollector collector(request);
    while (!collector.isDone()) {
        collector.step(reader);
    }
    return collector.report();
}
}

class TestVisitReport : public TestCase
{
    Q_OBJECT
private slots:
    void scratch()
    {
        const Sandbox sandbox;
        for (int count : {3, 32, 253}) {
            const ReportedVisit visit(sandbox.path(QString("r%1").arg(count)), count);
            QElapsedTimer t; t.start();
            const VisitReport report = collect(sandbox.path(QString("r%1").arg(count)), visit.request());
            qInfo() << count << "collect" << t.restart();
            for (QString lang : {"English", "Nederlands", "Francais"}) {
                QTranslator tr; tr.load(QString("/work/wt/report/build/fast/app/translations/TavroCordexSniffer_%1.qm").arg(lang));
                QCoreApplication::installTranslator(&tr);
                const VisitReport inLanguage = collect(sandbox.path(QString("r%1").arg(count)), visit.request());
                t.restart();
                const auto contents = contentsOf(inLanguage);
                qInfo() << "contents" << t.restart();
                for (auto paper : {ReportPages::Paper::A4, ReportPages::Paper::Letter}) {
                    const ReportPages pages(contents, paper);
                    qInfo() << "pages" << pages.count() << t.restart();
                    QFile f(QString("/tmp/rep/%1_%2_%3.pdf").arg(count).arg(lang).arg(int(paper)));
                    f.open(QIODevice::WriteOnly); f.write(pages.pdf());
                    qInfo() << "pdf" << t.restart();
                }
                QFile f(QString("/tmp/rep/%1_%2.html").arg(count).arg(lang));
                f.open(QIODevice::WriteOnly); f.write(htmlOf(contents, "en"));
                QCoreApplication::removeTranslator(&tr);
            }
        }
    }
};

REGISTER_TEST(TestVisitReport, QGuiApplication)
#include "tst_visitreport.moc"

#include "app/help/manualbrowser.h"
#include "app/help/manualwindow.h"
#include "app/window/mainwindow.h"
#include "tests/support/sandbox.h"
#include "tests/support/testprogram.h"

#include <QtWidgets>

namespace {

const QString kFolder = QStringLiteral(MANUAL_FOLDER);
const QString kFirstPage = "index.md";

/// What a page points to, as its reader's browser understands it.
struct Page
{
    QStringList links;
    QStringList pictures;
};

Page readPage(const QString& fileName)
{
    ManualBrowser browser;
    browser.setSource(QUrl::fromLocalFile(QDir(kFolder).filePath(fileName)));
    Page page;
    for (QTextBlock block = browser.document()->begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextCharFormat format = piece.fragment().charFormat();
            if (format.isImageFormat()) {
                page.pictures.append(format.toImageFormat().name());
            } else if (format.isAnchor()) {
                page.links.append(format.anchorHref());
            }
        }
    }
    return page;
}

QStringList pages()
{
    return QDir(kFolder).entryList({"*.md"}, QDir::Files);
}

template <typename Window>
QList<Window*> openWindows()
{
    QList<Window*> found;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (auto* match = qobject_cast<Window*>(window); match != nullptr && match->isVisible()) {
            found.append(match);
        }
    }
    return found;
}

QString pageShown(const ManualWindow* window)
{
    return window->findChild<QTextBrowser*>()->source().fileName();
}

} // namespace

class TestManual : public TestCase
{
    Q_OBJECT
private slots:
    void pagesHangTogether()
    {
        QStringList reached{kFirstPage};
        QStringList shown;
        for (int next = 0; next < reached.size(); ++next) {
            const Page page = readPage(reached.at(next));
            for (const QString& link : page.links) {
                // Headings are no targets in the viewer, and a laptop in a plant has no network.
                QVERIFY2(pages().contains(link), qPrintable(link));
                if (!reached.contains(link)) {
                    reached.append(link);
                }
            }
            for (const QString& picture : page.pictures) {
                QVERIFY2(!QImage(QDir(kFolder).filePath(picture)).isNull(), qPrintable(picture));
            }
            shown += page.pictures;
        }
        reached.sort();
        QCOMPARE(reached, pages());
        const QDir images(kFolder + "/images");
        for (const QString& picture : images.entryList(QDir::Files)) {
            QVERIFY2(shown.contains(QStringLiteral("images/") + picture), qPrintable(picture));
        }
    }

    void picturesFitTheWindow()
    {
        QImage wide(2000, 100, QImage::Format_RGB32);
        wide.fill(Qt::red);
        QVERIFY(wide.save(m_sandbox->path("wide.png")));
        m_sandbox->writeFile(kFirstPage, "1. step\n\n   ![wide](wide.png)\n");
        ManualBrowser browser;
        browser.resize(800, 400);
        browser.show();
        browser.setSource(QUrl::fromLocalFile(m_sandbox->path(kFirstPage)));
        for (int width : {800, 500, 1100}) {
            browser.resize(width, 400);
            QCoreApplication::processEvents();
            const qreal laidOut = browser.document()->size().width();
            QVERIFY2(laidOut <= browser.viewport()->width(), qPrintable(QString::number(laidOut)));
            QVERIFY2(laidOut * 2 > width, qPrintable(QString::number(laidOut)));
        }
    }

    void f1OpensItOnce()
    {
        const HelpKey helpKey(kFolder);
        MainWindow window;
        window.show();
        QList<QWidget*> askers{&window};
        for (const char* name : {"startButton", "deviceOverviewTableView", "logFilePathText"}) {
            askers.append(window.findChild<QWidget*>(QLatin1String(name)));
        }
        for (QWidget* asker : askers) {
            QTest::keyClick(asker, Qt::Key_F1);
            const QList<ManualWindow*> manuals = openWindows<ManualWindow>();
            QCOMPARE(manuals.size(), 1);
            QCOMPARE(pageShown(manuals.first()), kFirstPage);
            QTest::keyClick(asker, Qt::Key_F1);
            QTest::keyClick(manuals.first(), Qt::Key_F1);
            QCOMPARE(openWindows<ManualWindow>(), manuals);
            QTest::keyClick(manuals.first(), Qt::Key_Escape);
            QVERIFY(openWindows<ManualWindow>().isEmpty());
        }
    }

    void missingManualIsToldOnce()
    {
        const HelpKey helpKey(m_sandbox->path("nowhere"));
        QWidget window;
        window.show();
        QTest::keyClick(&window, Qt::Key_F1);
        QTest::keyClick(&window, Qt::Key_F1);
        QVERIFY(openWindows<ManualWindow>().isEmpty());
        const QList<QMessageBox*> boxes = openWindows<QMessageBox>();
        QCOMPARE(boxes.size(), 1);
        QVERIFY(
            boxes.first()->text().contains(QDir::toNativeSeparators(m_sandbox->path("nowhere"))));
        QTest::keyClick(boxes.first(), Qt::Key_F1);
        QCOMPARE(openWindows<QMessageBox>(), boxes);
    }
};

REGISTER_TEST(TestManual, QApplication)
#include "tst_manual.moc"

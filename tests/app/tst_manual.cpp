#include "app/help/helpkey.h"
#include "app/help/manualbrowser.h"
#include "app/mainwindow.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QMessageBox>
#include <QPushButton>
#include <QTextBlock>
#include <QToolButton>

namespace {

const QString kFolder = QStringLiteral(MANUAL_FOLDER);
const QString kFirstPage = QStringLiteral("index.md");

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
    return QDir(kFolder).entryList({QStringLiteral("*.md")}, QDir::Files);
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
    void linksAndPicturesAreThere_data();
    void linksAndPicturesAreThere();
    void everyPageIsReachedFromTheFirst();
    void everyPictureIsShown();
    void picturesFitTheWindow();
    void f1OpensIt_data();
    void f1OpensIt();
    void opensOnce();
    void leafsThroughPages();
    void isReadWhileAModalWindowIsOpen();
    void missingManualIsToldOnce();
};

void TestManual::linksAndPicturesAreThere_data()
{
    QTest::addColumn<QString>("fileName");
    for (const QString& page : pages()) {
        QTest::newRow(qPrintable(page)) << page;
    }
}

void TestManual::linksAndPicturesAreThere()
{
    QFETCH(QString, fileName);
    const Page page = readPage(fileName);
    for (const QString& link : page.links) {
        // Headings are no targets in the viewer, and a laptop in a plant has no network.
        QVERIFY2(pages().contains(link), qPrintable(link));
    }
    for (const QString& picture : page.pictures) {
        QVERIFY2(!QImage(QDir(kFolder).filePath(picture)).isNull(), qPrintable(picture));
    }
}

void TestManual::everyPageIsReachedFromTheFirst()
{
    QStringList reached{kFirstPage};
    for (int next = 0; next < reached.size(); ++next) {
        const Page page = readPage(reached.at(next));
        for (const QString& link : page.links) {
            if (!reached.contains(link)) {
                reached.append(link);
            }
        }
    }
    reached.sort();
    QCOMPARE(reached, pages());
}

void TestManual::everyPictureIsShown()
{
    QStringList shown;
    for (const QString& fileName : pages()) {
        shown += readPage(fileName).pictures;
    }
    const QDir images(kFolder + QStringLiteral("/images"));
    for (const QString& picture : images.entryList(QDir::Files)) {
        QVERIFY2(shown.contains(QStringLiteral("images/") + picture), qPrintable(picture));
    }
}

void TestManual::picturesFitTheWindow()
{
    const Sandbox sandbox;
    QImage wide(2000, 100, QImage::Format_RGB32);
    wide.fill(Qt::red);
    QVERIFY(wide.save(sandbox.path(QStringLiteral("wide.png"))));
    sandbox.writeFile(kFirstPage, "1. step\n\n   ![wide](wide.png)\n");
    ManualBrowser browser;
    browser.resize(800, 400);
    browser.show();
    browser.setSource(QUrl::fromLocalFile(sandbox.path(kFirstPage)));
    for (int width : {800, 500, 1100}) {
        browser.resize(width, 400);
        QCoreApplication::processEvents();
        const qreal laidOut = browser.document()->size().width();
        QVERIFY2(laidOut <= browser.viewport()->width(), qPrintable(QString::number(laidOut)));
        QVERIFY2(laidOut * 2 > width, qPrintable(QString::number(laidOut)));
    }
}

void TestManual::f1OpensIt_data()
{
    QTest::addColumn<QByteArray>("focused");
    QTest::newRow("window") << QByteArray();
    QTest::newRow("button") << QByteArray("startButton");
    QTest::newRow("table") << QByteArray("deviceOverviewTableView");
    QTest::newRow("text field") << QByteArray("logFilePathText");
}

void TestManual::f1OpensIt()
{
    QFETCH(QByteArray, focused);
    const Sandbox sandbox;
    const HelpKey helpKey(kFolder);
    MainWindow window;
    window.show();
    auto* widget = focused.isEmpty() ? static_cast<QWidget*>(&window)
                                     : window.findChild<QWidget*>(QLatin1String(focused));
    QTest::keyClick(widget, Qt::Key_F1);
    QCOMPARE(openWindows<ManualWindow>().size(), 1);
    QCOMPARE(pageShown(openWindows<ManualWindow>().first()), kFirstPage);
}

void TestManual::opensOnce()
{
    const HelpKey helpKey(kFolder);
    QWidget window;
    window.show();
    QTest::keyClick(&window, Qt::Key_F1);
    const QList<ManualWindow*> first = openWindows<ManualWindow>();
    QTest::keyClick(&window, Qt::Key_F1);
    QTest::keyClick(first.first(), Qt::Key_F1);
    QCOMPARE(openWindows<ManualWindow>(), first);
    QTest::keyClick(first.first(), Qt::Key_Escape);
    QVERIFY(openWindows<ManualWindow>().isEmpty());
}

void TestManual::leafsThroughPages()
{
    QWidget window;
    ManualWindow manual(kFolder, &window);
    manual.setAttribute(Qt::WA_DeleteOnClose, false);
    manual.show();
    const auto button = [&manual](const char* name) {
        return manual.findChild<QToolButton*>(QLatin1String(name));
    };
    QVERIFY(!button("manualBackButton")->isEnabled());
    const QString second = readPage(kFirstPage).links.first();
    manual.findChild<QTextBrowser*>()->setSource(QUrl(second));
    QCOMPARE(pageShown(&manual), second);
    button("manualBackButton")->click();
    QCOMPARE(pageShown(&manual), kFirstPage);
    button("manualForwardButton")->click();
    QCOMPARE(pageShown(&manual), second);
    button("manualContentsButton")->click();
    QCOMPARE(pageShown(&manual), kFirstPage);
}

void TestManual::isReadWhileAModalWindowIsOpen()
{
    const HelpKey helpKey(kFolder);
    QWidget window;
    window.show();
    QTest::keyClick(&window, Qt::Key_F1);
    QWidget modal(&window, Qt::Dialog);
    modal.setWindowModality(Qt::ApplicationModal);
    modal.show();
    QTest::keyClick(&modal, Qt::Key_F1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const QList<ManualWindow*> manuals = openWindows<ManualWindow>();
    QCOMPARE(manuals.size(), 1);
    // A child of the modal window is the one that it does not block.
    QCOMPARE(manuals.first()->parentWidget(), &modal);
}

void TestManual::missingManualIsToldOnce()
{
    const Sandbox sandbox;
    const HelpKey helpKey(sandbox.path(QStringLiteral("nowhere")));
    QWidget window;
    window.show();
    QTest::keyClick(&window, Qt::Key_F1);
    QTest::keyClick(&window, Qt::Key_F1);
    QVERIFY(openWindows<ManualWindow>().isEmpty());
    const QList<QMessageBox*> boxes = openWindows<QMessageBox>();
    QCOMPARE(boxes.size(), 1);
    QVERIFY(boxes.first()->text().contains(
        QDir::toNativeSeparators(sandbox.path(QStringLiteral("nowhere")))));
    QTest::keyClick(boxes.first(), Qt::Key_F1);
    QCOMPARE(openWindows<QMessageBox>(), boxes);
}

QTEST_MAIN(TestManual)
#include "tst_manual.moc"

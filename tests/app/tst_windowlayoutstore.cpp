#include "app/applicationsettings.h"
#include "app/windowlayoutstore.h"
#include "tests/support/sandbox.h"
#include "tests/support/testcase.h"

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSplitter>
#include <QTextEdit>

namespace {

/// A window with three splitters, as the program's has.
struct Window
{
    Window()
    {
        for (QSplitter* splitter : {&leftAndRight, &overviewAndPlot, &plotAndDetail}) {
            splitter->resize(600, 400);
            splitter->addWidget(new QWidget);
            splitter->addWidget(new QWidget);
        }
        window.resize(640, 480);
    }
    windowlayoutstore::Layout parts()
    {
        return {&window, &leftAndRight, &overviewAndPlot, &plotAndDetail};
    }

    QMainWindow window;
    QSplitter leftAndRight;
    QSplitter overviewAndPlot{Qt::Vertical};
    QSplitter plotAndDetail;
};

} // namespace

class TestWindowLayoutStore : public TestCase
{
    Q_OBJECT
private slots:
    void restores_data();
    void restores();
    void emptyStoreChangesNothing();
    void fitsSmallScreen();
    void keys();
};

void TestWindowLayoutStore::restores_data()
{
    QTest::addColumn<QRect>("savedScreens");
    QTest::addColumn<bool>("placeRestored");
    const QRect screens = windowlayoutstore::desktopGeometry();
    QTest::newRow("same screens") << screens << true;
    QTest::newRow("one screen less") << screens.adjusted(0, 0, 1920, 0) << false;
    QTest::newRow("screens moved") << screens.translated(-1920, 0) << false;
    QTest::newRow("no screens stored") << QRect() << false;
}

void TestWindowLayoutStore::restores()
{
    QFETCH(QRect, savedScreens);
    QFETCH(bool, placeRestored);
    const Sandbox sandbox;
    Window former;
    former.window.resize(500, 300);
    former.leftAndRight.setSizes({100, 500});
    former.overviewAndPlot.setSizes({300, 100});
    former.plotAndDetail.setSizes({450, 150});
    const QList<int> leftAndRight = former.leftAndRight.sizes();
    const QList<int> overviewAndPlot = former.overviewAndPlot.sizes();
    const QList<int> plotAndDetail = former.plotAndDetail.sizes();
    windowlayoutstore::save(former.parts());
    if (savedScreens.isNull()) {
        applicationSettings().remove(constants::kScreenGeometryKey);
    } else {
        applicationSettings().setValue(constants::kScreenGeometryKey, savedScreens);
    }

    Window later;
    windowlayoutstore::load(later.parts());
    QCOMPARE(later.window.size(), placeRestored ? QSize(500, 300) : QSize(640, 480));
    QCOMPARE(later.leftAndRight.sizes(), leftAndRight);
    QCOMPARE(later.overviewAndPlot.sizes(), overviewAndPlot);
    QCOMPARE(later.plotAndDetail.sizes(), plotAndDetail);
}

void TestWindowLayoutStore::emptyStoreChangesNothing()
{
    const Sandbox sandbox;
    Window window;
    const QList<int> sizes = window.leftAndRight.sizes();
    windowlayoutstore::load(window.parts());
    QCOMPARE(window.window.size(), QSize(640, 480));
    QCOMPARE(window.leftAndRight.sizes(), sizes);
}

void TestWindowLayoutStore::fitsSmallScreen()
{
    const Sandbox sandbox;
    Window window;
    window.window.resize(5000, 4000);
    windowlayoutstore::load(window.parts());
    const QSize screen = QGuiApplication::primaryScreen()->availableGeometry().size();
    QCOMPARE(window.window.width(), screen.width());
    QVERIFY(window.window.height() < screen.height()); // the title bar needs its place
}

void TestWindowLayoutStore::keys()
{
    // Layouts saved by earlier versions are found under these very names.
    const Sandbox sandbox;
    Window window;
    windowlayoutstore::save(window.parts());
    const QSettings settings(QStringLiteral("Velmark"), QStringLiteral("Tavro Cordex Sniffer"));
    for (const char* key :
         {"position/geometry", "position/windowState", "position/screenGeometry",
          "position/leftAndRightLayoutSplitter", "position/deviceOverviewAndPLotSplitter"}) {
        QVERIFY2(settings.contains(QLatin1String(key)), key);
    }
}

QTEST_MAIN(TestWindowLayoutStore)

#include "tst_windowlayoutstore.moc"

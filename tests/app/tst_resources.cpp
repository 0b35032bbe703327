#include "app/shared/constants.h"
#include "resources/resources.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

#include <QFile>
#include <QImage>

/// What the program asks its resources for is there.
class TestResources : public TestCase
{
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void isThere_data();
    void isThere();
};

void TestResources::isThere_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("shownSize"); // of a picture, which has twice that; invalid for others
    const QString icons = constants::kIconsResourceFolder;
    QTest::newRow("flag") << icons + QStringLiteral("/English.png") << QSize(48, 32);
    QTest::newRow("gear") << icons + QStringLiteral("/settings.png") << QSize(48, 48);
    QTest::newRow("logo") << constants::kLogoResourceTemplate.arg(constants::kProductFamilyName)
                          << QSize(240, 60);
    QTest::newRow("front panel") << constants::kFrontPanelResource << QSize(360, 220);
    QTest::newRow("animation") << QStringLiteral(":/loadingGif/resources/loadingIcon.gif")
                               << QSize();
    QTest::newRow("bleep") << constants::kWarningSoundResource << QSize();
}

void TestResources::isThere()
{
    QFETCH(QString, path);
    QFETCH(QSize, shownSize);
    QVERIFY(QFile(path).size() > 0);
    if (shownSize.isValid()) {
        QCOMPARE(QImage(path).size(), 2 * shownSize);
    }
}

REGISTER_TEST(TestResources, QCoreApplication)
#include "tst_resources.moc"

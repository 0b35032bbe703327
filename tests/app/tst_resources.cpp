#include "app/shared/constants.h"
#include "resources/resources.h"
#include "tests/support/testprogram.h"

#include <QImage>

/// What the program asks its resources for is there.
class TestResources : public TestCase
{
    Q_OBJECT
private slots:
    void areThere()
    {
        initResources();
        const QString icons = constants::kIconsResourceFolder;
        // Pictures have twice the size in which they are shown; others have none.
        const std::pair<QString, QSize> resources[] = {
            {icons + "/English.png", {48, 32}},
            {icons + "/settings.png", {48, 48}},
            {constants::kLogoResourceTemplate.arg(constants::kProductFamilyName), {240, 60}},
            {constants::kFrontPanelResource, {360, 220}},
            {":/loadingGif/resources/loadingIcon.gif", {}},
            {constants::kWarningSoundResource, {}}};
        for (const auto& [path, shown] : resources) {
            QVERIFY2(QFile(path).size() > 0, qPrintable(path));
            QVERIFY2(!shown.isValid() || QImage(path).size() == 2 * shown, qPrintable(path));
        }
    }
};

REGISTER_TEST(TestResources, QCoreApplication)
#include "tst_resources.moc"

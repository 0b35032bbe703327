#include "app/shared/constants.h"
#include "resources/resources.h"
#include "tests/support/testcase.h"

#include <QDirIterator>
#include <QImage>
#include <QImageReader>
#include <QtEndian>

namespace {

bool isOpaqueAt(const QImage& image, int x, int y)
{
    return qAlpha(image.pixel(x, y)) == 255;
}

} // namespace

class TestResources : public TestCase
{
    Q_OBJECT
private slots:
    void initTestCase() { initResources(); }
    void holdsExactlyTheseFiles();
    void picturesHaveDoubleDensity_data();
    void picturesHaveDoubleDensity();
    void animationTurns();
    void bleepIsShortPcmWithinRange();
};

void TestResources::holdsExactlyTheseFiles()
{
    QStringList files;
    for (const char* folder : {":/icons", ":/image", ":/music", ":/loadingGif", ":/Icons"}) {
        QDirIterator walk(QString::fromLatin1(folder), QDir::Files, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            files.append(walk.next());
        }
    }
    files.sort();
    const QStringList expected{QStringLiteral(":/icons/resources/English.png"),
                               QStringLiteral(":/icons/resources/Francais.png"),
                               QStringLiteral(":/icons/resources/Nederlands.png"),
                               QStringLiteral(":/icons/resources/default.png"),
                               QStringLiteral(":/icons/resources/settings.png"),
                               QStringLiteral(":/image/resources/OrvanLogoCompleteShadowSmall.png"),
                               QStringLiteral(":/image/resources/TavroLogoCompleteShadowSmall.png"),
                               QStringLiteral(":/image/resources/frontpanel.png"),
                               QStringLiteral(":/loadingGif/resources/loadingIcon.gif"),
                               QStringLiteral(":/music/resources/bleep.wav")};
    QCOMPARE(files, expected);
    // The names that the program uses must be among them.
    QVERIFY(files.contains(constants::kWarningSoundResource));
    QVERIFY(files.contains(constants::kFrontPanelResource));
    QVERIFY(files.contains(constants::kLogoResourceTemplate.arg(constants::kProductFamilyName)));
}

void TestResources::picturesHaveDoubleDensity_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QSize>("shownSize");
    const QString icons = constants::kIconsResourceFolder;
    QTest::newRow("flag") << icons + QStringLiteral("/English.png") << QSize(48, 32);
    QTest::newRow("gear") << icons + QStringLiteral("/settings.png") << QSize(48, 48);
    QTest::newRow("logo") << constants::kLogoResourceTemplate.arg(constants::kProductFamilyName)
                          << QSize(240, 60);
    QTest::newRow("front panel") << constants::kFrontPanelResource << QSize(360, 220);
}

void TestResources::picturesHaveDoubleDensity()
{
    QFETCH(QString, path);
    QFETCH(QSize, shownSize);
    const QImage image(path);
    QCOMPARE(image.size(), 2 * shownSize);
    // Something is drawn, on nothing: it can stand on any background.
    QVERIFY(!isOpaqueAt(image, 0, 0));
    bool anythingDrawn = false;
    for (int x = 0; x < image.width() && !anythingDrawn; ++x) {
        anythingDrawn = isOpaqueAt(image, x, image.height() / 2);
    }
    QVERIFY(anythingDrawn);
}

void TestResources::animationTurns()
{
    QImageReader reader(QStringLiteral(":/loadingGif/resources/loadingIcon.gif"));
    QVERIFY(reader.supportsAnimation());
    constexpr int endless = -1;
    QCOMPARE(reader.loopCount(), endless);
    QList<QImage> frames;
    while (reader.canRead()) {
        const QImage frame = reader.read();
        QVERIFY2(!frame.isNull(), qPrintable(reader.errorString()));
        QVERIFY(reader.nextImageDelay() > 0);
        QVERIFY(!frames.contains(frame));
        frames.append(frame);
    }
    QVERIFY(frames.size() >= 8);
}

void TestResources::bleepIsShortPcmWithinRange()
{
    QFile file(constants::kWarningSoundResource);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray wave = file.readAll();
    const auto word = [&wave](int at) {
        return qFromLittleEndian<quint16>(wave.constData() + at);
    };
    const auto doubleWord = [&wave](int at) {
        return qFromLittleEndian<quint32>(wave.constData() + at);
    };
    QCOMPARE(wave.left(4), QByteArray("RIFF"));
    QCOMPARE(wave.mid(8, 8), QByteArray("WAVEfmt "));
    constexpr int dataStart = 44;
    QCOMPARE(doubleWord(4), static_cast<quint32>(wave.size() - 8));
    QCOMPARE(doubleWord(40), static_cast<quint32>(wave.size() - dataStart));
    QCOMPARE(int(word(20)), 1);
    QCOMPARE(int(word(22)), 1);
    QCOMPARE(int(word(34)), 16);
    const double seconds = (wave.size() - dataStart) / 2.0 / doubleWord(24);
    // Repeated once a second: each must end before the next.
    QVERIFY(seconds > 0.1 && seconds < 0.8);
    int peak = 0;
    for (int at = dataStart; at < wave.size(); at += 2) {
        peak = std::max(peak, std::abs(int(qFromLittleEndian<qint16>(wave.constData() + at))));
    }
    QVERIFY(peak > 10000 && peak < 32000);
}

QTEST_GUILESS_MAIN(TestResources)
#include "tst_resources.moc"

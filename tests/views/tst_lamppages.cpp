#include "tests/support/testcase.h"
#include "tests/views/bracketingtranslator.h"
#include "tests/views/records.h"
#include "views/lamppages.h"

#include <QListWidget>
#include <QSignalSpy>

#include <memory>

using records::Codes;
using records::withCodes;

class TestLampPages : public TestCase
{
    Q_OBJECT
private slots:
    void init() override;

    void causes_data();
    void causes();
    void causesGoWithTheNextRecord();
    void currentEntrySurvivesUpdates();
    void activation();
    void resetEmpties();
    void languageChange();

private:
    struct Pages
    {
        QListWidget a, b, c, d;
        LampPages pages{{&a, &b, &c, &d}};
    };

    void process(const char* hexId, const Codes& codes,
                 const QString& name = QStringLiteral("Hall"))
    {
        const QString id = QString::fromLatin1(hexId);
        m_pages->pages.processData(id, withCodes(id, codes, name));
    }
    static QString texts(const QListWidget& list)
    {
        QStringList result;
        for (int row = 0; row < list.count(); ++row) {
            result << list.item(row)->text();
        }
        return result.join(QLatin1Char('|'));
    }

    std::unique_ptr<Pages> m_pages;
};

void TestLampPages::init()
{
    TestCase::init();
    m_pages = std::make_unique<Pages>();
}

void TestLampPages::causes_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("loop");
    QTest::addColumn<int>("earth");
    QTest::addColumn<int>("amplifier");
    QTest::addColumn<QString>("serviceMode");
    QTest::addColumn<QString>("earthFault");
    QTest::addColumn<QString>("openShortLeak");
    QTest::addColumn<QString>("settings");

    const QString none = QStringLiteral("No LDB");
    QTest::newRow("healthy") << 10 << 0 << 0 << 0 << none << none << none << none;
    QTest::newRow("service mode") << 30 << 0 << 0 << 0 << "2A  Hall – Service mode" << none << none
                                  << none;
    QTest::newRow("check settings")
        << 253 << 0 << 0 << 0 << none << none << none << "2A  Hall – Check Settings";
    QTest::newRow("earth") << 10 << 0 << 6 << 0 << none << "2A  Hall – Leakage + Open(memory)"
                           << none << none;
    QTest::newRow("loop") << 10 << 16 << 0 << 1 << none << none << "2A  Hall – DC Leakage" << none;
    QTest::newRow("amplifier") << 10 << 0 << 0 << 3 << none << none
                               << "2A  Hall – Amplifier: Reconnected" << none;
    QTest::newRow("loop and amplifier")
        << 10 << 2 << 0 << 2 << none << none << "2A  Hall – Open(memory), Amplifier: Disconnected"
        << none;
    QTest::newRow("disconnected") << 255 << 64 << 16 << 255 << none << none << none << none;
}

void TestLampPages::causes()
{
    QFETCH(int, mode);
    QFETCH(int, loop);
    QFETCH(int, earth);
    QFETCH(int, amplifier);
    QFETCH(QString, serviceMode);
    QFETCH(QString, earthFault);
    QFETCH(QString, openShortLeak);
    QFETCH(QString, settings);

    process("2A", {mode, loop, earth, amplifier});
    QCOMPARE(texts(m_pages->a), serviceMode);
    QCOMPARE(texts(m_pages->b), earthFault);
    QCOMPARE(texts(m_pages->c), openShortLeak);
    QCOMPARE(texts(m_pages->d), settings);
}

void TestLampPages::causesGoWithTheNextRecord()
{
    process("1F", {10, 1, 0, 0}, QStringLiteral("  Stairs \n west "));
    process("0B", {10, 4, 0, 0}, QString());
    process("A0", {10, 8, 0, 0});
    QCOMPARE(texts(m_pages->c),
             QStringLiteral("0B – Short|1F  Stairs west – Open|A0  Hall – Short(memory)"));

    process("1F", {10, 2, 0, 0}, QStringLiteral("Stairs"));
    process("0B", {});
    QCOMPARE(texts(m_pages->c),
             QStringLiteral("1F  Stairs – Open(memory)|A0  Hall – Short(memory)"));

    process("A0", {255, 64, 16, 255});
    process("1F", {});
    QCOMPARE(texts(m_pages->c), QStringLiteral("No LDB"));
}

void TestLampPages::currentEntrySurvivesUpdates()
{
    process("10", {30, 0, 0, 0});
    process("30", {30, 0, 0, 0});
    m_pages->a.setCurrentRow(1);
    const QListWidgetItem* current = m_pages->a.currentItem();

    process("20", {30, 0, 0, 0});                            // before it
    process("40", {30, 0, 0, 0});                            // behind it
    process("10", {});                                       // one before it goes
    process("30", {30, 0, 0, 0}, QStringLiteral("Renamed")); // itself
    m_pages->pages.retranslate();

    QCOMPARE(m_pages->a.currentItem(), current);
    QCOMPARE(m_pages->a.currentRow(), 1);
    QVERIFY(current->isSelected());
    QCOMPARE(current->text(), QStringLiteral("30  Renamed – Service mode"));
}

void TestLampPages::activation()
{
    QListWidget& list = m_pages->b;
    QSignalSpy activated(&m_pages->pages, &LampPages::ldbActivated);
    list.resize(300, 200);
    list.show();
    const auto click = [&list](int row) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                          list.visualItemRect(list.item(row)).center());
    };
    click(0); // the entry that says that there is none
    QCOMPARE(activated.count(), 0);

    process("0C", {10, 0, 4, 0});
    process("FD", {10, 0, 4, 0});
    click(1);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.takeFirst().first().toString(), QStringLiteral("FD"));

    QTest::keyClick(&list, Qt::Key_Up);
    QCOMPARE(activated.count(), 0);
    QTest::keyClick(&list, Qt::Key_Return);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.takeFirst().first().toString(), QStringLiteral("0C"));
}

void TestLampPages::resetEmpties()
{
    process("01", {30, 4, 4, 0});
    process("02", {253, 0, 0, 0});
    m_pages->pages.reset();
    for (const QListWidget* list : {&m_pages->a, &m_pages->b, &m_pages->c, &m_pages->d}) {
        QCOMPARE(texts(*list), QStringLiteral("No LDB"));
    }
    // What was known before is forgotten, and comes again.
    process("01", {30, 0, 0, 0});
    QCOMPARE(texts(m_pages->a), QStringLiteral("01  Hall – Service mode"));
}

void TestLampPages::languageChange()
{
    process("01", {30, 0, 0, 0});
    const BracketingTranslator translator;
    m_pages->pages.retranslate();
    QCOMPARE(texts(m_pages->a), QStringLiteral("01  Hall – Service mode"));
    QCOMPARE(texts(m_pages->b), QStringLiteral("[No LDB]"));

    process("01", {30, 0, 0, 3});
    QCOMPARE(texts(m_pages->a), QStringLiteral("01  Hall – [Service mode]"));
    QCOMPARE(texts(m_pages->c), QStringLiteral("01  Hall – [Amplifier: [Reconnected]]"));
}

QTEST_MAIN(TestLampPages)
#include "tst_lamppages.moc"

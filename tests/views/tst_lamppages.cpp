#include "tests/support/bracketingtranslator.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"
#include "tests/views/records.h"
#include "views/lamps/lamppanel.h"

#include <QtWidgets>

#include <memory>

using records::Codes;
using records::withCodes;

class TestLampPages : public TestCase
{
    Q_OBJECT
private slots:
    void init() override
    {
        TestCase::init();
        m_pages = std::make_unique<Pages>();
    }

    void causes_data()
    {
        // "causes": of A, B, C, D and the page of those that are out
        const Table<Codes, QStringList> row("codes", "causes");
        const QString none = "No LDB";
        row("healthy", {}, {none, none, none, none, none});
        row("service mode", {30}, {"2A  Hall – Service mode", none, none, none, none});
        row("check settings", {253}, {none, none, none, "2A  Hall – Check Settings", none});
        row("earth", {10, 0, 6}, {none, "2A  Hall – Leakage + Open(memory)", none, none, none});
        row("loop", {10, 16, 0, 1}, {none, none, "2A  Hall – DC Leakage", none, none});
        row("loop and amplifier", {10, 2, 0, 2},
            {none, none, "2A  Hall – Open(memory), Amplifier: Disconnected", none, none});
        row("disconnected", {255, 64, 16, 255},
            {none, none, none, none, "2A  Hall – Disconnected"});
        row("in fault, with a leak", {254, 16},
            {none, none, "2A  Hall – DC Leakage", none, "2A  Hall – Fault"});
        row("failed factory reset", {51},
            {none, none, none, none, "2A  Hall – Factory reset failed"});
    }

    void causes()
    {
        QFETCH(Codes, codes);
        process("2A", codes);
        QTEST(allTexts(), "causes");
    }

    void causesGoWithTheNextRecord()
    {
        process("1F", {10, 1}, "  Stairs \n west ");
        process("0B", {10, 4}, QString());
        process("A0", {10, 8});
        QCOMPARE(texts(m_pages->c), "0B – Short|1F  Stairs west – Open|A0  Hall – Short(memory)");

        process("1F", {10, 2}, "Stairs");
        process("0B", {});
        QCOMPARE(texts(m_pages->c), "1F  Stairs – Open(memory)|A0  Hall – Short(memory)");

        process("A0", {255, 64, 16, 255});
        process("1F", {});
        QCOMPARE(texts(m_pages->c), "No LDB");

        // What was known before the bus was no longer monitored is forgotten, and comes again.
        process("01", {30, 4, 4});
        process("02", {253});
        m_pages->pages.setMonitoring(records::stopped());
        QCOMPARE(allTexts().count("Not monitored"), 5);
        m_pages->pages.setMonitoring(records::monitored());
        QCOMPARE(allTexts().count("No LDB"), 5);
        process("01", {30});
        process("02", {30});
        m_pages->pages.keepOnly({"01"});
        QCOMPARE(texts(m_pages->a), "01  Hall – Service mode");
    }

    void currentEntrySurvivesUpdates()
    {
        process("10", {30});
        process("30", {30});
        m_pages->a.setCurrentRow(1);
        const QListWidgetItem* current = m_pages->a.currentItem();

        process("20", {30});            // before it
        process("40", {30});            // behind it
        process("10", {});              // one before it goes
        process("30", {30}, "Renamed"); // itself
        m_pages->pages.retranslate();

        QCOMPARE(m_pages->a.currentItem(), current);
        QCOMPARE(m_pages->a.currentRow(), 1);
        QVERIFY(current->isSelected());
        QCOMPARE(current->text(), "30  Renamed – Service mode");
    }

    void activation()
    {
        QListWidget& list = m_pages->b;
        QStringList activated;
        connect(&m_pages->pages, &LampPanel::ldbActivated, this,
                [&activated](const QString& hexId) { activated << hexId; });
        list.resize(300, 200);
        list.show();
        clickCell(list, 0); // the entry that says that there is none
        process("0C", {10, 0, 4});
        process("FD", {10, 0, 4});
        QCOMPARE(activated, QStringList());
        clickCell(list, 1);
        QCOMPARE(activated, QStringList{"FD"});
        QTest::keyClick(&list, Qt::Key_Up);
        QCOMPARE(activated, QStringList{"FD"});
        QTest::keyClick(&list, Qt::Key_Return);
        QCOMPARE(activated, (QStringList{"FD", "0C"}));
    }

    void languageChange()
    {
        process("01", {30});
        const BracketingTranslator translator;
        m_pages->pages.retranslate();
        QCOMPARE(texts(m_pages->a), "01  Hall – Service mode");
        QCOMPARE(texts(m_pages->b), "[No LDB]");

        process("01", {30, 0, 0, 3});
        QCOMPARE(texts(m_pages->a), "01  Hall – [Service mode]");
        QCOMPARE(texts(m_pages->c), "01  Hall – [Amplifier: [Reconnected]]");
    }

private:
    struct Pages
    {
        ClickableLabel lamps[4];
        QListWidget a, b, c, d, out;
        QToolBox toolBox;
        LampPanel pages{{&lamps[0], nullptr, &a, nullptr},
                        {&lamps[1], nullptr, &b, nullptr},
                        {&lamps[2], nullptr, &c, nullptr},
                        {&lamps[3], nullptr, &d, nullptr},
                        &out,
                        &toolBox,
                        nullptr};

        Pages() { pages.setMonitoring(records::monitored()); }
    };

    void process(const char* hexId, const Codes& codes, const QString& name = "Hall")
    {
        const QString id = hexId;
        m_pages->pages.processData(id, withCodes(id, codes, name));
    }
    static QString texts(const QListWidget& list) { return columnTexts(*list.model()).join('|'); }
    QStringList allTexts() const
    {
        return {texts(m_pages->a), texts(m_pages->b), texts(m_pages->c), texts(m_pages->d),
                texts(m_pages->out)};
    }

    std::unique_ptr<Pages> m_pages;
};

REGISTER_TEST(TestLampPages, QApplication)
#include "tst_lamppages.moc"

#include "app/settingstable/settingstablewindow.h"
#include "app/settingstable/writepreview.h"
#include "app/transfer/settingstransfer.h"
#include "tests/app/livewindow.h"
#include "tests/support/testprogram.h"

/// An import by way of the table of settings.
class TestMainWindowImport : public LiveWindow
{
    Q_OBJECT
private slots:
    void init() override
    {
        LiveWindow::init();
        makeBus(kLdbs);
    }

    void importIsShownFirst()
    {
        const QString path = exported();
        clickRow("0A");
        WAIT_COMPARE(detail(0), "0A");
        m_bus->change("0A", "03", "1E00"); // since the export
        m_bus->clearRequests();
        auto* transfer = m_window->findChild<SettingsTransfer*>();
        transfer->importFrom(path);
        QVERIFY(!button("importDeviceSettingsButton")->isEnabled());
        WAIT_VERIFY(table()->isVisible());
        QVERIFY(button("importDeviceSettingsButton")->isEnabled());
        // 3, 10 and 253: read as hexadecimal only the first one is an LDB of this bus.
        const auto* bar = table()->findChild<QFrame*>("importBar");
        auto* other = bar->findChild<QPushButton*>("otherReadingButton");
        QVERIFY(other->isVisible());
        QCOMPARE(bar->findChild<QLabel*>("barLabel")->text(),
                 "Import of \"out.csv\": nothing has been written yet. The IDs of the file are "
                 "read as hexadecimal. The names fit better as decimal: then 3 are those of the "
                 "LDB's, now 1.");
        openPreview();
        const QString noLdb =
            "Line 8: ID 10 (read as 10 hexadecimal, address 16): no LDB with this address is "
            "connected";
        const QStringList leftOut{noLdb, "Line 10: ID 253: The ID is no address",
                                  "LDB 0A (address 10): no line in the file",
                                  "LDB FD (address 253): no line in the file",
                                  "LDB 10 has not been read yet."};
        QCOMPARE(problems(), leftOut);
        QVERIFY(!writeButton()->isEnabled());

        // Enter and Escape write nothing.
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
            QTest::keyClick(preview(), key);
            WAIT_VERIFY(preview() == nullptr);
            openPreview();
        }
        preview()->close();
        WAIT_VERIFY(preview() == nullptr);

        other->click();
        openPreview();
        QCOMPARE(problems(), QStringList());
        const auto* list = preview()->findChild<QTreeWidget*>();
        QCOMPARE(list->topLevelItemCount(), 1);
        const QTreeWidgetItem* changed = list->topLevelItem(0);
        QCOMPARE(changed->text(WritePreview::LdbColumn), "0A");
        QCOMPARE(changed->text(WritePreview::NameColumn), "LDB 0A");
        QCOMPARE(changed->text(WritePreview::FieldColumn), "Number of FIM's");
        QCOMPARE(changed->text(WritePreview::ChangeColumn),
                 QString::fromUtf8("30 \xE2\x86\x92 20"));
        QCOMPARE(m_bus->writes(), QList<QByteArray>());
        QCOMPARE(writeButton()->text(), "Write 1 LDB(s)");

        writeButton()->click();
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), "Importing LDB settings finished!");
        QCOMPARE(m_bus->writes(), (QList<QByteArray>{"FE0A7363031400", "FE0A737806"}));
        WAIT_COMPARE(child<QSpinBox>("settingsNumberOfFimsSpinBox")->value(), 20);
        QVERIFY(!bar->isVisible());
    }

    void importCanBeDiscarded()
    {
        const QString path = exported();
        m_window->findChild<SettingsTransfer*>()->importFrom(path);
        WAIT_VERIFY(table()->isVisible());
        QVERIFY(table()->underWay() != nullptr);
        const auto* bar = table()->findChild<QFrame*>("importBar");
        bar->findChild<QPushButton*>("barCloseButton")->click();
        QCOMPARE(message(), "Nothing was imported.");
        QVERIFY(table()->underWay() == nullptr);
        QVERIFY(boxes().isEmpty());
    }

    void putsBackWhatAnImportChanged()
    {
        startWindow();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        m_bus->change("0A", "02", "48FC6C"); // no name of this computer's encoding
        m_bus->change("0A", "16", "01");
        QHash<QString, QByteArray> former;
        for (const QString& hexId : kLdbs) {
            former[hexId] = m_bus->settingsOf(hexId);
        }
        const QByteArray rest(";0;0;0;0;1;1;1;200;F\n"); // a wrong file
        m_sandbox->writeFile("in.csv", "3;A" + rest + "0A;B" + rest + "FD;C" + rest);
        m_window->findChild<SettingsTransfer*>()->importFrom(m_sandbox->path("in.csv"));
        WAIT_VERIFY(table()->isVisible());
        openPreview();
        writeButton()->click();
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), "Importing LDB settings finished!");
        boxes().constFirst()->accept();
        for (const QString& hexId : kLdbs) {
            QVERIFY(m_bus->settingsOf(hexId) != former[hexId]);
        }
        table()->findChild<QAction*>("former")->trigger();
        table()->findChild<QPushButton*>("putBackFormerButton")->click();
        WAIT_VERIFY(preview() != nullptr);
        writeButton()->click();
        WAIT_COMPARE(message(), "The settings of 3 LDB(s) are written.");
        for (const QString& hexId : kLdbs) {
            QCOMPARE(m_bus->settingsOf(hexId), former[hexId]);
        }
    }

    void oneTransferAtATime()
    {
        const QString path = exported();
        auto* transfer = m_window->findChild<SettingsTransfer*>();
        transfer->importFrom(path);
        QVERIFY(child<QPushButton>("stopTransferButton")->isVisible());
        for (const char* name : {"exportDeviceSettingsButton", "importDeviceSettingsButton",
                                 "reloadDevicesButton", "allLdbResetButton"}) {
            QVERIFY2(!button(name)->isEnabled(), name);
        }
        // Whatever else asks for one does not break it off.
        transfer->exportTo(m_sandbox->path("other.csv"));
        QVERIFY(!QFile::exists(m_sandbox->path("other.csv")));
        WAIT_VERIFY(table()->isVisible());
    }

    void stopSaysWhatWasWritten()
    {
        startWindow();
        WAIT_VERIFY(button("ldbResetButton")->isEnabled());
        const QByteArray rest(";1;1;5;0;1;0;1;30;F\n");
        m_sandbox->writeFile("in.csv", "3;A" + rest + "0A;B" + rest + "FD;C" + rest);
        m_bus->setScript([this](const QByteArray& body) -> std::optional<QByteArray> {
            if (body.startsWith("FE0A736302")) {
                button("stopTransferButton")->click();
            }
            return std::nullopt;
        });
        m_window->findChild<SettingsTransfer*>()->importFrom(m_sandbox->path("in.csv"));
        WAIT_VERIFY(table()->isVisible());
        openPreview();
        writeButton()->click();
        WAIT_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), "Importing LDB settings was stopped.");
        QCOMPARE(boxes().constFirst()->informativeText(), "Done: 03, 0A\nNot begun: FD");
        QVERIFY(!child<QPushButton>("stopTransferButton")->isVisible());
        QVERIFY(button("importDeviceSettingsButton")->isEnabled());
        QCOMPARE(m_bus->settingsOf("FD"), TestBus::record("FD"));
    }

    void lostPortLeavesTheImportInTheTable()
    {
        const QString path = exported();
        m_bus->change("03", "03", "1E00");
        m_window->findChild<SettingsTransfer*>()->importFrom(path);
        WAIT_VERIFY(table()->isVisible());
        {
            const ExpectWarning warning("^Port ");
            m_bus->cut();
            WAIT_VERIFY(!button("importDeviceSettingsButton")->isEnabled());
        }
        auto* write = table()->findChild<QAction*>("write");
        QVERIFY(!write->isEnabled());
        m_bus->restore();
        button("startButton")->click();
        WAIT_VERIFY(write->isEnabled());
        closeBoxes();
        openPreview();
        writeButton()->click();
        WAIT_COMPARE(m_bus->settingsOf("03"), TestBus::record("03"));
    }

private:
    /// Started, and its settings exported.
    QString exported()
    {
        startWindow();
        QString path = m_sandbox->path("out.csv");
        m_window->findChild<SettingsTransfer*>()->exportTo(path);
        waitUntil([this] { return boxes().size() == 1; });
        boxes().constFirst()->accept();
        waitUntil([this] { return boxes().isEmpty(); });
        return path;
    }
    SettingsTableWindow* table() const { return m_window->findChild<SettingsTableWindow*>(); }
    WritePreview* preview() const { return m_window->findChild<WritePreview*>(); }
    void openPreview()
    {
        table()->findChild<QAction*>("write")->trigger();
        QVERIFY(preview() != nullptr);
    }
    QPushButton* writeButton() const
    {
        return preview()->findChild<QPushButton*>("previewWriteButton");
    }
    QStringList problems() const
    {
        const auto* list = preview()->findChild<QListWidget*>();
        QStringList texts;
        for (int row = 0; row < list->count(); ++row) {
            texts.append(list->item(row)->text());
        }
        return texts;
    }
};

REGISTER_TEST(TestMainWindowImport, InVirtualTime<QApplication>)

#include "tst_mainwindowimport.moc"

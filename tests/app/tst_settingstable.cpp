#include "app/settingstable/tableclipboard.h"
#include "app/settingstable/tablefilter.h"
#include "tests/app/tablerig.h"
#include "tests/support/testprogram.h"
#include "tests/support/views.h"

#include <QSignalSpy>

namespace {

using With = TableComparison::With;

LdbSettings settings(int address, const QString& name = {}, quint16 delay = 10)
{
    LdbSettings settings = factoryDefaults();
    settings.address = address;
    settings.name = name;
    settings.openDetectionDelay = delay;
    settings.numberOfFims = 20;
    return settings;
}

const QDateTime kAt = QDateTime::fromMSecsSinceEpoch(VirtualTime::kWallStart);

/// A table of four LDBs, read but for the last one.
class Table4 : public SettingsTableModel
{
public:
    Table4()
    {
        setLdbs({"01", "0A", "10", "FD"}, {"01", "0A", "10"});
        takeReading({"01", settings(1, "Hall"), "LDB 1.07"}, kAt);
        takeReading({"0A", settings(10, "Stairs"), "LDB 1.07"}, kAt);
        takeReading({"10", settings(16, "Roof", 12), "LDB 1.10"}, kAt);
        takeReading({"FD", std::nullopt, {}}, kAt);
    }
    QModelIndex cell(int row, LdbField field) const { return index(row, columnOf(field)); }
    QString text(int row, LdbField field) const { return cell(row, field).data().toString(); }
    bool set(int row, LdbField field, const QVariant& value)
    {
        return setData(cell(row, field), value,
                       kindOf(field) == FieldKind::Switch ? Qt::CheckStateRole : Qt::EditRole);
    }
    bool differs(int row, LdbField field) const
    {
        return cell(row, field).data(DiffersRole).toBool();
    }
};

const QString kArrow = QString::fromUtf8(" \xE2\x86\x92 ");
const QString kDone = QString::fromUtf8(" \xE2\x9C\x93");
const QString kUnequal = QString::fromUtf8("\xE2\x89\xA0 ");

} // namespace

/// The table of settings, without its window.
class TestSettingsTable : public TestCase
{
    Q_OBJECT
private slots:
    void showsWhatWasRead()
    {
        const Table4 table;
        QCOMPARE(columnTexts(table), (QStringList{"01", "0A", "10", "FD"}));
        QCOMPARE(table.text(0, LdbField::Name), "Hall");
        QCOMPARE(table.cell(2, LdbField::AudioMute).data(Qt::CheckStateRole).toInt(),
                 int{Qt::Unchecked});
        QCOMPARE(table.cell(2, LdbField::AudioMute).data(Qt::AccessibleTextRole).toString(), "off");
        QCOMPARE(table.index(1, SettingsTableModel::FirmwareColumn).data().toString(), "LDB 1.07");
        QCOMPARE(table
                     .headerData(SettingsTableModel::columnOf(LdbField::OpenDetectionDelay),
                                 Qt::Horizontal, Qt::DisplayRole)
                     .toString(),
                 "Open Detection Delay (s)");
        QCOMPARE(table.text(3, LdbField::Name), "");
        QCOMPARE(table.index(3, SettingsTableModel::StateColumn).data().toString(),
                 "not connected; did not answer");
        QVERIFY(!(table.flags(table.cell(3, LdbField::Name)) & Qt::ItemIsEditable));
    }

    void editsAndTakesBack()
    {
        Table4 table;
        QVERIFY(table.set(0, LdbField::OpenDetectionDelay, 15));
        QVERIFY(table.set(0, LdbField::AudioMute, Qt::Checked));
        QCOMPARE(table.text(0, LdbField::OpenDetectionDelay), "10" + kArrow + "15");
        QCOMPARE(table.text(0, LdbField::AudioMute),
                 QString::fromUtf8("\xE2\x98\x90") + kArrow + QString::fromUtf8("\xE2\x98\x91"));
        QCOMPARE(table.editCount(), 2);
        table.undoStack()->undo();
        QCOMPARE(table.editCount(), 1);
        table.undoStack()->redo();
        QCOMPARE(table.editCount(), 2);
        // The value that the LDB has is no edit.
        QVERIFY(table.set(0, LdbField::OpenDetectionDelay, 10));
        QCOMPARE(table.editCount(), 1);
        table.undoStack()->undo();
        QCOMPARE(table.text(0, LdbField::OpenDetectionDelay), "10" + kArrow + "15");
        // What no LDB can store is refused.
        QVERIFY(!table.set(0, LdbField::Name, "sixteen letters."));
        QVERIFY(!table.set(0, LdbField::NumberOfFims, 65536));
        QVERIFY(!table.set(0, LdbField::NumberOfFims, "many"));
        const auto changes = table.changes();
        QCOMPARE(changes.size(), std::size_t(1));
        QCOMPARE(changes[0].hexId, "01");
        QCOMPARE(changes[0].change.fields,
                 (std::vector{LdbField::OpenDetectionDelay, LdbField::AudioMute}));
        QCOMPARE(changes[0].change.basis->openDetectionDelay, quint16(10));
    }

    void severalAreOneStep()
    {
        Table4 table;
        std::vector<SettingsTableModel::CellEdit> edits;
        for (const char* hexId : {"01", "0A", "10", "FD"}) {
            edits.push_back({hexId, LdbField::OpenDetectionDelay, settings(0, {}, 12)});
        }
        table.edit(edits, "set");
        // The third one has it already, and of the last one that is not known.
        QCOMPARE(table.editCount(), 3);
        QCOMPARE(table.text(3, LdbField::OpenDetectionDelay), "?" + kArrow + "12");
        QCOMPARE(table.unreadEdits(), QStringList("FD"));
        QCOMPARE(table.changes().size(), std::size_t(2));
        QCOMPARE(table.undoStack()->count(), 1);
        table.undoStack()->undo();
        QCOMPARE(table.editCount(), 0);
        table.undoStack()->redo();
        // A row that is there for its edits alone goes with them.
        table.edit({{"80", LdbField::NumberOfFims, settings(0)}}, "of a file");
        QCOMPARE(columnTexts(table).at(3), "80");
        table.undoStack()->undo();
        QCOMPARE(table.rowCount(), 4);
        table.undoStack()->undo();
        // Reading ends an edit that the LDB turns out to have.
        table.undoStack()->redo();
        table.takeReading({"FD", settings(253, "Cellar", 12), {}}, kAt);
        QCOMPARE(table.editCount(), 2);
    }

    void anotherBusTakesNoEditsAway()
    {
        Table4 table;
        QVERIFY(table.set(0, LdbField::OpenDetectionDelay, 15));
        table.forget();
        QCOMPARE(columnTexts(table), QStringList("01"));
        QCOMPARE(table.editCount(), 1);
        QVERIFY(!table.undoStack()->canUndo());
    }

    void compares()
    {
        Table4 table;
        // Most have the delay of 10; no name is that of most.
        QVERIFY(table.differs(2, LdbField::OpenDetectionDelay));
        QCOMPARE(table.text(2, LdbField::OpenDetectionDelay), kUnequal + "12");
        QVERIFY(!table.differs(0, LdbField::OpenDetectionDelay));
        QVERIFY(!table.differs(0, LdbField::Name));
        // An edit counts, and can make another value that of most.
        QVERIFY(table.set(0, LdbField::OpenDetectionDelay, 12));
        QVERIFY(table.differs(1, LdbField::OpenDetectionDelay));
        QVERIFY(!table.differs(2, LdbField::OpenDetectionDelay));
        table.compareWith(With::Defaults);
        QVERIFY(table.differs(2, LdbField::OpenDetectionDelay));
        QVERIFY(!table.differs(2, LdbField::Name));
        QVERIFY(!table.differs(3, LdbField::OpenDetectionDelay)); // not known
        OtherSettings other{[] { return QString("x.csv"); }, {}, false};
        LdbSettings muted = settings(1, "Lobby");
        muted.audioMute = true;
        other.ldbs.emplace("01", muted);
        table.compareWithOther(other);
        QVERIFY(table.differs(0, LdbField::Name));
        QVERIFY(!table.differs(1, LdbField::Name));
        QVERIFY(!table.differs(0, LdbField::AudioMute)); // a file says nothing of it
        other.hasMute = true;
        table.compareWithOther(other);
        QVERIFY(table.differs(0, LdbField::AudioMute));
    }

    void sortsAndFilters()
    {
        Table4 table;
        TableFilter filter;
        filter.setSourceModel(&table);
        const int delay = SettingsTableModel::columnOf(LdbField::OpenDetectionDelay);
        QVERIFY(table.set(0, LdbField::OpenDetectionDelay, 9));
        filter.sort(delay, Qt::DescendingOrder); // by number: what is not known, 12, 10, 9
        QCOMPARE(columnTexts(filter), (QStringList{"FD", "10", "0A", "01"}));
        filter.sort(SettingsTableModel::LdbColumn);
        filter.setSearch("1.10");
        QCOMPARE(columnTexts(filter), QStringList("10"));
        filter.setSearch("STAIR");
        QCOMPARE(columnTexts(filter), QStringList("0A"));
        filter.setSearch({});
        filter.setShow(TableFilter::Show::Edited);
        QCOMPARE(columnTexts(filter), QStringList("01"));
        table.compareWith(With::Defaults);
        filter.setShow(TableFilter::Show::Differing);
        QCOMPARE(columnTexts(filter), (QStringList{"01", "10"}));
    }

    void copiesAndPastes()
    {
        Table4 table;
        const auto cells = [&](int row, LdbField from, int rows, int columns) {
            QModelIndexList found;
            for (int r = row; r < row + rows; ++r) {
                for (int c = 0; c < columns; ++c) {
                    found.append(table.index(r, SettingsTableModel::columnOf(from) + c));
                }
            }
            return found;
        };
        QVERIFY(table.set(0, LdbField::Name, "a \"b\""));
        const QString text = tableclipboard::copied(cells(0, LdbField::Name, 2, 4));
        QCOMPARE(text, "a \"b\"\t20\t10\ton\nStairs\t20\t10\ton\n");
        // Back where it came from it changes nothing.
        table.edit(tableclipboard::pasted(text, cells(0, LdbField::Name, 1, 1)).edits, "paste");
        QCOMPARE(table.editCount(), 1);
        // One value goes into all cells; switches are also numbers, and lines may end with CR LF.
        auto pasted = tableclipboard::pasted("0", cells(0, LdbField::GeneralFaultOutput, 3, 2));
        QVERIFY(!pasted.error);
        QCOMPARE(pasted.edits.size(), std::size_t(6));
        pasted =
            tableclipboard::pasted("\"x\"\"y\"\t7\r\nz\t8\r\n", cells(1, LdbField::Name, 1, 1));
        table.edit(pasted.edits, "paste");
        QCOMPARE(table.text(1, LdbField::Name), "Stairs" + kArrow + "x\"y");
        QCOMPARE(table.text(2, LdbField::NumberOfFims), "20" + kArrow + "8");
        // A delay comes with its unit, too, as a report has it; nothing else does.
        pasted = tableclipboard::pasted("12 s", cells(0, LdbField::OpenDetectionDelay, 1, 1));
        QVERIFY(!pasted.error);
        QVERIFY(tableclipboard::pasted("12 s", cells(0, LdbField::NumberOfFims, 1, 1)).error);
        // What is wrong, or too large, is not pasted by halves.
        pasted = tableclipboard::pasted("5\nmany\n", cells(0, LdbField::NumberOfFims, 1, 1));
        QCOMPARE(pasted.error(), "\"many\" cannot be the value of Number of FIM's of LDB 0A. "
                                 "Nothing was pasted.");
        QVERIFY(pasted.edits.empty());
        QVERIFY(tableclipboard::pasted("5\n6\n", cells(3, LdbField::NumberOfFims, 1, 1)).error);
    }

    void readsAndSaysWhoDidNotAnswer()
    {
        TableRig rig({"01", "0A", "10"});
        QVERIFY(rig.bus.scan(rig.link));
        rig.bus.answerTo("0A", "737201", "");
        QVERIFY(rig.readAll());
        QCOMPARE(rig.shown("01", LdbField::Name), "LDB 01");
        QCOMPARE(rig.row("01").firmwareId, "LDB 1.07");
        QCOMPARE(rig.row("0A").reading, TableRow::Reading::Unanswered);
        rig.bus.setScript({});
        rig.reading.read({"0A"}); // alone
        WAIT_VERIFY(!rig.reading.isOn());
        QCOMPARE(rig.row("0A").reading, TableRow::Reading::Read);
    }

    void stopsReading()
    {
        QStringList ldbs;
        for (int address = 1; address <= 40; ++address) {
            ldbs.append(busaddress::toHexId(address));
        }
        TableRig rig(ldbs);
        QVERIFY(rig.bus.scan(rig.link));
        QObject::connect(&rig.reading, &TableReading::progressChanged, &rig.reading,
                         [&rig](int left) {
                             if (left == 38) {
                                 rig.reading.stop();
                             }
                         });
        QVERIFY(rig.readAll());
        const auto& rows = rig.model.rows();
        const auto read = std::count_if(rows.begin(), rows.end(),
                                        [](const TableRow& row) { return row.read.has_value(); });
        QVERIFY2(read >= 2 && read <= 12, qPrintable(QString::number(read)));
        QCOMPARE(rows.back().reading, TableRow::Reading::Never);
    }

    void cellsEndAsTheyShould_data()
    {
        addColumns<QByteArray, int, QString>("answer", "outcome", "text");
        const auto row = [](const char* tag, const QByteArray& answer, FieldOutcome outcome,
                            const QString& text) {
            QTest::newRow(tag) << answer << static_cast<int>(outcome) << text;
        };
        row("written", "-", FieldOutcome::Written, "15" + kDone);
        row("refused", "\x15", FieldOutcome::Refused, "refused: 10" + kArrow + "15");
        row("silent", "", FieldOutcome::NotAnswered, "not answered: 10" + kArrow + "15");
        row("not taken over", "\x06", FieldOutcome::Differs, "differs: 10" + kArrow + "15");
    }

    void cellsEndAsTheyShould()
    {
        QFETCH(QByteArray, answer);
        QFETCH(int, outcome);
        QFETCH(QString, text);
        TableRig rig({"01", "0A"});
        QVERIFY(rig.bus.scan(rig.link));
        QVERIFY(rig.readAll());
        rig.edit("01", LdbField::OpenDetectionDelay, 15);
        rig.edit("0A", LdbField::NumberOfFims, 30);
        if (answer != "-") {
            rig.bus.answerTo("01", "736317", answer);
        }
        rig.bus.clearRequests();
        QVERIFY(rig.write(rig.model.changes()));
        QVERIFY(rig.shown("01", LdbField::OpenDetectionDelay).endsWith(text));
        QCOMPARE(static_cast<int>(rig.row("01").outcomes.at(LdbField::OpenDetectionDelay)),
                 outcome);
        // The other LDB is written all the same, and nothing but what was edited in either.
        QCOMPARE(rig.shown("0A", LdbField::NumberOfFims), "30" + kDone);
        for (const QByteArray& write : rig.bus.writes()) {
            QVERIFY2(
                QByteArrayList({"FE017363170F00", "FE01737806", "FE0A7363031E00", "FE0A737806"})
                    .contains(write),
                write.constData());
        }
    }

    void leavesAnLdbAloneThatChanged()
    {
        TableRig rig({"01", "0A"});
        QVERIFY(rig.bus.scan(rig.link));
        QVERIFY(rig.readAll());
        rig.edit("01", LdbField::OpenDetectionDelay, 15);
        rig.edit("0A", LdbField::OpenDetectionDelay, 15);
        const auto changes = rig.model.changes();
        rig.bus.change("01", "03", "1E00"); // another field, by somebody else
        QVERIFY(rig.write(changes));
        QCOMPARE(rig.boards("01").openDetectionDelay, quint16(10));
        QCOMPARE(rig.shown("01", LdbField::OpenDetectionDelay), "left alone: 10" + kArrow + "15");
        QCOMPARE(rig.shown("01", LdbField::NumberOfFims), "30");
        QCOMPARE(rig.boards("0A").openDetectionDelay, quint16(15));
        // It has been read meanwhile: confirmed anew, it is written.
        QVERIFY(rig.write(rig.model.changes()));
        QCOMPARE(rig.boards("01").openDetectionDelay, quint16(15));
    }

    void stopsBehindTheLdbUnderWay()
    {
        TableRig rig({"01", "02", "03"});
        QVERIFY(rig.bus.scan(rig.link));
        QVERIFY(rig.readAll());
        for (const QString& hexId : rig.ldbs) {
            rig.edit(hexId, LdbField::NumberOfFims, 30);
        }
        rig.bus.setScript([&rig](const QByteArray& body) -> std::optional<QByteArray> {
            if (body.startsWith("FE02736303")) {
                rig.writing.stop();
            }
            return std::nullopt;
        });
        QVERIFY(rig.write(rig.model.changes()));
        QCOMPARE(rig.shown("02", LdbField::NumberOfFims), "30" + kDone);
        QCOMPARE(rig.shown("03", LdbField::NumberOfFims), "20" + kArrow + "30");
        QVERIFY(rig.writing.open().empty()); // the user wanted it so
    }

    void goesOnAfterALostPort()
    {
        TableRig rig({"01", "02", "03"});
        QVERIFY(rig.bus.scan(rig.link));
        QVERIFY(rig.readAll());
        for (const QString& hexId : rig.ldbs) {
            rig.edit(hexId, LdbField::NumberOfFims, 30);
            rig.edit(hexId, LdbField::OpenDetectionDelay, 12);
        }
        rig.bus.setScript([&rig](const QByteArray& body) -> std::optional<QByteArray> {
            if (body.startsWith("FE02736303")) {
                rig.bus.cut();
            }
            return std::nullopt;
        });
        const ExpectWarning warning("^Port ");
        QVERIFY(rig.write(rig.model.changes()));
        rig.link.stop();
        QCOMPARE(rig.shown("01", LdbField::NumberOfFims), "30" + kDone);
        QVERIFY(rig.row("02").doubtful.count(LdbField::OpenDetectionDelay) > 0);
        QCOMPARE(rig.model.changes().size(), std::size_t(2));
        QVERIFY(!rig.writing.write({}));
        rig.bus.setScript({});
        rig.bus.restore();
        QVERIFY(rig.bus.scan(rig.link));
        const auto open = rig.writing.open();
        QCOMPARE(open.size(), std::size_t(2));
        QVERIFY(rig.write(open));
        QCOMPARE(rig.model.editCount(), 0);
        QCOMPARE(rig.boards("02").numberOfFims, quint16(30));
        QCOMPARE(rig.boards("03").openDetectionDelay, quint16(12));
        // What the user has changed since is not what he has confirmed.
        QVERIFY(rig.writing.open().empty());
    }
};

REGISTER_TEST(TestSettingsTable, InVirtualTime<QGuiApplication>)
#include "tst_settingstable.moc"

#include "app/ldbsettings/ldbsettingsedit.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(LdbField)

namespace {

LdbSettings someRecord()
{
    LdbSettings record;
    record.address = 10;
    record.name = "Hall";
    record.earthWireOpenDetection = true;
    record.startInServiceMode = true;
    record.audioMute = true;
    record.openDetectionDelay = 25;
    record.numberOfFims = 12;
    record.furtherByte = 0x5A;
    return record;
}

/// The same LDB with every field another.
LdbSettings otherRecord()
{
    LdbSettings record;
    record.address = 10;
    record.name = "Cellar";
    record.generalFaultOutput = true;
    record.earthLeakageDetection = true;
    record.amplifierDetection = true;
    record.openDetectionDelay = 40;
    record.numberOfFims = 30;
    return record;
}

std::vector<LdbField> changedFields(const LdbSettingsEdit& edit)
{
    std::vector<LdbField> fields;
    for (const LdbField field : kLdbFields) {
        if (edit.isChanged(field)) {
            fields.push_back(field);
        }
    }
    return fields;
}

LdbSettings named(const char* name)
{
    LdbSettings settings;
    settings.name = name;
    return settings;
}

LdbSettings delayed(quint16 delay)
{
    LdbSettings settings;
    settings.openDetectionDelay = delay;
    return settings;
}

} // namespace

class TestLdbSettingsEdit : public TestCase
{
    Q_OBJECT
private slots:
    void editedFieldStaysUntilUndone_data()
    {
        QTest::addColumn<LdbField>("field");
        for (const LdbField field : kLdbFields) {
            QTest::newRow(qPrintable(fieldName(field))) << field;
        }
    }

    void editedFieldStaysUntilUndone()
    {
        QFETCH(LdbField, field);
        LdbSettingsEdit edit;
        edit.receive(someRecord());
        QCOMPARE(edit.changeCount(), 0);
        edit.edit(field, otherRecord());
        QCOMPARE(changedFields(edit), std::vector<LdbField>{field});
        QCOMPARE(edit.changeCount(), 1);
        QVERIFY(isSameField(field, edit.values(), otherRecord()));
        QVERIFY(isSameField(field, edit.record(), someRecord()));

        // The LDB comes to have the same: no change any more, but an edit that the next one leaves.
        edit.receive(otherRecord());
        QCOMPARE(edit.changeCount(), 0);
        QCOMPARE(differingFields(edit.values(), otherRecord()), std::vector<LdbField>());
        LdbSettings third = someRecord();
        third.name = "Roof";
        third.openDetectionDelay = 7;
        third.numberOfFims = 8;
        edit.receive(third);
        QCOMPARE(changedFields(edit), std::vector<LdbField>{field});
        QVERIFY(isSameField(field, edit.values(), otherRecord()));

        edit.undo();
        QCOMPARE(edit.changeCount(), 0);
        QCOMPARE(differingFields(edit.values(), third), std::vector<LdbField>());
        edit.receive(otherRecord());
        QCOMPARE(differingFields(edit.values(), otherRecord()), std::vector<LdbField>());
    }

    void defaultsSurviveARecord()
    {
        // The first record has some of the defaults already: they were wanted all the same.
        LdbSettingsEdit edit;
        edit.receive(otherRecord());
        edit.setDefaults();
        QVERIFY(edit.openDetection());
        const LdbSettings defaults = edit.values();
        edit.receive(someRecord());
        QCOMPARE(differingFields(edit.values(), defaults),
                 (std::vector<LdbField>{LdbField::Name, LdbField::NumberOfFims}));
        QCOMPARE(edit.values().name, someRecord().name);
        QCOMPARE(edit.values().numberOfFims, someRecord().numberOfFims);
        QCOMPARE(edit.changeCount(), static_cast<int>(kLdbFields.size()) - 2);
        edit.undo();
        QCOMPARE(edit.changeCount(), 0);
    }

    void overtakenByAnother_data()
    {
        // What the records that come after the edit have as the name, in order.
        const Table<QStringList, bool> row("names", "isOvertaken");
        row("as before", {"Hall"}, false);
        row("another", {"Shed"}, true);
        row("the wanted one", {"Roof"}, false);
        row("another, then the wanted one", {"Shed", "Roof"}, false);
        row("another, which stays", {"Shed", "Shed"}, true);
    }

    void overtakenByAnother()
    {
        QFETCH(QStringList, names);
        QFETCH(bool, isOvertaken);
        LdbSettingsEdit edit;
        edit.receive(someRecord());
        edit.edit(LdbField::Name, named("Roof"));
        LdbSettings record = otherRecord();
        for (const QString& name : names) {
            record.name = name;
            edit.receive(record);
        }
        for (const LdbField field : kLdbFields) {
            QCOMPARE(edit.isOvertaken(field), isOvertaken && field == LdbField::Name);
        }
        // The user decides anew.
        edit.edit(LdbField::Name, named("Roof 2"));
        QVERIFY(!edit.isOvertaken(LdbField::Name));
        QCOMPARE(edit.change().fields, std::vector<LdbField>{LdbField::Name});
        QCOMPARE(edit.change().basis->name, names.constLast());
    }

    void openDetectionBringsTheDelayBack_data()
    {
        // "typed": -1: nothing
        const Table<int, int, int, bool> row("recorded", "typed", "back", "isChangedBack");
        row("the record's", 25, -1, 25, false);
        row("the user's", 25, 300, 300, true);
        row("a delay of 0 typed", 25, 0, 0, true);
        row("none before", 0, -1, 10, true);
    }

    void openDetectionBringsTheDelayBack()
    {
        QFETCH(int, recorded);
        QFETCH(int, typed);
        QFETCH(int, back);
        QFETCH(bool, isChangedBack);
        LdbSettingsEdit edit;
        edit.receive(delayed(static_cast<quint16>(recorded)));
        QCOMPARE(edit.openDetection(), recorded != 0);
        if (typed >= 0) {
            edit.edit(LdbField::OpenDetectionDelay, delayed(static_cast<quint16>(typed)));
            QVERIFY(edit.openDetection());
        }
        edit.setOpenDetection(false);
        QVERIFY(!edit.openDetection());
        QCOMPARE(int(edit.values().openDetectionDelay), 0);
        QCOMPARE(edit.isChanged(LdbField::OpenDetectionDelay), recorded != 0);
        edit.setOpenDetection(true);
        QVERIFY(edit.openDetection());
        QCOMPARE(int(edit.values().openDetectionDelay), back);
        QCOMPARE(edit.isChanged(LdbField::OpenDetectionDelay), isChangedBack);
    }

    void recordAfterSave_data()
    {
        // "editedSince": empty: nothing
        const Table<bool, QString, QString, QString> row("isComplete", "reported", "editedSince",
                                                         "shown");
        const QString roof = "Roof";
        const QString hall = "Hall";
        const QString shed = "Shed";
        const QString attic = "Attic";
        row("taken over", true, roof, {}, roof);
        row("something else made of it", true, shed, {}, shed);
        row("refused", false, hall, {}, roof);
        row("unanswered but taken over", false, roof, {}, roof);
        row("taken over, edited since", true, roof, attic, attic);
        row("refused, edited since", false, hall, attic, attic);
        row("taken over, put back since", true, roof, hall, hall);
    }

    void recordAfterSave()
    {
        QFETCH(bool, isComplete);
        QFETCH(QString, reported);
        QFETCH(QString, editedSince);
        QFETCH(QString, shown);
        LdbSettingsEdit edit;
        edit.receive(someRecord());
        edit.edit(LdbField::Name, named("Roof"));
        const LdbSettings written = edit.values();
        edit.beginSave();
        LdbSettings record = someRecord();
        if (!editedSince.isEmpty()) {
            record.name = editedSince;
            edit.edit(LdbField::Name, record);
        }
        record.name = reported;
        edit.receiveAfterSave(record, written, isComplete);
        QCOMPARE(edit.values().name, shown);
        QCOMPARE(edit.isChanged(LdbField::Name), shown != reported);

        // Only what is still an edit survives another record.
        edit.receive(otherRecord());
        QCOMPARE(edit.values().name, shown != reported ? shown : otherRecord().name);
        // With the Save over, putting a field back ends its edit again.
        edit.edit(LdbField::Name, otherRecord());
        edit.receive(someRecord());
        QCOMPARE(edit.values().name, someRecord().name);
    }
};

REGISTER_TEST(TestLdbSettingsEdit, QCoreApplication)

#include "tst_ldbsettingsedit.moc"

#include "app/ldbsettings/ldbsettingsedit.h"
#include "tests/support/testcase.h"
#include "tests/support/testprogram.h"

Q_DECLARE_METATYPE(LdbField)

namespace {

LdbSettings someRecord()
{
    LdbSettings record;
    record.address = 10;
    record.name = QStringLiteral("Hall");
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
    record.name = QStringLiteral("Cellar");
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
    settings.name = QString::fromLatin1(name);
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
    void editedFieldStaysUntilUndone_data();
    void editedFieldStaysUntilUndone();
    void defaultsSurviveARecord();
    void openDetectionBringsTheDelayBack_data();
    void openDetectionBringsTheDelayBack();
    void recordAfterSave_data();
    void recordAfterSave();
};

void TestLdbSettingsEdit::editedFieldStaysUntilUndone_data()
{
    QTest::addColumn<LdbField>("field");
    for (const LdbField field : kLdbFields) {
        QTest::newRow(qPrintable(fieldName(field))) << field;
    }
}

void TestLdbSettingsEdit::editedFieldStaysUntilUndone()
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
    third.name = QStringLiteral("Roof");
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

void TestLdbSettingsEdit::defaultsSurviveARecord()
{
    // The first record has some of the defaults already: they were wanted all the same.
    LdbSettingsEdit edit;
    edit.receive(otherRecord());
    edit.setDefaults();
    QVERIFY(edit.openDetection());
    const LdbSettings defaults = edit.values();
    edit.receive(someRecord());
    QCOMPARE(differingFields(edit.values(), defaults), std::vector<LdbField>{LdbField::NumberOfFims});
    QCOMPARE(edit.values().numberOfFims, someRecord().numberOfFims);
    QCOMPARE(edit.changeCount(), static_cast<int>(kLdbFields.size()) - 1);
    edit.undo();
    QCOMPARE(edit.changeCount(), 0);
}

void TestLdbSettingsEdit::openDetectionBringsTheDelayBack_data()
{
    // "typed": -1: nothing
    addColumns<int, int, int, bool>("recorded", "typed", "back", "isChangedBack");
    QTest::newRow("the record's") << 25 << -1 << 25 << false;
    QTest::newRow("the user's") << 25 << 300 << 300 << true;
    QTest::newRow("a delay of 0 typed") << 25 << 0 << 0 << true;
    QTest::newRow("none before") << 0 << -1 << 10 << true;
}

void TestLdbSettingsEdit::openDetectionBringsTheDelayBack()
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

void TestLdbSettingsEdit::recordAfterSave_data()
{
    // "editedSince": empty: nothing
    addColumns<bool, QString, QString, QString>("isComplete", "reported", "editedSince", "shown");
    const QString roof = QStringLiteral("Roof");
    const QString hall = QStringLiteral("Hall");
    const QString shed = QStringLiteral("Shed");
    const QString attic = QStringLiteral("Attic");
    QTest::newRow("taken over") << true << roof << QString() << roof;
    QTest::newRow("something else made of it") << true << shed << QString() << shed;
    QTest::newRow("refused") << false << hall << QString() << roof;
    QTest::newRow("unanswered but taken over") << false << roof << QString() << roof;
    QTest::newRow("taken over, edited since") << true << roof << attic << attic;
    QTest::newRow("refused, edited since") << false << hall << attic << attic;
    QTest::newRow("taken over, put back since") << true << roof << hall << hall;
}

void TestLdbSettingsEdit::recordAfterSave()
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

REGISTER_TEST(TestLdbSettingsEdit, QCoreApplication)

#include "tst_ldbsettingsedit.moc"

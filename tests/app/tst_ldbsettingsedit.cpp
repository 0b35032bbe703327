#include "app/settingseditor/ldbnamevalidator.h"
#include "app/settingseditor/ldbsettingsedit.h"
#include "tests/support/testcase.h"

#include <QTextCodec>

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

QList<LdbField> differingFields(const LdbSettings& a, const LdbSettings& b)
{
    QList<LdbField> fields;
    for (const LdbField field : kLdbFields) {
        if (!isSameField(field, a, b)) {
            fields.append(field);
        }
    }
    return fields;
}

QList<LdbField> changedFields(const LdbSettingsEdit& edit)
{
    QList<LdbField> fields;
    for (const LdbField field : kLdbFields) {
        if (edit.isChanged(field)) {
            fields.append(field);
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

void addFieldRows()
{
    QTest::addColumn<LdbField>("field");
    for (const LdbField field : kLdbFields) {
        QTest::newRow(qPrintable(fieldName(field))) << field;
    }
}

} // namespace

class TestLdbSettingsEdit : public TestCase
{
    Q_OBJECT
protected slots:
    void cleanup() override
    {
        QTextCodec::setCodecForLocale(m_localCodec);
        TestCase::cleanup();
    }
private slots:
    void editedFieldIsMarkedAndUndone_data() { addFieldRows(); }
    void editedFieldIsMarkedAndUndone();
    void editedFieldSurvivesARecord_data() { addFieldRows(); }
    void editedFieldSurvivesARecord();
    void fieldPutBackIsNoEdit();
    void undoTakesTheLatestRecord();
    void undoWithoutRecordGivesNone();
    void defaults();
    void defaultsSurviveARecord();
    void openDetectionBringsTheDelayBack_data();
    void openDetectionBringsTheDelayBack();
    void openDetectionStaysOffUnderARecord();
    void recordAfterSave_data();
    void recordAfterSave();
    void fieldPutBackDuringSaveStays();
    void clearForgetsEverything();
    void nameThatFits_data();
    void nameThatFits();

private:
    QTextCodec* m_localCodec = QTextCodec::codecForLocale();
};

void TestLdbSettingsEdit::editedFieldIsMarkedAndUndone()
{
    QFETCH(LdbField, field);
    LdbSettingsEdit edit;
    edit.receive(someRecord());
    QCOMPARE(edit.changeCount(), 0);

    edit.edit(field, otherRecord());
    QCOMPARE(changedFields(edit), QList<LdbField>{field});
    QCOMPARE(edit.changeCount(), 1);
    QVERIFY(isSameField(field, edit.values(), otherRecord()));
    QVERIFY(isSameField(field, edit.record(), someRecord()));

    edit.undo();
    QCOMPARE(edit.changeCount(), 0);
    QCOMPARE(differingFields(edit.values(), someRecord()), QList<LdbField>());
}

void TestLdbSettingsEdit::editedFieldSurvivesARecord()
{
    QFETCH(LdbField, field);
    LdbSettingsEdit edit;
    edit.receive(someRecord());
    LdbSettings typed = someRecord();
    typed.name = QStringLiteral("Roof");
    typed.openDetectionDelay = 7;
    typed.numberOfFims = 8;
    // A flag has but two values: this one is what the new record brings.
    const bool isFlag = isSameField(field, typed, someRecord());
    edit.edit(field, isFlag ? otherRecord() : typed);

    edit.receive(otherRecord());
    QCOMPARE(changedFields(edit), isFlag ? QList<LdbField>() : QList<LdbField>{field});
    QCOMPARE(differingFields(edit.values(), otherRecord()), changedFields(edit));
    QCOMPARE(differingFields(edit.record(), otherRecord()), QList<LdbField>());

    // It has been touched, so no further record takes it away either.
    edit.receive(someRecord());
    QCOMPARE(changedFields(edit), QList<LdbField>{field});
    QVERIFY(isSameField(field, edit.values(), isFlag ? otherRecord() : typed));
}

void TestLdbSettingsEdit::fieldPutBackIsNoEdit()
{
    LdbSettingsEdit edit;
    edit.receive(someRecord());
    edit.edit(LdbField::Name, named("Roof"));
    edit.edit(LdbField::Name, someRecord());
    edit.receive(otherRecord());
    QCOMPARE(edit.values().name, otherRecord().name);
}

void TestLdbSettingsEdit::undoTakesTheLatestRecord()
{
    LdbSettingsEdit edit;
    edit.receive(someRecord());
    edit.edit(LdbField::Name, named("Roof"));
    edit.receive(otherRecord());
    edit.undo();
    QCOMPARE(edit.values().name, otherRecord().name);
    edit.receive(someRecord());
    QCOMPARE(edit.values().name, someRecord().name);
}

void TestLdbSettingsEdit::undoWithoutRecordGivesNone()
{
    LdbSettingsEdit edit;
    edit.undo();
    QVERIFY(!edit.hasRecord());
}

void TestLdbSettingsEdit::defaults()
{
    LdbSettingsEdit edit;
    edit.receive(someRecord());
    edit.setDefaults();
    const LdbSettings values = edit.values();
    QCOMPARE(values.name, QString());
    QCOMPARE(values.generalFaultOutput, true);
    QCOMPARE(edit.openDetection(), true);
    QCOMPARE(values.openDetectionDelay, quint16(10));
    QCOMPARE(values.earthLeakageDetection, true);
    QCOMPARE(values.earthWireOpenDetection, false);
    QCOMPARE(values.startInServiceMode, false);
    QCOMPARE(values.audioMute, false);
    QCOMPARE(values.amplifierDetection, true);
    QCOMPARE(values.numberOfFims, someRecord().numberOfFims);
    QVERIFY(!edit.isChanged(LdbField::NumberOfFims));
    QCOMPARE(edit.changeCount(), static_cast<int>(kLdbFields.size()) - 1);
}

void TestLdbSettingsEdit::defaultsSurviveARecord()
{
    // The first record has some of the defaults already: they were wanted all the same.
    LdbSettingsEdit edit;
    edit.receive(otherRecord());
    edit.setDefaults();
    const LdbSettings defaults = edit.values();
    edit.receive(someRecord());
    QCOMPARE(differingFields(edit.values(), defaults), QList<LdbField>{LdbField::NumberOfFims});
    QCOMPARE(edit.values().numberOfFims, someRecord().numberOfFims);
    edit.undo();
    QCOMPARE(edit.changeCount(), 0);
}

void TestLdbSettingsEdit::openDetectionBringsTheDelayBack_data()
{
    QTest::addColumn<int>("recorded");
    QTest::addColumn<int>("typed"); // -1: nothing
    QTest::addColumn<int>("back");
    QTest::addColumn<bool>("isChangedBack");
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

void TestLdbSettingsEdit::openDetectionStaysOffUnderARecord()
{
    LdbSettingsEdit edit;
    edit.receive(delayed(25));
    edit.setOpenDetection(false);
    edit.receive(delayed(40));
    QVERIFY(!edit.openDetection());
    QCOMPARE(int(edit.values().openDetectionDelay), 0);
    edit.setOpenDetection(true);
    QCOMPARE(int(edit.values().openDetectionDelay), 25);
    edit.undo();
    QCOMPARE(int(edit.values().openDetectionDelay), 40);
}

void TestLdbSettingsEdit::recordAfterSave_data()
{
    QTest::addColumn<bool>("isComplete");
    QTest::addColumn<QString>("reported");
    QTest::addColumn<bool>("editedAfterwards");
    QTest::addColumn<QString>("shown");
    const QString roof = QStringLiteral("Roof");
    const QString hall = QStringLiteral("Hall");
    const QString shed = QStringLiteral("Shed");
    QTest::newRow("taken over") << true << roof << false << roof;
    QTest::newRow("something else made of it") << true << shed << false << shed;
    QTest::newRow("refused") << false << hall << false << roof;
    QTest::newRow("unanswered but taken over") << false << roof << false << roof;
    QTest::newRow("taken over, edited since") << true << roof << true << QStringLiteral("Attic");
    QTest::newRow("refused, edited since") << false << hall << true << QStringLiteral("Attic");
}

void TestLdbSettingsEdit::recordAfterSave()
{
    QFETCH(bool, isComplete);
    QFETCH(QString, reported);
    QFETCH(bool, editedAfterwards);
    QFETCH(QString, shown);
    LdbSettingsEdit edit;
    edit.receive(someRecord());
    edit.edit(LdbField::Name, named("Roof"));
    const LdbSettings written = edit.values();
    edit.beginSave();
    if (editedAfterwards) {
        edit.edit(LdbField::Name, named("Attic"));
    }
    LdbSettings record = someRecord();
    record.name = reported;
    edit.receiveAfterSave(record, written, isComplete);
    QCOMPARE(edit.values().name, shown);
    QCOMPARE(edit.isChanged(LdbField::Name), shown != reported);

    // Only what is still an edit survives another record.
    edit.receive(otherRecord());
    QCOMPARE(edit.values().name, shown != reported ? shown : otherRecord().name);
}

void TestLdbSettingsEdit::fieldPutBackDuringSaveStays()
{
    LdbSettingsEdit edit;
    edit.receive(someRecord());
    edit.edit(LdbField::Name, named("Roof"));
    const LdbSettings written = edit.values();
    edit.beginSave();
    edit.edit(LdbField::Name, someRecord());
    LdbSettings record = someRecord();
    record.name = written.name;
    edit.receiveAfterSave(record, written, true);
    QCOMPARE(edit.values().name, someRecord().name);
    QVERIFY(edit.isChanged(LdbField::Name));

    // With the Save over, putting a field back ends its edit again.
    edit.edit(LdbField::Name, written);
    edit.receive(otherRecord());
    QCOMPARE(edit.values().name, otherRecord().name);
}

void TestLdbSettingsEdit::clearForgetsEverything()
{
    LdbSettingsEdit edit;
    edit.receive(someRecord());
    edit.edit(LdbField::Name, named("Roof"));
    edit.clear();
    QVERIFY(!edit.hasRecord());
    QCOMPARE(edit.values().name, QString());
    edit.receive(otherRecord());
    QCOMPARE(edit.changeCount(), 0);
    QCOMPARE(edit.values().name, otherRecord().name);
}

void TestLdbSettingsEdit::nameThatFits_data()
{
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("fits");
    const QChar umlaut(0xFC);
    const QChar omega(0x03A9);
    const QString ascii14(14, QLatin1Char('a'));
    QTest::newRow("empty") << QByteArray("UTF-8") << QString() << true;
    QTest::newRow("15 bytes") << QByteArray("UTF-8") << ascii14 + QLatin1Char('b') << true;
    QTest::newRow("16 bytes") << QByteArray("UTF-8") << ascii14 + QLatin1String("bc") << false;
    QTest::newRow("15 bytes, the last two a character")
        << QByteArray("UTF-8") << ascii14.mid(1) + umlaut << true;
    QTest::newRow("15 characters of 16 bytes") << QByteArray("UTF-8") << ascii14 + umlaut << false;
    QTest::newRow("15 characters of a byte each")
        << QByteArray("ISO-8859-1") << ascii14 + umlaut << true;
    QTest::newRow("not in the encoding") << QByteArray("ISO-8859-1") << QString(omega) << false;
    QTest::newRow("ended by a zero")
        << QByteArray("UTF-8") << QStringLiteral("a") + QChar(QChar::Null) + QLatin1Char('b')
        << false;
}

void TestLdbSettingsEdit::nameThatFits()
{
    QFETCH(QByteArray, encoding);
    QFETCH(QString, name);
    QFETCH(bool, fits);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName(encoding));
    const LdbNameValidator validator;
    const QString before = name;
    int position = name.size();
    QCOMPARE(validator.validate(name, position),
             fits ? QValidator::Acceptable : QValidator::Invalid);
    QCOMPARE(name, before);
}

QTEST_GUILESS_MAIN(TestLdbSettingsEdit)

#include "tst_ldbsettingsedit.moc"

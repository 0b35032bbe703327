#pragma once

#include "app/ldbsettings/ldbsettingsedit.h"
#include "app/shared/enabledcontrols.h"
#include "history/formersettings.h"
#include "importexport/settingswriter.h"

#include <QHash>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>

class Notices;
class SerialLink;
class SettingsFields;

namespace Ui {
class LdbSettingsEditor;
}

/// Shows the stored settings of the selected LDB and writes them back. Save and Default stay off
/// until that LDB's own record has come; answers of other LDBs change nothing. Fields that differ
/// from the record are marked, in bold and in words. What a Save has not brought into the LDB stays
/// in sight until the next one.
class LdbSettingsEditor : public QWidget
{
    Q_OBJECT
public:
    explicit LdbSettingsEditor(QWidget* parent = nullptr);
    ~LdbSettingsEditor() override;

    /// The bus to read from and write to, and who tells the user; once, before anything is
    /// selected. Both outlive the editor's use.
    void init(SerialLink* link, Notices* notices);

    /// What is said of the settings, with the buttons. It may be shown elsewhere, where it stays in
    /// sight while the fields are scrolled.
    QWidget* footer() const;

    /// Where what an LDB had before a Save is kept from now on.
    void setFormerSettings(const FormerSettingsStore& store) { m_formerSettings = store; }

    /// Ends the edits and empties the editor until this LDB's record comes, also when it is the one
    /// that was selected already. One that is not connected shows what was read last. An empty id
    /// selects none. A Save under way goes on.
    void setSelectedLdb(const QString& hexId);

    bool hasUnsavedChanges() const { return m_edit.changeCount() > 0; }
    /// Goes on at once where nothing is lost by it. Otherwise the user is asked, and it goes on
    /// after Discard or a good Save; or `stay` runs.
    void leave(const std::function<void()>& goOn, const std::function<void()>& stay = {});
    /// Ends the edits and says which they were, where the user cannot be asked.
    void drop();

    /// Forgets what was read so far: another bus has other LDBs at the same addresses.
    void forget();

    /// Asks the selected LDB for its record and its firmware id.
    void requestSettings();

    /// The buttons also need a record, and no Save under way.
    void apply(const EnabledControls& controls);

    const LdbSettingsEdit& edit() const { return m_edit; }

public slots:
    // What LDB `hexId` answered; empty when nothing came. Of another LDB than the selected one
    // nothing is shown, nor a record that names another address.
    void processLdbSettings(const QString& hexId, const QByteArray& answer);
    void processFirmwareId(const QString& hexId, const QByteArray& answer);

signals:
    /// A Save begins, or its last command has its reply.
    void savingChanged(bool saving);
    /// A Save has ended, in whatever way.
    void saved(const SettingsOutcome& outcome);

protected:
    void changeEvent(QEvent* event) override;

private slots:
    void on_settingsSaveButton_clicked();
    void on_settingsUndoButton_clicked();
    void on_settingsDefaultButton_clicked();
    void on_settingsOpenDetectionDelayCheckBox_toggled(bool checked);
    void on_settingsOpenDetectionDelaySpinBox_valueChanged(int value);
    void on_settingsNumberOfFimsSpinBox_valueChanged(int value);
    void on_settingsNameLineEdit_textChanged(const QString& name);

private:
    bool isSaving() const { return m_writer && m_writer->isWriting(); }
    void save();
    void processCompared();
    void keepFormer(const LdbSettings& fresh);
    void processWritten();
    void processSaved();
    void tellOutcome();
    void showLastRead();
    /// Null while none is shown.
    const SettingsOutcome* failedSave() const;
    void endLeaving(bool isSaved);
    void refresh();
    void showState();
    template <typename Value>
    void change(LdbField field, Value LdbSettings::*member, const Value& value);
    void updateButtons();
    QString recordText() const;

    std::unique_ptr<Ui::LdbSettingsEditor> ui;
    std::unique_ptr<SettingsFields> m_fields; ///< of `ui`
    SerialLink* m_link = nullptr;
    Notices* m_notices = nullptr;
    FormerSettingsStore m_formerSettings;
    std::unique_ptr<SettingsWriter> m_writer; ///< of the last Save
    LdbSettingsEdit m_edit;
    QString m_hexId;
    bool m_isUnanswered = false; ///< the settings were asked for, and nothing came
    bool m_hasFailed = false;    ///< the last Save of this LDB, and it is still shown
    QHash<QString, LdbSettings> m_lastRead;
    std::function<void()> m_afterSave; ///< when all is saved
    std::function<void()> m_afterFailedSave;
    EnabledControls m_allowed;
};

#pragma once

#include "app/preferences/languageloader.h"
#include "app/preferences/portdetails.h"

#include <QDialog>

#include <functional>
#include <memory>

class QComboBox;

namespace Ui {
class SettingsMenu;
}

/// What the program is built on, who owns it and what is not warranted. Modal, of fixed size.
class AboutDialog : public QDialog
{
    Q_OBJECT
public:
    /// Takes the colours of `parent`.
    explicit AboutDialog(QWidget* parent);
};

/// Where the settings dialog finds its choices.
struct SettingsSources
{
    std::function<QList<PortDetails>()> ports = systemPorts;
    /// Absolute path of the folder of the translation files.
    QString translationsFolder = LanguageLoader::defaultFolder();
};

/// The dialog for serial port, language and warning sound, all kept in the per-user settings. It
/// puts the stored language in force when it is made and keeps it so while it lives. GUI thread.
class SettingsMenu : public QDialog
{
    Q_OBJECT
public:
    explicit SettingsMenu(QWidget* parent = nullptr, SettingsSources sources = SettingsSources());
    ~SettingsMenu() override;

public slots:
    /// The stored port; "Unknown COM port", translated, when none is.
    QString getComPort() const;
    /// Stores what has changed, puts the language in force and closes.
    void on_okButton_clicked();
    /// Closes and stores nothing.
    void on_cancelButton_clicked();
    void on_aboutButton_clicked();
    /// Closes, stores nothing and emits `installationWanted()`.
    void on_installationButton_clicked();
    /// Closes, stores nothing and emits `recordingWanted()`.
    void on_recordingButton_clicked();
    /// Shows the details of a port of the list; those of a port that is not in the list (-1), a
    /// typed one, are blank.
    void showPortInfo(int index);

signals:
    /// Another port than before has been stored.
    void comPortUpdated(const QString& comPort);
    /// The user wants to see the installations; the dialog is closed.
    void installationWanted();
    /// The user wants to set what is recorded; the dialog is closed.
    void recordingWanted();

protected:
    void changeEvent(QEvent* event) override;
    /// Looks for ports and languages anew and takes all choices from the store. Not before: asking
    /// the system for its ports would hold up the start of the program.
    void showEvent(QShowEvent* event) override;

private:
    void initGui();
    void initConnections();
    void retranslate();
    void loadChoices();
    void fillPorts();
    void fillLanguages();
    void storePort();
    void storeLanguage();
    void updatePortLabels();

    std::unique_ptr<Ui::SettingsMenu> m_ui;
    SettingsSources m_sources;
    LanguageLoader m_languages;
    /// The six texts of the port shown.
    QStringList m_portInfo;
};

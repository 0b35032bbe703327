#pragma once

#include "app/ldbsettings/ldbsettingseditor.h"
#include "app/notices/notices.h"
#include "serial/link/seriallink.h"
#include "tests/support/sandbox.h"
#include "tests/support/testbus.h"
#include "tests/support/testcase.h"
#include "tests/support/views.h"

#include <QtWidgets>

#include <memory>

inline const QString kLdb = "0A";
inline const QString kOtherLdb = "0B";

inline const QByteArray kNak("\x15");

/// Where the mute stands in a settings record.
inline constexpr int kMutePosition = 12;

inline constexpr Permission kAllowed{Hindrance::None};
inline constexpr EnabledControls kAllAllowed{kAllowed, kAllowed, kAllowed, kAllowed, kAllowed,
                                             kAllowed, kAllowed, kAllowed, kAllowed};

/// An editor on a bus of two LDBs.
class Desk
{
public:
    Desk()
    {
        editor->init(&link, &notices);
        editor->apply(kAllAllowed);
    }

    bool connectLink() { return bus.scan(link); }
    /// Returns with all that was asked for at the selection.
    bool select(const QString& hexId)
    {
        editor->setSelectedLdb(hexId);
        editor->requestSettings();
        const auto* firmwareId = ui<QLabel>("settingsFirmwareIdLabel");
        return waitUntil([=] { return save()->isEnabled() && !firmwareId->text().isEmpty(); });
    }
    bool prepare() { return connectLink() && select(kLdb); }

    /// All answers to what was asked so far have reached the editor: one asked for last has.
    bool settle()
    {
        bool answered = false;
        link.ask(std::make_unique<ExecuteCommand>(kOtherLdb, LdbAction::FirmwareId), &link,
                 [&answered](const Reply&) { answered = true; });
        return waitUntil([&answered] { return answered; });
    }

    template <typename Widget>
    Widget* ui(const char* name) const
    {
        auto* widget = editor->findChild<Widget*>(QLatin1String(name));
        Q_ASSERT(widget);
        return widget;
    }
    QLineEdit* name() const { return ui<QLineEdit>("settingsNameLineEdit"); }
    QSpinBox* fims() const { return ui<QSpinBox>("settingsNumberOfFimsSpinBox"); }
    QSpinBox* delay() const { return ui<QSpinBox>("settingsOpenDetectionDelaySpinBox"); }
    QCheckBox* detection() const { return ui<QCheckBox>("settingsOpenDetectionDelayCheckBox"); }
    QCheckBox* mute() const { return ui<QCheckBox>("settingsAudioMuteCheckBox"); }
    QPushButton* save() const { return ui<QPushButton>("settingsSaveButton"); }
    QPushButton* undo() const { return ui<QPushButton>("settingsUndoButton"); }
    QPushButton* defaults() const { return ui<QPushButton>("settingsDefaultButton"); }
    bool buttonsAre(bool enabled) const
    {
        return save()->isEnabled() == enabled && undo()->isEnabled() == enabled &&
               defaults()->isEnabled() == enabled;
    }
    QString state() const { return ui<QLabel>("settingsStateLabel")->text(); }

    QString lastMessage() const { return bar.currentMessage(); }
    /// What the boxes over the window say, with their details.
    QStringList boxes() const
    {
        QStringList texts;
        for (const auto* box : window.findChildren<MessageBox*>()) {
            texts.append(box->text() + "\n" + box->informativeText());
        }
        return texts;
    }
    int saves(bool begun) const { return saving.count({begun}); }

    Sandbox sandbox;
    TestBus bus{{kLdb, kOtherLdb}};
    SerialLink link{bus.ports()};
    std::unique_ptr<LdbSettingsEditor> editor = std::make_unique<LdbSettingsEditor>();
    QStatusBar bar;
    QWidget window;
    Notices notices{&bar, &window};
    QSignalSpy saving{editor.get(), &LdbSettingsEditor::savingChanged};
};

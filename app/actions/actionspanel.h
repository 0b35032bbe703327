#pragma once

#include "app/shared/enabledcontrols.h"
#include "app/shared/text.h"
#include "serial/ldb/ldbsettings.h"

#include <QGroupBox>
#include <QPointer>
#include <QString>

#include <memory>

class BroadcastWatch;
class MessageBox;
class Notices;
class SerialLink;

namespace Ui {
class ActionsPanel;
}

/// The buttons of the actions for the selected LDB and for all. Sends the actions and tells what
/// became of each. An action for all is sent after an explicit yes, and what was seen of it in the
/// LDBs is told afterwards. GUI thread.
class ActionsPanel : public QGroupBox
{
    Q_OBJECT
public:
    explicit ActionsPanel(QWidget* parent = nullptr);
    ~ActionsPanel() override;

    /// Once, before anything is sent; both outlive the panel's use.
    void init(SerialLink* link, Notices* notices);

    void setSelectedLdb(const QString& hexId) { m_hexId = hexId; }
    void apply(const EnabledControls& controls);

signals:
    /// An action was to be sent, and this became of it, in the language in force. To all LDBs where
    /// `hexId` is empty.
    void told(const QString& hexId, const QString& text);

protected:
    void changeEvent(QEvent* event) override;

private:
    /// Does nothing without an LDB.
    void send(LdbControl control, const QString& hexId);
    void askForAll(LdbControl control);
    void sendToAll(LdbControl control);
    void tellSight();

    /// What became of an action in vain stays in sight until the next one is sent.
    void showFailure(const Text& text);

    std::unique_ptr<Ui::ActionsPanel> m_ui;
    SerialLink* m_link = nullptr;
    Notices* m_notices = nullptr;
    QString m_hexId;
    QPointer<MessageBox> m_question;         ///< the one that is open
    std::unique_ptr<BroadcastWatch> m_watch; ///< of the last action for all
    Text m_failure;
};

#pragma once

#include "app/shared/enabledcontrols.h"
#include "app/shared/text.h"
#include "serial/ldb/ldbsettings.h"

#include <QGroupBox>
#include <QString>

#include <memory>

class Notices;
class SerialLink;

namespace Ui {
class ActionsPanel;
}

/// The buttons of the actions for the selected LDB and for all. Sends the actions and tells what
/// became of each. GUI thread.
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

protected:
    void changeEvent(QEvent* event) override;

private:
    /// Does nothing without an LDB. The broadcast address is for all; none of them answers.
    void send(LdbControl control, const QString& hexId);

    /// What became of an action in vain stays in sight until the next one is sent.
    void showFailure(const Text& text);

    std::unique_ptr<Ui::ActionsPanel> m_ui;
    SerialLink* m_link = nullptr;
    Notices* m_notices = nullptr;
    QString m_hexId;
    Text m_failure;
};

#pragma once

#include "serial/ldb/ldbsettings.h"
#include "serial/ldb/reply.h"

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
    /// What can be used: the actions for all; those for the selected LDB; those of the latter that
    /// an LDB in service mode ignores.
    void setAllowed(bool forAll, bool forSelected, bool outsideService);

protected:
    void changeEvent(QEvent* event) override;

private slots:
    void on_fimResetButton_clicked();
    void on_ldbResetButton_clicked();
    void on_serviceModeButton_clicked();
    void on_allFimResetButton_clicked();
    void on_allLdbResetButton_clicked();
    void on_allServiceModeButton_clicked();

private:
    /// Does nothing without an LDB. The broadcast address is for all; none of them answers.
    void send(LdbControl control, const QString& hexId);

    std::unique_ptr<Ui::ActionsPanel> m_ui;
    SerialLink* m_link = nullptr;
    Notices* m_notices = nullptr;
    QString m_hexId;
};

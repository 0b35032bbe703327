#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class DisconnectSecondaryPortDialog;
}

/// Asks the user to unplug the LDB's secondary port, and shows where that is.
class DisconnectSecondaryPortDialog : public QDialog
{
    Q_OBJECT
public:
    explicit DisconnectSecondaryPortDialog(QWidget* parent = nullptr);
    ~DisconnectSecondaryPortDialog() override;

private:
    std::unique_ptr<Ui::DisconnectSecondaryPortDialog> m_ui;
};

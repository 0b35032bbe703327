#pragma once

#include "tracking/counting/trackingresult.h"
#include "tracking/faultfinding/formerstate.h"

#include <QDialog>
#include <QObject>
#include <QPointer>

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

/// The questions before a tracking run, one after another over a window, none of them blocking:
/// whether to start, what for, and, for fault finding, to disconnect the secondary port. Whatever
/// else than an explicit yes ends a question, closing it included, starts nothing.
class StartQuestions : public QObject
{
    Q_OBJECT
public:
    /// `window` is the boxes' parent and this object's.
    explicit StartQuestions(QWidget* window)
        : QObject(window)
        , m_window(window)
    {
    }

    void ask();
    /// Asks whether to start although not all can be put back afterwards.
    void askWithoutWayBack(FormerState::Lack lack, const QString& reason);
    /// Closes the question that is open; no answer comes then.
    void withdraw();

signals:
    /// What the user has chosen; `TrackingMode::Cancelled` if to do nothing.
    void answered(TrackingMode mode);
    /// Only a plain yes starts.
    void answeredWithoutWayBack(bool isWanted);

private:
    void showTrackingModeSelectionDialog();
    void showDisconnectSecondaryPortDialog();
    void openQuestion(QDialog* question, const char* name);

    QWidget* m_window;
    QPointer<QDialog> m_question;
};

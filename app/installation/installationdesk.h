#pragma once

#include "app/installation/installationcontrol.h"
#include "app/installation/portwaiter.h"

#include <QObject>
#include <QPointer>

class InstallationForm;
class InstallationQuestion;
class LinkNotices;
class Notices;
class QWidget;

/// Tells and asks the user about the installation in force, and about a port that is waited for.
/// GUI thread.
class InstallationDesk : public QObject
{
    Q_OBJECT
public:
    struct Surroundings
    {
        SerialLink* link;
        Notices* notices;
        LinkNotices* linkNotices; ///< follows the link already
    };

    /// The surroundings and `window`, which it opens over, outlive this object.
    InstallationDesk(const Surroundings& around, const PortSource& ports, QWidget* window);
    ~InstallationDesk() override;

    InstallationControl* control() const { return m_control; }
    PortWaiter* waiter() const { return m_waiter; }

    /// How a run that the user begins now is to begin.
    StartPlan planForStart();

public slots:
    /// Opens the form.
    void showForm();
    /// The user has given these LDBs up.
    void forget(const QStringList& hexIds);

signals:
    /// The port is back: a run is to begin on it in this way.
    void resumable(const QString& portName, const StartPlan& plan);

private:
    void askWhich(bool isAnother, const QString& id);
    void askWhichPort(const QStringList& names);
    void closeQuestion();
    void showTitle();
    PortIdentity port() const;

    Surroundings m_around;
    QWidget* m_window;
    InstallationControl* m_control;
    PortWaiter* m_waiter;
    QPointer<InstallationForm> m_form;
    QPointer<InstallationQuestion> m_question;
};

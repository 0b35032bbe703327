#include "app/window/evidence.h"

#include "app/installation/installationdesk.h"
#include "app/notices/notices.h"
#include "app/recording/evidenceform.h"
#include "app/recording/recordingcontrol.h"
#include "app/recording/recordingform.h"
#include "app/recording/recordingindicator.h"
#include "app/report/reportwindow.h"
#include "app/window/runcontrol.h"
#include "ui_mainwindow.h"

#include <QDir>
#include <QMenu>
#include <QStatusBar>

Evidence::Evidence(const Surroundings& around, QWidget* window)
    : QObject(window)
    , m_window(window)
    , m_control(new RecordingControl({around.link, around.desk->control(), around.notices},
                                     around.ports, this))
{
    makeIndicator(around);
    makeReport(around, window);
    makeMenu(around, window);
}

Evidence::~Evidence()
{
    // They use the recording.
    delete m_report;
    delete m_form;
    delete m_preferences;
    delete m_indicator;
}

void Evidence::makeIndicator(const Surroundings& around)
{
    m_indicator = new RecordingIndicator(m_control, around.ui.statusBar);
    around.ui.statusBar->insertPermanentWidget(0, m_indicator);
    connect(
        m_indicator, &RecordingIndicator::failed, this,
        [notices = around.notices](const QString& folder) {
            notices->say([folder] {
                return folder.isEmpty() || !QDir(folder).exists()
                           ? tr("Nothing has been recorded yet.")
                           : tr("%1 could not be opened.").arg(QDir::toNativeSeparators(folder));
            });
        });
}

void Evidence::makeMenu(const Surroundings& around, QWidget* window)
{
    const InstallationControl* installation = around.desk->control();
    m_form = new EvidenceForm({m_control, around.ports.wallTime,
                               [run = around.run] { return run->selectedLdb(); },
                               [installation] {
                                   return installation->current().title();
                               }},
                              window);
    m_preferences = new RecordingForm(m_control, window);
    QToolButton* button = around.ui.evidenceButton;
    button->setIcon(window->style()->standardIcon(QStyle::SP_DialogSaveButton));
    auto* menu = new QMenu(button);
    menu->setObjectName(QStringLiteral("evidenceMenu"));
    button->setMenu(menu);
    m_makeReport = menu->addAction(QString(), this, [this] { m_report->open(); });
    m_take = menu->addAction(QString(), this, [this] { m_form->offer(EvidenceOrder::Kind::Log); });
    m_copy = menu->addAction(QString(), this, [this] { m_form->offer(EvidenceOrder::Kind::Copy); });
    menu->addSeparator();
    m_settings = menu->addAction(QString(), this, &Evidence::showPreferences);
    m_makeReport->setObjectName(QStringLiteral("reportAction"));
    m_take->setObjectName(QStringLiteral("takeHomeAction"));
    m_copy->setObjectName(QStringLiteral("copyVisitAction"));
    m_settings->setObjectName(QStringLiteral("recordingSettingsAction"));
}

void Evidence::makeReport(const Surroundings& around, QWidget* window)
{
    const InstallationControl* installation = around.desk->control();
    const auto describe = [installation] {
        const Installation& current = installation->current();
        ReportRequest request;
        request.head.installation = current.title();
        request.head.place = current.place;
        request.known = current.ldbs;
        return request;
    };
    m_report = new ReportWindow({m_control->access(),
                                 [control = m_control] { control->recorder()->flush(); },
                                 around.ports.wallTime, describe},
                                window);
}

void Evidence::showPreferences()
{
    m_preferences->open();
}

void Evidence::retranslate()
{
    m_makeReport->setText(tr("Report of the &Visit..."));
    m_take->setText(tr("Take Evidence &Home..."));
    m_copy->setText(tr("Save a &Copy of This Visit..."));
    m_settings->setText(tr("&Recording..."));
}

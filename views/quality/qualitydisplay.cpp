#include "views/quality/qualitydisplay.h"

#include "views/quality/overviewquality.h"

#include <QEvent>
#include <QLayout>
#include <QPushButton>
#include <QTableView>
#include <QThread>

#include <utility>

QualityDisplay::QualityDisplay(Sources sources, QTableView* overview, QWidget* bar, QObject* parent)
    : QObject(parent)
    , m_sources(std::move(sources))
    , m_bars(new OverviewQuality(overview, &m_live, m_sources.access, m_sources.moment, this))
    , m_button(new QPushButton(bar))
{
    Q_ASSERT(QThread::currentThread() == thread());
    m_button->setObjectName(QStringLiteral("lineQualityButton"));
    // No higher than its neighbours: no line of the window is to spare.
    m_button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    bar->layout()->addWidget(m_button);
    connect(m_button, &QAbstractButton::clicked, this, &QualityDisplay::openWindow);
    m_button->installEventFilter(this);
    retranslate();
}

QualityDisplay::~QualityDisplay()
{
    delete m_window; // it reads from members that are about to go
}

void QualityDisplay::setShown(std::optional<qint64> at)
{
    m_shown = at;
    m_bars->setShown(at);
    if (m_window) {
        m_window->setShown(at);
    }
}

void QualityDisplay::openWindow()
{
    if (!m_window) {
        m_window = new QualityWindow(
            {{m_sources.access, &m_live, m_sources.moment, m_sources.isUnrecorded},
             m_sources.nameOf},
            m_button->window());
        m_window->setBarsShown(m_bars->areShown());
        m_window->setShown(m_shown);
        connect(m_window, &QualityWindow::barsShownChanged, m_bars, &OverviewQuality::setBarsShown);
        connect(m_window, &QualityWindow::ldbActivated, this, &QualityDisplay::ldbActivated);
    }
    m_window->open();
}

bool QualityDisplay::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_button && event->type() == QEvent::LanguageChange) {
        retranslate();
    }
    return QObject::eventFilter(watched, event);
}

void QualityDisplay::retranslate()
{
    m_button->setText(tr("Line quality"));
    m_button->setToolTip(tr("Shows how well the exchanges with each LDB go, and went"));
}

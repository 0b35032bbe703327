#include "app/window/lamppanel.h"

#include "app/window/clickablelabel.h"

#include <QToolBox>

LampPanel::LampPanel(const LampWidgets& a, const LampWidgets& b, const LampWidgets& c,
                     const LampWidgets& d, QToolBox* toolBox, QObject* parent)
    : QObject(parent)
    , m_indicators(a.lamp, c.lamp, b.lamp, d.lamp)
    , m_pages({a.causes, b.causes, c.causes, d.causes})
{
    connect(&m_pages, &LampPages::ldbActivated, this, &LampPanel::ldbActivated);
    for (const LampWidgets& widgets : {a, b, c, d}) {
        for (const ClickableLabel* label : {widgets.lamp, widgets.text}) {
            if (label != nullptr) {
                connect(label, &ClickableLabel::clicked, this,
                        [this, toolBox, page = widgets.page] {
                            toolBox->setCurrentWidget(page);
                            emit pageOpened();
                        });
            }
        }
    }
}

void LampPanel::retranslate()
{
    m_indicators.retranslate();
    m_pages.retranslate();
}

void LampPanel::processData(const QString& hexId, const QList<QStringList>& dataList)
{
    m_indicators.processData(hexId, dataList);
    m_pages.processData(hexId, dataList);
}

void LampPanel::resetPages()
{
    m_pages.reset();
}

void LampPanel::reset()
{
    m_indicators.resetIndicators();
    m_pages.reset();
}

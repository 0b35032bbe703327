#pragma once

#include "views/lamps/lamppages.h"
#include "views/lamps/statusindicators.h"

#include <QList>
#include <QObject>
#include <QStringList>

class ClickableLabel;
class QToolBox;
class QWidget;

/// One lamp of the front panel with what belongs to it. Not owned.
struct LampWidgets
{
    ClickableLabel* lamp = nullptr;
    ClickableLabel* text = nullptr; ///< may be missing
    QListWidget* causes = nullptr;
    QWidget* page = nullptr; ///< of the tool box; holds the list
};

/// The front panel: four lamps that sum up the bus, and a tool box page for each that names the
/// LDBs behind it. A click on a lamp opens its page. GUI thread.
class LampPanel : public QObject
{
    Q_OBJECT
public:
    /// The widgets outlive this object.
    LampPanel(const LampWidgets& a, const LampWidgets& b, const LampWidgets& c,
              const LampWidgets& d, QToolBox* toolBox, QObject* parent);

    void retranslate();

public slots:
    /// Takes one LDB's general-information rows.
    void processData(const QString& hexId, const QList<QStringList>& dataList);
    /// Empties the pages, as when the bus is scanned anew; the lamps follow with the next round.
    void resetPages();
    /// Lamps off, pages empty.
    void reset();

signals:
    /// A lamp was clicked: the tool box shows its page.
    void pageOpened();
    /// The user wants to see this LDB.
    void ldbActivated(const QString& hexId);

private:
    StatusIndicators m_indicators;
    LampPages m_pages;
};

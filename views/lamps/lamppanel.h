#pragma once

#include "views/lamps/lampcondition.h"
#include "views/lamps/statusindicators.h"

#include <QLabel>
#include <QObject>

class QListWidget;
class QListWidgetItem;
class QToolBox;

/// A label that can be clicked, or activated with Space where it takes the focus.
class ClickableLabel : public QLabel
{
    Q_OBJECT
public:
    explicit ClickableLabel(QWidget* parent = nullptr);

signals:
    void clicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

/// One lamp of the front panel with what belongs to it. Not owned.
struct LampWidgets
{
    ClickableLabel* lamp = nullptr;
    ClickableLabel* text = nullptr; ///< may be missing
    QListWidget* causes = nullptr;
    QWidget* page = nullptr; ///< of the tool box; holds the list
};

/// The front panel: four lamps that sum up the bus, and a tool box page for each that names the
/// LDBs behind it: one entry an LDB with id, name and condition, in the order of the addresses. A
/// page without a lamp names those that are lost or in fault. A click on a lamp opens its page. The
/// pages follow every record at once, where the lamps wait for a round's end to go dark. GUI
/// thread.
class LampPanel : public QObject
{
    Q_OBJECT
public:
    /// The widgets outlive this object.
    LampPanel(const LampWidgets& a, const LampWidgets& b, const LampWidgets& c,
              const LampWidgets& d, QListWidget* out, QToolBox* toolBox, QObject* parent);

    /// The entries themselves follow with the LDBs' next records.
    void retranslate();

public slots:
    /// Takes an LDB's record. Entries change where they stand: the entry that
    /// the user is on stays current and selected as long as its LDB raises the lamp.
    void processData(const QString& hexId, const QList<QStringList>& dataList);
    /// A round has begun, and is over.
    void beginRound() { m_indicators.beginRound(); }
    void endRound() { m_indicators.endRound(); }
    /// What of the bus is monitored. When it is no longer the whole, the pages are emptied and say
    /// so.
    void setMonitoring(const Monitoring& monitoring);
    /// No other LDB is on the bus any more.
    void keepOnly(const QStringList& hexIds);

signals:
    /// A lamp was clicked: the tool box shows its page.
    void pageOpened();
    /// The user wants to see this LDB: an entry was clicked, or Enter pressed on it. A double click
    /// may tell it twice.
    void ldbActivated(const QString& hexId);

private:
    QListWidget* list(CausePage page) const { return m_lists[static_cast<std::size_t>(page)]; }
    void fill(CausePage page);
    void fillAll();
    void activate(const QListWidgetItem* item);

    StatusIndicators m_indicators;
    LampCauses m_causes;
    bool m_isMonitored = false;
    std::array<QListWidget*, kCausePages.size()> m_lists{};
};

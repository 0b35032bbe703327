#pragma once

#include "views/quality/livequality.h"
#include "views/quality/qualitywindow.h"

#include <QObject>
#include <QPointer>

#include <optional>

class QPushButton;
class QTableView;

class OverviewQuality;

/// Shows the quality of the line: owns the bars in the overview, the window, and the button that
/// opens it. GUI thread.
class QualityDisplay : public QObject
{
    Q_OBJECT
public:
    struct Sources
    {
        RecordingAccess* access = nullptr;
        std::function<qint64()> moment;     ///< the present: UTC, µs since 1970
        std::function<bool()> isUnrecorded; ///< as in `QualityReading::Sources`
        std::function<QString(const QString& hexId)> nameOf;
    };
    /// `bar` stands above the overview and takes the button. The widgets may die first, the
    /// sources outlive this object.
    QualityDisplay(Sources sources, QTableView* overview, QWidget* bar, QObject* parent);
    ~QualityDisplay() override;

    /// Counts the present; to be fed with what the serial link tells.
    LiveQuality* live() { return &m_live; }
    /// The moment that is shown instead of the present.
    void setShown(std::optional<qint64> at);

signals:
    /// The user wants to see this LDB.
    void ldbActivated(const QString& hexId);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void openWindow();
    void retranslate();

    Sources m_sources;
    LiveQuality m_live;
    OverviewQuality* m_bars; ///< owned as a child
    QPointer<QPushButton> m_button;
    QPointer<QualityWindow> m_window; ///< made when it is wanted; owned by the main window
    std::optional<qint64> m_shown;
};

#pragma once

#include "tracking/counting/trackingresult.h"

#include <QFrame>

#include <memory>

class PortPlot;

namespace Ui {
class SidePanel;
}

/// What the tracking window shows of one side of the loop: its count, how it ended, where a leakage
/// lies, and the port's current over time.
class SidePanel : public QFrame
{
    Q_OBJECT
public:
    explicit SidePanel(QWidget* parent = nullptr);
    ~SidePanel() override;

    /// Names the side and the curve of its port's current.
    void init(const QString& title, const QString& curveName);

    /// Back to a side of which nothing is known; the plot stays.
    void reset();
    void setCount(int count);
    /// What is said of the time left; empty hides it.
    void setRemaining(const QString& text);
    void showEnd(SideEnd end);
    void showFault(FaultReport::Kind kind, int position);

    /// Owned by the panel.
    PortPlot* plot() const;

private:
    std::unique_ptr<Ui::SidePanel> m_ui;
};

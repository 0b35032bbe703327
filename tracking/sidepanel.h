#pragma once

#include "tracking/faultreport.h"
#include "tracking/trackingresult.h"

#include <QDateTime>
#include <QFrame>

#include <memory>

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

    /// Back to a side of which nothing is known.
    void reset();
    void setCount(int count);
    /// What is said of the time left; empty hides it.
    void setRemaining(const QString& text);
    void showEnd(const QString& text, SideEnd end);
    void showFault(FaultReport::Kind kind, int position);

    /// A sample of the port's current in 0.01 mA.
    void addCurrent(double current, const QDateTime& timestamp);
    void clearPlot();
    void setZoom(bool enabled);

private:
    std::unique_ptr<Ui::SidePanel> m_ui;
    int m_curve = -1;
};

#pragma once

#include <QDateTime>
#include <QWidget>

class Plot;

/// The current of one port over time, for a form. GUI thread.
class PortPlot : public QWidget
{
    Q_OBJECT
public:
    explicit PortPlot(QWidget* parent = nullptr);

    /// Names the curve; to be called once.
    void init(const QString& curveName);
    /// A sample in 0.01 mA; the marker of a missing measurement shows as a gap.
    void addCurrent(double current, const QDateTime& timestamp);
    /// Whose current it is, as its pictures and files say.
    void setLdb(const QString& hexId);
    void clear();
    /// While on, wheel and drag move the view; off brings the rolling view back.
    void setZoom(bool enabled);

private:
    Plot* m_plot; // owned as a child
    QString m_curveName;
    int m_curve = -1;
};

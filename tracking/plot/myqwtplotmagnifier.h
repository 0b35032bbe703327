#pragma once

#include <QMap>
#include <qwt_plot_magnifier.h>

/// Zooms a plot by the mouse wheel: turned away from the user it zooms in. However far the wheel is
/// turned, an axis keeps a span at which its numbers and its clock still work.
class MyQwtPlotMagnifier : public QwtPlotMagnifier
{
    Q_OBJECT
public:
    explicit MyQwtPlotMagnifier(QWidget* canvas);

    /// Takes what the axes show now as the view from which the limits of zooming are counted.
    void setReferenceView();

signals:
    /// The user has zoomed.
    void rescaled();

protected:
    void rescale(double factor) override;

private:
    void keepWithinLimits();

    QMap<int, double> m_referenceSpans; // by axis
};

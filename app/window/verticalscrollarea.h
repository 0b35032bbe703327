#pragma once

#include <QScrollArea>

/// A scroll area that scrolls up and down only: it is never narrower than what it shows.
class VerticalScrollArea : public QScrollArea
{
    Q_OBJECT
public:
    explicit VerticalScrollArea(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

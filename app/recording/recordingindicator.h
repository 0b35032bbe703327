#pragma once

#include <QToolButton>

class RecordingControl;

/// Says in the status bar whether what happens on the bus is recorded: a dot and a word, with the
/// file in the tool tip. A click opens its folder. GUI thread.
class RecordingIndicator : public QToolButton
{
    Q_OBJECT
public:
    /// `control` outlives this object.
    RecordingIndicator(RecordingControl* control, QWidget* parent);

signals:
    /// The folder does not exist yet, or could not be opened.
    void failed(const QString& folder);

protected:
    void changeEvent(QEvent* event) override;

private:
    void showState();
    void openFolder();

    RecordingControl* m_control;
};

#pragma once

#include "docs/screenshots/stage.h"
#include "tracking/counting/trackingresult.h"

class FimTracking;

/// A whole run of FIM tracking, watched: prints what the window says as it comes and the report at
/// the end, and takes a picture of each phase unless `prefix` is empty.
class TrackingScene
{
public:
    TrackingScene(Stage& stage, TrackingMode mode, const QString& prefix);
    void run();

private:
    void answerQuestions();
    void watchCounting();
    /// Prints and closes the boxes that have opened; the first one is kept in a picture.
    void takeBoxes();
    void shoot(QWidget* widget, const QString& phase);
    void print(const QString& text) const;
    QString counts() const;

    Stage& m_stage;
    TrackingMode m_mode;
    QString m_prefix;
    FimTracking* m_window = nullptr;
    bool m_alarmShot = false;
};

#pragma once

#include "app/shared/text.h"

#include <QObject>

#include <functional>
#include <vector>

class Notices;
class QWidget;

/// Asks, when the user closes the window, whether to break off what is under way. GUI thread.
class ClosingQuestion : public QObject
{
    Q_OBJECT
public:
    /// What the end would break off, a sentence each.
    using UnderWay = std::function<std::vector<Text>()>;

    /// `notices` and `window`, which is closed after a yes, outlive this object.
    ClosingQuestion(Notices* notices, QWidget* window);

    /// Asks for this, too, from now on.
    void ask(const UnderWay& underWay) { m_sources.push_back(underWay); }

    /// Whether the window may close now. If not, a box asks, with staying as the default, and
    /// closes the window when the user wants that all the same.
    bool mayClose();

private:
    void open(const std::vector<Text>& reasons);

    Notices* m_notices;
    QWidget* m_window;
    std::vector<UnderWay> m_sources;
    bool m_isAnswered = false; ///< the user has said yes
};

#pragma once

#include "app/shared/enabledcontrols.h"

#include <functional>

class Notices;
class QObject;

/// The question about changes of an LDB's settings that would be lost.
namespace leavequestion {

enum class Answer
{
    Save,
    Discard,
    Stay ///< also given by Escape and by closing the question
};

/// Asks about so many changes, in a box that nothing waits for; `answered` runs unless `context`
/// dies first. Where something hinders the saving, Save is not offered, and the reason is told.
/// While the question is open, asking again does nothing.
void ask(Notices* notices, const QObject* context, const QString& hexId, int changes,
         Hindrance hindrance, const std::function<void(Answer)>& answered);

} // namespace leavequestion

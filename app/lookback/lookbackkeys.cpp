#include "app/lookback/lookbackkeys.h"

#include <QFlags>

namespace {

std::optional<BarKey> meaningOf(int key, bool isShifted, bool isControl)
{
    switch (key) {
    case Qt::Key_Space:
        return BarKey::PlayOrPause;
    case Qt::Key_Left:
        return isControl ? BarKey::FormerEvent : isShifted ? BarKey::FormerRecord : BarKey::Back;
    case Qt::Key_Right:
        return isControl ? BarKey::NextEvent : isShifted ? BarKey::NextRecord : BarKey::On;
    case Qt::Key_PageUp:
        return BarKey::FarBack;
    case Qt::Key_PageDown:
        return BarKey::FarOn;
    case Qt::Key_Home:
        return BarKey::Begin;
    case Qt::Key_End:
        return BarKey::End;
    case Qt::Key_BracketLeft:
        return BarKey::Slower;
    case Qt::Key_BracketRight:
        return BarKey::Faster;
    case Qt::Key_Escape:
        return BarKey::Live;
    case Qt::Key_G:
        return isControl ? std::make_optional(BarKey::GoTo) : std::nullopt;
    default:
        return std::nullopt;
    }
}

bool isKeptBy(KeyPlace place, BarKey key)
{
    switch (place) {
    case KeyPlace::Bar:
        return false;
    case KeyPlace::Table:
        return key == BarKey::FarBack || key == BarKey::FarOn;
    case KeyPlace::Plot:
        return key == BarKey::Back || key == BarKey::On || key == BarKey::FormerRecord ||
               key == BarKey::NextRecord || key == BarKey::FarBack || key == BarKey::FarOn;
    case KeyPlace::Button:
        return key == BarKey::PlayOrPause;
    case KeyPlace::Control:
        return key != BarKey::FormerEvent && key != BarKey::NextEvent && key != BarKey::Slower &&
               key != BarKey::Faster && key != BarKey::Live;
    case KeyPlace::TextField:
        break;
    }
    return true;
}

} // namespace

std::optional<BarKey> barKeyOf(int key, Qt::KeyboardModifiers modifiers, KeyPlace place,
                               bool isLookingBack)
{
    const bool isControl = modifiers.testFlag(Qt::ControlModifier);
    const auto meaning = meaningOf(key, modifiers.testFlag(Qt::ShiftModifier), isControl);
    if (!meaning || *meaning == BarKey::GoTo) {
        return meaning;
    }
    // Some keyboards have the brackets on AltGr only, which may come as Ctrl and Alt.
    const bool isBracket = *meaning == BarKey::Slower || *meaning == BarKey::Faster;
    const bool isEvent = *meaning == BarKey::FormerEvent || *meaning == BarKey::NextEvent;
    const bool isOther = modifiers.testFlag(Qt::AltModifier) || (isControl && !isEvent);
    if ((isOther && !isBracket) || (!isLookingBack && place != KeyPlace::Bar) ||
        isKeptBy(place, *meaning) || (!isLookingBack && *meaning == BarKey::Live)) {
        return std::nullopt;
    }
    return meaning;
}

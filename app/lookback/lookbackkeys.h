#pragma once

#include <Qt>

#include <optional>

/// What a key does on the time bar.
enum class BarKey
{
    PlayOrPause,
    Back, ///< 10 s
    On,
    FormerRecord,
    NextRecord,
    FarBack, ///< 10 min
    FarOn,
    FormerEvent,
    NextEvent,
    Begin,
    End,
    Slower,
    Faster,
    GoTo,
    Live
};

/// What has the keyboard focus. Each keeps the keys that it needs itself.
enum class KeyPlace
{
    Bar,     ///< or whatever has no keys of its own
    Table,   ///< rows: up, down, page by page
    Plot,    ///< its own cursor
    Button,  ///< Space
    Control, ///< lists, tabs and the like
    TextField
};

/// What a key means for the bar; nothing where it means nothing to it. From the present, only keys
/// pressed on the bar itself begin to look back.
std::optional<BarKey> barKeyOf(int key, Qt::KeyboardModifiers modifiers, KeyPlace place,
                               bool isLookingBack);

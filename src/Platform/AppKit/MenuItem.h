#pragma once

#include <QString>

#include <functional>

namespace mintaro {

/// One entry of a menu, as NSMenu's records are.
struct MenuItem
{
    QString title;
    bool enabled = true;
    bool isSeparator = false;
    /// A name that Symbol knows; empty for none. Only the menus of our own windows show it, and what is destructive.
    QString symbol {};
    bool isDestructive = false;
    /// Called on the main thread when the entry is chosen. May still be called shortly after the menu was replaced,
    /// for a user who has the older menu open.
    std::function<void()> action {};

    [[nodiscard]] static MenuItem separator() { return { .title = {}, .isSeparator = true }; }
};

} // namespace mintaro

#pragma once

#include "Platform/AppKit/Pasteboard.h"

namespace mintaro {

/// The desktop's clipboard. Needs a QGuiApplication. On X11 what was copied can be pasted for as long as the process
/// lives, also when none of its windows shows.
class GeneralPasteboard final : public Pasteboard
{
public:
    void clearContents() override;
    void setString(const QString &text) override;
};

} // namespace mintaro

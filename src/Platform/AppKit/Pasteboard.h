#pragma once

#include <QString>

namespace mintaro {

/// What is copied to be pasted elsewhere, as NSPasteboard keeps it. To be used on the main thread.
class Pasteboard
{
public:
    virtual ~Pasteboard() = default;

    virtual void clearContents() = 0;
    virtual void setString(const QString &text) = 0;
};

} // namespace mintaro

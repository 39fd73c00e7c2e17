#pragma once

#include "Platform/Foundation/URL.h"

#include <QCoroTask>
#include <QString>

namespace mintaro {

/// What of the desktop opens addresses, as NSWorkspace does. To be used on the main thread.
class Workspace
{
public:
    virtual ~Workspace() = default;

    /// Hands an absolute URL to whatever opens it. False where nothing does, as far as that is known at once; it is
    /// logged then. The token, if there is one, lets the window that opens come to the front (XDG Activation).
    virtual bool open(const URL &url, const QString &activationToken = {}) = 0;

    /// Whether a program opens URLs of the scheme ("https"). False for text that is no scheme (RFC 3986, 3.1).
    [[nodiscard]] virtual QCoro::Task<bool> hasHandler(QString scheme) = 0;
};

} // namespace mintaro

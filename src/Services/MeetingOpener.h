#pragma once

#include "Models/MeetingInfo.h"
#include "Platform/AppKit/Workspace.h"

#include <QCoroTask>

namespace mintaro {

/// Opens a meeting for rows, menus and notifications alike: by its deep link where the desktop has a handler for the
/// scheme, else by its web link. For the main thread.
class MeetingOpener
{
public:
    /// `workspace` must outlive the object and every task.
    explicit MeetingOpener(Workspace &workspace)
        : m_workspace(workspace)
    {
    }

    /// `activationToken` as Workspace::open takes it.
    [[nodiscard]] QCoro::Task<> open(MeetingInfo meeting, QString activationToken = {});
    /// `link`: a web link, or a deep link of MeetingURLDetector's making.
    [[nodiscard]] QCoro::Task<> open(URL link, QString activationToken);

private:
    Workspace &m_workspace;
};

} // namespace mintaro

#include "Services/MeetingOpener.h"

namespace mintaro {

QCoro::Task<> MeetingOpener::open(MeetingInfo meeting)
{
    Workspace &workspace = m_workspace;
    if (meeting.deepLinkURL && co_await workspace.hasHandler(meeting.deepLinkURL->toQUrl().scheme()))
        workspace.open(*meeting.deepLinkURL);
    else
        workspace.open(meeting.url);
}

} // namespace mintaro

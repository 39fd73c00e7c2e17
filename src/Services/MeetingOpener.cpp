#include "Services/MeetingOpener.h"

#include "Services/MeetingURLDetector.h"

namespace mintaro {

QCoro::Task<> MeetingOpener::open(MeetingInfo meeting, QString activationToken)
{
    Workspace &workspace = m_workspace;
    const bool isHandled = meeting.deepLinkURL && co_await workspace.hasHandler(meeting.deepLinkURL->toQUrl().scheme());
    workspace.open(isHandled ? *meeting.deepLinkURL : meeting.url, activationToken);
}

QCoro::Task<> MeetingOpener::open(URL link, QString activationToken)
{
    MeetingInfo meeting;
    if (const auto webLink = MeetingURLDetector::webLink(link)) {
        meeting.url = *webLink;
        meeting.deepLinkURL = std::move(link);
    } else {
        meeting.url = std::move(link);
    }
    return open(std::move(meeting), std::move(activationToken));
}

} // namespace mintaro

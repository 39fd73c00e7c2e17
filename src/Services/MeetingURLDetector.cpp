#include "Services/MeetingURLDetector.h"

#include "Platform/Foundation/LinkDetector.h"
#include "Platform/Foundation/URLComponents.h"
#include "Platform/Foundation/UrlCharacters.h"
#include "Platform/Foundation/UrlParts.h"

#include <algorithm>
#include <array>

namespace mintaro {

namespace {

struct MeetingService
{
    QStringView name;
    std::array<QStringView, 7>
        patterns; ///< lowercase host and beginning of the path, in order; unused places are empty
    QStringView scheme; ///< of the application's links; empty where there is none
    QStringView systemImage;
};

constexpr std::array<MeetingService, 20> services { {
    { u"Zoom",
        { u"zoom.us/j/", u"zoom.us/s/", u"zoom.us/w/", u"zoom.us/my/", u"zoomgov.com/j/", u"zoomgov.com/s/",
            u"zoomgov.com/w/" },
        u"zoommtg", u"video.fill" },
    { u"Google Meet", { u"meet.google.com/", u"hangouts.google.com/" }, {}, u"video.fill" },
    { u"Microsoft Teams",
        { u"teams.microsoft.com/l/meetup-join/", u"teams.microsoft.com/meet/", u"teams.microsoft.com/v2/",
            u"teams.microsoft.com/dl/launcher/", u"teams.live.com/" },
        u"msteams", u"person.3.fill" },
    { u"WebEx", { u"webex.com/meet/", u"webex.com/join/" }, u"webex", u"video.fill" },
    { u"FaceTime", { u"facetime.apple.com/join" }, u"facetime", u"video.fill" },
    { u"Slack Huddle", { u"app.slack.com/huddle/", u"slack.com/huddle/" }, u"slack",
        u"bubble.left.and.bubble.right.fill" },
    { u"Skype", { u"join.skype.com/", u"skype.com/invite/" }, u"skype", u"phone.fill" },
    { u"GoTo Meeting", { u"gotomeeting.com/join" }, {}, u"video.fill" },
    { u"RingCentral", { u"ringcentral.com/j" }, {}, u"phone.fill" },
    { u"BlueJeans", { u"bluejeans.com/" }, {}, u"video.fill" },
    { u"Jitsi", { u"meet.jit.si/" }, {}, u"video.fill" },
    { u"Whereby", { u"whereby.com/" }, {}, u"video.fill" },
    { u"Around", { u"around.co/" }, {}, u"video.fill" },
    { u"Dialpad", { u"dialpad.com/", u"uberconference.com/" }, {}, u"phone.fill" },
    { u"8x8", { u"8x8.vc/" }, {}, u"video.fill" },
    { u"Amazon Chime", { u"chime.aws/" }, {}, u"video.fill" },
    { u"BigBlueButton", { u"bigbluebutton.org/gl", u"bbb." }, {}, u"video.fill" },
    { u"Workplace", { u"workplace.com/meet" }, {}, u"video.fill" },
    { u"Discord", { u"discord.gg/", u"discord.com/channels/" }, u"discord", u"headphones.circle.fill" },
    { u"Loom", { u"loom.com/" }, {}, u"play.rectangle.fill" },
} };

bool isLabelBoundary(QStringView url, qsizetype i)
{
    if (i == 0 || (i >= 3 && isEscapeAt(url, i - 3))) // an escape such as %2F stands for a delimiter
        return true;
    const QChar before = url[i - 1];
    return !before.isLetterOrNumber() && before != u'-' && before != u'_';
}

/// Whether the pattern occurs anywhere in the URL, also within its query, but not from the middle of a label:
/// "loom.com/" is not in "bloom.com/".
bool containsPattern(QStringView url, QStringView pattern)
{
    for (qsizetype i = url.indexOf(pattern); i >= 0; i = url.indexOf(pattern, i + 1)) {
        if (isLabelBoundary(url, i))
            return true;
    }
    return false;
}

const MeetingService *serviceOf(const URL &url)
{
    const QString text = url.absoluteString().toLower();
    const auto hasPattern = [&text](const MeetingService &service) {
        return std::ranges::any_of(
            service.patterns, [&text](QStringView p) { return !p.isEmpty() && containsPattern(text, p); });
    };
    const auto *found = std::ranges::find_if(services, hasPattern);
    return found == services.end() ? nullptr : found;
}

/// `https://zoom.us/j/123?pwd=x` is `zoommtg://zoom.us/join?pwd=x&confno=123` for the application.
void setZoomMeeting(URLComponents &components, const URL &webURL)
{
    const QStringList path = webURL.pathComponents();
    const qsizetype marker = path.indexOf(QStringLiteral("j"));
    if (marker < 0 || marker + 1 >= path.size())
        return;
    std::vector<URLComponents::QueryItem> items = components.queryItems();
    items.emplace_back(QStringLiteral("confno"), path[marker + 1]);
    components.setPath(QStringLiteral("/join"));
    components.setQueryItems(items);
}

void setWebMeeting(URLComponents &components, const URL &deepLink)
{
    const QStringList joinPath { QStringLiteral("/"), QStringLiteral("join") };
    std::vector<URLComponents::QueryItem> items = components.queryItems();
    if (deepLink.pathComponents() != joinPath || items.empty() || items.back().first != u"confno")
        return;
    components.setPath(QStringLiteral("/j/") + items.back().second.value_or(QString()));
    items.pop_back();
    components.setQueryItems(items);
}

std::optional<URL> buildDeepLink(QStringView scheme, const URL &webURL)
{
    std::optional<URLComponents> components = URLComponents::fromURL(webURL);
    if (scheme.isEmpty() || !components)
        return std::nullopt;
    components->setScheme(scheme.toString());
    if (scheme == u"zoommtg")
        setZoomMeeting(*components, webURL);
    return components->url();
}

const LinkDetector &linkDetector()
{
    static const LinkDetector detector;
    return detector;
}

} // namespace

std::optional<MeetingInfo> MeetingURLDetector::detectMeetingURL(const MeetingTexts &texts) const
{
    for (const std::optional<QString> *text : { &texts.location, &texts.url, &texts.notes }) {
        if (!*text)
            continue;
        if (std::optional<MeetingInfo> meeting = findMeeting(**text))
            return meeting;
    }
    return std::nullopt;
}

std::optional<MeetingInfo> MeetingURLDetector::findMeeting(const QString &text) const
{
    for (const LinkDetector::Match &match : linkDetector().matches(text)) {
        const MeetingService *service = serviceOf(match.url);
        if (!service)
            continue;
        return MeetingInfo { service->name.toString(), match.url, buildDeepLink(service->scheme, match.url),
            service->systemImage.toString() };
    }
    return std::nullopt;
}

std::optional<URL> MeetingURLDetector::webLink(const URL &deepLink)
{
    const QStringView scheme = UrlParts::of(deepLink.absoluteString()).scheme.value_or(QStringView());
    const bool isOwn = !scheme.isEmpty()
        && std::ranges::any_of(services, [scheme](const MeetingService &s) { return s.scheme == scheme; });
    std::optional<URLComponents> components = URLComponents::fromURL(deepLink);
    if (!isOwn || !components)
        return std::nullopt;
    components->setScheme(QStringLiteral("https"));
    if (scheme == u"zoommtg")
        setWebMeeting(*components, deepLink);
    return components->url();
}

} // namespace mintaro

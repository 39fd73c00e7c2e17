#include "support/World.h"

#include <gtest/gtest.h>

namespace mintaro {
namespace {

struct PreferenceCase
{
    const char *name;
    const char *key;
    const char *stored; ///< null: absent
    std::function<QVariant(const AppState &)> read;
    QVariant value;
    const char *localeIdentifier = "en_US";
};

class PreferenceTest : public testing::TestWithParam<PreferenceCase>
{
};

TEST_P(PreferenceTest, IsRead)
{
    const PreferenceCase &row = GetParam();
    World world("2026-03-07", row.localeIdentifier);
    const QString key = QLatin1String(row.key);
    if (row.stored)
        world.defaults.setString(QLatin1String(row.stored), key);
    EXPECT_EQ(row.read(world.state()), row.value);
    EXPECT_EQ(
        world.defaults.stringForKey(key), row.stored ? std::optional(QString(QLatin1String(row.stored))) : std::nullopt)
        << "reading must not write";
}

const auto kMonday = [](const AppState &state) { return state.weekStartsOnMonday(); };
const auto kMinutes = [](const AppState &state) { return state.meetingNotificationMinutes(); };
const auto kLength = [](const AppState &state) { return state.menuBarMaxTitleLength(); };
const auto kFormat = [](const AppState &state) { return rawValue(state.countdownFormat()); };
const auto kShowsNext = [](const AppState &state) { return state.showNextEventInMenuBar(); };
const auto kIcon = [](const AppState &state) { return state.showMeetingIconInMenuBar(); };
const auto kNotifies = [](const AppState &state) { return state.meetingNotificationsEnabled(); };
const auto kShowsDate = [](const AppState &state) { return state.showDateInMenuBar(); };
const auto kWeeks = [](const AppState &state) { return state.showWeekNumbers(); };
const auto kDateFormat = [](const AppState &state) { return state.menuBarDateFormat(); };
const auto kLanguage = [](const AppState &state) { return state.appLanguage(); };

INSTANTIATE_TEST_SUITE_P(Rows, PreferenceTest,
    testing::Values(PreferenceCase { "MondayByLocale", "WeekStartsOnMonday", nullptr, kMonday, true, "it_IT" },
        PreferenceCase { "SundayByLocale", "WeekStartsOnMonday", nullptr, kMonday, false, "en_US" },
        PreferenceCase { "SaturdayIsNotMonday", "WeekStartsOnMonday", nullptr, kMonday, false, "ar_EG" },
        PreferenceCase { "MondayByUser", "WeekStartsOnMonday", "true", kMonday, true, "en_US" },
        PreferenceCase { "SundayByUser", "WeekStartsOnMonday", "false", kMonday, false, "it_IT" },
        PreferenceCase { "MinutesAbsent", "MeetingNotificationMinutes", nullptr, kMinutes, 5 },
        PreferenceCase { "MinutesZero", "MeetingNotificationMinutes", "0", kMinutes, 5 },
        PreferenceCase { "MinutesNegative", "MeetingNotificationMinutes", "-3", kMinutes, 5 },
        PreferenceCase { "Minutes", "MeetingNotificationMinutes", "10", kMinutes, 10 },
        PreferenceCase { "MinutesNoNumber", "MeetingNotificationMinutes", "ten", kMinutes, 5 },
        PreferenceCase { "LengthAbsent", "MenuBarMaxTitleLength", nullptr, kLength, 20 },
        PreferenceCase { "LengthZero", "MenuBarMaxTitleLength", "0", kLength, 20 },
        PreferenceCase { "LengthOne", "MenuBarMaxTitleLength", "1", kLength, 1 },
        PreferenceCase { "FormatAbsent", "CountdownFormat", nullptr, kFormat, u"relative"_qs },
        PreferenceCase { "FormatUnknown", "CountdownFormat", "weekly", kFormat, u"relative"_qs },
        PreferenceCase { "Format", "CountdownFormat", "absolute", kFormat, u"absolute"_qs },
        PreferenceCase { "NextEventAbsent", "ShowNextEventInMenuBar", nullptr, kShowsNext, true },
        PreferenceCase { "NextEventOff", "ShowNextEventInMenuBar", "false", kShowsNext, false },
        PreferenceCase { "IconAbsent", "ShowMeetingIconInMenuBar", nullptr, kIcon, true },
        PreferenceCase { "IconOff", "ShowMeetingIconInMenuBar", "0", kIcon, false },
        PreferenceCase { "NotificationsAbsent", "MeetingNotificationsEnabled", nullptr, kNotifies, true },
        PreferenceCase { "NotificationsOff", "MeetingNotificationsEnabled", "no", kNotifies, false },
        PreferenceCase { "DateAbsent", "ShowDateInMenuBar", nullptr, kShowsDate, true },
        PreferenceCase { "DateOff", "ShowDateInMenuBar", "false", kShowsDate, false },
        PreferenceCase { "WeeksAbsent", "ShowWeekNumbers", nullptr, kWeeks, false },
        PreferenceCase { "DateFormatAbsent", "MenuBarDateFormat", nullptr, kDateFormat, u"d MMM"_qs },
        PreferenceCase { "LanguageAbsent", "AppLanguage", nullptr, kLanguage, u"system"_qs }),
    kRowName);

TEST(PreferencesTest, LanguageOfTheSystemLeavesNoList)
{
    World world("2026-03-07");
    AppState &state = world.state();
    state.setAppLanguage(u"it"_qs);
    EXPECT_EQ(world.defaults.stringArrayForKey(u"AppleLanguages"_qs), QStringList { u"it"_qs });
    state.setAppLanguage(u"system"_qs);
    EXPECT_FALSE(world.defaults.hasObjectForKey(u"AppleLanguages"_qs));
    EXPECT_EQ(world.defaults.stringForKey(u"AppLanguage"_qs), u"system"_qs);
}

} // namespace
} // namespace mintaro

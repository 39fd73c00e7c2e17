#include "support/World.h"

#include <gtest/gtest.h>

#include <QFile>

namespace mintaro {
namespace {

struct PreferenceCase
{
    const char *name;
    const char *key;
    QByteArray stored; ///< as it stands in the file; null: absent
    std::function<QVariant(AppState &)> read;
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
    const QByteArray text = row.stored.isNull() ? "# nothing\n" : row.key + ('=' + row.stored) + '\n';
    QFile file(world.folder.filePath(u"mintaro.conf"_qs));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.write(text) == text.size() && file.flush());
    world.defaults.follow();
    EXPECT_EQ(row.read(world.state()), row.value);
    ASSERT_TRUE(file.seek(0));
    EXPECT_EQ(file.readAll(), text) << "reading must not write";
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
/// Those that others read as they stand.
const auto kFontSize
    = [](AppState &state) { return state.defaults().doubleForKey(u"EventFontSize"_qs).value_or(13.0); };
const auto kClocks = [](AppState &state) { return state.defaults().dataForKey(u"WorldClockEntries"_qs); };
const auto kList = [](const char *key) {
    return [key](AppState &state) { return state.defaults().stringArrayForKey(QLatin1String(key)); };
};
const auto kCalendars = kList("SelectedCalendars");

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

// What people write by hand and programs leave.
INSTANTIATE_TEST_SUITE_P(WrongTypes, PreferenceTest,
    testing::Values(PreferenceCase { "MondayPerhaps", "WeekStartsOnMonday", "perhaps", kMonday, true, "it_IT" },
        PreferenceCase { "MondayByNumber", "WeekStartsOnMonday", "2", kMonday, false, "en_US" },
        PreferenceCase { "MinutesAsPower", "MeetingNotificationMinutes", "1e9", kMinutes, 5 },
        PreferenceCase { "MinutesBeyondAnInteger", "MeetingNotificationMinutes", "99999999999", kMinutes, 5 },
        PreferenceCase { "MinutesWithUnit", "MeetingNotificationMinutes", "10 min", kMinutes, 5 },
        PreferenceCase { "MinutesAsList", "MeetingNotificationMinutes", "@array [\"10\"]", kMinutes, 5 },
        PreferenceCase { "LengthFraction", "MenuBarMaxTitleLength", "2.5", kLength, 20 },
        PreferenceCase { "LengthEmpty", "MenuBarMaxTitleLength", "", kLength, 20 },
        PreferenceCase { "FormatOtherCase", "CountdownFormat", "Absolute", kFormat, u"relative"_qs },
        PreferenceCase { "FormatAsList", "CountdownFormat", "@array [\"absolute\"]", kFormat, u"relative"_qs },
        PreferenceCase { "NextEventMaybe", "ShowNextEventInMenuBar", "maybe", kShowsNext, true },
        PreferenceCase { "IconEmpty", "ShowMeetingIconInMenuBar", "", kIcon, true },
        PreferenceCase { "NotificationsNot", "MeetingNotificationsEnabled", "not", kNotifies, true },
        PreferenceCase { "DateOffInWords", "ShowDateInMenuBar", "off", kShowsDate, true },
        PreferenceCase { "WeeksMaybe", "ShowWeekNumbers", "maybe", kWeeks, false },
        PreferenceCase { "DateFormatEmpty", "MenuBarDateFormat", "", kDateFormat, u""_qs },
        PreferenceCase { "DateFormatHalfQuoted", "MenuBarDateFormat", "d 'of MMM", kDateFormat, u"d 'of MMM"_qs },
        PreferenceCase { "DateFormatAsList", "MenuBarDateFormat", "@array [\"d\"]", kDateFormat, u"d MMM"_qs },
        PreferenceCase { "DateFormatAsData", "MenuBarDateFormat", "@data ZA==", kDateFormat, u"d MMM"_qs },
        PreferenceCase {
            "DateFormatInLines", "MenuBarDateFormat", "@text [\"d\\nM\\u2028y\"]", kDateFormat, u"d M y"_qs },
        PreferenceCase {
            "DateFormatEndless", "MenuBarDateFormat", QByteArray(10'000, 'y'), kDateFormat, QString(100, u'y') },
        PreferenceCase { "LanguageAsList", "AppLanguage", "@array [\"it\"]", kLanguage, u"system"_qs },
        PreferenceCase { "LanguageBroken", "AppLanguage", "@text it", kLanguage, u"system"_qs },
        PreferenceCase { "CalendarsAsText", "SelectedCalendars", "work", kCalendars, QStringList() },
        PreferenceCase { "CalendarsWithNumbers", "SelectedCalendars", "@array [\"a\", 1]", kCalendars, QStringList() },
        PreferenceCase { "CalendarsCut", "SelectedCalendars", "@array [\"a\"", kCalendars, QStringList() },
        PreferenceCase { "CalendarsAsObject", "SelectedCalendars", "@array {\"a\": 1}", kCalendars, QStringList() },
        PreferenceCase {
            "Calendars", "SelectedCalendars", "@array [\"a\", \"b\"]", kCalendars, QStringList { u"a"_qs, u"b"_qs } },
        PreferenceCase {
            "ListsAsData", "SelectedReminderLists", "@data YQ==", kList("SelectedReminderLists"), QStringList() },
        PreferenceCase { "LanguagesAsText", "AppleLanguages", "it", kList("AppleLanguages"), QStringList() },
        PreferenceCase { "FontSizeNan", "EventFontSize", "nan", kFontSize, 13.0 },
        PreferenceCase { "FontSizeHuge", "EventFontSize", "1e999", kFontSize, 13.0 },
        PreferenceCase { "FontSizeComma", "EventFontSize", "14,5", kFontSize, 13.0 },
        PreferenceCase { "ClocksAsText", "WorldClockEntries", "W10=", kClocks, QByteArray() },
        PreferenceCase { "ClocksBroken", "WorldClockEntries", "@data W10=, or so", kClocks, QByteArray() },
        PreferenceCase { "Clocks", "WorldClockEntries", "@data W10=", kClocks, QByteArray("[]") }),
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

#include "Views/Components/ThemeController.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>

namespace mintaro {
namespace {

/// WCAG 2.1, "contrast ratio", worked out apart from the code under test.
double contrast(const QColor &a, const QColor &b)
{
    const auto luminance = [](const QColor &color) {
        const auto part = [](int channel) {
            const double share = channel / 255.0;
            return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.red()) + 0.7152 * part(color.green()) + 0.0722 * part(color.blue());
    };
    const double one = luminance(a) + 0.05;
    const double other = luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

TEST(LegibleTest, ReachesTheContrastOnEveryGround)
{
    for (const QColor ground : { QColor(Qt::white), QColor(0xf7f7f8), QColor(0x242427), QColor(Qt::black) }) {
        for (const QColor color : { QColor(Qt::white), QColor(Qt::black), QColor(Qt::yellow), QColor(Qt::blue),
                 QColor(Qt::gray), QColor(0x242427), QColor(0xf5c211), QColor(0x3584e4) }) {
            const QColor shown = legible(color, ground, 4.5);
            EXPECT_GE(contrast(shown, ground), 4.45)
                << color.name().toStdString() << " on " << ground.name().toStdString();
        }
    }
}

TEST(LegibleTest, LeavesWhatIsLegibleAlone)
{
    EXPECT_EQ(legible(QColor(0x0059d6), QColor(0xf7f7f8), 4.5), QColor(0x0059d6));
    EXPECT_EQ(legible(QColor(0x6aabff), QColor(0x242427), 4.5), QColor(0x6aabff));
}

class ThemeControllerTest : public testing::Test
{
protected:
    QTemporaryDir folder;
    UserDefaults defaults { folder.filePath(u"mintaro.conf"_qs) };
    // Without a bus, so that the machine's desktop has no say.
    Appearance appearance { QDBusConnection(u"none"_qs) };
    ThemeController theme { appearance, defaults };
    QColor standard = theme.accentFill();
};

TEST_F(ThemeControllerTest, TakesTheUsersAccentOnceTheSystemsIsOff)
{
    const QSignalSpy changes(&theme, &ThemeController::changed);
    defaults.setString(u"#8E4EC6"_qs, u"AccentColorHex"_qs);
    EXPECT_EQ(theme.accentFill(), standard);
    defaults.setBool(false, u"UseSystemAccent"_qs);
    EXPECT_EQ(theme.accentFill().name(), u"#8e4ec6"_qs);
    EXPECT_EQ(changes.size(), 2);
}

TEST_F(ThemeControllerTest, TextThatIsNoColourFallsBack)
{
    defaults.setBool(false, u"UseSystemAccent"_qs);
    for (const char *text : { "", "purple", "#12", "#12345g" }) {
        defaults.setString(QLatin1String(text), u"AccentColorHex"_qs);
        EXPECT_EQ(theme.accentFill(), standard) << text;
    }
    defaults.setString(u"#f00"_qs, u"AccentColorHex"_qs);
    EXPECT_EQ(theme.accentFill().hslHue(), 0);
}

TEST_F(ThemeControllerTest, AccentBearsWhiteText)
{
    defaults.setBool(false, u"UseSystemAccent"_qs);
    for (const char *text : { "#ffffff", "#f5c211", "#3584e4", "#000000" }) {
        defaults.setString(QLatin1String(text), u"AccentColorHex"_qs);
        EXPECT_GE(contrast(theme.accentFill(), Qt::white), 4.45) << text;
    }
}

} // namespace
} // namespace mintaro

#include "Views/EventEditor/NaturalLanguageFieldController.h"

#include "support/World.h"

#include <gmock/gmock.h>

namespace mintaro {
namespace {

class NaturalLanguageFieldControllerTest : public testing::Test
{
protected:
    NaturalLanguageFieldControllerTest()
    {
        field.setAppState(&world.state());
        QObject::connect(&field, &NaturalLanguageFieldController::parsed, &field,
            [this](const ParsedEvent &event) { titles.append(event.title); });
    }

    World world { "2026-03-07 12:00" };
    NaturalLanguageFieldController field;
    /// Of what was handed on.
    QStringList titles;
};

TEST_F(NaturalLanguageFieldControllerTest, PreviewsEachText)
{
    EXPECT_FALSE(field.hasPreview());
    field.setText(u"Lunch tomorrow at Roma"_qs);
    EXPECT_EQ(field.previewDate(), u"8 Mar, 12:00"_qs);
    EXPECT_EQ(field.previewLocation(), u"Roma"_qs);
    EXPECT_EQ(field.text(), u"Lunch tomorrow at Roma"_qs);
    for (const char *text : { "Lunch", "", "   ", "Lunch at Roma" }) {
        field.edit(u"Lunch tomorrow at Roma"_qs);
        field.edit(QLatin1String(text));
        EXPECT_FALSE(field.hasPreview()) << text;
        EXPECT_EQ(field.previewDate() + field.previewLocation(), QString()) << text;
    }
}

TEST_F(NaturalLanguageFieldControllerTest, HandsOnWhatWasTypedOnce)
{
    field.commit();
    field.edit(u"Lunch tomorrow"_qs);
    EXPECT_TRUE(titles.isEmpty());
    field.commit();
    field.commit();
    EXPECT_THAT(titles, testing::ElementsAre(u"Lunch"_qs));
    // The title that was made of it comes back; a second sentence counts again.
    field.setText(u"Lunch"_qs);
    field.commit();
    field.edit(u"Lunch with Anna tomorrow"_qs);
    field.commit();
    EXPECT_THAT(titles, testing::ElementsAre(u"Lunch"_qs, u"Lunch with Anna"_qs));
}

TEST_F(NaturalLanguageFieldControllerTest, NeverHandsOnWhatTheUserDidNotType)
{
    field.setText(u"Prepare for tomorrow"_qs);
    field.commit();
    field.edit(u"Prepare for tomorrow!"_qs);
    field.commit();
    field.edit(u"Prepare"_qs);
    field.commit();
    EXPECT_TRUE(titles.isEmpty());
    field.edit(u"Prepare tomorrow"_qs);
    field.setText(u"Prepare tomorrow"_qs);
    field.commit();
    EXPECT_THAT(titles, testing::ElementsAre(u"Prepare"_qs));
}

} // namespace
} // namespace mintaro

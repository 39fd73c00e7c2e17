#include "Platform/AppKit/SingleInstance.h"

#include "Platform/AppKit/Bus.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

#include <future>

namespace mintaro {

namespace {

using namespace std::chrono_literals;

class SingleInstanceTest : public testing::Test
{
protected:
    [[nodiscard]] QDBusMessage call(const QString &method, const QVariantList &arguments)
    {
        return other.call(u"dev.velmora.mintaro"_qs, u"/dev/velmora/mintaro"_qs, u"org.freedesktop.Application"_qs,
            method, arguments);
    }

    test::Bus own { u"first"_qs };
    test::Bus other { u"second"_qs };
    SingleInstance first { own.connection() };
    QSignalSpy shows { &first, &SingleInstance::showRequested };
    QSignalSpy toggles { &first, &SingleInstance::toggleRequested };
    QSignalSpy settings { &first, &SingleInstance::settingsRequested };
};

TEST_F(SingleInstanceTest, ASecondStartReachesTheFirst)
{
    ASSERT_EQ(first.start(SingleInstance::Request::Show), SingleInstance::Start::First);
    // The first answers in this thread, while the second waits in its own.
    const auto startAgain = [this](SingleInstance::Request request) {
        auto second = std::async(
            std::launch::async, [this, request] { return SingleInstance(other.connection()).start(request); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return second.wait_for(0s) == std::future_status::ready; }));
        return second.get();
    };
    EXPECT_EQ(startAgain(SingleInstance::Request::Toggle), SingleInstance::Start::Second);
    EXPECT_EQ(startAgain(SingleInstance::Request::Show), SingleInstance::Start::Second);
    EXPECT_EQ(startAgain(SingleInstance::Request::Settings), SingleInstance::Start::Second);
    EXPECT_TRUE(QTest::qWaitFor([this] { return toggles.size() == 1 && shows.size() == 1 && settings.size() == 1; }));
}

TEST_F(SingleInstanceTest, OthersReachItByTheInterface)
{
    ASSERT_EQ(first.start(SingleInstance::Request::Show), SingleInstance::Start::First);
    EXPECT_EQ(call(u"Activate"_qs, { QVariantMap() }).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(call(u"Open"_qs, { QStringList { u"file:///a"_qs }, QVariantMap() }).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(
        call(u"ActivateAction"_qs, { u"toggle"_qs, QVariantList(), QVariantMap() }).type(), QDBusMessage::ReplyMessage);
    EXPECT_EQ(call(u"ActivateAction"_qs, { u"dance"_qs, QVariantList(), QVariantMap() }).errorName(),
        u"org.freedesktop.DBus.Error.InvalidArgs"_qs);
    EXPECT_TRUE(QTest::qWaitFor([this] { return toggles.size() == 1 && shows.size() == 2; }));
}

TEST_F(SingleInstanceTest, AFirstThatHangsHoldsUpNobody)
{
    ASSERT_EQ(first.start(SingleInstance::Request::Show), SingleInstance::Start::First);
    // Nothing runs the first one's event loop meanwhile.
    SingleInstance second(other.connection(), 50ms);
    EXPECT_EQ(second.start(SingleInstance::Request::Toggle), SingleInstance::Start::Stuck);
}

TEST_F(SingleInstanceTest, NoneIsStartedToBeAsked)
{
    EXPECT_EQ(
        SingleInstance::ask(SingleInstance::Request::Toggle, other.connection()), SingleInstance::Answer::NotRunning);
    const QDBusConnection none(u"no bus"_qs);
    EXPECT_EQ(SingleInstance::ask(SingleInstance::Request::Toggle, none), SingleInstance::Answer::NotRunning);
    EXPECT_EQ(SingleInstance(none).start(SingleInstance::Request::Show), SingleInstance::Start::First);
}

TEST_F(SingleInstanceTest, TheNameIsFreeOnceItIsGone)
{
    auto gone = std::make_unique<SingleInstance>(other.connection());
    ASSERT_EQ(gone->start(SingleInstance::Request::Show), SingleInstance::Start::First);
    gone.reset();
    EXPECT_EQ(first.start(SingleInstance::Request::Show), SingleInstance::Start::First);
}

} // namespace

} // namespace mintaro

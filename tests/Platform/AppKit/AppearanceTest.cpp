#include "Platform/AppKit/Appearance.h"

#include "Platform/AppKit/Bus.h"

#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusMetaType>
#include <QSignalSpy>
#include <QTest>

namespace mintaro {

namespace {

struct Rgb
{
    double red = 0;
    double green = 0;
    double blue = 0;
};

QDBusArgument &operator<<(QDBusArgument &argument, const Rgb &rgb)
{
    argument.beginStructure();
    argument << rgb.red << rgb.green << rgb.blue;
    argument.endStructure();
    return argument;
}

const QDBusArgument &operator>>(const QDBusArgument &argument, Rgb &rgb)
{
    argument.beginStructure();
    argument >> rgb.red >> rgb.green >> rgb.blue;
    argument.endStructure();
    return argument;
}

const QString kAccent = QStringLiteral("accent-color");
const QString kGroup = QStringLiteral("org.freedesktop.appearance");

/// The portal, as it answers over the bus.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    QVariantMap settings;

    Portal()
    {
        qDBusRegisterMetaType<Rgb>();
        m_bus.connection().registerObject(
            QStringLiteral("/org/freedesktop/portal/desktop"), this, QDBusConnection::ExportScriptableContents);
        EXPECT_TRUE(m_bus.connection().registerService(QStringLiteral("org.freedesktop.portal.Desktop")));
    }

public Q_SLOTS:
    Q_SCRIPTABLE QDBusVariant Read(const QString &, const QString &key)
    {
        return QDBusVariant(QVariant::fromValue(QDBusVariant(settings.value(key, QString()))));
    }

Q_SIGNALS:
    Q_SCRIPTABLE void SettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    test::Bus m_bus { QStringLiteral("portal") };
};

TEST(Appearance, FollowsThePortal)
{
    Portal portal;
    portal.settings = { { QStringLiteral("color-scheme"), 1U }, { kAccent, QVariant::fromValue(Rgb { 1, 0.5, 0 }) } };
    test::Bus bus(QStringLiteral("program"));
    const Appearance appearance(bus.connection());
    ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.isDark() && appearance.accentColor(); }));
    EXPECT_EQ(appearance.accentColor()->name(), QStringLiteral("#ff8000"));

    QSignalSpy changed(&appearance, &Appearance::changed);
    Q_EMIT portal.SettingChanged(QStringLiteral("org.example"), QStringLiteral("color-scheme"), QDBusVariant(2U));
    Q_EMIT portal.SettingChanged(kGroup, QStringLiteral("color-scheme"), QDBusVariant(2U));
    ASSERT_TRUE(changed.wait());
    EXPECT_FALSE(appearance.isDark());
    EXPECT_EQ(changed.count(), 1);
}

TEST(Appearance, AnAccentOutOfRangeOrOfAnotherTypeIsNone)
{
    Portal portal;
    test::Bus bus(QStringLiteral("program"));
    const Appearance appearance(bus.connection());
    QSignalSpy changed(&appearance, &Appearance::changed);
    for (const QVariant &none :
        { QVariant(QStringLiteral("red")), QVariant(3.0), QVariant::fromValue(Rgb { -1, 0, 0 }) }) {
        Q_EMIT portal.SettingChanged(kGroup, kAccent, QDBusVariant(QVariant::fromValue(Rgb { 0, 0, 1 })));
        ASSERT_TRUE(changed.wait());
        EXPECT_TRUE(appearance.accentColor());
        Q_EMIT portal.SettingChanged(kGroup, kAccent, QDBusVariant(none));
        ASSERT_TRUE(changed.wait());
        EXPECT_EQ(appearance.accentColor(), std::nullopt);
    }
}

} // namespace

} // namespace mintaro

#include "AppearanceTest.moc"

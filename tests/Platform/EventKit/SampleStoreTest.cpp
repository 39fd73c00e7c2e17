#include "Platform/EventKit/Folders/SampleStore.h"

#include "Platform/EventKit/Folders/FoldersBackend.h"
#include "StoreFixture.h"

#include <gmock/gmock.h>

#include <QRegularExpression>

namespace mintaro {

namespace {

using namespace std::chrono_literals;

class SampleStoreTest : public StoreFixture
{
protected:
    /// Wednesday 25 November 2026, 10:17:30 in Rome.
    static constexpr Date kNow = std::chrono::sys_days(std::chrono::year(2026) / 11 / 25) + 9h + 17min + 30s;

    [[nodiscard]] static Calendar rome() { return Calendar(Locale {}, *TimeZone::named(u"Europe/Rome"_qs)); }

    [[nodiscard]] QByteArray bytes(const QString &relative) const
    {
        QFile file(path(relative));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
    }

    /// Every object of the store that the sample's configuration shows, by identifier and name.
    [[nodiscard]] std::map<QString, QByteArray> objectsOf(const QString &target)
    {
        BaseFolders folders = baseFolders();
        folders.configHome = path(target + u"/config"_qs);
        FoldersBackend backend(folders, std::nullopt, logger());
        EXPECT_TRUE(backend.requestAccess());
        std::map<QString, QByteArray> objects;
        for (const StoreCollection &collection : backend.collections()) {
            EXPECT_TRUE(collection.color) << collection.identifier.toStdString();
            EXPECT_EQ(collection.userAddresses, QStringList({ u"me@example.org"_qs }));
            for (const ObjectState &object : backend.objects(collection.identifier)) {
                const QString name = QDir(path(target)).relativeFilePath(collection.identifier) + u'/' + object.name;
                objects[name] = backend.read(collection.identifier, object.name).value_or(QByteArray());
            }
        }
        return objects;
    }
};

TEST_F(SampleStoreTest, FillsEveryPlaceholderTheSameForTheSameMoment)
{
    SampleStore::write(SampleStore::templateFolder(), path(u"one"_qs), kNow, rome());
    SampleStore::write(SampleStore::templateFolder(), path(u"two"_qs), kNow, rome());
    const std::map<QString, QByteArray> objects = objectsOf(u"one"_qs);
    EXPECT_GT(objects.size(), 50U);
    EXPECT_EQ(objects, objectsOf(u"two"_qs));
    for (const auto &[name, text] : objects) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_FALSE(text.contains("{{"));
        EXPECT_TRUE(text.startsWith("BEGIN:VCALENDAR\r\n"));
        EXPECT_TRUE(text.endsWith("END:VCALENDAR\r\n"));
        EXPECT_EQ(text.count("BEGIN:"), text.count("END:"));
        EXPECT_EQ(text.count('\n'), text.count("\r\n"));
    }
}

TEST_F(SampleStoreTest, ReadsEachFormOfPlaceholder)
{
    const struct
    {
        const char *placeholder;
        const char *value;
    } cases[] = {
        { "{{0d}}", "20261125" },
        { "{{-25d}}", "20261031" },
        { "{{+1d 10:00}}", "20261126T100000" },
        { "{{+3b}}", "20261130" },
        { "{{-3b 09:30}}", "20261120T093000" },
        { "{{mon 08:00}}", "20261123T080000" },
        { "{{sun+1}}", "20261206" },
        { "{{sat-1}}", "20261121" },
        { "{{now+12m}}", "20261125T103000" },
        { "{{now-678m}}", "20261124T230000" },
        { "{{utc +1d 10:00}}", "20261126T090000Z" },
        { "{{utc now+12m}}", "20261125T093000Z" },
        { "{{zone}}:{{0d}}", "Europe/Rome:20261125" },
    };
    int number = 0;
    for (const auto &row : cases) {
        SCOPED_TRACE(row.placeholder);
        const QString name = QString::number(number++);
        put(name + u"/templates/s/c/x.ics"_qs, row.placeholder);
        SampleStore::write(path(name + u"/templates"_qs), path(name + u"/store"_qs), kNow, rome());
        EXPECT_EQ(bytes(name + u"/store/s/c/x.ics"_qs), row.value);
    }
}

TEST_F(SampleStoreTest, LeavesNothingBehindOnFailure)
{
    const QString target = path(u"out/store"_qs);
    for (const char *placeholder : { "{{}}", "{{1x}}", "{{utc +1d}}", "{{now}}", "{{+1d 9:00}}" }) {
        SCOPED_TRACE(placeholder);
        put(u"templates/s/c/x.ics"_qs, placeholder);
        EXPECT_THROW(SampleStore::write(path(u"templates"_qs), target, kNow, rome()), EKError);
        EXPECT_TRUE(QDir(path(u"out"_qs)).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    }
}

TEST_F(SampleStoreTest, WritesToAnEmptyFolderButOverNothing)
{
    put(u"templates/s/c/x.ics"_qs, "{{0d}}");
    putFolder(u"empty"_qs);
    SampleStore::write(path(u"templates"_qs), path(u"empty"_qs), kNow, rome());
    EXPECT_EQ(bytes(u"empty/s/c/x.ics"_qs), "20261125");
    put(u"used/mine"_qs, "mine");
    EXPECT_THROW(SampleStore::write(path(u"templates"_qs), path(u"used"_qs), kNow, rome()), EKError);
    EXPECT_EQ(bytes(u"used/mine"_qs), "mine");
}

/// The clock readings of single events, which are all that may lie on the present day.
TEST_F(SampleStoreTest, TheNextTimedEventIsTheDesignReviewWhateverTheMoment)
{
    static const QRegularExpression start(QStringLiteral("\nDTSTART;TZID=[^:]*:(\\d{8}T\\d{6})"));
    const auto readingAfter = [](Date moment, std::chrono::minutes minutes) {
        const LocalTime reading = rome().timeZone().toLocal(std::chrono::floor<std::chrono::seconds>(moment) + minutes);
        return QDateTime::fromSecsSinceEpoch(reading.time_since_epoch().count(), Qt::UTC)
            .toString(u"yyyyMMdd'T'HHmmss"_qs);
    };
    for (int hours = 0; hours < 7 * 24; hours += 5) {
        const Date moment = kNow + 30s + std::chrono::hours(hours);
        SCOPED_TRACE(readingAfter(moment, 0min).toStdString());
        const QString target = QStringLiteral("at%1").arg(hours);
        SampleStore::write(SampleStore::templateFolder(), path(target), moment, rome());
        QStringList next;
        for (const auto &[name, text] : objectsOf(target)) {
            if (!text.contains("BEGIN:VEVENT") || text.contains("RRULE"))
                continue;
            const QRegularExpressionMatch match = start.match(QString::fromUtf8(text));
            const QString reading = match.captured(1);
            if (reading >= readingAfter(moment, 0min) && reading <= readingAfter(moment, 12min))
                next.append(name + u' ' + reading);
        }
        EXPECT_EQ(next, QStringList({ u"work/design/design-review.ics "_qs + readingAfter(moment, 12min) }));
    }
}

} // namespace

} // namespace mintaro

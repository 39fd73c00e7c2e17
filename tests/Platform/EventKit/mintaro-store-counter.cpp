// Counts the title or the location of each of countedItems() up for some seconds, while others change the rest, and
// prints how far it came. Fails where a number that it wrote is lost.

#include "CountedItems.h"

#include <QCoreApplication>

#include <cstdio>
#include <map>
#include <thread>

namespace {

using namespace mintaro;
using namespace std::chrono;

class FieldCounter
{
public:
    FieldCounter(const QString &home, QString field)
        : m_user(home, m_clock, StoreUser::Index::Yes)
        , m_field(std::move(field))
    {
        m_user.database().follow();
    }

    void countUp(const CountedItem &item)
    {
        EKEvent event = eventWithAllThatWasWritten(item);
        const int next = m_counts[item.uid] + 1;
        const QString text = QStringLiteral("%1 %2").arg(m_field).arg(next);
        m_field == u"title" ? event.setTitle(text) : event.setLocation(text);
        try {
            (void)m_user.store().save(event, item.span);
            m_counts[item.uid] = next;
        } catch (const EKError &error) {
            ++m_refusals[error.what()];
        }
    }

    void print()
    {
        for (const auto &[uid, count] : m_counts)
            std::printf("%s %d\n", qUtf8Printable(uid), count);
        for (const auto &[reason, count] : m_refusals)
            std::fprintf(stderr, "%s: refused %d times: %s\n", qUtf8Printable(m_field), count, reason.c_str());
    }

private:
    /// Between the two renames of a program that finds that it came too late, the older state stands for a moment.
    [[nodiscard]] EKEvent eventWithAllThatWasWritten(const CountedItem &item)
    {
        for (const auto end = steady_clock::now() + 5s; steady_clock::now() < end;) {
            EKEvent event = m_user.event(item.uid, item.place);
            if (countOf(event) >= m_counts[item.uid])
                return event;
            std::this_thread::sleep_for(1ms);
        }
        throw EKError(
            QStringLiteral("%1 %2 of %3 is lost").arg(m_field).arg(m_counts[item.uid]).arg(item.uid).toStdString());
    }

    [[nodiscard]] int countOf(const EKEvent &event) const
    {
        const std::optional<QString> text = m_field == u"title" ? event.title() : event.location();
        return text.value_or(QString()).section(u' ', 1).toInt();
    }

    const SystemClock m_clock;
    StoreUser m_user;
    const QString m_field;
    std::map<QString, int> m_counts;
    std::map<std::string, int> m_refusals;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 4)
        return 2;
    try {
        FieldCounter counter(QString::fromUtf8(argv[1]), QString::fromUtf8(argv[2]));
        for (const auto end = steady_clock::now() + seconds(std::atoi(argv[3])); steady_clock::now() < end;) {
            for (const CountedItem &item : countedItems())
                counter.countUp(item);
        }
        counter.print();
        return 0;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}

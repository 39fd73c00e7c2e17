// Carries out one change of `userChanges` in the store of a home, with a mark before it and one after it.

#include "EngineFixture.h"
#include "UserChanges.h"

#include <QCoreApplication>

#include <cstdio>

#include <unistd.h>

namespace {

bool mark(char letter)
{
    return ::write(STDOUT_FILENO, &letter, 1) == 1;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 3)
        return 2;
    try {
        const mintaro::FixedClock clock(mintaro::utc("2026-03-01T09:00:00Z"));
        mintaro::StoreUser user(QString::fromUtf8(argv[1]), clock, mintaro::StoreUser::Index::No);
        // Everything is read before the mark.
        (void)user.events();
        const auto &change = mintaro::userChanges().at(argv[2]);
        if (!mark('b'))
            return 1;
        change(user);
        return mark('e') ? 0 : 1;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s: %s\n", argv[2], error.what());
        return 1;
    }
}

#include "bench/RunningProgram.h"

#include <QGuiApplication>

#include <cstdio>

// Starts the program on a folder of calendars, opens its popover for the first time, and prints how long that took
// until the first frame and for how long the main thread was away at a stretch, both in milliseconds. The first opening
// of a process is the only one that loads the views.
int main(int argc, char **argv)
{
    QGuiApplication application(argc, argv);
    if (argc != 3) {
        std::fputs("usage: popover-opening CALENDARS PREFERENCES\n", stderr);
        return 2;
    }
    try {
        mintaro::bench::RunningProgram program(
            mintaro::bench::programOptions(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2])));
        const auto cost = program.open();
        std::printf("%f %f\n", cost.toFirstFrame.count(), cost.longestSpan.count());
    } catch (const std::exception &error) {
        std::fprintf(stderr, "popover-opening: %s\n", error.what());
        return 1;
    }
    return 0;
}

#include "bench/LibicalBaseline.h"
#include "bench/Window.h"

#include <cstdio>

/// A plain program over libical: parses all below a root, counts the occurrences of six weeks, ends.
int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    using namespace mintaro::bench;
    std::printf("%lld\n", static_cast<long long>(LibicalBaseline::countOccurrencesBelow(argv[1], kBegin, kEnd)));
    return 0;
}

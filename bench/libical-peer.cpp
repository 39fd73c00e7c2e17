#include "bench/LibicalBaseline.h"
#include "bench/Window.h"

#include <cstdio>

/// A plain program over libical: parses all below a root, counts the occurrences of six weeks, ends.
int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    const mintaro::bench::LibicalBaseline store(argv[1]);
    std::printf("%lld\n", static_cast<long long>(store.countOccurrences(mintaro::bench::kBegin, mintaro::bench::kEnd)));
    return 0;
}

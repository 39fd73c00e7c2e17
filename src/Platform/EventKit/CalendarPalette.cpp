#include "Platform/EventKit/CalendarPalette.h"

#include <QByteArray>

#include <array>
#include <cstdint>

namespace mintaro {

namespace {

// Well apart from one another, and strong enough as dots on a light and on a dark background.
constexpr std::array<Color, 8> kPalette { {
    { 0x1f, 0x7a, 0xe0 },
    { 0xd9, 0x3a, 0x49 },
    { 0x2e, 0x9e, 0x5b },
    { 0xe0, 0x7b, 0x12 },
    { 0x8e, 0x4e, 0xc6 },
    { 0x12, 0x9a, 0xa6 },
    { 0xd6, 0x40, 0x9f },
    { 0x8a, 0x6a, 0x4a },
} };

} // namespace

Color paletteColor(const QString &calendarIdentifier)
{
    // FNV-1a: qHash is seeded anew in each run.
    std::uint32_t hash = 2166136261u;
    for (const char byte : calendarIdentifier.toUtf8())
        hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619u;
    return kPalette[hash % kPalette.size()];
}

} // namespace mintaro

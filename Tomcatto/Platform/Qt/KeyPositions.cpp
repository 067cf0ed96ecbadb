#include "Platform/Qt/KeyPositions.h"

#include <algorithm>
#include <array>

namespace tomcatto::keyPositions {

namespace {

struct Position
{
    /// As input devices number it.
    quint8 device;
    quint8 virtualKey;
};

// Row by row.
constexpr auto positions = std::to_array<Position>({
    {1, 53},    {59, 122},  {60, 120},  {61, 99},   {62, 118},  {63, 96},   {64, 97},   {65, 98},   {66, 100},
    {67, 101},  {68, 109},  {87, 103},  {88, 111},  {183, 105}, {184, 107}, {185, 113}, {186, 106}, {187, 64},
    {188, 79},  {189, 80},  {190, 90},  {41, 50},   {2, 18},    {3, 19},    {4, 20},    {5, 21},    {6, 23},
    {7, 22},    {8, 26},    {9, 28},    {10, 25},   {11, 29},   {12, 27},   {13, 24},   {14, 51},   {15, 48},
    {16, 12},   {17, 13},   {18, 14},   {19, 15},   {20, 17},   {21, 16},   {22, 32},   {23, 34},   {24, 31},
    {25, 35},   {26, 33},   {27, 30},   {43, 42},   {30, 0},    {31, 1},    {32, 2},    {33, 3},    {34, 5},
    {35, 4},    {36, 38},   {37, 40},   {38, 37},   {39, 41},   {40, 39},   {28, 36},   {86, 10},   {44, 6},
    {45, 7},    {46, 8},    {47, 9},    {48, 11},   {49, 45},   {50, 46},   {51, 43},   {52, 47},   {53, 44},
    {57, 49},   {110, 114}, {102, 115}, {104, 116}, {111, 117}, {107, 119}, {109, 121}, {105, 123}, {106, 124},
    {108, 125}, {103, 126}, {98, 75},   {55, 67},   {74, 78},   {78, 69},   {96, 76},   {83, 65},   {82, 82},
    {79, 83},   {80, 84},   {81, 85},   {75, 86},   {76, 87},   {77, 88},   {71, 89},   {72, 91},   {73, 92},
    {117, 81},  {121, 95},  {124, 93},  {89, 94},   {127, 110},
});

// Both kinds of server begin to count with this one.
constexpr quint32 firstScanCode = 8;

}

std::optional<quint16> virtualKey(quint32 scanCode)
{
    const auto *const found =
        std::ranges::find_if(positions, [&](const Position &each) { return each.device + firstScanCode == scanCode; });
    return found == positions.end() ? std::nullopt : std::optional<quint16>(found->virtualKey);
}

std::optional<quint8> scanCode(quint16 virtualKey)
{
    const auto *const found = std::ranges::find(positions, virtualKey, &Position::virtualKey);
    if (found == positions.end())
        return std::nullopt;
    return static_cast<quint8>(found->device + firstScanCode);
}

}

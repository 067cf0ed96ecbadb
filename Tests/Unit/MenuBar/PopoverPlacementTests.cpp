#include "MenuBar/PopoverPlacement.h"

#include <gtest/gtest.h>

namespace tomcatto {
namespace {

TEST(PopoverPlacement, StaysBesideTheItemAndInsideTheScreen)
{
    const QRect screen(100, 30, 1000, 800);
    const QSize size(280, 460);
    struct Row
    {
        const char *name;
        std::optional<QRect> item;
        QPoint expected;
    };
    const Row rows[] = {
        {"below an item at the top", QRect(500, 0, 100, 24), {410, 38}},
        {"item's bottom edge counts", QRect(500, 40, 100, 24), {410, 68}},
        {"kept from the left edge", QRect(100, 40, 24, 24), {108, 68}},
        {"kept from the right edge", QRect(1070, 40, 24, 24), {812, 68}},
        {"above an item at the bottom", QRect(500, 800, 24, 24), {372, 336}},
        {"above, kept from the bottom edge", QRect(500, 835, 24, 24), {372, 362}},
        {"item in the upper half but low", QRect(500, 400, 24, 24), {372, 362}},
        {"only the click's place", QRect(600, 40, 0, 0), {460, 44}},
        {"unknown", std::nullopt, {460, 38}},
    };
    for (const Row &row : rows)
        EXPECT_EQ(popoverRectangle(size, row.item, screen), QRect(row.expected, size)) << row.name;
    EXPECT_EQ(popoverRectangle(size, std::nullopt, QRect(0, 0, 200, 200)).topLeft(), QPoint(8, 8)) << "too small";
}

TEST(PopoverPlacement, AMenuOpensTowardsWhereThereIsRoom)
{
    const QRect screen(100, 30, 1000, 800);
    const QSize size(200, 300);
    EXPECT_EQ(menuRectangle(size, {300, 40}, screen), QRect({300, 40}, size));
    EXPECT_EQ(menuRectangle(size, {1000, 800}, screen), QRect({800, 500}, size)) << "to the left and above";
    EXPECT_EQ(menuRectangle(size, {90, 10}, screen), QRect({100, 30}, size)) << "in a bar outside";
}

}
}

// SPDX-License-Identifier: MIT
#include "media/tags/Message.h"

#include <gtest/gtest.h>

using tags::filled;
using tags::Message;

TEST(Message, NothingToSayIsEmpty)
{
    EXPECT_TRUE(Message().empty());
    EXPECT_EQ(Message().english(), "");
    EXPECT_FALSE(Message("It is so.").empty());
}

TEST(Message, PartsTakeTheirPlaces)
{
    EXPECT_EQ(Message("It is so.").english(), "It is so.");
    EXPECT_EQ(Message("%1 (%2)", {"one", "two"}).english(), "one (two)");
    EXPECT_EQ(Message("%2, %1, %2", {"one", ""}).english(), ", one, ");
}

TEST(Message, APartIsTakenAsItIs)
{
    EXPECT_EQ(Message("%1 %2", {"%2", "%1"}).english(), "%2 %1");
}

TEST(Message, APlaceWithoutAPartStays)
{
    EXPECT_EQ(filled("%1 %2 %0 %a 100 %", {"one"}), "one %2 %0 %a 100 %");
    EXPECT_EQ(filled("%1", {}), "%1");
}

// SPDX-License-Identifier: MIT
// What is private to a module stays inside it, and is not needed by what is installed.
#include "project/HeaderRules.h"
#include "project/MadeUpTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using project::Headers;
using project::Violation;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(HeaderSets, TheSourcesKeepThem)
{
    const Headers headers = project::readHeaders(project::contentsOf(TQLRC_PUBLIC_HEADERS));
    EXPECT_TRUE(headers.contains("shell/contracts/WXEAudioFile.h"));
    EXPECT_THAT(project::headerViolationsBelow(TQLRC_SOURCE_DIR "/src", headers), IsEmpty());
}

TEST(HeaderSets, WhatIsAllowedIsNotFound)
{
    const project::MadeUpTree tree;
    tree.write("kit/Inner.h", "");
    tree.write("kit/Outer.h", "#include <vector>\n");
    tree.write("kit/Outer.cpp", "#include \"kit/Inner.h\"\n#include \"Outer.moc\"\n");
    tree.write("views/a.cpp", "#include \"kit/Outer.h\"\n");
    EXPECT_THAT(project::headerViolationsBelow(tree.root(), Headers{"kit/Outer.h"}), IsEmpty());
}

TEST(HeaderSets, APrivateHeaderIncludedFromAnotherModuleIsFound)
{
    const project::MadeUpTree tree;
    tree.write("kit/Inner.h", "");
    tree.write("views/a.cpp", "\n#include \"kit/Inner.h\"\n");
    EXPECT_THAT(project::headerViolationsBelow(tree.root(), {}),
        ElementsAre(Violation{"views/a.cpp", 2, "private to another module: kit/Inner.h"}));
}

TEST(HeaderSets, APublicHeaderThatNeedsAPrivateOneIsFound)
{
    const project::MadeUpTree tree;
    tree.write("kit/Inner.h", "");
    tree.write("kit/Outer.h", "#include \"kit/Inner.h\"\n");
    EXPECT_THAT(project::headerViolationsBelow(tree.root(), Headers{"kit/Outer.h"}),
        ElementsAre(Violation{"kit/Outer.h", 1, "a public header includes a private one: kit/Inner.h"}));
}

TEST(HeaderSets, APublicHeaderThatIsNotThereIsFound)
{
    const project::MadeUpTree tree;
    EXPECT_THAT(project::headerViolationsBelow(tree.root(), Headers{"kit/Gone.h"}),
        ElementsAre(Violation{"kit/Gone.h", 0, "declared as public, and not there"}));
}

TEST(HeaderSets, AListThatIsNotOneIsRefused)
{
    EXPECT_THROW(project::readHeaders("kit/Alert.cpp"), std::runtime_error);
}

} // namespace

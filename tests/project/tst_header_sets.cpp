// SPDX-License-Identifier: MIT
// Every header is declared by its target, and what is private stays inside its module.
#include "project/HeaderRules.h"
#include "project/MadeUpTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using project::DeclaredHeaders;
using project::Violation;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST(HeaderSets, TheSourcesDeclareEveryHeader)
{
    const DeclaredHeaders declared
        = project::readDeclaredHeaders(project::contentsOf(TQLRC_DECLARED_HEADERS));
    EXPECT_TRUE(declared.publicOnes.contains("shell/contracts/WXEAudioFile.h"));
    EXPECT_THAT(project::headerViolationsBelow(TQLRC_SOURCE_DIR "/src", declared), IsEmpty());
}

TEST(HeaderSets, AHeaderThatNoTargetListsIsFound)
{
    const project::MadeUpTree tree;
    tree.write("kit/Alert.h", "");
    tree.write("kit/Forgotten.h", "");
    tree.write("host/Window.h", "");
    EXPECT_THAT(
        project::headerViolationsBelow(tree.root(), {.publicOnes = {"kit/Alert.h"}, .privateOnes = {}}),
        ElementsAre(Violation{
            "kit/Forgotten.h", 0, "not listed by its target, as public (HEADERS) or private (SOURCES)"}));
}

TEST(HeaderSets, APrivateHeaderIncludedFromAnotherModuleIsFound)
{
    const project::MadeUpTree tree;
    tree.write("kit/Inner.h", "");
    tree.write("kit/Inner.cpp", "#include \"kit/Inner.h\"\n");
    tree.write("views/a.cpp", "\n#include \"kit/Inner.h\"\n");
    EXPECT_THAT(
        project::headerViolationsBelow(tree.root(), {.publicOnes = {}, .privateOnes = {"kit/Inner.h"}}),
        ElementsAre(Violation{"views/a.cpp", 2, "private to another module: kit/Inner.h"}));
}

TEST(HeaderSets, APublicHeaderThatNeedsAPrivateOneIsFound)
{
    const project::MadeUpTree tree;
    tree.write("kit/Inner.h", "");
    tree.write("kit/Outer.h", "#include \"kit/Inner.h\"\n");
    EXPECT_THAT(project::headerViolationsBelow(
                    tree.root(), {.publicOnes = {"kit/Outer.h"}, .privateOnes = {"kit/Inner.h"}}),
        ElementsAre(Violation{"kit/Outer.h", 1, "a public header includes a private one: kit/Inner.h"}));
}

TEST(HeaderSets, AListThatIsNotOneIsRefused)
{
    EXPECT_THROW(project::readDeclaredHeaders("hidden kit/Alert.h"), std::runtime_error);
}

} // namespace

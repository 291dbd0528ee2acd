// SPDX-License-Identifier: MIT
// The folders under src/ include each other in one direction only.
#include "project/IncludeRules.h"
#include "project/MadeUpTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class IncludeEdges : public testing::Test
{
protected:
    /// The rules broken by a file that includes `line`, beside the headers of a whole tree.
    [[nodiscard]] std::vector<project::Violation> whenWritten(
        const std::string &file, const std::string &line) const
    {
        for (const char *header : {"lyrics/RBUtils.h", "kit/Alert.h", "editor/Editor.h", "views/Text.h",
                 "shell/Container.h", "shell/contracts/Item.h", "media/tags/Tags.h", "media/player/Player.h",
                 "host/Window.h", "resources/Localized.h"}) {
            m_tree.write(header, "#pragma once\n");
        }
        m_tree.write(file, line + '\n');
        return project::violationsBelow(m_tree.root());
    }

private:
    project::MadeUpTree m_tree;
};

TEST_F(IncludeEdges, TheSourcesKeepThem)
{
    const std::filesystem::path sources = TQLRC_SOURCE_DIR "/src";
    EXPECT_GT(project::cppFilesBelow(sources).size(), 10U);
    EXPECT_THAT(project::violationsBelow(sources), IsEmpty());
}

struct BadCase
{
    std::string file;
    std::string line;
    std::string what;
};

class BadInclude : public IncludeEdges, public testing::WithParamInterface<BadCase>
{ };

TEST_P(BadInclude, IsFound)
{
    const BadCase &bad = GetParam();
    EXPECT_THAT(whenWritten(bad.file, bad.line), ElementsAre(project::Violation{bad.file, 1, bad.what}));
}

INSTANTIATE_TEST_SUITE_P(Made, BadInclude,
    testing::Values(BadCase{"lyrics/a.cpp", "#include <QtCore/QString>",
                        "only the standard library here: QtCore/QString"},
        BadCase{"lyrics/a.cpp", "#include <unistd.h>", "only the standard library here: unistd.h"},
        BadCase{"lyrics/a.cpp", "#include \"kit/Alert.h\"", "lyrics may not include kit/Alert.h"},
        BadCase{"media/tags/a.cpp", "#include <QtCore/QFile>", "no Qt here: QtCore/QFile"},
        BadCase{"cli/a.cpp", "#include <QString>", "no Qt here: QString"},
        BadCase{
            "cli/a.cpp", "#include \"shell/contracts/Item.h\"", "cli may not include shell/contracts/Item.h"},
        BadCase{"kit/a.cpp", "#include \"lyrics/RBUtils.h\"", "kit may not include lyrics/RBUtils.h"},
        BadCase{"shell/contracts/a.h", "#include <QtWidgets/QWidget>", "no widgets here: QtWidgets/QWidget"},
        BadCase{"editor/a.cpp", "#include \"shell/Container.h\"", "editor may not include shell/Container.h"},
        BadCase{"player/a.cpp", "#include \"editor/Editor.h\"", "player may not include editor/Editor.h"},
        BadCase{"preview/a.cpp", "#include \"media/player/Player.h\"",
            "preview may not include media/player/Player.h"},
        BadCase{"shell/a.cpp", "#include \"media/tags/Tags.h\"", "shell may not include media/tags/Tags.h"},
        BadCase{"shell/a.cpp", "#include \"host/Window.h\"", "shell may not include host/Window.h"},
        BadCase{"media/player/a.cpp", "#include \"shell/Container.h\"",
            "media/player may not include shell/Container.h"},
        BadCase{"host/a.cpp", "#include \"editor/Editor.h\"", "host may not include editor/Editor.h"},
        BadCase{"host/a.cpp", "#include <gst/gst.h>", "GStreamer belongs to media/player: gst/gst.h"},
        BadCase{"host/a.cpp", "#include <taglib/tag.h>", "TagLib belongs to media: taglib/tag.h"},
        BadCase{"kit/a.cpp", "#include <QWidget>", "Qt headers carry their module: QWidget"},
        BadCase{"kit/a.cpp", "  #  include \"Alert.h\"", "quotes carry the folder: Alert.h"},
        BadCase{"kit/a.cpp", "#include \"../kit/Alert.h\"", "quotes carry the folder: ../kit/Alert.h"},
        BadCase{"kit/a.cpp", "#include \"kit/Gone.h\"", "no such file: kit/Gone.h"}));

TEST_F(IncludeEdges, WhatIsAllowedIsNotFound)
{
    EXPECT_THAT(
        whenWritten("lyrics/a.cpp", "#include <string_view>\n#include \"lyrics/RBUtils.h\""), IsEmpty());
    EXPECT_THAT(
        whenWritten("editor/rows/a.cpp",
            "#include \"lyrics/RBUtils.h\"\n#include \"shell/contracts/Item.h\"\n#include \"views/Text.h\""),
        IsEmpty());
    EXPECT_THAT(whenWritten("shell/a.cpp", "#include \"editor/Editor.h\"\n#include \"a.moc\""), IsEmpty());
    EXPECT_THAT(
        whenWritten("kit/a.cpp", "// #include \"editor/Editor.h\"\n#include <QtCore/QString>"), IsEmpty());
}

TEST_F(IncludeEdges, AFolderWithoutARuleIsFound)
{
    EXPECT_THAT(whenWritten("helpers/a.cpp", ""),
        ElementsAre(project::Violation{"helpers/a.cpp", 0, "no rule for this folder"}));
}

TEST_F(IncludeEdges, TheInnermostFolderCounts)
{
    EXPECT_EQ(project::moduleOf("shell/contracts/WXEAudioFile.h"), "shell/contracts");
    EXPECT_EQ(project::moduleOf("shell/TQWLRCEditorViewCtl.h"), "shell");
    EXPECT_EQ(project::moduleOf("shellac/a.h"), "");
}

} // namespace

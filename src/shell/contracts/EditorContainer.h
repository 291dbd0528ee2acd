// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

class QObject;
class WXEAudioFile;

/// The container as its children see it: their `parentVC`, and the only road to their siblings.
///
/// Children hold it weakly. Narrow on purpose, so that each child can be tested with a stand-in.
class EditorContainer
{
public:
    virtual ~EditorContainer() = default;

    /// Asks the host to play the item unless it plays already. True when the host was asked.
    virtual bool tryToPlay() = 0;
    /// Presses the play button of the player strip (`PlayPauseClicked`).
    virtual void pressPlayPause(QObject *sender) = 0;
    /// Moves the play position to `seconds`, if the player holds the item; plays on if it played.
    virtual void seekTo(double seconds) = 0;
    /// Plays the item from `seconds` on; asks the host for it when the player does not hold it.
    virtual void playFrom(double seconds) = 0;
    /// Marks where the lines have their times: seconds, in any order. `selected` are those of the
    /// selected lines, which are among `all`.
    virtual void showTimeTags(const std::vector<double> &all, const std::vector<double> &selected) = 0;
    /// Shows `item` (null for none) in all children.
    virtual void flushWithAudioItem(const std::shared_ptr<WXEAudioFile> &item) = 0;
    /// Puts the preview in the line editor's place.
    virtual void prPreviewClicked(QObject *sender) = 0;
    /// Puts the line editor back.
    virtual void backFromPreview(QObject *sender) = 0;
    /// Opens the line editor's offset dialog.
    virtual void previewOffsetClicked(QObject *sender) = 0;

protected:
    EditorContainer() = default;
    EditorContainer(const EditorContainer &) = default;
    EditorContainer &operator=(const EditorContainer &) = default;
};

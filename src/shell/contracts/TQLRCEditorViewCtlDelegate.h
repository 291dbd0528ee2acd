// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

class WXEAudioFile;

/// The host, as the component calls it. Held weakly everywhere.
class TQLRCEditorViewCtlDelegate
{
public:
    virtual ~TQLRCEditorViewCtlDelegate() = default;

    /// Asks for `item` (null when the editor has none) to be played.
    ///
    /// The play button sends it too, so it is a toggle: pause when the player plays this item,
    /// otherwise make it the current item, if it is not, and play it. It must be the player's
    /// current item when the call returns: the component decides then whether it listens.
    virtual void lrcEditorPlayAudioFile(const std::shared_ptr<WXEAudioFile> &item) = 0;

    /// The lyric was edited, loaded, or written into the item.
    virtual void lrcEditorLrcDidChanged() { }

    /// The selection of the line table changed. `row` is from 0, −1 when nothing is selected;
    /// `column` is always 0.
    virtual void lrcEditorSelctionChanged_column(std::int32_t row, std::int32_t column)
    {
        static_cast<void>(row);
        static_cast<void>(column);
    }

protected:
    TQLRCEditorViewCtlDelegate() = default;
    TQLRCEditorViewCtlDelegate(const TQLRCEditorViewCtlDelegate &) = default;
    TQLRCEditorViewCtlDelegate &operator=(const TQLRCEditorViewCtlDelegate &) = default;
};

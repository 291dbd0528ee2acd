// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>

/// The host's service that finds the lyric of a song.
///
/// GUI thread only, in both directions: the component changes its document right in the completion.
class TQLrcDownloadInterface
{
public:
    /// \param lrcText  LRC text in UTF-8, which replaces the lyric that is being edited; null or empty
    ///     when there is nothing, which changes nothing.
    using Completion = std::function<void(const QByteArray &lrcText)>;

    virtual ~TQLrcDownloadInterface() = default;

    /// Begins to look for a lyric, and returns at once. `completion` runs exactly once, on the GUI
    /// thread: with the text, or with a null one when nothing was found, something failed, or the
    /// request was cancelled or withdrawn.
    ///
    /// The component does not ask whether its item is still the same when the text comes. So withdraw
    /// the request when you show another item: its text would replace the wrong lyric.
    ///
    /// \param title   of the item in the editor; empty when it has none, null when there is no item.
    /// \param artist  the same.
    virtual void requestLyric_artist_completion(
        const QString &title, const QString &artist, Completion completion)
        = 0;
};

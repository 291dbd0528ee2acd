// SPDX-License-Identifier: MIT
#pragma once

#include "shell/contracts/WaveformPeaks.h"

#include <functional>
#include <memory>

class WXEAudioFile;

/// What was asked of a `PeakProvider`; destroying it withdraws it, and its receiver is called no more.
class PeakRequest
{
public:
    virtual ~PeakRequest() = default;
    PeakRequest(const PeakRequest &) = delete;
    PeakRequest &operator=(const PeakRequest &) = delete;

protected:
    PeakRequest() = default;
};

/// The host's way of finding out how loud an item is over its length, for the strip's waveform.
///
/// A host without one has a plain bar. Used on the GUI thread only; what takes time is done
/// elsewhere.
class PeakProvider
{
public:
    /// Called on the GUI thread with all that is known so far, never null: first with a part, then
    /// with more. May destroy anything, the request and the provider too.
    using Receiver = std::function<void(const std::shared_ptr<const WaveformPeaks> &peaks)>;

    virtual ~PeakProvider() = default;

    /// Begins to look at `item`. `receiver` is called later, never from within this call, and not at
    /// all when the item's sound cannot be read. Null when there is nothing to wait for.
    [[nodiscard]] virtual std::unique_ptr<PeakRequest> requestPeaks(
        const std::shared_ptr<WXEAudioFile> &item, Receiver receiver)
        = 0;

    /// The provider of the process, held weakly: it is the host's.
    static void setProvider(const std::weak_ptr<PeakProvider> &provider);
    /// Null when the host has set none, or it is gone.
    [[nodiscard]] static std::shared_ptr<PeakProvider> provider();

protected:
    PeakProvider() = default;
    PeakProvider(const PeakProvider &) = default;
    PeakProvider &operator=(const PeakProvider &) = default;
};

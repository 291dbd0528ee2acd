// SPDX-License-Identifier: MIT
#pragma once

namespace media {

/// Starts the multimedia library once per process; later calls only answer. False when it cannot
/// be used. Leaves the process as the host has set it up: no command line, no locale.
bool startLibrary();

} // namespace media

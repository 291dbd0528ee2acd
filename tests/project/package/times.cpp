// SPDX-License-Identifier: MIT
// The lyric model alone.
#include "lyrics/RBUtils.h"

int main()
{
    const bool right = RBUtils::getTimeIntervalPeerStr(59996) == "01:00.00"
        && RBUtils::getTimeInterval("[01:00.00]") == 60000;
    return right ? 0 : 1;
}

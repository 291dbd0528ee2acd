// SPDX-License-Identifier: MIT
#include "shell/contracts/TQLRCEditorConfig.h"

std::shared_ptr<TQLRCEditorConfig> gEditorConfig;

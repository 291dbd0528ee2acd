// SPDX-License-Identifier: MIT
#include "views/SmallViews.h"

#include "kit/FormLoader.h"
#include "views/RBMenuDisabledTextView.h"
#include "views/RBNoResponseTextFiled.h"
#include "views/TQLRCTextView.h"

namespace views {

void registerSmallViews()
{
    static const bool registered = [] {
        kit::FormLoader::registerWidget<RBMenuDisabledTextView>("RBMenuDisabledTextView");
        kit::FormLoader::registerWidget<RBNoResponseTextFiled>("RBNoResponseTextFiled");
        kit::FormLoader::registerWidget<TQLRCTextView>("TQLRCTextView");
        return true;
    }();
    static_cast<void>(registered);
}

} // namespace views

// SPDX-License-Identifier: MIT
#include "kit/KitWidgets.h"

#include "kit/AccentButton.h"
#include "kit/CoverView.h"
#include "kit/DropTipView.h"
#include "kit/ElidedLabel.h"
#include "kit/FiguresLabel.h"
#include "kit/FormLoader.h"
#include "kit/MyStyledView.h"
#include "kit/MyTableView.h"
#include "kit/ProgressSliderView.h"
#include "kit/RoundButton.h"
#include "kit/SegmentedControl.h"
#include "kit/Separator.h"
#include "kit/SwitchButton.h"

namespace kit {

void registerKitWidgets()
{
    FormLoader::registerWidget<AccentButton>("AccentButton");
    FormLoader::registerWidget<CoverView>("CoverView");
    FormLoader::registerWidget<DropTipView>("DropTipView");
    FormLoader::registerWidget<ElidedLabel>("ElidedLabel");
    FormLoader::registerWidget<FiguresLabel>("FiguresLabel");
    FormLoader::registerWidget<MyStyledView>("MyStyledView");
    FormLoader::registerWidget<MyTableView>("MyTableView");
    FormLoader::registerWidget<ProgressSliderView>("ProgressSliderView");
    FormLoader::registerWidget<RoundButton>("RoundButton");
    FormLoader::registerWidget<SegmentedControl>("SegmentedControl");
    FormLoader::registerWidget<Separator>("Separator");
    FormLoader::registerWidget<SwitchButton>("SwitchButton");
}

} // namespace kit

// SPDX-License-Identifier: MIT
#include "resources/Resources.h"

#include "kit/FormLoader.h"
#include "resources/Localized.h"

#include <QtCore/QtGlobal>

// In no namespace: the macro declares what it calls where it stands, and the resource compiler
// defines that in the global one. In a static library nothing registers itself.
static void registerResources()
{
    Q_INIT_RESOURCE(tqlrceditor);
    Q_INIT_RESOURCE(tqlrceditor_localized);
}

namespace resources {

void ensureLoaded()
{
    static const bool loaded = [] {
        registerResources();
        kit::FormLoader::setTranslator(localized);
        return true;
    }();
    static_cast<void>(loaded);
}

} // namespace resources

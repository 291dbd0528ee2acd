// SPDX-License-Identifier: MIT
#pragma once

class QCoreApplication;

namespace desk {

/// Lets the program speak the language of the default locale where there is a catalogue for it, the toolkit's
/// own texts included; English elsewhere. The component looks after itself. Once, before the first text is
/// shown.
void installTranslations(QCoreApplication &application);

} // namespace desk

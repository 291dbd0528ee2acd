// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>

class QWidget;

namespace kit {

/// Makes widgets from interface files, with our own widget classes and in the user's language.
///
/// No designer plug-ins are searched, and nothing is asked of the application's translators.
class FormLoader
{
public:
    using Factory = std::function<QWidget *(QWidget *parent)>;
    using Translator = std::function<QString(const QString &englishKey)>;

    /// From now on a form's `<widget class="className">` is a T. Registering again replaces.
    template <class T>
    static void registerWidget(const char *className)
    {
        registerFactory(QString::fromLatin1(className), [](QWidget *parent) { return new T(parent); });
    }
    static void registerFactory(const QString &className, Factory factory);

    /// What every text, title, tooltip, placeholder and accessible name of a form goes through.
    /// An empty function takes it back: forms then show the texts that are written in them.
    static void setTranslator(Translator translator);
    /// `englishKey` in the user's language, or itself without a translator.
    [[nodiscard]] static QString translated(const QString &englishKey);

    /// The widget of the form at `path`, without a parent; null, with the reason in the log, when
    /// the file is missing or is not a form. A child of an unknown class is left out, as the
    /// toolkit does: whoever needs it looks it up and refuses.
    [[nodiscard]] static std::unique_ptr<QWidget> load(const QString &path);
};

} // namespace kit

// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QLocale>
#include <QtCore/QString>

#include <memory>

class QTranslator;

namespace catalogue {

/// The texts of one library in the user's language. The languages are those of the default QLocale; a new
/// default is followed. Nothing is installed on the application. Of one thread.
class Texts
{
public:
    /// \param name  of the files among the resources, `:/tqlrceditor/<name>_de.qm`, and of their
    ///     context. They are registered before the first text is asked for. An English one belongs to them,
    ///     be it empty: without it the German one would be found for who puts English before German.
    explicit Texts(QString name);
    ~Texts();

    /// `english` in the user's language; itself where the catalogue says nothing.
    [[nodiscard]] QString text(const QString &english);

private:
    void load(const QLocale &locale);

    QString m_name;
    QLocale m_locale;
    std::unique_ptr<QTranslator> m_translator; ///< null until a text was asked for
};

} // namespace catalogue

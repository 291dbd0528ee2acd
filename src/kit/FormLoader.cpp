// SPDX-License-Identifier: MIT
#include "kit/FormLoader.h"

#include "kit/KitWidgets.h"
#include "kit/Log.h"
#include "kit/ThemedForm.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QHash>
#include <QtUiTools/QUiLoader>
#include <QtWidgets/QWidget>

#include <utility>

namespace kit {

namespace {

QHash<QString, FormLoader::Factory> &factories()
{
    static QHash<QString, FormLoader::Factory> registered;
    return registered;
}

FormLoader::Translator &currentTranslator()
{
    static FormLoader::Translator translator;
    return translator;
}

/// Nothing is found where libraries are looked for, as long as this lives.
class NoLibraryPaths
{
public:
    NoLibraryPaths() { QCoreApplication::setLibraryPaths({}); }
    ~NoLibraryPaths() { QCoreApplication::setLibraryPaths(m_paths); }
    NoLibraryPaths(const NoLibraryPaths &) = delete;
    NoLibraryPaths &operator=(const NoLibraryPaths &) = delete;

private:
    QStringList m_paths = QCoreApplication::libraryPaths();
};

class Loader : public QUiLoader
{
public:
    static std::unique_ptr<Loader> create()
    {
        // The toolkit's constructor loads what plug-ins for designers the machine has, and with them
        // libraries that take as long as a window does. It can be told not to only when it is done.
        const NoLibraryPaths none;
        return std::make_unique<Loader>();
    }

    Loader() { setTranslationEnabled(false); }

    QWidget *createWidget(const QString &className, QWidget *parent, const QString &name) override
    {
        const auto factory = factories().constFind(className);
        if (factory == factories().constEnd())
            return QUiLoader::createWidget(className, parent, name);
        QWidget *const widget = (*factory)(parent);
        widget->setObjectName(name);
        return widget;
    }
};

void translateProperties(QObject *object)
{
    static constexpr const char *kTexts[] = {"text", "title", "windowTitle", "toolTip", "statusTip",
        "placeholderText", "accessibleName", "accessibleDescription"};
    for (const char *const property : kTexts) {
        const QVariant value = object->property(property);
        if (value.typeId() != QMetaType::QString || value.toString().isEmpty())
            continue;
        const QString text = FormLoader::translated(value.toString());
        if (text != value.toString())
            object->setProperty(property, text);
    }
}

void translateForm(QWidget *root)
{
    translateProperties(root);
    const QList<QObject *> children = root->findChildren<QObject *>();
    for (QObject *const child : children)
        translateProperties(child);
}

} // namespace

void FormLoader::registerFactory(const QString &className, Factory factory)
{
    factories().insert(className, std::move(factory));
}

void FormLoader::setTranslator(Translator translator)
{
    currentTranslator() = std::move(translator);
}

QString FormLoader::translated(const QString &englishKey)
{
    return currentTranslator() ? currentTranslator()(englishKey) : englishKey;
}

std::unique_ptr<QWidget> FormLoader::load(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(lcKit) << "no form" << path << file.errorString();
        return nullptr;
    }
    static const bool kitIsKnown = [] {
        registerKitWidgets();
        return true;
    }();
    static_cast<void>(kitIsKnown);
    const std::unique_ptr<Loader> loader = Loader::create();
    std::unique_ptr<QWidget> root(loader->load(&file));
    if (root == nullptr) {
        qCWarning(lcKit) << "bad form" << path << loader->errorString();
        return nullptr;
    }
    translateForm(root.get());
    ThemedForm::install(root.get());
    return root;
}

} // namespace kit

// SPDX-License-Identifier: MIT
#include "kit/FormLoader.h"

#include "kit/KitWidgets.h"
#include "kit/Log.h"
#include "kit/ThemedForm.h"

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

class Loader : public QUiLoader
{
public:
    Loader()
    {
        clearPluginPaths();
        setTranslationEnabled(false);
    }

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
    Loader loader;
    std::unique_ptr<QWidget> root(loader.load(&file));
    if (root == nullptr) {
        qCWarning(lcKit) << "bad form" << path << loader.errorString();
        return nullptr;
    }
    translateForm(root.get());
    ThemedForm::install(root.get());
    return root;
}

} // namespace kit

// SPDX-License-Identifier: MIT
#include "kit/FormLoader.h"
#include "kit/MyStyledView.h"
#include "support/QtWarnings.h"

#include <QtCore/QLibraryInfo>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

using kit::FormLoader;

class OwnLabel : public QLabel
{
    Q_OBJECT

public:
    explicit OwnLabel(QWidget *parent) : QLabel(parent) { }
};

class tst_FormLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { support::failOnUnexpectedWarnings(); }
    void cleanup() { FormLoader::setTranslator({}); }

    void missingFileIsNullAndSaid();
    void registeredClassesAreMade();
    void kitClassesAreKnown();
    void unknownClassesAreLeftOut();
    void everyTextGoesThroughTheTranslator();
    void withoutATranslatorTextsStay();
    void themedTextsFollowThePalette();
    void pluginsOfDesignersAreNotLoaded();

private:
    std::unique_ptr<QWidget> load(const QByteArray &children)
    {
        const QString path = m_folder.filePath("Form.ui");
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            return nullptr;
        file.write("<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">"
            + children + "</widget></ui>");
        file.close();
        return FormLoader::load(path);
    }

    QTemporaryDir m_folder;
};

void tst_FormLoader::missingFileIsNullAndSaid()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^no form \"/nowhere/Form.ui\""));
    QVERIFY(FormLoader::load("/nowhere/Form.ui") == nullptr);
}

void tst_FormLoader::registeredClassesAreMade()
{
    FormLoader::registerWidget<OwnLabel>("OwnLabel");
    const auto form = load(R"(<widget class="OwnLabel" name="own"/>)");
    QVERIFY(form != nullptr);
    auto *const own = form->findChild<OwnLabel *>("own");
    QVERIFY(own != nullptr);
    QCOMPARE(own->parentWidget(), form.get());
}

void tst_FormLoader::kitClassesAreKnown()
{
    const auto form = load(R"(<widget class="MyStyledView" name="own"/>)");
    QVERIFY(form->findChild<MyStyledView *>("own") != nullptr);
}

void tst_FormLoader::unknownClassesAreLeftOut()
{
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("^Designer: The creation of a widget"));
    QTest::ignoreMessage(
        QtWarningMsg, QRegularExpression("unable to create a widget of the class 'NobodyKnows'"));
    const auto form = load(R"(<widget class="NobodyKnows" name="own"/>)");
    QVERIFY(form != nullptr);
    QVERIFY(form->findChild<QWidget *>("own") == nullptr);
}

void tst_FormLoader::everyTextGoesThroughTheTranslator()
{
    FormLoader::setTranslator([](const QString &key) { return QLatin1Char('<') + key + QLatin1Char('>'); });
    const auto form = load(R"(
      <property name="windowTitle"><string>window</string></property>
      <widget class="QLabel" name="label"><property name="text"><string>text</string></property>
        <property name="toolTip"><string>tip</string></property>
        <property name="accessibleName"><string>name</string></property></widget>
      <widget class="QLineEdit" name="edit"><property name="placeholderText"><string>hint</string></property>
        <property name="accessibleDescription"><string>more</string></property></widget>
      <widget class="QGroupBox" name="group"><property name="title"><string>title</string></property>
        <widget class="QCheckBox" name="deep"><property name="text"><string>deep</string></property></widget>
      </widget>)");
    QCOMPARE(form->windowTitle(), "<window>");
    QCOMPARE(form->findChild<QLabel *>("label")->text(), "<text>");
    QCOMPARE(form->findChild<QLabel *>("label")->toolTip(), "<tip>");
    QCOMPARE(form->findChild<QLabel *>("label")->accessibleName(), "<name>");
    QCOMPARE(form->findChild<QLineEdit *>("edit")->placeholderText(), "<hint>");
    QCOMPARE(form->findChild<QLineEdit *>("edit")->accessibleDescription(), "<more>");
    QCOMPARE(form->findChild<QLineEdit *>("edit")->text(), QString()); // empty is not a key
    QCOMPARE(form->findChild<QGroupBox *>("group")->title(), "<title>");
    QCOMPARE(form->findChild<QCheckBox *>("deep")->text(), "<deep>");
    QCOMPARE(FormLoader::translated("x"), "<x>");
}

void tst_FormLoader::withoutATranslatorTextsStay()
{
    const auto form = load(
        R"(<widget class="QLabel" name="label"><property name="text"><string>text</string></property></widget>)");
    QCOMPARE(form->findChild<QLabel *>("label")->text(), "text");
    QCOMPARE(FormLoader::translated("x"), "x");
}

void tst_FormLoader::themedTextsFollowThePalette()
{
    const auto form = load(R"(<widget class="QLabel" name="label">
      <property name="kitText" stdset="0"><string>small quiet bold</string></property></widget>)");
    auto *const label = form->findChild<QLabel *>("label");
    QVERIFY(label->font().bold());
    QPalette dark;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    form->setPalette(dark);
    QVERIFY(label->palette().color(QPalette::WindowText).lightnessF() > 0.4F);
    QPalette light;
    light.setColor(QPalette::Base, Qt::white);
    light.setColor(QPalette::Text, Qt::black);
    form->setPalette(light);
    QVERIFY(label->palette().color(QPalette::WindowText).lightnessF() < 0.6F);
}

void tst_FormLoader::pluginsOfDesignersAreNotLoaded()
{
    // Any plug-in will do where the toolkit looks for those of designers.
    const QString folder = m_folder.filePath("designer");
    QVERIFY(QDir().mkpath(folder));
    const QString platforms = QLibraryInfo::path(QLibraryInfo::PluginsPath) + "/platforms/";
    QVERIFY(QFile::copy(platforms + "libqminimal.so", folder + "/libany.so"));
    QCoreApplication::addLibraryPath(m_folder.path());
    const QStringList paths = QCoreApplication::libraryPaths();
    const auto form = load({});
    QVERIFY(form != nullptr);
    QFile mapped("/proc/self/maps");
    QVERIFY(mapped.open(QIODevice::ReadOnly));
    QVERIFY(!mapped.readAll().contains("libany.so"));
    QCOMPARE(QCoreApplication::libraryPaths(), paths);
    QCoreApplication::removeLibraryPath(m_folder.path());
}

QTEST_MAIN(tst_FormLoader)
#include "tst_form_loader.moc"

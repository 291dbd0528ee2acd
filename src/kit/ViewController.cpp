// SPDX-License-Identifier: MIT
#include "kit/ViewController.h"

#include "kit/CrossFade.h"
#include "kit/FormLoader.h"
#include "kit/Log.h"

#include <QtCore/QEvent>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLayout>

#include <algorithm>
#include <utility>

namespace kit {

namespace {

// `to` under `from`, so that it has its place in the stack when `from` is gone.
void takePlace(QWidget *from, QWidget *to)
{
    QWidget *const parent = from->parentWidget();
    const bool shown = !from->isHidden();
    to->setParent(parent);
    to->setGeometry(from->geometry());
    to->stackUnder(from);
    if (QLayout *const layout = parent->layout())
        delete layout->replaceWidget(from, to);
    from->hide();
    from->setParent(nullptr);
    to->setVisible(shown);
}

void runIfAny(const std::function<void()> &completion)
{
    if (completion)
        completion();
}

} // namespace

ViewController::ViewController() = default;

ViewController::~ViewController()
{
    if (m_view == nullptr)
        return;
    m_view->removeEventFilter(this);
    m_view->hide();
    m_view->deleteLater();
}

QWidget *ViewController::view()
{
    if (m_loadState == LoadState::NotLoaded)
        load();
    return m_view;
}

bool ViewController::isViewLoaded() const
{
    return m_view != nullptr;
}

QWidget *ViewController::viewIfLoaded() const
{
    return m_view;
}

void ViewController::load()
{
    m_loadState = LoadState::Loading;
    loadView();
    if (m_view != nullptr && connectOutlets()) {
        m_view->installEventFilter(this);
        viewDidLoad();
    } else {
        qCWarning(lcKit) << "no view for" << metaObject()->className();
        delete m_view;
    }
    m_loadState = LoadState::Done;
}

void ViewController::setView(QWidget *view)
{
    m_view = view;
}

void ViewController::addChildViewController(std::shared_ptr<ViewController> child)
{
    const bool known = std::find(m_children.begin(), m_children.end(), child) != m_children.end();
    if (child != nullptr && !known)
        m_children.push_back(std::move(child));
}

const std::vector<std::shared_ptr<ViewController>> &ViewController::childViewControllers() const
{
    return m_children;
}

void ViewController::transitionFromViewController_toViewController_options_completionHandler(
    const std::shared_ptr<ViewController> &from, const std::shared_ptr<ViewController> &to,
    Transition options, std::function<void()> completion)
{
    QWidget *const oldView = from != nullptr ? from->viewIfLoaded() : nullptr;
    QWidget *const newView = to != nullptr ? to->view() : nullptr;
    const bool possible = oldView != nullptr && newView != nullptr && oldView != newView
        && oldView->parentWidget() != nullptr;
    if (!possible) {
        runIfAny(completion);
        return;
    }
    const bool fades = options == Transition::CrossFade && CrossFade::isWanted(oldView);
    const QPixmap picture = fades ? oldView->grab() : QPixmap();
    takePlace(oldView, newView);
    if (fades)
        CrossFade::start(newView, picture, std::move(completion));
    else
        runIfAny(completion);
}

bool ViewController::eventFilter(QObject *watched, QEvent *event)
{
    // What runs in there may let the last owner go.
    const auto self = weak_from_this().lock();
    if (watched == m_view) {
        if (event->type() == QEvent::Resize)
            layOut();
        else if (event->type() == QEvent::Show && !m_laidOut)
            layOut();
    }
    return QObject::eventFilter(watched, event);
}

void ViewController::layOut()
{
    m_laidOut = true;
    viewWillLayout();
}

QString ViewController::nibName() const
{
    return QString::fromLatin1(metaObject()->className()).section(QLatin1String("::"), -1);
}

void ViewController::loadView()
{
    setView(FormLoader::load(QStringLiteral(":/tqlrceditor/forms/%1.ui").arg(nibName())).release());
}

bool ViewController::connectOutlets()
{
    return true;
}

void ViewController::viewDidLoad()
{ }

void ViewController::viewWillLayout()
{ }

void ViewController::connectAction(QAbstractButton *button, std::function<void(QObject *sender)> action)
{
    connect(button, &QAbstractButton::clicked, this, [this, button, run = std::move(action)] {
        const auto self = weak_from_this().lock();
        run(button);
    });
}

QWidget *ViewController::findOutlet(const char *objectName) const
{
    const QString name = QString::fromLatin1(objectName);
    if (m_view != nullptr && m_view->objectName() == name)
        return m_view;
    return m_view != nullptr ? m_view->findChild<QWidget *>(name) : nullptr;
}

bool ViewController::missingOutlet(const char *objectName, const char *className) const
{
    qCWarning(lcKit) << nibName() << "has no" << className << objectName;
    return false;
}

} // namespace kit

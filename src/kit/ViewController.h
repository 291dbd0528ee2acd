// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>
#include <vector>

class QAbstractButton;

namespace kit {

enum class Transition { None, CrossFade };

/// One screen or part of a screen: a view, what it is loaded from, and its children.
///
/// Held by std::shared_ptr, never by a QObject parent; the view is held by QPointer, because it
/// may be destroyed by the window it was put into, at any time. Everything on the GUI thread.
class ViewController : public QObject, public std::enable_shared_from_this<ViewController>
{
    Q_OBJECT

public:
    ViewController();
    /// Hides the view and lets it go with deleteLater, also when it sits in another's window.
    ~ViewController() override;

    /// The view; loads it on first use: loadView(), connectOutlets(), viewDidLoad(), each once.
    ///
    /// Null when the load failed (said in the log, not tried again) and after somebody else
    /// destroyed the view. While viewDidLoad() runs it answers the view already.
    [[nodiscard]] QWidget *view();
    /// True from the moment before viewDidLoad() until the view is destroyed.
    [[nodiscard]] bool isViewLoaded() const;
    /// The view, null unless it is loaded. Loads nothing.
    [[nodiscard]] QWidget *viewIfLoaded() const;

    /// Appends a child; null and one that is a child already change nothing.
    void addChildViewController(std::shared_ptr<ViewController> child);
    [[nodiscard]] const std::vector<std::shared_ptr<ViewController>> &childViewControllers() const;

    /// Puts `to`'s view in the place of `from`'s: its parent, geometry and stacking.
    ///
    /// The swap is complete when this returns: `from`'s view is hidden and has no parent. What
    /// fades is a picture above the new view; there is none when nothing is on screen or the
    /// desktop asks for no animations. Nothing is swapped when `to`'s view cannot be loaded or
    /// `from`'s view has no parent.
    ///
    /// \param completion  may be empty; runs once: when the fade has ended, which the new view's
    ///                    hiding ends too, or before this returns when there is none.
    void transitionFromViewController_toViewController_options_completionHandler(
        const std::shared_ptr<ViewController> &from, const std::shared_ptr<ViewController> &to,
        Transition options, std::function<void()> completion);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    /// Name of the form; the controller's own class name unless overridden.
    [[nodiscard]] virtual QString nibName() const;
    /// Makes the view and hands it to setView(); by default from ":/tqlrceditor/forms/<nibName>.ui".
    virtual void loadView();
    /// Looks the outlets up in view(); false when one is missing, and the load has failed.
    virtual bool connectOutlets();
    /// Once, after the outlets are connected.
    virtual void viewDidLoad();
    /// Before the view shows a new size: at each resize, and once before it is first shown.
    virtual void viewWillLayout();

    /// For loadView(). Takes the widget over.
    void setView(QWidget *view);

    /// Runs `action` with the button at each click; the controller lives until it returns.
    void connectAction(QAbstractButton *button, std::function<void(QObject *sender)> action);

    /// Points `slot` at the form's `T` named `objectName` (the root counts too).
    /// False, with a line in the log, when there is none.
    template <class T>
    bool outlet(QPointer<T> &slot, const char *objectName)
    {
        slot = qobject_cast<T *>(findOutlet(objectName));
        return slot != nullptr || missingOutlet(objectName, T::staticMetaObject.className());
    }

private:
    enum class LoadState { NotLoaded, Loading, Done };

    void load();
    void layOut();
    [[nodiscard]] QWidget *findOutlet(const char *objectName) const;
    bool missingOutlet(const char *objectName, const char *className) const;

    QPointer<QWidget> m_view;
    std::vector<std::shared_ptr<ViewController>> m_children;
    LoadState m_loadState = LoadState::NotLoaded;
    bool m_laidOut = false;
};

} // namespace kit

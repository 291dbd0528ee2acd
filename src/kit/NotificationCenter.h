// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <functional>
#include <memory>
#include <vector>

namespace kit {

/// Messages by name, from whoever posts to whoever observes, with neither knowing the other.
///
/// GUI thread only. Observers may come and go during a post: one that goes is not called any
/// more, one that comes hears of the next post.
class NotificationCenter
{
public:
    using Handler = std::function<void(const QVariant &object)>;

    /// The one that the component and its host share.
    static NotificationCenter &defaultCenter();

    /// Calls `handler` at each post of `name` until `receiver` is removed or destroyed.
    void observe(const QString &name, QObject *receiver, Handler handler);
    /// Takes every handler of `receiver` back. For a receiver's destructor, whose own members
    /// are gone before the QObject in it is.
    void removeObserver(const QObject *receiver);
    /// Calls the handlers of `name`, in the order in which they came, before it returns.
    void post(const QString &name, const QVariant &object);

private:
    struct Observer
    {
        QString name;
        QPointer<QObject> receiver;
        Handler handler;
    };

    void forgetTheDead();

    std::vector<std::shared_ptr<Observer>> m_observers;
};

} // namespace kit

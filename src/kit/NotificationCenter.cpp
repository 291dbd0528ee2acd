// SPDX-License-Identifier: MIT
#include "kit/NotificationCenter.h"

#include <utility>

namespace kit {

NotificationCenter &NotificationCenter::defaultCenter()
{
    static NotificationCenter center;
    return center;
}

void NotificationCenter::observe(const QString &name, QObject *receiver, Handler handler)
{
    forgetTheDead();
    if (receiver != nullptr && handler)
        m_observers.push_back(std::make_shared<Observer>(Observer{name, receiver, std::move(handler)}));
}

void NotificationCenter::removeObserver(const QObject *receiver)
{
    // A post in progress holds its own list: it sees a receiver that is gone.
    for (const auto &observer : m_observers) {
        if (observer->receiver == receiver)
            observer->receiver.clear();
    }
    forgetTheDead();
}

void NotificationCenter::post(const QString &name, const QVariant &object)
{
    const auto observers = m_observers;
    for (const auto &observer : observers) {
        if (observer->receiver != nullptr && observer->name == name)
            observer->handler(object);
    }
    forgetTheDead();
}

void NotificationCenter::forgetTheDead()
{
    std::erase_if(m_observers, [](const auto &observer) { return observer->receiver == nullptr; });
}

} // namespace kit

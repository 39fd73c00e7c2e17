#include "Platform/Foundation/NotificationCenter.h"

namespace mintaro {

std::unique_ptr<NotificationCenter::Observation> NotificationCenter::addObserver(
    const QString &name, std::function<void()> handler)
{
    return std::make_unique<Observation>(
        connect(this, &NotificationCenter::posted, this, [name, handler = std::move(handler)](const QString &posted) {
            if (posted == name)
                handler();
        }));
}

void NotificationCenter::post(const QString &name)
{
    // The context object decides the thread that the observers are called on.
    Q_EMIT posted(name, QPrivateSignal {});
}

} // namespace mintaro

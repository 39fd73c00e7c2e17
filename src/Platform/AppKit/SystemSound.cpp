#include "Platform/AppKit/SystemSound.h"

#include <canberra.h>

#include <QByteArray>

#include <chrono>
#include <future>
#include <memory>

namespace mintaro {

namespace {

/// A sound server that hangs must not hold the thread for ever.
constexpr std::chrono::seconds kLongestSound { 10 };

void playToEnd(const QByteArray &name)
{
    std::promise<void> end; // outlives the context, from whose thread it is told
    ca_context *made = nullptr;
    if (ca_context_create(&made) != CA_SUCCESS)
        return;
    const std::unique_ptr<ca_context, int (*)(ca_context *)> context(made, ca_context_destroy);
    ca_proplist *listed = nullptr;
    if (ca_proplist_create(&listed) != CA_SUCCESS)
        return;
    const std::unique_ptr<ca_proplist, int (*)(ca_proplist *)> properties(listed, ca_proplist_destroy);
    ca_proplist_sets(listed, CA_PROP_EVENT_ID, name.constData());
    const auto tell = [](ca_context *, std::uint32_t, int, void *promise) {
        static_cast<std::promise<void> *>(promise)->set_value();
    };
    if (ca_context_play_full(made, 0, listed, tell, &end) == CA_SUCCESS)
        end.get_future().wait_for(kLongestSound);
}

} // namespace

void SystemSound::play(const QString &name)
{
    // One is enough at a time.
    if (m_sounding.valid() && m_sounding.wait_for(std::chrono::seconds::zero()) != std::future_status::ready)
        return;
    // To connect to a sound server takes as long as that server likes.
    m_sounding = std::async(std::launch::async, playToEnd, name.toUtf8());
}

} // namespace mintaro

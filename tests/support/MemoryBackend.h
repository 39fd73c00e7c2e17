#pragma once

#include "Platform/EventKit/StoreBackend.h"

#include <atomic>
#include <utility>

namespace mintaro {

/// A store in memory. `tell` plays the part of the backend's thread.
class MemoryBackend final : public StoreBackend
{
public:
    struct Object
    {
        QByteArray text;
        std::int64_t revision = 1;
    };

    bool isAccessible = true;
    /// Called at each request for access, before the answer; may change the answer or throw it.
    std::function<void()> onRequestAccess = [] {};
    /// Called before each write; may change the store, as another program would, or throw.
    std::function<void()> onWrite = [] {};
    std::vector<StoreCollection> held;
    std::map<QString, std::map<QString, Object>> contents;
    std::atomic<int> reads = 0;

    StoreCollection &addCollection(const QString &identifier)
    {
        StoreCollection collection;
        collection.identifier = identifier;
        collection.title = identifier;
        collection.isWritable = true;
        held.push_back(collection);
        return held.back();
    }

    void put(const QString &collection, const QString &name, const QByteArray &text)
    {
        Object &object = contents[collection][name];
        object.text = text;
        ++object.revision;
    }

    void tell(const StoreChanges &changes) const { m_handler(changes); }

    [[nodiscard]] bool requestAccess() override
    {
        onRequestAccess();
        return isAccessible;
    }
    [[nodiscard]] std::vector<StoreCollection> collections() override { return held; }

    [[nodiscard]] std::vector<ObjectState> objects(const QString &collection) override
    {
        std::vector<ObjectState> states;
        const auto found = contents.find(collection);
        if (found == contents.end())
            return states;
        for (const auto &[name, object] : found->second)
            states.push_back({ name, { object.revision, 0, 0 } });
        return states;
    }

    [[nodiscard]] std::optional<ObjectState> object(const QString &collection, const QString &name) override
    {
        const Object *found = find(collection, name);
        return found ? std::optional(ObjectState { name, { found->revision, 0, 0 } }) : std::nullopt;
    }

    [[nodiscard]] std::optional<QByteArray> read(const QString &collection, const QString &name) override
    {
        ++reads;
        const Object *found = find(collection, name);
        return found ? std::optional(found->text) : std::nullopt;
    }

    [[nodiscard]] QString describe(const QString &collection, const QString &name) const override
    {
        return collection + u'/' + name;
    }

    [[nodiscard]] WriteOutcome replace(
        const QString &collection, const QString &name, const QByteArray &base, const QByteArray &text) override
    {
        onWrite();
        const Object *found = find(collection, name);
        if (!found || found->text != base)
            return found ? WriteOutcome::Changed : WriteOutcome::Gone;
        put(collection, name, text);
        return WriteOutcome::Done;
    }

    [[nodiscard]] WriteOutcome remove(const QString &collection, const QString &name, const QByteArray &base) override
    {
        onWrite();
        const Object *found = find(collection, name);
        if (!found || found->text != base)
            return found ? WriteOutcome::Changed : WriteOutcome::Gone;
        contents[collection].erase(name);
        return WriteOutcome::Done;
    }

    [[nodiscard]] bool create(const QString &collection, const QString &name, const QByteArray &text) override
    {
        onWrite();
        if (find(collection, name))
            return false;
        put(collection, name, text);
        return true;
    }

    [[nodiscard]] QString newName(const QString &uid) const override { return uid + QLatin1String(".ics"); }

    void watch(std::function<void(const StoreChanges &)> handler) override { m_handler = std::move(handler); }

private:
    [[nodiscard]] const Object *find(const QString &collection, const QString &name) const
    {
        const auto objects = contents.find(collection);
        if (objects == contents.end())
            return nullptr;
        const auto found = objects->second.find(name);
        return found == objects->second.end() ? nullptr : &found->second;
    }

    std::function<void(const StoreChanges &)> m_handler;
};

} // namespace mintaro

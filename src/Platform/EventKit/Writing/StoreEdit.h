#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace mintaro {

/// An object as it stands in the store.
struct ObjectText
{
    QString name;
    QByteArray text;
};

/// What is to become of one object.
struct ObjectChange
{
    QString name;
    /// What it holds now.
    QByteArray base;
    /// Empty where it is to be removed.
    std::optional<QByteArray> text;
};

struct NewObject
{
    QString uid;
    QByteArray text;
    /// The name that it had elsewhere; empty for a new one.
    QString name {};
};

/// What one change of an event or reminder does to the objects of a store: first the new object is made, then the
/// others are changed in their order, so that nothing is gone at any moment.
struct StoreEdit
{
    std::optional<NewObject> created {};
    std::vector<ObjectChange> changes {};
    /// The UID that the event has then.
    QString uid {};
    /// Fields that another program had changed meanwhile, and this one changes too.
    QStringList overwritten {};
};

} // namespace mintaro

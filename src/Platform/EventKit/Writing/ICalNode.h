#pragma once

#include "Platform/EventKit/ICalComponent.h"

namespace mintaro {

/// A calendar text taken apart so that it can be changed. What nobody touches is written byte for byte as it was read:
/// order, folds, spelling, and lines that make no sense too. A value; copies are cheap.
class ICalNode
{
public:
    enum class Kind : unsigned char {
        Text, ///< Lines that are no property, and what was removed.
        Property,
        Component,
    };

    /// The root, which is a component without a name.
    [[nodiscard]] static ICalNode parse(const QByteArray &text);
    /// `value` as it is to be written, on one line; `parameters` with their leading semicolons.
    [[nodiscard]] static ICalNode makeProperty(QByteArrayView name, QByteArrayView parameters, QByteArrayView value);
    /// An empty component.
    [[nodiscard]] static ICalNode makeComponent(const QByteArray &name);

    [[nodiscard]] bool isComponent(QByteArrayView name) const { return m_kind == Kind::Component && m_name == name; }
    [[nodiscard]] bool isProperty(QByteArrayView name) const
    {
        return m_kind == Kind::Property && m_property.name == name;
    }
    /// Of meaning where it is one. Valid as long as this node or a copy of it is, unchanged.
    [[nodiscard]] const ICalProperty &property() const { return m_property; }
    [[nodiscard]] std::vector<ICalNode> &children() { return m_children; }
    [[nodiscard]] const std::vector<ICalNode> &children() const { return m_children; }
    [[nodiscard]] bool isDamaged() const { return m_isDamaged; }

    /// Null where there is none.
    [[nodiscard]] const ICalProperty *find(QByteArrayView property) const;
    /// Puts a property in the place of the first one of its name, or behind the last property. Others of the name go.
    void set(ICalNode property);
    /// Puts a property behind the last one of its name, or behind the last property.
    void add(ICalNode property);
    /// Puts a component behind the last one of its name, or at the end.
    void addComponent(ICalNode component);
    void removeProperties(QByteArrayView name);
    /// Leaves nothing of the node but its place, so that its brothers stay where they are.
    void clear();

    /// The same in lines of its own, as the text that it comes into has them.
    [[nodiscard]] ICalNode renewed() const;
    /// For the readers. Valid as long as the node is not changed.
    [[nodiscard]] ICalComponent asComponent() const;
    /// New lines are folded (RFC 5545 3.1) and end as the others do.
    [[nodiscard]] QByteArray text() const;

private:
    ICalNode() = default;
    static ICalNode fromComponent(const ICalComponent &component, const ICalDocument &document, const QByteArray &text);
    void addText(const QByteArray &text, std::uint32_t begin, std::uint32_t end);
    void write(QByteArray &into, const QByteArray &lineBreak) const;
    [[nodiscard]] std::optional<QByteArray> lineBreak() const;

    Kind m_kind = Kind::Text;
    bool m_isDamaged = false;
    /// Of a component.
    QByteArray m_name;
    /// As it stands in the file: of a component its BEGIN, of all else the whole. Null for what is new.
    QByteArray m_source;
    /// A component's END.
    QByteArray m_tail;
    /// What m_property refers to.
    QByteArray m_storage;
    ICalProperty m_property;
    std::vector<ICalNode> m_children;
};

} // namespace mintaro

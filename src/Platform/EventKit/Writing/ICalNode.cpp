#include "Platform/EventKit/Writing/ICalNode.h"

#include <algorithm>

namespace mintaro {

namespace {

/// RFC 5545 3.1, without the line break.
constexpr qsizetype kLongestLine = 75;

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

void writeFolded(QByteArrayView line, const QByteArray &lineBreak, QByteArray &into)
{
    qsizetype room = kLongestLine;
    while (line.size() > room) {
        // Never within a character.
        qsizetype length = room;
        while (length > 1 && isContinuation(line[length]))
            --length;
        into.append(line.first(length)).append(lineBreak).append(' ');
        line = line.sliced(length);
        room = kLongestLine - 1;
    }
    into.append(line).append(lineBreak);
}

} // namespace

ICalNode ICalNode::parse(const QByteArray &text)
{
    const QByteArray plain = plainText(text);
    const ICalDocument document = parseICalendar(plain);
    ICalNode root = fromComponent(document.root, document, plain);
    root.m_source = QByteArray("");
    return root;
}

ICalNode ICalNode::makeProperty(QByteArrayView name, QByteArrayView parameters, QByteArrayView value)
{
    ICalNode node;
    node.m_kind = Kind::Property;
    node.m_storage.append(name).append(parameters).append(':').append(value);
    const QByteArrayView line = std::as_const(node.m_storage);
    node.m_property = { line.first(name.size()), line.sliced(name.size(), parameters.size()), line.last(value.size()) };
    return node;
}

ICalNode ICalNode::makeComponent(const QByteArray &name)
{
    ICalNode node;
    node.m_kind = Kind::Component;
    node.m_name = name;
    return node;
}

ICalNode ICalNode::fromComponent(const ICalComponent &component, const ICalDocument &document, const QByteArray &text)
{
    ICalNode node;
    node.m_kind = Kind::Component;
    node.m_isDamaged = component.isDamaged;
    node.m_name = component.name.toByteArray();
    const bool isRoot = component.name.isNull();
    const std::uint32_t begin = component.head.end;
    const std::uint32_t end = isRoot ? static_cast<std::uint32_t>(text.size()) : component.tail.begin;
    node.m_source = text.mid(component.head.begin, component.head.end - component.head.begin);
    node.m_tail = text.mid(component.tail.begin, component.tail.end - component.tail.begin);
    std::uint32_t at = begin;
    auto property = component.properties.begin();
    auto part = component.components.begin();
    while (property != component.properties.end() || part != component.components.end()) {
        const bool isProperty = part == component.components.end()
            || (property != component.properties.end() && property->source.begin < part->head.begin);
        const std::uint32_t next = isProperty ? property->source.begin : part->head.begin;
        node.addText(text, at, next);
        if (isProperty) {
            ICalNode &child = node.m_children.emplace_back(ICalNode());
            child.m_kind = Kind::Property;
            child.m_source = text.mid(next, property->source.end - next);
            child.m_storage = document.text;
            child.m_property = *property;
            at = property->source.end;
            ++property;
        } else {
            node.m_children.push_back(fromComponent(*part, document, text));
            at = part->tail.end;
            ++part;
        }
    }
    node.addText(text, at, end);
    return node;
}

void ICalNode::addText(const QByteArray &text, std::uint32_t begin, std::uint32_t end)
{
    if (begin == end)
        return;
    m_children.push_back(ICalNode());
    m_children.back().m_source = text.mid(begin, end - begin);
}

const ICalProperty *ICalNode::find(QByteArrayView property) const
{
    const auto found = std::find_if(
        m_children.begin(), m_children.end(), [&](const ICalNode &child) { return child.isProperty(property); });
    return found == m_children.end() ? nullptr : &found->m_property;
}

void ICalNode::set(ICalNode property)
{
    const QByteArray name = property.m_property.name.toByteArray();
    const auto isSame = [&name](const ICalNode &child) { return child.isProperty(name); };
    const auto first = std::find_if(m_children.begin(), m_children.end(), isSame);
    if (first == m_children.end())
        return add(std::move(property));
    *first = std::move(property);
    m_children.erase(std::remove_if(first + 1, m_children.end(), isSame), m_children.end());
}

void ICalNode::add(ICalNode property)
{
    const auto behindLast = [this](const auto &isWanted) {
        return std::find_if(m_children.rbegin(), m_children.rend(), isWanted).base();
    };
    auto place = behindLast([&](const ICalNode &child) { return child.isProperty(property.m_property.name); });
    if (place == m_children.begin())
        place = behindLast([](const ICalNode &child) { return child.m_kind == Kind::Property; });
    m_children.insert(place, std::move(property));
}

void ICalNode::addComponent(ICalNode component)
{
    const auto last = std::find_if(m_children.rbegin(), m_children.rend(),
        [&](const ICalNode &child) { return child.isComponent(component.m_name); });
    m_children.insert(last == m_children.rend() ? m_children.end() : last.base(), std::move(component));
}

void ICalNode::removeProperties(QByteArrayView name)
{
    std::erase_if(m_children, [name](const ICalNode &child) { return child.isProperty(name); });
}

void ICalNode::clear()
{
    *this = ICalNode();
    m_source = QByteArray("");
}

ICalNode ICalNode::renewed() const
{
    if (m_kind == Kind::Property)
        return makeProperty(m_property.name, m_property.parameters, m_property.value);
    ICalNode node = makeComponent(m_name);
    for (const ICalNode &child : m_children) {
        if (child.m_kind != Kind::Text)
            node.m_children.push_back(child.renewed());
    }
    return node;
}

ICalComponent ICalNode::asComponent() const
{
    ICalComponent component;
    component.name = m_name;
    component.isDamaged = m_isDamaged;
    for (const ICalNode &child : m_children) {
        if (child.m_kind == Kind::Property)
            component.properties.push_back(child.m_property);
        else if (child.m_kind == Kind::Component)
            component.components.push_back(child.asComponent());
    }
    return component;
}

QByteArray ICalNode::text() const
{
    QByteArray text;
    write(text, lineBreak().value_or("\r\n"));
    return text;
}

/// That of the first line that stands in a file.
std::optional<QByteArray> ICalNode::lineBreak() const
{
    const qsizetype end = m_source.indexOf('\n');
    if (end >= 0)
        return end > 0 && m_source[end - 1] == '\r' ? "\r\n" : "\n";
    if (m_source.contains('\r'))
        return "\r";
    for (const ICalNode &child : m_children) {
        if (auto found = child.lineBreak())
            return found;
    }
    return std::nullopt;
}

void ICalNode::write(QByteArray &into, const QByteArray &lineBreak) const
{
    const bool isNew = m_source.isNull();
    if (m_kind == Kind::Property && isNew) {
        writeFolded(m_storage, lineBreak, into);
        return;
    }
    into.append(m_source);
    if (m_kind != Kind::Component)
        return;
    if (isNew)
        into.append("BEGIN:" + m_name + lineBreak);
    for (const ICalNode &child : m_children)
        child.write(into, lineBreak);
    into.append(m_tail);
    if (isNew)
        into.append("END:" + m_name + lineBreak);
}

} // namespace mintaro

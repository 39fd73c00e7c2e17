#pragma once

// The one header that brings libical in; only sources of this folder include it.
#include <libical/ical.h>

#include <memory>
#include <string>

namespace mintaro::ical {

struct FreeComponent
{
    void operator()(icalcomponent *component) const { icalcomponent_free(component); }
};
using ComponentHandle = std::unique_ptr<icalcomponent, FreeComponent>;

struct FreeText
{
    void operator()(char *text) const { icalmemory_free_buffer(text); }
};
using TextHandle = std::unique_ptr<char, FreeText>;

template <typename Visit>
void forEachProperty(icalcomponent *component, icalproperty_kind kind, Visit &&visit)
{
    for (icalproperty *property = icalcomponent_get_first_property(component, kind); property;
         property = icalcomponent_get_next_property(component, kind))
        visit(property);
}

template <typename Visit>
void forEachComponent(icalcomponent *parent, icalcomponent_kind kind, Visit &&visit)
{
    // An iterator outside the component: `visit` may walk the same one.
    icalcompiter iterator = icalcomponent_begin_component(parent, kind);
    for (icalcomponent *child = icalcompiter_deref(&iterator); child; child = icalcompiter_next(&iterator))
        visit(child);
}

} // namespace mintaro::ical

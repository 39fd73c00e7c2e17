#pragma once

#include "Platform/EventKit/CalendarObject.h"
#include "Platform/EventKit/StoreBackend.h"

namespace mintaro {

/// An object as a collection holds it.
struct StoredObject
{
    ObjectRevision revision {};
    ObjectSchedule schedule;
    /// Null until somebody asks for them.
    std::unique_ptr<ObjectDetails> details;
    /// Where the index keeps them; 0: nowhere.
    std::int64_t detailsNumber = 0;
    /// A rule of it was left out.
    bool isRefused = false;
};

} // namespace mintaro

#pragma once

#include "Platform/EventKit/EKEvent.h"

namespace mintaro {

/// Where the model has the event editor opened, without knowing any view.
class EventEditorOpener
{
public:
    virtual ~EventEditorOpener() = default;

    /// Opens the editor on `existingEvent`, or where that is absent on a new one. An editor that is open is replaced,
    /// with what was entered in it.
    virtual void openEventEditor(const std::optional<EKEvent> &existingEvent) = 0;
};

} // namespace mintaro

#pragma once

namespace mintaro {

/// How far a change of one occurrence reaches.
enum class EKSpan { ThisEvent = 0, FutureEvents = 1 };

} // namespace mintaro

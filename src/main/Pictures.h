#pragma once

#include "App/AppContext.h"

#include <QString>

namespace mintaro {

/// Which looks to draw, and where to put the pictures.
struct PictureJob
{
    ContextOptions options;
    QString folder;
    /// Part of the file names, as in popover-light-en.png.
    QString language;
};

/// Draws label, popover, editor and notification in light and dark on the job's store, off screen, at twice the size;
/// what needs an event that the store does not have is left out. Gives the files written; throws std::runtime_error
/// where something does not load or cannot be written. Runs an event loop until all is loaded.
[[nodiscard]] QStringList drawPictures(const PictureJob &job);

} // namespace mintaro

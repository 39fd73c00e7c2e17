#pragma once

#include "Platform/Foundation/FileError.h"

#include <QStringList>

class QProcessEnvironment;

namespace mintaro {

/// Whether the program starts with the session: an entry in the user's autostart folder (Desktop Application Autostart
/// Specification). Each call looks at the folders anew. Short file operations, on any thread.
class SMAppService
{
public:
    enum class Status { NotRegistered = 0, Enabled = 1 };

    struct Places
    {
        QString userFolder; ///< where the user's entries are; need not exist
        QStringList systemFolders; ///< where the administrator's are, the most important one first
        QString program; ///< absolute path of what an entry starts; empty where no entry could

        /// Those of the XDG Base Directory Specification, and the running program.
        [[nodiscard]] static Places standard();
    };

    static constexpr char kEntryName[] = "dev.velmora.mintaro.desktop";

    explicit SMAppService(Places places)
        : m_places(std::move(places))
    {
    }

    /// Enabled: the most important entry is not switched off and starts a program that exists.
    [[nodiscard]] Status status() const;
    /// Writes the user's entry for this program. What it holds besides stays. Throws FileError.
    void registerService() const;
    /// Removes the user's entry; where the system has one, the user's hides it. Throws FileError.
    void unregisterService() const;

private:
    [[nodiscard]] bool hasSystemEntry() const;

    Places m_places;
};

/// What an entry is to start for a program that runs from the path `running`: the AppImage that it was unpacked from,
/// else itself; nothing for a Flatpak, whose paths and folders the session does not see.
[[nodiscard]] QString lastingProgram(const QString &running, const QProcessEnvironment &environment);

} // namespace mintaro

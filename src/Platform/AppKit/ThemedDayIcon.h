#pragma once

#include <QString>

namespace mintaro {

/// The day's icon as files of an icon theme, for hosts that paint symbolic icons in their own text colour. The files
/// lie in the user's runtime folder, which ends with the session.
class ThemedDayIcon
{
public:
    ThemedDayIcon();

    /// Writes the day's files, one a size. A failure costs a log line and leaves the name empty.
    void setDay(const QString &day);

    /// The icon's name, another one for each day because hosts cache by name. Empty where there is no file.
    [[nodiscard]] const QString &name() const { return m_name; }
    /// The folder to look in: holds the file itself and an icon theme "hicolor", since hosts differ in where they look.
    [[nodiscard]] const QString &themePath() const { return m_themePath; }

private:
    [[nodiscard]] bool writeFiles(const QString &day) const;

    QString m_themePath;
    QString m_name;
};

} // namespace mintaro

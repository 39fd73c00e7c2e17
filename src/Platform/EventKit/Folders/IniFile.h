#pragma once

#include <QString>

#include <vector>

namespace mintaro {

/// A line `key = value`. The key is empty where the line has no such form.
struct IniEntry
{
    QString key;
    QString value;
    int line = 0;
};

/// A section with its entries in the order of the file.
struct IniSection
{
    /// Empty for what stands before the first heading; nested headings ([a], then [[b]]) give "a/b".
    QString name;
    int line = 0;
    std::vector<IniEntry> entries;

    /// The last value of a key; empty when there is none.
    [[nodiscard]] QString value(const QString &key) const;
};

/// Reads the common ground of hand-written configuration files: headings in brackets, `key = value`, comments that
/// begin with # at the start of a line or after white space, values in quotes taken literally. The first section is the
/// nameless one.
[[nodiscard]] std::vector<IniSection> readIni(const QString &text);

} // namespace mintaro

#pragma once

#include "Platform/Foundation/TimeZone.h"

#include <QByteArray>
#include <QString>
#include <QVarLengthArray>

#include <concepts>
#include <cstdint>
#include <cstring>
#include <optional>
#include <type_traits>
#include <vector>

namespace mintaro {

/// What `pack` takes of T: to be read from by a PackWriter, to be filled by a PackReader. So one function for each type
/// says how it is packed, and the two directions cannot differ.
template <typename Archive, typename T>
using Packed = std::conditional_t<Archive::isWriting, const T, T>;

template <typename T>
concept PackedNumber = std::integral<T> || std::is_enum_v<T>;

/// Values in a row of bytes: numbers in as few bytes as they need, texts as UTF-16 on even places. A zone is written
/// whole once, then by its number.
class PackWriter
{
public:
    static constexpr bool isWriting = true;

    template <typename... Values>
    void operator()(const Values &...values)
    {
        (put(values), ...);
    }
    [[nodiscard]] const QByteArray &bytes() const { return m_bytes; }

private:
    template <PackedNumber T>
    void put(T value)
    {
        const auto number = static_cast<std::int64_t>(value);
        // Small negative numbers stay short: the sign goes to the lowest bit.
        auto rest = (static_cast<std::uint64_t>(number) << 1) ^ (number < 0 ? ~std::uint64_t { 0 } : 0);
        for (; rest >= 0x80; rest >>= 7)
            m_bytes.append(static_cast<char>(rest | 0x80));
        m_bytes.append(static_cast<char>(rest));
    }
    template <typename Rep, typename Period>
    void put(std::chrono::duration<Rep, Period> value)
    {
        put(value.count());
    }
    template <typename Clock, typename Duration>
    void put(std::chrono::time_point<Clock, Duration> value)
    {
        put(value.time_since_epoch());
    }
    void put(std::chrono::weekday day) { put(day.c_encoding()); }
    void put(const QString &text)
    {
        put(text.isNull() ? 0 : text.size() + 1);
        if (text.isNull())
            return;
        if (m_bytes.size() % 2 != 0)
            m_bytes.append('\0');
        m_bytes.append(reinterpret_cast<const char *>(text.utf16()), text.size() * 2);
    }
    void put(const QByteArray &bytes)
    {
        put(bytes.size());
        m_bytes.append(bytes);
    }
    template <typename T>
    void put(const std::optional<T> &value)
    {
        put(value.has_value());
        if (value)
            put(*value);
    }
    template <typename T>
    void put(const std::vector<T> &values)
    {
        put(values.size());
        for (const T &each : values)
            put(each);
    }
    void put(const TimeZone &zone);
    template <typename T>
    requires std::is_class_v<T>
    void put(const T &value) { pack(*this, value); }

    QByteArray m_bytes;
    std::vector<TimeZone> m_zones;
};

/// Reads what a PackWriter wrote. Bytes that make no sense give values without sense and `failed`, never more.
class PackReader
{
public:
    static constexpr bool isWriting = false;

    /// `bytes` begin on an even place and outlive the reader.
    explicit PackReader(QByteArrayView bytes)
        : m_bytes(bytes)
    {
    }

    template <typename... Values>
    void operator()(Values &...values)
    {
        (get(values), ...);
    }
    /// A text that is not copied.
    [[nodiscard]] QStringView text()
    {
        std::int64_t size = 0;
        get(size);
        if (size <= 0)
            return {};
        m_at += m_at % 2;
        const QByteArrayView bytes = take(size - 1 <= remaining() / 2 ? (size - 1) * 2 : -1);
        return m_failed ? QStringView() : QStringView(reinterpret_cast<const char16_t *>(bytes.data()), size - 1);
    }
    void skip(std::int64_t size) { (void)take(size); }
    [[nodiscard]] bool failed() const { return m_failed; }

private:
    [[nodiscard]] std::int64_t remaining() const { return m_bytes.size() - m_at; }
    QByteArrayView take(std::int64_t size)
    {
        if (size < 0 || size > remaining()) {
            m_failed = true;
            m_at = m_bytes.size();
            return {};
        }
        const QByteArrayView bytes = m_bytes.sliced(m_at, size);
        m_at += size;
        return bytes;
    }

    template <PackedNumber T>
    void get(T &value)
    {
        std::uint64_t bits = 0;
        for (unsigned shift = 0; shift < 64; shift += 7) {
            if (m_at >= m_bytes.size()) {
                m_failed = true;
                break;
            }
            const auto byte = static_cast<unsigned char>(m_bytes[m_at++]);
            bits |= static_cast<std::uint64_t>(byte & 0x7f) << shift;
            if (byte < 0x80)
                break;
        }
        const auto number = static_cast<std::int64_t>((bits >> 1) ^ (~(bits & 1) + 1));
        if constexpr (std::same_as<T, bool>)
            value = number != 0;
        else
            value = static_cast<T>(number);
    }
    template <typename Rep, typename Period>
    void get(std::chrono::duration<Rep, Period> &value)
    {
        Rep count {};
        get(count);
        value = std::chrono::duration<Rep, Period> { count };
    }
    template <typename Clock, typename Duration>
    void get(std::chrono::time_point<Clock, Duration> &value)
    {
        Duration sinceEpoch {};
        get(sinceEpoch);
        value = std::chrono::time_point<Clock, Duration> { sinceEpoch };
    }
    void get(std::chrono::weekday &day)
    {
        unsigned number = 0;
        get(number);
        day = std::chrono::weekday { number % 7 };
    }
    void get(QString &value)
    {
        const QStringView view = text();
        value = view.isNull() ? QString() : view.isEmpty() ? QStringLiteral("") : view.toString();
    }
    void get(QByteArray &bytes)
    {
        std::int64_t size = 0;
        get(size);
        bytes = take(size).toByteArray();
    }
    template <typename T>
    void get(std::optional<T> &value)
    {
        bool isPresent = false;
        get(isPresent);
        if (isPresent)
            get(value.emplace(T {}));
    }
    template <typename T>
    void get(std::vector<T> &values)
    {
        std::int64_t size = 0;
        get(size);
        // Each takes a byte at least.
        if (size < 0 || size > remaining()) {
            m_failed = true;
            return;
        }
        values.resize(static_cast<std::size_t>(size));
        for (T &each : values)
            get(each);
    }
    void get(TimeZone &zone);
    template <typename T>
    requires std::is_class_v<T>
    void get(T &value) { pack(*this, value); }

    const QByteArrayView m_bytes;
    qsizetype m_at = 0;
    bool m_failed = false;
    QVarLengthArray<TimeZone, 2> m_zones;
};

} // namespace mintaro

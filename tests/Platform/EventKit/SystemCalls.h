#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace mintaro {

/// Stands between the code under test and the kernel while it lives: the linker leads the calls of `wrapped_calls` (in
/// CMakeLists.txt) here (`--wrap`). One at a time; for one thread.
class SystemCalls
{
public:
    /// What becomes of a call, counted over all from 1 on.
    enum class Fault { None, Fails, FailsFromThenOn, IsKilled };

    struct Plan
    {
        Fault fault = Fault::None;
        int number = 0;
        int code = 0;
        /// Calls that fail always, with what.
        std::map<std::string, int> unsupported {};
        /// What another program does right before the nth renameat2, counted from 1 on.
        std::map<int, std::function<void()>> beforeRename {};
        bool writesByteByByte = false;
        /// Added to the clock.
        long seconds = 0;
    };

    explicit SystemCalls(Plan plan);
    ~SystemCalls();
    SystemCalls(const SystemCalls &) = delete;
    SystemCalls &operator=(const SystemCalls &) = delete;

    [[nodiscard]] int count() const { return static_cast<int>(m_calls.size()); }
    [[nodiscard]] int count(const std::string &call) const;
    [[nodiscard]] std::set<std::string> met() const { return { m_calls.begin(), m_calls.end() }; }
    /// The call that failed; empty where none was reached.
    [[nodiscard]] const std::string &failed() const { return m_failed; }

    /// Whether the call is to fail; errno is set then.
    [[nodiscard]] static bool fails(const char *call);
    [[nodiscard]] static const Plan &plan();

private:
    [[nodiscard]] bool take(const std::string &call);

    const Plan m_plan;
    std::vector<std::string> m_calls;
    std::string m_failed;
    bool m_isTaking = false;
};

} // namespace mintaro

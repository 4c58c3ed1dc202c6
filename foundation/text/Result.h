#pragma once

#include <cassert>
#include <string>
#include <system_error>
#include <utility>
#include <variant>

namespace pedl {

/// What went wrong, as one line for the user: which thing, what about it, what to do.
struct Problem {
    std::string text;

    /// The same with the thing that it is about in front: "--bank: ...".
    [[nodiscard]] Problem of(const std::string& thing) const { return {thing + ": " + text}; }
};

/// What the system says about an `errno`.
[[nodiscard]] inline std::string systemText(int errorNumber) {
    return std::system_category().message(errorNumber);
}

/// A value, or the problem that kept it from being made.
///
/// Ask `ok()` first; `value()` of a failure and `problem()` of a success are errors of the caller.
template <typename Value> class [[nodiscard]] Result {
public:
    Result(Value value) : content_(std::move(value)) {}
    Result(Problem problem) : content_(std::move(problem)) {}

    [[nodiscard]] bool ok() const { return content_.index() == 0; }

    [[nodiscard]] Value& value() {
        assert(ok() && "the caller asks ok() first");
        return *std::get_if<0>(&content_);
    }
    [[nodiscard]] const Value& value() const {
        assert(ok() && "the caller asks ok() first");
        return *std::get_if<0>(&content_);
    }

    [[nodiscard]] const Problem& problem() const {
        assert(!ok() && "there is no problem");
        return *std::get_if<1>(&content_);
    }

private:
    std::variant<Value, Problem> content_;
};

/// For what either works or does not, and has nothing to hand over.
using Done = Result<std::monostate>;

[[nodiscard]] inline Done done() {
    return std::monostate{};
}

} // namespace pedl

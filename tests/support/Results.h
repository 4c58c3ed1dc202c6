#pragma once

#include "foundation/text/Result.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace pedl::test {

/// What was made. Where there is only a problem the test fails with its text and the program goes
/// on with the next one: GoogleTest reports what is thrown.
template <typename Value> Value valueOf(Result<Value> result) {
    if (!result.ok())
        throw std::runtime_error(result.problem().text);
    return std::move(result.value());
}

/// What went wrong; empty where nothing did.
template <typename Value> std::string problemOf(const Result<Value>& result) {
    return result.ok() ? "" : result.problem().text;
}

} // namespace pedl::test

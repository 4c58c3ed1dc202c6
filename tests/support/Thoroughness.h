#pragma once

namespace pedl::test {

/// How many of a test's many cases run: all of them, or an eighth under a sanitizer, which is slow.
/// For cases that differ in digits alone. Those that take other paths through memory run whole.
template <typename Count> constexpr Count asManyAs(Count cases) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return cases < 8 ? 1 : cases / 8;
#else
    return cases;
#endif
}

} // namespace pedl::test

#pragma once

// Compiled into the mutated copy of the sources, before everything else. Every mutant is an
// integer; the environment says which one is active, and each decision notes that it was reached.

#include <cstdlib>
#include <type_traits>

namespace orvelle_mutants {

inline constexpr int limit = 1 << 16;
inline unsigned char reached[limit];
inline const int active =
    std::getenv("ORVELLE_MUTANT") ? std::atoi(std::getenv("ORVELLE_MUTANT")) : -1;

inline bool note(int id) {
    reached[id] = 1;
    return id == active;
}

/// What the compiler computes stays as it is.
constexpr bool on(int id) {
    return std::is_constant_evaluated() ? false : note(id);
}

/// A use of a value that was made once, by the mutants from `first` on.
template <class... Id>
constexpr void touch(Id... ids) {
    (void(on(ids)), ...);
}

template <class... Id>
void touchNow(Id... ids) {
    (void(note(ids)), ...);
}

// clang-format off
#define ORVELLE_RELATION(name, op, first, second)                                                   \
    template <class A, class B>                                                                     \
    constexpr bool name(int id, const A& a, const B& b) {                                           \
        if constexpr (requires { a first b; a second b; }) {                                        \
            if (on(id)) return a first b;                                                           \
            if (on(id + 1)) return a second b;                                                      \
        }                                                                                           \
        return a op b;                                                                              \
    }
ORVELLE_RELATION(less, <, <=, >=)
ORVELLE_RELATION(lessOrEqual, <=, <, >)
ORVELLE_RELATION(greater, >, >=, <=)
ORVELLE_RELATION(greaterOrEqual, >=, >, <)
#undef ORVELLE_RELATION

#define ORVELLE_ARITHMETIC(name, op, other)                                                         \
    template <class A, class B>                                                                     \
    constexpr auto name(int id, const A& a, const B& b) { return on(id) ? a other b : a op b; }
ORVELLE_ARITHMETIC(plus, +, -)
ORVELLE_ARITHMETIC(minus, -, +)
ORVELLE_ARITHMETIC(times, *, /)
#undef ORVELLE_ARITHMETIC
template <class A, class B>
constexpr auto over(int id, const A& a, const B& b) { return on(id) ? a * b : a / b; }
// clang-format on

template <class A, class B>
constexpr bool equal(int id, const A& a, const B& b) {
    const bool same = static_cast<bool>(a == b);
    return on(id) ? !same : same;
}

template <class A, class B>
constexpr bool unequal(int id, const A& a, const B& b) {
    const bool differs = static_cast<bool>(a != b);
    return on(id) ? !differs : differs;
}

template <class T>
constexpr bool flip(int id, const T& value) {
    const bool is = static_cast<bool>(value);
    return on(id) ? !is : is;
}

/// `a && b` as !(!a || !b), and back, without writing either side twice.
template <class T>
constexpr bool side(int id, const T& value) {
    return flip(id, value);
}

template <class T>
constexpr bool denied(int id, const T& value) {
    const bool is = static_cast<bool>(value);
    return on(id) ? is : !is;
}

template <class T>
constexpr T beside(T value) {
    if constexpr (std::is_same_v<T, bool>)
        return !value;
    else if constexpr (std::is_floating_point_v<T>)
        return value < 2 && value != 0 ? value * T(1.1) : value + 1;
    else
        return static_cast<T>(value + 1);
}

template <class T>
constexpr T number(int id, T value) {
    return on(id) ? beside(value) : value;
}

/// Where the compiler could compute the value by itself, and must not.
template <class T>
T once(int id, T value) {
    return note(id) ? beside(value) : value;
}

/// The statement to run as the `step`-th of a row; mutant `first + k` swaps the k-th and its next.
inline int turn(int step, int count, int first) {
    for (int k = 0; k + 1 < count; ++k) {
        if (!on(first + k))
            continue;
        if (step == k)
            return k + 1;
        if (step == k + 1)
            return k;
    }
    return step;
}

} // namespace orvelle_mutants

namespace M_ = orvelle_mutants;

#pragma once
// An array of fixed size whose every index is checked. The limits of the program's tables are part of its behaviour:
// an index outside them is a failure that the user hears of, never a stray access.

#include "platform/failure.h"

#include <array>
#include <cstddef>
#include <cstdint>

/// `Size` elements, index 0 to Size - 1.
template <typename Element, std::size_t Size> class CheckedArray {
public:
    /// The element at `index`; outside 0..Size-1 throws RuntimeFailure{FailureKind::subscript}.
    Element& operator[](std::int64_t index) {
        check(index);
        return elements_[static_cast<std::size_t>(index)];
    }
    const Element& operator[](std::int64_t index) const {
        check(index);
        return elements_[static_cast<std::size_t>(index)];
    }
    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }
    /// Puts `value` into every element.
    void fill(const Element& value) { elements_.fill(value); }

private:
    static void check(std::int64_t index) {
        if (index < 0 || index >= static_cast<std::int64_t>(Size)) {
            throw RuntimeFailure{FailureKind::subscript};
        }
    }
    std::array<Element, Size> elements_{};
};

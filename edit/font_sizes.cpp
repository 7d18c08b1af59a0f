#include "edit/font_sizes.h"

#include <algorithm>
#include <array>

namespace {
constexpr std::array sizes{8, 9, 10, 11, 12, 14, 16, 18, 20, 24, 48, 72};
constexpr int lastReached = 48;
constexpr int largestAtFirst = 24;
} // namespace

int firstFontSize(int textPixels) {
    const auto isLargeEnough = [&](int size) {
        return size == largestAtFirst || fontPixels(size) * 4 >= textPixels * 5;
    };
    return *std::find_if(sizes.begin(), sizes.end(), isLargeEnough);
}

std::optional<int> largerFontSize(int size) {
    if (size >= lastReached) {
        return std::nullopt;
    }
    return *std::upper_bound(sizes.begin(), sizes.end(), size);
}

std::optional<int> smallerFontSize(int size) {
    const auto next = std::lower_bound(sizes.begin(), sizes.end(), size);
    if (next == sizes.begin()) {
        return std::nullopt;
    }
    return *std::prev(next);
}

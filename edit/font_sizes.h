#pragma once
// The fixed sizes of the sheet's font, for people who need large letters. The sheet's two buttons step through them.

#include <optional>

/// The size a view starts with, one of the fixed ones up to 24: somewhat larger than the desktop's own letters, which
/// are `textPixels` high, so that a desktop with large letters has a sheet with large letters.
int firstFontSize(int textPixels);

/// The next larger size; none from 48 on: a sheet of larger letters than that shows too little of a row to be of use,
/// and only a size set elsewhere gets there.
std::optional<int> largerFontSize(int size);
/// The next smaller size; none below the smallest.
std::optional<int> smallerFontSize(int size);

/// Height of the font in pixels. Always even, so that a half-width character is a whole number of pixels wide and
/// exactly half of a full-width one.
constexpr int fontPixels(int size) {
    return 2 * size;
}

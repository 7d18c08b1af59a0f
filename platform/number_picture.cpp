#include "platform/number_picture.h"

#include "platform/decimal_digits.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace {

/// What a character of the picture is for.
enum class Role { literal, place, point, silent };

/// A picture taken apart.
struct Layout {
    std::vector<Role> roles;          ///< one a character
    std::size_t point = 0;            ///< position of the point, or the picture's length
    std::size_t wholePlaces = 0;      ///< places before the point
    std::size_t fractionPlaces = 0;   ///< places behind it
    std::size_t leastWhole = 0;       ///< digits always shown before the point
    std::size_t leastFraction = 0;    ///< digits always shown behind it
    int shift = 0;                    ///< powers of ten by which the number is multiplied
    bool isGrouped = false;           ///< a comma every three digits

    bool hasPoint() const { return point < roles.size(); }
};

bool isPlace(char16_t unit) { return unit == u'0' || unit == u'#'; }

/// Commas between two places group, commas behind the last place scale; both are silent. Others are literals.
void layOutCommas(TextView picture, Layout& layout) {
    const auto first = picture.find_first_of(u"0#");
    const auto last = picture.substr(0, layout.point).find_last_of(u"0#");
    if (first >= layout.point || last == TextView::npos) {
        return;
    }
    for (std::size_t i = first; i < last; ++i) {
        if (picture[i] == u',') {
            layout.roles[i] = Role::silent;
            layout.isGrouped = true;
        }
    }
    for (std::size_t i = last + 1; i < layout.point && picture[i] == u','; ++i) {
        layout.roles[i] = Role::silent;
        layout.shift -= 3;
    }
}

Layout layOut(TextView picture) {
    Layout layout;
    layout.roles.assign(picture.size(), Role::literal);
    layout.point = std::min(picture.find(u'.'), picture.size());
    for (std::size_t i = 0; i < picture.size(); ++i) {
        const bool isWhole = i < layout.point;
        if (isPlace(picture[i])) {
            layout.roles[i] = Role::place;
            ++(isWhole ? layout.wholePlaces : layout.fractionPlaces);
            if (isWhole) {
                layout.leastWhole += layout.leastWhole > 0 || picture[i] == u'0';
            } else if (picture[i] == u'0') {
                layout.leastFraction = layout.fractionPlaces;
            }
        } else if (picture[i] == u'%') {
            layout.shift += 2;
        }
    }
    if (layout.hasPoint()) {
        layout.roles[layout.point] = Role::point;
    }
    layOutCommas(picture, layout);
    return layout;
}

/// Writes the digits of one number into a picture.
class Writer {
public:
    Writer(DecimalDigits number, const Layout& layout) : layout_(layout) {
        if (!number.digits.empty()) {
            number.point += layout.shift;
        }
        number = rounded(std::move(number), number.point + static_cast<int>(layout.fractionPlaces));
        isNegative_ = number.isNegative;
        whole_ = number.whole();
        whole_.insert(0, whole_.size() < layout.leastWhole ? layout.leastWhole - whole_.size() : 0, '0');
        fraction_ = number.fraction();
        fraction_.resize(std::max(fraction_.size(), layout.leastFraction), '0');
    }

    Text written(TextView picture) {
        text_ = isNegative_ ? u"-" : u"";
        std::size_t placesLeft = layout_.wholePlaces;
        std::size_t fractionAt = 0;
        for (std::size_t i = 0; i < picture.size(); ++i) {
            switch (layout_.roles[i]) {
            case Role::literal:
                text_ += picture[i];
                break;
            case Role::silent:
                break;
            case Role::point:
                writeWholeUpTo(0);
                text_ += u'.';
                break;
            case Role::place:
                if (i < layout_.point) {
                    writeWholeUpTo(--placesLeft);
                } else if (fractionAt < fraction_.size()) {
                    text_ += static_cast<char16_t>(fraction_[fractionAt++]);
                }
                break;
            }
        }
        return text_;
    }

private:
    /// Writes the next digits of the integer part until only `left` remain.
    void writeWholeUpTo(std::size_t left) {
        while (whole_.size() - wholeAt_ > left) {
            text_ += static_cast<char16_t>(whole_[wholeAt_++]);
            const std::size_t behind = whole_.size() - wholeAt_;
            if (layout_.isGrouped && behind > 0 && behind % 3 == 0) {
                text_ += u',';
            }
        }
    }

    const Layout& layout_;
    bool isNegative_ = false;
    std::string whole_;
    std::string fraction_;
    std::size_t wholeAt_ = 0;
    Text text_;
};

Text inPicture(DecimalDigits number, TextView picture) {
    const Layout layout = layOut(picture);
    return Writer(std::move(number), layout).written(picture);
}

} // namespace

Text Format(double value, TextView picture) {
    return picture.empty() ? plainNumber(value) : inPicture(decimalDigits(value), picture);
}

Text Format(float value, TextView picture) {
    return picture.empty() ? plainNumber(value) : inPicture(decimalDigits(value), picture);
}

Text Format(std::int64_t value, TextView picture) {
    return picture.empty() ? plainNumber(value) : inPicture(decimalDigits(value), picture);
}

#pragma once
// Makes a list that fails shorter: takes chunks out of it as long as what remains still fails, at last single elements.
// It knows nothing of keys.

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

/// The shortest list found by which `fails` is still true. `fails(list)` must be true. Each call of `fails` is one try;
/// after `tries` of them the list found so far is given.
template <typename Element>
std::vector<Element> shrunk(std::vector<Element> list, const std::function<bool(const std::vector<Element>&)>& fails,
                            int tries) {
    std::size_t chunk = std::max<std::size_t>(list.size() / 2, 1);
    while (tries > 0) {
        bool shorter = false;
        // From the end, where the keys behind the failure and the keys of no importance to it lie together.
        for (std::size_t end = list.size(); end > 0 && tries > 0;) {
            const std::size_t begin = end > chunk ? end - chunk : 0;
            std::vector<Element> without(list.begin(), list.begin() + static_cast<std::ptrdiff_t>(begin));
            without.insert(without.end(), list.begin() + static_cast<std::ptrdiff_t>(end), list.end());
            --tries;
            if (fails(without)) {
                list = std::move(without);
                shorter = true;
            }
            end = begin;
        }
        if (chunk > 1) {
            chunk /= 2;
        } else if (!shorter) {
            break;
        }
    }
    return list;
}

#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <set>
#include <vector>

namespace orvelle {

/// Moves the rows at `offsets` in front of the row that stands at `destination` before the move, as
/// a list does when rows are dragged. Offsets out of range are ignored.
template <class T>
void moveRows(std::vector<T>& rows, const std::set<std::size_t>& offsets, std::size_t destination) {
    std::vector<T> before, moved, after;
    for (std::size_t index = 0; index < rows.size(); ++index) {
        auto& target = offsets.contains(index) ? moved : index < destination ? before : after;
        target.push_back(std::move(rows[index]));
    }
    rows = std::move(before);
    std::move(moved.begin(), moved.end(), std::back_inserter(rows));
    std::move(after.begin(), after.end(), std::back_inserter(rows));
}

/// The `destination` of `moveRows` that brings the row at `from` to the position `to`.
constexpr std::size_t destination(std::size_t from, std::size_t to) {
    return to > from ? to + 1 : to;
}

} // namespace orvelle

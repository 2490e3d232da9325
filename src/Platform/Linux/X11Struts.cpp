#include "Platform/Linux/X11Struts.h"

#include "Platform/Linux/X11Connection.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <optional>
#include <utility>

namespace orvelle {

namespace {

using Values = std::vector<std::uint32_t>;

std::optional<X11Strut> strutOf(Values partial, Values whole) {
    auto& values = partial;
    if (values.size() < 12) {
        // The older hint reserves along the whole edge.
        values = std::move(whole);
        if (values.size() < 4)
            return {};
        values.resize(4);
        for (int edge = 0; edge < 4; ++edge)
            values.insert(values.end(), {0, INT_MAX});
    }
    const auto at = [&](std::size_t index) {
        return static_cast<int>(std::min<std::uint32_t>(values[index], INT_MAX));
    };
    return X11Strut{at(0),          at(1),          at(2),          at(3),
                    {at(4), at(5)}, {at(6), at(7)}, {at(8), at(9)}, {at(10), at(11)}};
}

/// Of all desktops' work areas that of the present one.
QRect areaOf(const Values& areas, const Values& desktop) {
    const std::size_t first = desktop.empty() ? 0 : std::size_t{desktop.front()} * 4;
    if (areas.size() < first + 4)
        return {};
    const auto at = [&](std::size_t index) { return static_cast<int>(areas[first + index]); };
    return {at(0), at(1), at(2), at(3)};
}

bool meets(X11Strut::Range range, int start, int end) {
    return range.start <= end && range.end >= start;
}

} // namespace

X11Reservations X11Reservations::read() {
    const auto root = X11::root();
    const auto asked = X11::cardinals({{root, X11::atom("_NET_CLIENT_LIST")},
                                       {root, X11::atom("_NET_WORKAREA")},
                                       {root, X11::atom("_NET_CURRENT_DESKTOP")}});
    const auto& windows = asked[0];
    std::vector<X11::PropertyOf> hints;
    for (const auto window : windows)
        for (const auto* hint : {"_NET_WM_STRUT_PARTIAL", "_NET_WM_STRUT"})
            hints.push_back({window, X11::atom(hint)});
    auto values = X11::cardinals(hints);

    X11Reservations reservations;
    reservations.workArea = areaOf(asked[1], asked[2]);
    for (std::size_t index = 0; index < windows.size(); ++index)
        if (const auto strut =
                strutOf(std::move(values[2 * index]), std::move(values[2 * index + 1]))) {
            reservations.struts.push_back(*strut);
            reservations.strutWindows.push_back(windows[index]);
        }
    return reservations;
}

QRect withoutStruts(QRect screen, QSize display, const std::vector<X11Strut>& struts) {
    QRect free = screen;
    const auto take = [&](const QRect& rest) {
        if (!(free & rest).isEmpty())
            free &= rest;
    };
    for (const auto& strut : struts) {
        if (strut.top > screen.top() && meets(strut.topX, screen.left(), screen.right()))
            take({QPoint(screen.left(), strut.top), screen.bottomRight()});
        if (strut.bottom > 0 && meets(strut.bottomX, screen.left(), screen.right()))
            take({screen.topLeft(), QPoint(screen.right(), display.height() - strut.bottom - 1)});
        if (strut.left > screen.left() && meets(strut.leftY, screen.top(), screen.bottom()))
            take({QPoint(strut.left, screen.top()), screen.bottomRight()});
        if (strut.right > 0 && meets(strut.rightY, screen.top(), screen.bottom()))
            take({screen.topLeft(), QPoint(display.width() - strut.right - 1, screen.bottom())});
    }
    return free;
}

} // namespace orvelle

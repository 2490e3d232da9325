#include "Platform/Linux/X11Struts.h"

#include "Platform/Linux/X11Connection.h"

#include <algorithm>
#include <climits>
#include <optional>

namespace orvelle {

namespace {

std::optional<X11Strut> strutOf(xcb_window_t window) {
    auto values = X11::cardinals(window, X11::atom("_NET_WM_STRUT_PARTIAL"));
    if (values.size() < 12) {
        // The older hint reserves along the whole edge.
        values = X11::cardinals(window, X11::atom("_NET_WM_STRUT"));
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

bool meets(X11Strut::Range range, int start, int end) {
    return range.start <= end && range.end >= start;
}

} // namespace

std::vector<X11Strut> reservedStruts() {
    std::vector<X11Strut> struts;
    for (const auto window : X11::cardinals(X11::root(), X11::atom("_NET_CLIENT_LIST")))
        if (const auto strut = strutOf(window))
            struts.push_back(*strut);
    return struts;
}

QRect workArea() {
    const auto areas = X11::cardinals(X11::root(), X11::atom("_NET_WORKAREA"));
    const auto current = X11::cardinals(X11::root(), X11::atom("_NET_CURRENT_DESKTOP"));
    const std::size_t first = current.empty() ? 0 : std::size_t{current.front()} * 4;
    if (areas.size() < first + 4)
        return {};
    const auto at = [&](std::size_t index) { return static_cast<int>(areas[first + index]); };
    return {at(0), at(1), at(2), at(3)};
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

#include "Views/Components/RowFit.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace orvelle {

double widthCap(std::vector<double> widths, double room) {
    std::sort(widths.begin(), widths.end());
    auto remaining = widths.size();
    for (const double width : widths) {
        const double share = std::max(0.0, room / static_cast<double>(remaining));
        if (width > share)
            return share;
        room -= width;
        --remaining;
    }
    return widths.empty() ? 0 : widths.back();
}

namespace {

constexpr double shortestTitle = 16;

class RowFitting {
public:
    RowFitting(const std::vector<RowPart>& parts, double gap, double room)
        : parts_(parts), gap_(gap), room_(room) {
        for (const auto& part : parts)
            fitted_.texts.push_back(static_cast<int>(part.texts.size()));
    }

    FittedRow run() {
        while (lacksRoom(shortestTitle) && dropText())
            ;
        const bool keepsTitles = !lacksRoom(shortestTitle);
        while (lacksRoom(0) && dropPart())
            ;
        std::vector<double> titles;
        for (std::size_t index = 0; index < parts_.size(); ++index)
            if (isShown(index))
                titles.push_back(parts_[index].title);
        if (keepsTitles)
            fitted_.titleCap = widthCap(std::move(titles), room_ - width(0));
        return fitted_;
    }

private:
    bool isShown(std::size_t index) const { return fitted_.texts[index] != FittedRow::hidden; }
    bool lacksRoom(double titleLimit) const { return width(titleLimit) > room_; }

    double width(double titleLimit) const {
        double sum = -gap_;
        for (std::size_t index = 0; index < parts_.size(); ++index) {
            if (!isShown(index))
                continue;
            const auto& part = parts_[index];
            sum += gap_ + part.fixed + std::min(part.title, titleLimit);
            sum =
                std::accumulate(part.texts.begin(), part.texts.begin() + fitted_.texts[index], sum);
        }
        return std::max(0.0, sum);
    }
    bool dropText() {
        for (auto kept = fitted_.texts.rbegin(); kept != fitted_.texts.rend(); ++kept)
            if (*kept > 0) {
                --*kept;
                return true;
            }
        return false;
    }
    bool dropPart() {
        for (auto kept = fitted_.texts.rbegin(); kept != fitted_.texts.rend(); ++kept)
            if (*kept != FittedRow::hidden) {
                *kept = FittedRow::hidden;
                return true;
            }
        return false;
    }

    const std::vector<RowPart>& parts_;
    const double gap_;
    const double room_;
    FittedRow fitted_;
};

} // namespace

FittedRow fittedRow(const std::vector<RowPart>& parts, double gap, double room) {
    return RowFitting(parts, gap, room).run();
}

} // namespace orvelle

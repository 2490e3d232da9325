#pragma once

#include "Platform/LoginItem.h"

namespace orvelle {

class SimulatedLoginItem : public LoginItem {
public:
    bool isEnrolled = false;
    bool works = true;

    bool enroll() override { return change(true); }
    bool withdraw() override { return change(false); }

private:
    bool change(bool enrolled) {
        if (works)
            isEnrolled = enrolled;
        return works;
    }
};

} // namespace orvelle

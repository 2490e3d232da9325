#pragma once

namespace orvelle {

/// The program's entry among those that the desktop starts when the user logs in. Main thread only.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    /// False when the desktop does not take the entry. A second call changes nothing.
    virtual bool enroll() = 0;
    /// False when the entry cannot be taken away; true when there is none.
    virtual bool withdraw() = 0;
};

} // namespace orvelle

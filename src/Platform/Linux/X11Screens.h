#pragma once

#include "Foundation/Published.h"
#include "Platform/Linux/X11Connection.h"
#include "Platform/Linux/X11Desktop.h"
#include "Platform/Linux/X11Struts.h"
#include "Platform/Screens.h"
#include "Platform/UserDefaults.h"

#include <QObject>
#include <QTimer>

#include <string_view>

class QScreen;

namespace orvelle {

/// The display's screens. A desktop cannot tell of a notch, so that the user does, by
/// `PlatformSettings`. Values that are no number above 0, or larger
/// than the screen, count as unset. Answers without asking the display server: what stands there
/// is known, and its events tell of every change.
class X11Screens : public Screens {
public:
    X11Screens(X11Desktop& desktop, UserDefaults& defaults);

    std::vector<Screen> screens() const override;
    std::optional<Screen> main() const override;
    /// What changes within a few hundredths of a second is told once.
    Subscription observeChanges(std::function<void()> changed) override;

private:
    void watch(QScreen* screen);
    void handle(const xcb_generic_event_t& event);
    void reservationsChanged();
    void readReservations();
    void refresh();
    Screen describe(const QScreen& screen) const;
    void addNotch(Screen& screen) const;

    X11Desktop& desktop_;
    UserDefaults& defaults_;
    X11Reservations reservations_;
    bool areReservationsStale_ = false;
    std::vector<Screen> known_; ///< as last told
    QTimer settle_;
    QObject connections_; ///< ends the toolkit's connections with this object
    Event<> changed_;
    Subscription events_;
    Subscription settings_;
    Subscription manager_;
};

} // namespace orvelle

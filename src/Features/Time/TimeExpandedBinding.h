#pragma once

#include "Features/Time/TimeExpandedView.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

struct WorldClockValue {
    Q_GADGET
    Q_PROPERTY(orvelle::TextValue cityName MEMBER cityName)
    Q_PROPERTY(orvelle::TextValue timeString MEMBER timeString)
    Q_PROPERTY(orvelle::TextValue offsetLabel MEMBER offsetLabel)

public:
    QString id; ///< the zone's identifier
    TextValue cityName;
    TextValue timeString;
    TextValue offsetLabel;
    bool operator==(const WorldClockValue&) const = default;
};

class TimeExpandedBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, dividerPadding, TimeExpandedView)
    ORVELLE_SHOWN(orvelle::TextValue, localTime)
    ORVELLE_SHOWN(orvelle::TextValue, localDate)
    ORVELLE_SHOWN(orvelle::TextValue, localTimezone)
    ORVELLE_LIST(WorldClockValue, cards)

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<TimeExpandedView> view_;
};

} // namespace orvelle

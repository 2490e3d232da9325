#pragma once

#include "Features/Calendar/CalendarExpandedView.h"
#include "Platform/RunLoop.h"
#include "Views/Qt/Binding.h"
#include "Views/Qt/ListModel.h"
#include "Views/Qt/MenuValue.h"
#include "Views/Qt/Values.h"

#include <optional>

namespace orvelle {

/// A section's header, or one of its rows.
struct CalendarItemValue {
    Q_GADGET
    Q_PROPERTY(bool isHeader MEMBER isHeader)
    Q_PROPERTY(QColor fill MEMBER fill)
    Q_PROPERTY(QColor circle MEMBER circle)
    Q_PROPERTY(orvelle::TextValue title MEMBER title)
    Q_PROPERTY(orvelle::TextValue time MEMBER time)
    Q_PROPERTY(QVariant location MEMBER location)
    Q_PROPERTY(QVariant untilStart MEMBER untilStart)
    Q_PROPERTY(double startDate MEMBER startDate)

public:
    QString id;
    bool isHeader = false;
    QColor fill;
    QColor circle;
    TextValue title; ///< of the section or the event
    TextValue time;
    QVariant location;
    QVariant untilStart;
    double startDate = 0; ///< as the core counts, for the menu
    bool operator==(const CalendarItemValue&) const = default;
};

class CalendarExpandedBinding : public Binding {
    Q_OBJECT
    QML_ELEMENT
    ORVELLE_CONSTANT(double, emptyPadding, CalendarExpandedView)
    ORVELLE_CONSTANT(double, listPadding, CalendarExpandedView)
    ORVELLE_CONSTANT(double, itemSpacing, CalendarExpandedView)
    ORVELLE_CONSTANT(double, headerPadding, CalendarExpandedView)
    ORVELLE_CONSTANT(double, rowHorizontalPadding, CalendarExpandedView)
    ORVELLE_CONSTANT(double, rowVerticalPadding, CalendarExpandedView)
    ORVELLE_CONSTANT(double, rowSpacing, CalendarExpandedView)
    ORVELLE_CONSTANT(double, rowCornerRadius, CalendarExpandedView)
    ORVELLE_CONSTANT(double, circleDiameter, CalendarExpandedView)
    ORVELLE_SHOWN(QVariant, noEvents)
    ORVELLE_LIST(CalendarItemValue, items)

public:
    Q_INVOKABLE orvelle::MenuValue emptyMenu() const;
    Q_INVOKABLE orvelle::MenuValue rowMenu(double startDate) const;

protected:
    void attach(const ViewEnvironment& environment) override;
    void refresh() override;

private:
    std::optional<CalendarExpandedView> view_;
    Timer clock_; ///< the sections depend on the time
};

} // namespace orvelle

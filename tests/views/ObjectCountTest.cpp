#include "views/ViewFixture.h"

#include <QCoreApplication>
#include <QEvent>

namespace orvelle {

/// What is shown again and again leaves nothing behind.
class ObjectCountTest : public ViewFixture {
protected:
    qsizetype objects() {
        settle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        turn();
        return root->findChildren<QObject*>().size();
    }
    void goThroughEverything() {
        show(NotchExpandedState::hovering);
        notchState.expandedState = NotchExpandedState::expanded;
        for (const auto panel : allActivePanels) {
            notchState.activePanel = panel;
            turn();
        }
        show(NotchExpandedState::collapsed);
    }
};

TEST_F(ObjectCountTest, goingThroughEveryPanelFiveTimesMakesNoObjectThatStays) {
    goThroughEverything();
    const auto once = objects();
    for (int round = 0; round < 5; ++round)
        goThroughEverything();
    EXPECT_TRUE(eventually([&] { return objects() <= once; })) << objects() << " of " << once;
}

} // namespace orvelle

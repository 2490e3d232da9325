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
        for (const auto panel : allActivePanels)
            show(panel);
        show(NotchExpandedState::collapsed);
    }
};

TEST_F(ObjectCountTest, goingThroughEveryPanelTwentyTimesMakesNoObjectThatStays) {
    goThroughEverything();
    const auto once = objects();
    for (int round = 0; round < 20; ++round)
        goThroughEverything();
    EXPECT_EQ(objects(), once);
}

} // namespace orvelle

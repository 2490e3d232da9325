#include "Core/NotchWindow/NotchDropContainerView.h"

#include "Support/AppFixture.h"

namespace orvelle {
namespace {

using State = NotchExpandedState;
using Urls = std::vector<std::string>;

class DragOverTheNotch : public AppFixture {
protected:
    DragOverTheNotch() {
        launchNormally();
        for (const char* path : {"/home/1.txt", "/home/2.txt", "/home/3.txt"})
            platform.fileSystemPort.files[path] = path;
    }

    DraggingDestination& target() { return *window().dragging; }
    NotchState& notch() { return app.notchState; }
    Urls shelved() {
        runPosted();
        Urls names;
        for (const auto& item : app.fileShelfManager.items.get())
            names.push_back(item.name);
        return names;
    }
    const Urls three{"file:///home/2.txt", "file:///home/1.txt", "file:///home/3.txt"};
};

TEST_F(DragOverTheNotch, OpensTheCollapsedNotchOnTheShelfAndLeavingAgainClosesIt) {
    EXPECT_EQ(target().draggingEntered(), DragOperation::copy);
    EXPECT_TRUE(notch().isDragSessionActive);
    EXPECT_EQ(notch().activePanel.get(), ActivePanel::fileShelf);
    EXPECT_EQ(state(), State::expanded);
    EXPECT_EQ(window().frame().size, (Size{566, 220})) << "at once";
    EXPECT_EQ(target().draggingUpdated(), DragOperation::copy);
    target().draggingExited();
    EXPECT_FALSE(notch().isDragSessionActive);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(DragOverTheNotch, TurnsAnOpenCalendarToTheShelfWhichStaysAfterTheDragLeaves) {
    notch().activePanel = ActivePanel::calendar;
    setState(State::expanded);
    notch().panelTransitionEdge = Edge::leading;
    target().draggingEntered();
    EXPECT_EQ(notch().activePanel.get(), ActivePanel::fileShelf);
    EXPECT_EQ(notch().panelTransitionEdge.get(), Edge::leading) << "not touched";
    target().draggingExited();
    EXPECT_EQ(notch().activePanel.get(), ActivePanel::fileShelf);
    EXPECT_EQ(state(), State::expanded);
    EXPECT_FALSE(notch().isDragSessionActive);
}

TEST_F(DragOverTheNotch, ADragThatHasLeftClosesNothingThatWasOpenedSince) {
    target().draggingEntered();
    target().draggingExited();
    setState(State::expanded);
    target().draggingEntered();
    target().draggingExited();
    EXPECT_EQ(state(), State::expanded);
}

TEST_F(DragOverTheNotch, TheSessionIsUnderWayWhenTheShelfComesUp) {
    bool wasActive = false;
    const auto watch =
        notch().activePanel.observe([&](ActivePanel) { wasActive = notch().isDragSessionActive; });
    target().draggingEntered();
    EXPECT_TRUE(wasActive);
}

TEST_F(DragOverTheNotch, ADropOfThreeFilesAddsThreeInTheirOrderAndThePanelStaysOpen) {
    target().draggingEntered();
    EXPECT_TRUE(target().prepareForDragOperation());
    EXPECT_TRUE(target().performDragOperation(three));
    EXPECT_EQ(shelved(), (Urls{"2.txt", "1.txt", "3.txt"}));
    EXPECT_FALSE(notch().isDragSessionActive);
    advance(5);
    EXPECT_EQ(state(), State::expanded);
    target().draggingEntered();
    target().draggingExited();
    EXPECT_EQ(state(), State::expanded) << "it is no longer the drag that opened it";
}

TEST_F(DragOverTheNotch, ADragWithoutFilesIsNotOffered) {
    EXPECT_STREQ(draggedFileType, "text/uri-list") << "the one type that is registered";
    EXPECT_FALSE(target().performDragOperation(Urls{}));
    EXPECT_FALSE(target().performDragOperation(std::nullopt));
    EXPECT_TRUE(shelved().empty());
}

TEST_F(DragOverTheNotch, ADropThatCannotBeReadKeepsTheSessionUntilTheNextDrag) {
    target().draggingEntered();
    EXPECT_FALSE(target().performDragOperation(std::nullopt));
    EXPECT_TRUE(notch().isDragSessionActive);
    EXPECT_EQ(state(), State::expanded);
    target().draggingEntered();
    target().draggingExited();
    EXPECT_FALSE(notch().isDragSessionActive);
    EXPECT_EQ(state(), State::collapsed);
}

TEST_F(DragOverTheNotch, AFeatureThatIsSwitchedOffStillTakesFiles) {
    app.fileShelfManager.isEnabled = false;
    EXPECT_TRUE(target().performDragOperation(three));
    EXPECT_EQ(shelved().size(), 3u);
}

TEST_F(DragOverTheNotch, TheHoverBarOpensToo) {
    setState(State::hovering);
    target().draggingEntered();
    EXPECT_EQ(state(), State::expanded);
    target().draggingExited();
    EXPECT_EQ(state(), State::collapsed);
}

TEST(NotchDropContainerView, WithoutCallbacksNothingIsTaken) {
    NotchDropContainerView view;
    EXPECT_EQ(view.draggingEntered(), DragOperation::copy);
    view.draggingExited();
    EXPECT_FALSE(view.performDragOperation(std::vector<std::string>{"file:///a"}));
}

} // namespace
} // namespace orvelle

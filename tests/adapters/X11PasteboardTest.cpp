#include "Platform/Linux/X11Pasteboard.h"

#include "adapters/EventLoopWait.h"
#include "adapters/SelectionOwner.h"
#include "adapters/XServer.h"

namespace orvelle {
namespace {

class X11PasteboardTest : public testing::Test {
protected:
    X11PasteboardTest() { pasteboard.changeCount(); }

    void copy(const std::string& copied) {
        owner.offers = {{"UTF8_STRING", copied}};
        copy();
    }
    void copy() {
        const auto before = pasteboard.changeCount();
        owner.copy();
        ASSERT_TRUE(waitUntil([&] { return pasteboard.changeCount() > before; }));
    }
    /// Begins to read, and does not wait.
    void read() {
        isAnswered = false;
        text.reset();
        reading = pasteboard.readString([this](std::optional<std::string> answer) {
            isAnswered = true;
            text = std::move(answer);
        });
    }
    std::optional<std::string> readAndWait() {
        read();
        EXPECT_TRUE(waitUntil([&] { return isAnswered; }));
        return text;
    }
    using Texts = std::vector<std::string>;

    XServer server;
    SelectionOwner owner;
    X11Pasteboard pasteboard{std::chrono::milliseconds(100)};
    Subscription reading;
    bool isAnswered = false;
    std::optional<std::string> text;
};

TEST_F(X11PasteboardTest, CountsEveryCopyAndReadsItsText) {
    copy("first Ω");
    const auto count = pasteboard.changeCount();
    EXPECT_EQ(readAndWait(), "first Ω");
    EXPECT_EQ(pasteboard.changeCount(), count) << "reading is no change";
    copy("second");
    EXPECT_EQ(readAndWait(), "second");
}

TEST_F(X11PasteboardTest, WithoutAnOwnerThereIsNoText) {
    EXPECT_EQ(readAndWait(), std::nullopt);
}

TEST_F(X11PasteboardTest, ASecretIsNotEvenRead) {
    owner.offers = {{"UTF8_STRING", "password"}, {"x-kde-passwordManagerHint", "secret"}};
    copy();
    EXPECT_EQ(readAndWait(), std::nullopt);
    EXPECT_EQ(owner.requests, Texts{"TARGETS"});
}

TEST_F(X11PasteboardTest, APictureHasNoText) {
    owner.offers = {{"image/png", "PNG"}};
    copy();
    EXPECT_EQ(readAndWait(), std::nullopt);
    EXPECT_EQ(owner.requests, Texts{"TARGETS"});
}

TEST_F(X11PasteboardTest, CopiedFilesAreNoTextWhoeverCopiedThem) {
    const std::string uris = "# files\r\nfile:///home/a%20b.txt\r\n";
    for (const auto& offers : std::vector<std::map<std::string, std::string>>{
             {{"text/uri-list", uris}, {"UTF8_STRING", "/home/a b.txt"}},
             {{"text/uri-list", "FILE://elsewhere/a"}, {"STRING", "/a"}},
             {{"text/uri-list", "sftp://host/a"},
              {"x-special/gnome-copied-files", "copy\nsftp://host/a"},
              {"text/plain;charset=utf-8", "sftp://host/a"}},
             {{"x-special/mate-copied-files", "copy\nfile:///a"}, {"UTF8_STRING", "/a"}},
             {{"application/x-kde-cutselection", "0"}, {"UTF8_STRING", "/a"}}}) {
        owner.offers = offers;
        copy();
        EXPECT_EQ(readAndWait(), std::nullopt) << offers.begin()->first;
    }
}

TEST_F(X11PasteboardTest, OwnFilesAreNoText) {
    pasteboard.writeFiles({"file:///home/a.txt"});
    EXPECT_EQ(readAndWait(), std::nullopt);
}

TEST_F(X11PasteboardTest, ACopiedLinkIsItsText) {
    owner.offers = {{"text/uri-list", "https://host.example/file:///a\r\n"},
                    {"UTF8_STRING", "https://host.example"}};
    copy();
    EXPECT_EQ(readAndWait(), "https://host.example");
    EXPECT_EQ(owner.requests, (Texts{"TARGETS", "text/uri-list", "UTF8_STRING"}));
}

TEST_F(X11PasteboardTest, TheSelectionIsReadBesideTheClipboard) {
    const auto readSelection = [this] {
        std::optional<std::optional<std::string>> selected;
        auto selecting = pasteboard.readSelection([&](auto answer) { selected = answer; });
        read();
        EXPECT_TRUE(waitUntil([&] { return isAnswered && selected; }));
        return selected.value_or(std::nullopt);
    };
    copy("copied");
    EXPECT_EQ(readSelection(), std::nullopt);
    SelectionOwner other;
    other.select("selected");
    EXPECT_TRUE(waitUntil([&] { return readSelection() == "selected"; }));
    EXPECT_EQ(text, "copied");
}

TEST_F(X11PasteboardTest, AnOwnerThatNeverAnswersIsGivenUp) {
    owner.isSilent = true;
    copy("never");
    read();
    EXPECT_FALSE(isAnswered) << "it would have waited";
    EXPECT_TRUE(waitUntil([&] { return isAnswered; }));
    EXPECT_EQ(text, std::nullopt);
}

TEST_F(X11PasteboardTest, ALateAnswerIsNotTakenForTheNextOne) {
    owner.isSilent = true;
    copy("late");
    EXPECT_EQ(readAndWait(), std::nullopt);
    SelectionOwner second;
    const auto before = pasteboard.changeCount();
    second.copy("in time");
    ASSERT_TRUE(waitUntil([&] { return pasteboard.changeCount() > before; }));
    read();
    owner.speak();
    EXPECT_TRUE(waitUntil([&] { return isAnswered; }));
    EXPECT_EQ(text, "in time");
}

TEST_F(X11PasteboardTest, ATextInPiecesIsPutTogether) {
    owner.pieceSize = 7;
    copy("a text that comes in pieces");
    EXPECT_EQ(readAndWait(), "a text that comes in pieces");
    EXPECT_TRUE(waitUntil([&] { return owner.isTransferDone; }));
}

TEST_F(X11PasteboardTest, AnEndlessTextIsNotKeptAndItsSenderComesToItsEnd) {
    owner.pieceSize = 1 << 18;
    copy(std::string(8 * Pasteboard::maximumSize, 'x'));
    EXPECT_EQ(readAndWait(), std::nullopt);
    EXPECT_TRUE(waitUntil([&] { return owner.isTransferDone; }));
    owner.pieceSize = 1 << 30;
    copy("short");
    EXPECT_EQ(readAndWait(), "short");
}

TEST_F(X11PasteboardTest, ATextThatIsTooLongInOnePieceIsNotRead) {
    copy(std::string(Pasteboard::maximumSize + 1, 'x'));
    EXPECT_EQ(readAndWait(), std::nullopt);
    copy(std::string(Pasteboard::maximumSize, 'x'));
    EXPECT_EQ(readAndWait()->size(), Pasteboard::maximumSize);
}

TEST_F(X11PasteboardTest, AnOwnerThatDoesNotTellItsTargetsIsAskedForText) {
    owner.tellsTargets = false;
    copy("plain");
    EXPECT_EQ(readAndWait(), "plain");
    EXPECT_EQ(owner.requests, (Texts{"TARGETS", "UTF8_STRING"}));
}

TEST_F(X11PasteboardTest, AnOldProgramsTextIsLatin1) {
    owner.offers = {{"STRING", "caf\xe9"}};
    copy();
    EXPECT_EQ(readAndWait(), "café");
}

TEST_F(X11PasteboardTest, WhatACarelessProgramCallsLatin1IsUtf8) {
    owner.offers = {{"STRING", "café"}};
    copy();
    EXPECT_EQ(readAndWait(), "café");
}

TEST_F(X11PasteboardTest, BytesThatAreNoTextAreReplaced) {
    copy("a\xff"
         "b");
    EXPECT_EQ(readAndWait(), "a\uFFFDb");
}

TEST_F(X11PasteboardTest, TwoReadingsShareOneAnswerAndAHandleThatDiesCallsItsOff) {
    owner.isSilent = true;
    copy("text");
    read();
    std::optional<std::string> second;
    bool isThirdCalled = false;
    const auto other = pasteboard.readString([&](auto answer) { second = answer; });
    pasteboard.readString([&](auto) { isThirdCalled = true; }).reset();
    ASSERT_TRUE(waitUntil([&] { return !owner.requests.empty(); }));
    owner.speak();
    EXPECT_TRUE(waitUntil([&] { return isAnswered; }));
    EXPECT_EQ(text, "text");
    EXPECT_EQ(second, "text");
    EXPECT_FALSE(isThirdCalled);
    EXPECT_EQ(owner.requests, (Texts{"TARGETS", "UTF8_STRING"}));
}

TEST(X11PasteboardWithoutServer, HasNothingAndWaitsForNothing) {
    const TemporaryVariable display("DISPLAY", ":4242");
    X11Pasteboard pasteboard;
    EXPECT_EQ(pasteboard.changeCount(), 0);
    std::optional<std::string> text = "unanswered";
    const auto reading = pasteboard.readString([&](auto answer) { text = answer; });
    EXPECT_EQ(text, std::nullopt);
}

} // namespace
} // namespace orvelle

#include "Views/UnsavedNotice.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

std::string wordsOf(const UnsavedChanges::Files& files) {
    const auto notice = UnsavedNotice::text(files);
    return notice ? notice->text : "";
}

TEST(UnsavedNotice, IsNoneWhileAllIsSaved) {
    EXPECT_EQ(UnsavedNotice::text({}), std::nullopt);
}

TEST(UnsavedNotice, TellsEachReasonInWords) {
    EXPECT_EQ(wordsOf({{"a", WriteFailure::full}}), "Not saved: the disk is full");
    EXPECT_EQ(wordsOf({{"a", WriteFailure::overQuota}}), "Not saved: the disk quota is used up");
    EXPECT_EQ(wordsOf({{"a", WriteFailure::readOnly}}), "Not saved: the disk is read-only");
    EXPECT_EQ(wordsOf({{"a", WriteFailure::denied}}), "Not saved: no permission to write");
    EXPECT_EQ(wordsOf({{"a", WriteFailure::tooLarge}}), "Not saved: the file is too large");
    EXPECT_EQ(wordsOf({{"a", WriteFailure::obstructed}}),
              "Not saved: something else is in the file's place");
    EXPECT_EQ(wordsOf({{"a", WriteFailure::broken}}), "Not saved: the disk reports an error");
}

TEST(UnsavedNotice, OfSeveralReasonsTellsTheGravest) {
    EXPECT_EQ(wordsOf({{"a", WriteFailure::broken}, {"b", WriteFailure::readOnly}}),
              "Not saved: the disk is read-only");
}

} // namespace
} // namespace orvelle

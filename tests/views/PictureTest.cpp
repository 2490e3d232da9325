#include "views/ViewFixture.h"

namespace orvelle {

class PictureTest : public ViewFixture {};

TEST_F(PictureTest, all) {
    show(NotchExpandedState::collapsed);
    picture("collapsed");
}

} // namespace orvelle

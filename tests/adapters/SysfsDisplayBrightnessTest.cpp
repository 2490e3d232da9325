#include "Platform/Linux/SysfsDisplayBrightness.h"

#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace orvelle {
namespace {

using Levels = std::vector<std::optional<float>>;

class SysfsDisplayBrightnessTest : public testing::Test {
protected:
    void addBacklight(const std::string& name, std::string_view type, std::string_view brightness,
                      std::string_view highest) {
        files.write(name + "/type", type);
        files.write(name + "/brightness", brightness);
        files.write(name + "/max_brightness", highest);
    }

    TemporaryFolder files;
    SysfsDisplayBrightness displays{files.path()};
};

TEST_F(SysfsDisplayBrightnessTest, ABacklightIsAShareOfItsHighestLevel) {
    addBacklight("intel_backlight", "raw\n", "300\n", "1200\n");
    EXPECT_EQ(displays.levels(), (Levels{0.25F}));
    addBacklight("intel_backlight", "raw\n", "1200\n", "1200\n");
    EXPECT_EQ(displays.levels(), (Levels{1.0F}));
}

TEST_F(SysfsDisplayBrightnessTest, TheFirmwaresBacklightComesLast) {
    addBacklight("acpi_video0", "firmware\n", "3\n", "4\n");
    addBacklight("dell_backlight", "platform\n", "2\n", "4\n");
    addBacklight("intel_backlight", "raw\n", "1\n", "4\n");
    EXPECT_EQ(displays.levels(), (Levels{0.25F, 0.5F, 0.75F}));
}

TEST_F(SysfsDisplayBrightnessTest, ABacklightThatMakesNoSenseDoesNotAnswer) {
    addBacklight("a", "raw\n", "none\n", "4\n");
    addBacklight("b", "raw\n", "3\n", "0\n");
    addBacklight("c", "raw\n", "9\n", "4\n");
    files.write("d/type", "raw\n");
    EXPECT_EQ(displays.levels(), (Levels{std::nullopt, std::nullopt, 1.0F, std::nullopt}));
}

TEST_F(SysfsDisplayBrightnessTest, WithoutBacklightsTheListIsEmptyAndWithoutTheirFolderNone) {
    EXPECT_EQ(displays.levels(), Levels{});
    SysfsDisplayBrightness nowhere(files / "missing");
    EXPECT_EQ(nowhere.levels(), std::nullopt);
}

} // namespace
} // namespace orvelle

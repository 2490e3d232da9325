#include "Platform/Qt/QtApplication.h"
#include "adapters/QtTest.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace orvelle {
namespace {

TEST(QtApplication, ReadsTheSystemsNameAndVersion) {
    QTemporaryDir folder;
    const std::filesystem::path file = folder.filePath("os-release").toStdString();
    std::ofstream(file) << "PRETTY_NAME=\"Some Linux 12.4 (word)\"\nVERSION_ID=\"12.4\"\n";
    const QtApplication application(file);
    EXPECT_EQ(application.operatingSystemVersion().major, 12);
    EXPECT_EQ(application.operatingSystemVersion().minor, 4);
    EXPECT_EQ(application.operatingSystemVersion().patch, 0);
    EXPECT_EQ(application.operatingSystemVersionString(), "Some Linux 12.4 (word)");
}

TEST(QtApplication, ASystemWithoutDescriptionHasVersionZero) {
    const QtApplication application("/nonexistent/os-release");
    EXPECT_EQ(application.operatingSystemVersion().major, 0);
    EXPECT_EQ(application.operatingSystemVersionString(), "Linux");
}

TEST(QtApplication, RemembersItsActivationPolicy) {
    QtApplication application;
    application.setActivationPolicy(ActivationPolicy::accessory);
    EXPECT_EQ(application.activationPolicy.get(), ActivationPolicy::accessory);
}

TEST(QtApplication, TerminateEndsTheMainLoopAfterThePresentEvent) {
    auto& qt = application();
    QtApplication application;
    bool eventEnded = false;
    QMetaObject::invokeMethod(
        &qt,
        [&] {
            application.terminate();
            eventEnded = true;
        },
        Qt::QueuedConnection);
    EXPECT_EQ(qt.exec(), 0);
    EXPECT_TRUE(eventEnded);
}

} // namespace
} // namespace orvelle
